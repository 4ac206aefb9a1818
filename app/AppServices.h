#pragma once

class ProfileManager;
class WindowRegistry;

// The long-lived objects the views reach. The application sets them once at start; a test
// that loads the views sets its own. The QML singletons of the same names hand them out.
class AppServices {
public:
    static ProfileManager* profileManager();
    static void setProfileManager(ProfileManager* manager);

    static WindowRegistry* windows();
    static void setWindows(WindowRegistry* windows);
};
