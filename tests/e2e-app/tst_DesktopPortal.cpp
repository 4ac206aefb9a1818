// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppProcess.h"
#include "DesktopSession.h"
#include "StatusNotifierClient.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>
#include <QtTest>

#include <memory>

// Kivora on a desktop with the XDG desktop portal and its GTK backend (as on GNOME, XFCE and
// most others): "System" appearance follows the colour scheme the portal reports, live, and
// export and import use the portal's file chooser. The colour scheme is set where the GTK
// backend reads it, GSettings' org.gnome.desktop.interface color-scheme (dconf).
class DesktopPortal : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void systemAppearanceFollowsThePortal();
    void tooltipsAndContextMenusFollowDarkMode();
    void exportSavesThroughThePortal();
    void exportAsksBeforeReplacingAFileTheChooserDidNotAskAbout();
    void importOpensThroughThePortal();

private:
    void setColorScheme(const QString& scheme);
    bool portalRunning() const;
    // The mean grey of an empty stretch of the settings window's page background.
    double settingsBackground() const;
    QRect settingsArea() const;
    // Presses the sidebar's quick action and fills in the portal's chooser.
    std::optional<AtSpiClient::Node> chooserDialog(const QString& title, int timeoutMs) const;
    void exportTo(const QString& typedName);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<DesktopSession> m_desktop;
    std::unique_ptr<StatusNotifierClient> m_tray;
    std::unique_ptr<QProcess> m_app;
    std::optional<AtSpiClient::Node> m_application;
    bool m_portalRanBeforeKivora = true;
};

void DesktopPortal::initTestCase()
{
    const DesktopSession::Options options{
        .xfcePanel = true, .trayer = false, .onlyServices = std::nullopt};
    QStringList missing = DesktopSession::missingPrograms(options);
    for (const char* file :
         {"/usr/libexec/xdg-desktop-portal", "/usr/libexec/xdg-desktop-portal-gtk",
          "/usr/bin/gsettings", "/usr/libexec/dconf-service"}) {
        if (!QFile::exists(QLatin1String(file))) {
            missing << QLatin1String(file);
        }
    }
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    const QString appPath = qEnvironmentVariable("KIVORA_APP");
    QVERIFY2(QFile::exists(appPath), "KIVORA_APP names no program");

    m_home = std::make_unique<TestHome>();
    StoredData data;
    data.profiles << GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ann Lee"),
                                        QStringLiteral("ann@work.example"), QString())
                  << GitProfile::create(QStringLiteral("Home"), QStringLiteral("Ann"),
                                        QStringLiteral("ann@home.example"), QString());
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"),
                  "[General]\nappAppearance=System\nshowProfileEmail=true\nshowProfileEmailSet="
                  "true\nshowSSHKey=true\nshowSSHKeySet=true\n");

    m_desktop = std::make_unique<DesktopSession>();
    QString problem;
    QVERIFY2(m_desktop->start(*m_home, options, &problem), qPrintable(problem));
    setColorScheme(QStringLiteral("prefer-dark"));
    AtSpiClient& a11y = m_desktop->accessibility();
    QVERIFY2(a11y.isConnected(), qPrintable(a11y.problem()));

    // Nobody has asked for the portal yet: Kivora's own request is what starts it.
    m_portalRanBeforeKivora = portalRunning();
    m_tray = std::make_unique<StatusNotifierClient>(m_desktop->bus().connectionName());
    m_app = AppProcess::launch(appPath, m_desktop->environment());
    QVERIFY2(m_app, "the application did not show its tray item");
    m_application = a11y.waitForApplication(QStringLiteral("Kivora"), 30000);
    QVERIFY2(m_application, "Kivora is not on the accessibility bus");
}

void DesktopPortal::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_desktop.reset();
    m_home.reset();
}

void DesktopPortal::setColorScheme(const QString& scheme)
{
    int code = -1;
    m_desktop->run(QStringLiteral("gsettings"),
                   {QStringLiteral("set"), QStringLiteral("org.gnome.desktop.interface"),
                    QStringLiteral("color-scheme"), scheme},
                   &code);
    QCOMPARE(code, 0);
}

