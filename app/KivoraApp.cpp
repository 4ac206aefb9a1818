// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/KivoraApp.h"

#include "activation/InstanceChannel.h"
#include "activation/ProfileFileWatcher.h"
#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "app/ApplicationPalette.h"
#include "app/AutostartSwitch.h"
#include "app/Logging.h"
#include "app/PopoverController.h"
#include "app/QmlHost.h"
#include "app/RelativeTime.h"
#include "app/StartupTrace.h"
#include "app/SystemColorScheme.h"
#include "app/SystemFont.h"
#include "app/TrayIcon.h"
#include "app/UpdaterPresenter.h"
#include "app/WindowRegistry.h"
#include "app/WindowShortcuts.h"
#include "cli/KivoraCli.h"
#include "menubar/ProfileListModel.h"
#include "model/Translations.h"
#include "prefs/PreferencesFile.h"
#include "prefs/SettingsManager.h"
#include "settings/AIProviderCatalogue.h"
#include "settings/ProfileTransfer.h"
#include "settings/SettingsProgress.h"
#include "settings/SettingsTab.h"
#include "settings/profiles/ProfileActions.h"
#include "updates/Updater.h"

#include <QApplication>
#include <QIcon>
#include <QJsonArray>
#include <QJsonObject>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTextStream>

#include <initializer_list>

int KivoraApp::main(int argc, char** argv)
{
    prepareEnvironment();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kivora"));
    // No display name: Qt would append " — Kivora" to every window title. The name the
    // status area shows falls back to the application name, "Kivora".
    QApplication::setApplicationVersion(QStringLiteral(KIVORA_VERSION));
    // The icon of every window (_NET_WM_ICON on X11); on Wayland the compositor finds it
    // through the desktop entry, whose name is the window's app id.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Kivora/assets/kivora-logo.svg")));
    QApplication::setDesktopFileName(QStringLiteral("io.github.kivora.Kivora"));
    QApplication::setQuitOnLastWindowClosed(false);

    // One instance per user: a second start brings the running popover forward and ends.
    InstanceChannel channel;
    QString why;
    if (!channel.listen(&why)) {
        const auto answer =
            InstanceChannel::ask({{QStringLiteral("command"), QStringLiteral("show")}}, 2000);
        if (answer.kind == InstanceChannel::Answer::Kind::Answered) {
            return 0;
        }
        QTextStream(stderr) << "kivora-app: "
                            << (answer.kind == InstanceChannel::Answer::Kind::NoAnswer
                                    ? tr("another instance holds the socket but does not answer")
                                    : tr("cannot open its socket: %1").arg(why))
                            << Qt::endl;
        return 1;
    }

    KivoraApp app;
    app.start(channel);
    return QApplication::exec();
}

