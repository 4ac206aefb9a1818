#pragma once

#include <QObject>

#include <memory>

class ApplicationPalette;
class InstanceChannel;
class PopoverController;
class ProfileManager;
class QmlHost;
class TrayIcon;
class Updater;
class UpdaterPresenter;
class WindowRegistry;
class WindowShortcuts;

// The application: the one ProfileManager, the update controller (started at launch), the
// tray item with its popover, and the windows opened by id ("settings", "preferences",
// "updater"). No window opens at launch unless the desktop has no status area.
class KivoraApp : public QObject {
    Q_OBJECT

public:
    // The whole program: prepares the platform, hands a second start over to the running
    // instance, then runs the event loop.
    static int main(int argc, char** argv);

    // The platform choices made before Qt starts: the software scene graph (unless the user
    // chose a backend) and XWayland on Wayland sessions (unless the user chose a platform).
    static void prepareEnvironment();

    KivoraApp();
    ~KivoraApp() override;

    // Builds the long-lived objects and shows the tray item.
    void start(InstanceChannel& channel);

    void openPopover();
    void openWindow(const QString& id);

private:
    void registerWindows();
    void registerCommands(InstanceChannel& channel);

    std::unique_ptr<ApplicationPalette> m_palette;
    std::unique_ptr<ProfileManager> m_manager;
    std::unique_ptr<Updater> m_updater;
    std::unique_ptr<QmlHost> m_host;
    std::unique_ptr<WindowRegistry> m_windows;
    std::unique_ptr<WindowShortcuts> m_shortcuts;
    std::unique_ptr<PopoverController> m_popover;
    std::unique_ptr<UpdaterPresenter> m_updaterPresenter;
    std::unique_ptr<TrayIcon> m_tray;
};