bool DesktopPortal::portalRunning() const
{
    return QDBusConnection(m_desktop->bus().connectionName())
        .interface()
        ->isServiceRegistered(QStringLiteral("org.freedesktop.portal.Desktop"));
}

QRect DesktopPortal::settingsArea() const
{
    // Where the window's content is on the screen, as it tells assistive technology (the
    // window manager's frame is not part of it).
    const auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 5000);
    return window ? m_desktop->accessibility().extents(*window) : QRect();
}

double DesktopPortal::settingsBackground() const
{
    const QRect window = settingsArea();
    const QImage screen = m_desktop->x().captureScreen();
    const QPoint inside(window.left() + window.width() * 3 / 4,
                        window.top() + window.height() * 4 / 5);
    return XSession::meanGray(screen, QRect(inside, QSize(60, 30)));
}

void DesktopPortal::systemAppearanceFollowsThePortal()
{
    QVERIFY(m_tray->clickMenuEntry(QStringLiteral("Settings…")));
    QVERIFY(m_desktop->x().waitForWindow(QStringLiteral("^Kivora Settings$"), 30000));
    QVERIFY(m_desktop->accessibility().waitForWindow(*m_application,
                                                     QStringLiteral("Kivora Settings"), 15000));

    // The portal was started by Kivora's own request for the colour scheme.
    QTRY_VERIFY_WITH_TIMEOUT(portalRunning(), 30000);
    QVERIFY2(!m_portalRanBeforeKivora, "the portal ran already; Kivora did not start it");
    // Dark once the portal has answered (its first start may take a while).
    QTRY_VERIFY_WITH_TIMEOUT(settingsBackground() < 80, 30000);
    QThread::msleep(300);
    QVERIFY(AppProcess::saveScreenshot(m_desktop->x().capture(settingsArea()),
                                       QStringLiteral("settings-portal-dark.png")));

    // A live switch of the desktop's scheme shows within 2 seconds, both ways.
    setColorScheme(QStringLiteral("prefer-light"));
    QTRY_VERIFY_WITH_TIMEOUT(settingsBackground() > 180, 2000);
    setColorScheme(QStringLiteral("prefer-dark"));
    QTRY_VERIFY_WITH_TIMEOUT(settingsBackground() < 80, 2000);
}

void DesktopPortal::tooltipsAndContextMenusFollowDarkMode()
{
    AtSpiClient& a11y = m_desktop->accessibility();
    XSession& x = m_desktop->x();
    const auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 10000);
    QVERIFY(window);

    // A tooltip: the pointer rests on a favourite star.
    const auto star =
        a11y.find(*window, QStringLiteral("push button"), QStringLiteral("Add to favorites"));
    QVERIFY2(star, qPrintable(a11y.dump(*window)));
    const QRect starArea = a11y.extents(*star);
    QVERIFY(!starArea.isEmpty());
    x.move(starArea.center().x(), starArea.center().y());
    const auto tip = a11y.waitFor(*window, QStringLiteral("tool tip"),
                                  QStringLiteral("Add to favorites"), 15000);
    QVERIFY2(tip, qPrintable(a11y.dump(*window)));
    const QRect tipArea = a11y.extents(*tip);
    QThread::msleep(400);
    const QImage shot = x.captureScreen();
    QVERIFY(AppProcess::saveScreenshot(shot.copy(tipArea.adjusted(-120, -30, 60, 30)),
                                       QStringLiteral("tooltip-dark.png")));
    // A dark plate; its light text covers only a small part of it.
    QVERIFY2(XSession::meanGray(shot, tipArea) < 110, "the tooltip is not dark");

    // A context menu: the right button on the "Profiles" page of the sidebar.
    const auto label = a11y.find(*window, QStringLiteral("page tab"), QStringLiteral("Profiles"));
    QVERIFY(label);
    const QRect labelArea = a11y.extents(*label);
    x.click(labelArea.center().x(), labelArea.center().y(), 3);
    const auto entry = a11y.waitFor(*window, QStringLiteral("menu item"),
                                    QStringLiteral("Add to Favorites"), 10000);
    QVERIFY2(entry, qPrintable(a11y.dump(*window)));
    const QRect entryArea = a11y.extents(*entry);
    QThread::msleep(400);
    const QImage menu = x.captureScreen();
    QVERIFY(AppProcess::saveScreenshot(menu.copy(entryArea.adjusted(-10, -10, 10, 10)),
                                       QStringLiteral("context-menu-dark.png")));
    QVERIFY2(XSession::meanGray(menu, entryArea) < 110, "the context menu is not dark");
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Escape")});
}