void KivoraApp::prepareEnvironment()
{
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) {
        // Measured: the software scene graph opens a small window faster and in far less
        // memory than a software OpenGL rasteriser.
        qputenv("QT_QUICK_BACKEND", "software");
    }
    const bool wayland =
        qgetenv("XDG_SESSION_TYPE") == "wayland" || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (wayland && qEnvironmentVariableIsSet("DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        // A Wayland client cannot place its windows: through XWayland the popover sits by
        // the tray icon.
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
}

namespace {

ProfileManager::Options managerOptions(const KivoraApp::Options& options)
{
    ProfileManager::Options managed;
    managed.home = options.home;
    managed.restoreAIContext = options.restoreAIContext;
    return managed;
}

} // namespace

KivoraApp::KivoraApp(QObject* parent) : KivoraApp(Options{}, parent) {}

KivoraApp::KivoraApp(const Options& options, QObject* parent)
    : QObject(parent),
      m_settings(std::make_unique<SettingsManager>(
          options.preferencesPath.isEmpty() ? PreferencesFile::path() : options.preferencesPath)),
      m_aiContext(std::make_unique<AIContextManager>()),
      m_profileManager(std::make_unique<ProfileManager>(*m_aiContext, managerOptions(options))),
      m_updater(std::make_unique<Updater>()), m_windows(std::make_unique<WindowRegistry>()),
      m_autostart(std::make_unique<AutostartSwitch>()),
      m_colorScheme(std::make_unique<SystemColorScheme>()), m_font(std::make_unique<SystemFont>()),
      m_relativeTime(std::make_unique<RelativeTime>()),
      m_settingsTabs(std::make_unique<SettingsTab>()),
      m_settingsProgress(std::make_unique<SettingsProgress>()),
      m_profileList(std::make_unique<ProfileListModel>(*m_profileManager)),
      m_profileActions(std::make_unique<ProfileActions>(*m_profileManager)),
      m_profileTransfer(std::make_unique<ProfileTransfer>(*m_profileManager)),
      m_providerCatalogue(std::make_unique<AIProviderCatalogue>())
{
    Translations::install();
    // These live as long as the application: no engine may take one over and delete it.
    for (QObject* shared : std::initializer_list<QObject*>{
             m_settings.get(), m_aiContext.get(), m_profileManager.get(), m_updater.get(),
             m_windows.get(), m_autostart.get(), m_colorScheme.get(), m_font.get(),
             m_relativeTime.get(), m_settingsTabs.get(), m_settingsProgress.get(),
             m_profileList.get(), m_profileActions.get(), m_profileTransfer.get(),
             m_providerCatalogue.get()}) {
        QJSEngine::setObjectOwnership(shared, QJSEngine::CppOwnership);
    }
}

KivoraApp::~KivoraApp()
{
    // The windows go before the engine that made them and the objects they show.
    m_tray.reset();
    m_popover.reset();
    m_updaterPresenter.reset();
    m_host.reset();
    m_shortcuts.reset();
    m_palette.reset();
}

void KivoraApp::attach(QQmlEngine& engine)
{
    engine.setProperty("kivoraApp", QVariant::fromValue(this));
    QmlHost::prepare(engine);
}

KivoraApp& KivoraApp::from(const QJSEngine* engine)
{
    auto* app = engine ? engine->property("kivoraApp").value<KivoraApp*>() : nullptr;
    // A view loaded into an engine nobody attached is a programming error, not a state.
    Q_ASSERT_X(app, "KivoraApp::from", "the engine has no application attached");
    return *app;
}

void KivoraApp::start(InstanceChannel& channel)
{
    m_updater->start();
    // From now on what others write to the profile file shows in the windows.
    m_profileFileWatcher = std::make_unique<ProfileFileWatcher>(*m_profileManager);

    // The palette is in place before the tray menu or any window exists.
    m_palette = std::make_unique<ApplicationPalette>(*m_settings, *m_colorScheme);
    m_shortcuts = std::make_unique<WindowShortcuts>(*m_windows);
    m_host = std::make_unique<QmlHost>([this](QQmlEngine& engine) { attach(engine); });
    m_popover = std::make_unique<PopoverController>(*m_host);
    m_updaterPresenter = std::make_unique<UpdaterPresenter>(*m_updater, *m_windows);
    registerWindows();
    registerCommands(channel);

    m_tray = std::make_unique<TrayIcon>(*m_autostart);
    connect(m_tray.get(), &TrayIcon::toggleRequested, m_popover.get(), &PopoverController::toggle);
    connect(m_tray.get(), &TrayIcon::openRequested, m_popover.get(), &PopoverController::show);
    connect(m_tray.get(), &TrayIcon::settingsRequested, this,
            [this] { openWindow(QStringLiteral("settings")); });
    connect(m_tray.get(), &TrayIcon::preferencesRequested, this,
            [this] { openWindow(QStringLiteral("preferences")); });
    connect(m_tray.get(), &TrayIcon::checkForUpdatesRequested, m_updaterPresenter.get(),
            &UpdaterPresenter::checkForUpdates);
    connect(m_tray.get(), &TrayIcon::quitRequested, qApp, &QCoreApplication::quit);
    connect(m_tray.get(), &TrayIcon::becameAvailable, this, [this] {
        // The status area arrived: the stand-in window gives way to the real popover.
        if (m_popover->isVisible()) {
            m_popover->hide();
        }
    });

    if (m_tray->show()) {
        StartupTrace::mark(QStringLiteral("tray-shown"), StartupTrace::sinceProcessStart());
    } else {
        StartupTrace::mark(QStringLiteral("no-status-area"), StartupTrace::sinceProcessStart());
        m_popover->showAsWindow();
    }
}

void KivoraApp::registerWindows()
{
    const auto qmlWindow = [this](const QString& path) {
        return [this, path]() -> QWindow* { return m_host->createWindow(path); };
    };
    m_windows->add(QStringLiteral("settings"), [this] {
        QQuickWindow* window = m_host->createWindow(QStringLiteral("settings/SettingsWindow.qml"));
        if (window && StartupTrace::enabled()) {
            QElapsedTimer opened;
            opened.start();
            auto connection = std::make_shared<QMetaObject::Connection>();
            *connection = connect(window, &QQuickWindow::frameSwapped, this, [opened, connection] {
                disconnect(*connection);
                StartupTrace::mark(QStringLiteral("settings-first-frame"), opened.elapsed());
            });
        }
        return window;
    });
    m_windows->add(QStringLiteral("preferences"),
                   qmlWindow(QStringLiteral("app/PreferencesWindow.qml")));
    m_windows->add(QStringLiteral("updater"), qmlWindow(QStringLiteral("app/UpdaterWindow.qml")));
}

void KivoraApp::registerCommands(InstanceChannel& channel)
{
    channel.addCommand(QStringLiteral("show"), [this](const QJsonObject&) {
        openPopover();
        return QJsonObject{};
    });
    // A command line command that changes profiles, carried out here so that the open
    // windows show the change at once. Nothing else is taken: what only reads (a listing, an
    // export with its API keys) never leaves the command line's own process.
    channel.addCommand(QStringLiteral("cli"), [this](const QJsonObject& request) {
        QStringList arguments{QStringLiteral("kivora")};
        for (const QJsonValue& argument : request.value(QStringLiteral("arguments")).toArray()) {
            arguments << argument.toString();
        }
        if (!KivoraCli::changesProfiles(arguments.value(1))) {
            return QJsonObject{
                {QStringLiteral("ok"), false},
                {QStringLiteral("error"), tr("only commands that change profiles are taken")}};
        }
        QString input = request.value(QStringLiteral("input")).toString();
        QString out;
        QString err;
        QTextStream inStream(&input);
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        const int status =
            KivoraCli(arguments, outStream, errStream, inStream, m_profileManager.get()).run();
        outStream.flush();
        errStream.flush();
        return QJsonObject{{QStringLiteral("status"), status},
                           {QStringLiteral("out"), out},
                           {QStringLiteral("err"), err}};
    });
}

void KivoraApp::openPopover()
{
    if (m_tray && m_tray->isShown()) {
        m_popover->show(m_tray->geometry());
    } else {
        m_popover->showAsWindow();
    }
}

void KivoraApp::openWindow(const QString& id)
{
    m_windows->open(id);
}
