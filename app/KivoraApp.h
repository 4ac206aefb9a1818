// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <memory>

class AIContextManager;
class ApplicationPalette;
class AIProviderCatalogue;
class AutostartSwitch;
class InstanceChannel;
class PopoverController;
class ProfileActions;
class ProfileFileWatcher;
class ProfileListModel;
class ProfileManager;
class ProfileTransfer;
class QJSEngine;
class QQmlEngine;
class QmlHost;
class RelativeTime;
class SettingsManager;
class SettingsProgress;
class SettingsTab;
class SystemColorScheme;
class SystemFont;
class TrayIcon;
class Updater;
class UpdaterPresenter;
class WindowRegistry;
class WindowShortcuts;

// The application and its composition root: it makes every long-lived object once, in the
// order they depend on each other, and hands them out. Nothing else makes one; the QML
// singletons of the module take theirs from the KivoraApp attached to their engine
// (QmlSingletons.h). No window opens at launch unless the desktop has no status area.
class KivoraApp : public QObject {
    Q_OBJECT

public:
    struct Options {
        QString home;            // empty: the user's home folder
        QString preferencesPath; // empty: PreferencesFile::path()
        // At start the saved profile's AI settings go back into the environment.
        bool restoreAIContext = true;
    };

    // The whole program: prepares the platform, hands a second start over to the running
    // instance, then runs the event loop.
    static int main(int argc, char** argv);

    // The platform choices made before Qt starts: the software scene graph (unless the user
    // chose a backend) and XWayland on Wayland sessions (unless the user chose a platform).
    static void prepareEnvironment();

    explicit KivoraApp(QObject* parent = nullptr);
    explicit KivoraApp(const Options& options, QObject* parent = nullptr);
    ~KivoraApp() override;

    // Shows the tray item, starts the updater and answers the instance channel.
    void start(InstanceChannel& channel);

    void openPopover();
    void openWindow(const QString& id);

    // Makes this application the one the engine's singletons come from, and gives the engine
    // the module's import path and symbol images.
    void attach(QQmlEngine& engine);
    // The application attached to an engine.
    static KivoraApp& from(const QJSEngine* engine);

    SettingsManager& settings() { return *m_settings; }
    AIContextManager& aiContext() { return *m_aiContext; }
    ProfileManager& profileManager() { return *m_profileManager; }
    Updater& updater() { return *m_updater; }
    WindowRegistry& windows() { return *m_windows; }
    AutostartSwitch& autostart() { return *m_autostart; }
    SystemColorScheme& colorScheme() { return *m_colorScheme; }
    SystemFont& font() { return *m_font; }
    RelativeTime& relativeTime() { return *m_relativeTime; }
    SettingsTab& settingsTabs() { return *m_settingsTabs; }
    SettingsProgress& settingsProgress() { return *m_settingsProgress; }
    ProfileListModel& profileList() { return *m_profileList; }
    ProfileActions& profileActions() { return *m_profileActions; }
    ProfileTransfer& profileTransfer() { return *m_profileTransfer; }
    AIProviderCatalogue& providerCatalogue() { return *m_providerCatalogue; }
    TrayIcon* tray() const { return m_tray.get(); }

private:
    void registerWindows();
    void registerCommands(InstanceChannel& channel);

    // The state: preferences, the AI context and the profiles, in the order they need each
    // other, then the updater.
    std::unique_ptr<SettingsManager> m_settings;
    std::unique_ptr<AIContextManager> m_aiContext;
    std::unique_ptr<ProfileManager> m_profileManager;
    std::unique_ptr<Updater> m_updater;
    // What the views are given over that state.
    std::unique_ptr<WindowRegistry> m_windows;
    std::unique_ptr<AutostartSwitch> m_autostart;
    std::unique_ptr<SystemColorScheme> m_colorScheme;
    std::unique_ptr<SystemFont> m_font;
    std::unique_ptr<RelativeTime> m_relativeTime;
    std::unique_ptr<SettingsTab> m_settingsTabs;
    std::unique_ptr<SettingsProgress> m_settingsProgress;
    std::unique_ptr<ProfileListModel> m_profileList;
    std::unique_ptr<ProfileActions> m_profileActions;
    std::unique_ptr<ProfileTransfer> m_profileTransfer;
    std::unique_ptr<AIProviderCatalogue> m_providerCatalogue;
    // The desktop side, made by start().
    std::unique_ptr<ProfileFileWatcher> m_profileFileWatcher;
    std::unique_ptr<ApplicationPalette> m_palette;
    std::unique_ptr<WindowShortcuts> m_shortcuts;
    std::unique_ptr<QmlHost> m_host;
    std::unique_ptr<PopoverController> m_popover;
    std::unique_ptr<UpdaterPresenter> m_updaterPresenter;
    std::unique_ptr<TrayIcon> m_tray;
};