std::optional<AtSpiClient::Node> DesktopPortal::chooserDialog(const QString& title,
                                                              int timeoutMs) const
{
    AtSpiClient& a11y = m_desktop->accessibility();
    QElapsedTimer waited;
    waited.start();
    do {
        for (const AtSpiClient::Node& application : a11y.applications()) {
            if (a11y.name(application) != QLatin1String("xdg-desktop-portal-gtk")) {
                continue;
            }
            for (const AtSpiClient::Node& window : a11y.children(application)) {
                if (a11y.name(window) == title &&
                    a11y.hasState(window, QStringLiteral("visible"))) {
                    return window;
                }
            }
        }
        QThread::msleep(300);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

void DesktopPortal::exportTo(const QString& typedName)
{
    AtSpiClient& a11y = m_desktop->accessibility();
    const auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 10000);
    QVERIFY(window);
    const auto action =
        a11y.find(*window, QStringLiteral("push button"), QStringLiteral("Export Profiles"));
    QVERIFY2(action, qPrintable(a11y.dump(*window)));
    QVERIFY(a11y.press(*action));

    const auto dialog = chooserDialog(QStringLiteral("Export Profiles"), 60000);
    QVERIFY2(dialog, "the portal's file chooser did not open");
    // The chooser's own button carries the label Kivora asked for.
    const auto save =
        a11y.waitFor(*dialog, QStringLiteral("push button"), QStringLiteral("Save"), 10000);
    QVERIFY2(save, qPrintable(a11y.dump(*dialog)));
    const auto name = a11y.find(*dialog, [&](const AtSpiClient::Node& node) {
        return a11y.roleName(node) == QLatin1String("text") &&
               a11y.hasState(node, QStringLiteral("editable")) &&
               a11y.hasState(node, QStringLiteral("showing"));
    });
    QVERIFY2(name, qPrintable(a11y.dump(*dialog)));
    // The suggested name is there first.
    QCOMPARE(a11y.text(*name), QStringLiteral("kivora-profiles.json"));
    QVERIFY(a11y.setText(*name, typedName));
    QVERIFY(a11y.press(*save));
    QTRY_VERIFY_WITH_TIMEOUT(!chooserDialog(QStringLiteral("Export Profiles"), 100), 15000);
}

void DesktopPortal::exportSavesThroughThePortal()
{
    exportTo(QStringLiteral("exported"));
    if (QTest::currentTestFailed()) {
        return;
    }
    // ".json" was added to the typed name.
    QTRY_VERIFY_WITH_TIMEOUT(m_home->exists(QStringLiteral("exported.json")), 15000);
    QVERIFY(!m_home->exists(QStringLiteral("exported")));
    const QJsonArray profiles =
        QJsonDocument::fromJson(m_home->read(QStringLiteral("exported.json"))).array();
    QCOMPARE(profiles.size(), 2);
    QCOMPARE(profiles.at(0).toObject().value(QStringLiteral("name")).toString(),
             QStringLiteral("Work"));
    QCOMPARE(profiles.at(1).toObject().value(QStringLiteral("gitEmail")).toString(),
             QStringLiteral("ann@home.example"));
}

// The chooser was given "exported", which does not exist; the file written would be
// "exported.json", which does: Kivora asks before replacing it.
void DesktopPortal::exportAsksBeforeReplacingAFileTheChooserDidNotAskAbout()
{
    AtSpiClient& a11y = m_desktop->accessibility();
    m_home->write(QStringLiteral("exported.json"), "kept\n");

    exportTo(QStringLiteral("exported"));
    if (QTest::currentTestFailed()) {
        return;
    }
    auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 10000);
    QVERIFY(window);
    auto cancel =
        a11y.waitFor(*window, QStringLiteral("push button"), QStringLiteral("Cancel"), 15000);
    QVERIFY2(cancel, qPrintable(a11y.dump(*window)));
    QVERIFY(a11y.find(*window, QString(),
                      QStringLiteral("A file named \u201cexported.json\u201d already exists.")));
    QVERIFY(a11y.press(*cancel));
    QThread::msleep(1000);
    QCOMPARE(m_home->read(QStringLiteral("exported.json")), QByteArray("kept\n"));

    exportTo(QStringLiteral("exported"));
    if (QTest::currentTestFailed()) {
        return;
    }
    const auto replace =
        a11y.waitFor(*window, QStringLiteral("push button"), QStringLiteral("Replace"), 15000);
    QVERIFY2(replace, qPrintable(a11y.dump(*window)));
    QVERIFY(a11y.press(*replace));
    QTRY_VERIFY_WITH_TIMEOUT(
        QJsonDocument::fromJson(m_home->read(QStringLiteral("exported.json"))).array().size() == 2,
        15000);
}

