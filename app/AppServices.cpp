#include "app/AppServices.h"

#include "activation/ProfileManager.h"
#include "app/WindowRegistry.h"

#include <QPointer>

namespace {

QPointer<ProfileManager> s_profileManager;
QPointer<WindowRegistry> s_windows;

} // namespace

ProfileManager* AppServices::profileManager()
{
    return s_profileManager;
}

void AppServices::setProfileManager(ProfileManager* manager)
{
    s_profileManager = manager;
}

WindowRegistry* AppServices::windows()
{
    return s_windows;
}

void AppServices::setWindows(WindowRegistry* windows)
{
    s_windows = windows;
}