void DesktopPortal::importOpensThroughThePortal()
{
    AtSpiClient& a11y = m_desktop->accessibility();
    const auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 10000);
    QVERIFY(window);
    const auto action =
        a11y.find(*window, QStringLiteral("push button"), QStringLiteral("Import Profiles"));
    QVERIFY(action);
    QVERIFY(a11y.press(*action));
    const auto dialog = chooserDialog(QStringLiteral("Import Profiles"), 60000);
    QVERIFY2(dialog, "the portal's file chooser did not open");
    const auto open =
        a11y.waitFor(*dialog, QStringLiteral("push button"), QStringLiteral("Open"), 10000);
    QVERIFY2(open, qPrintable(a11y.dump(*dialog)));
    // Ctrl+L opens the chooser's location field.
    XSession& x = m_desktop->x();
    const auto dialogWindow = x.waitForWindow(QStringLiteral("^Import Profiles$"), 10000);
    QVERIFY(dialogWindow);
    x.run(QStringLiteral("xdotool"),
          {QStringLiteral("windowactivate"), QStringLiteral("--sync"), *dialogWindow});
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("ctrl+l")});
    std::optional<AtSpiClient::Node> location;
    QElapsedTimer waited;
    waited.start();
    while (!location && waited.elapsed() < 15000) {
        location = a11y.find(*dialog, [&](const AtSpiClient::Node& node) {
            return a11y.roleName(node) == QLatin1String("text") &&
                   a11y.hasState(node, QStringLiteral("editable")) &&
                   a11y.hasState(node, QStringLiteral("showing"));
        });
        QThread::msleep(200);
    }
    QVERIFY2(location, qPrintable(a11y.dump(*dialog)));
    // Typed, as the field completes and checks what it is given while typing.
    x.run(QStringLiteral("xdotool"),
          {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("30"),
           m_home->filePath(QStringLiteral("exported.json"))});
    QTRY_COMPARE_WITH_TIMEOUT(a11y.text(*location),
                              m_home->filePath(QStringLiteral("exported.json")), 15000);
    // Enter in the field takes what was typed there (the first may only end a completion);
    // then the chooser's own button.
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Return")});
    QThread::msleep(1000);
    if (chooserDialog(QStringLiteral("Import Profiles"), 100)) {
        QVERIFY(a11y.press(*open));
    }
    QTRY_VERIFY_WITH_TIMEOUT(!chooserDialog(QStringLiteral("Import Profiles"), 100), 15000);
    // Two profiles imported next to the two there were.
    const auto stored = [this] {
        const auto data =
            ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json")));
        return data ? data->profiles.size() : qsizetype(-1);
    };
    QTRY_COMPARE_WITH_TIMEOUT(stored(), qsizetype(4), 15000);
}

QTEST_GUILESS_MAIN(DesktopPortal)

#include "tst_DesktopPortal.moc"
