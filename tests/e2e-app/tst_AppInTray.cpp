// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppDriver.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <memory>

// The tray application on a private desktop: the tray icon opens the popover, whose rows
// switch the global git identity from the keyboard and over the accessibility bus; the
// settings window and Quit. Controls are found by role and name, keys are real key events.
class tst_AppInTray : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void trayClickOpensThePopoverWithTheActiveRowFocused();
    void arrowsAndSpaceSwitchTheGlobalIdentity();
    void rowsSayNameIdentityAndWhetherActive();
    void pressingARowSwitches();
    void menuKeyOffersTheRowsActionsAndDeleteRemoves();
    void secondLaunchShowsTheRunningPopover();
    void settingsWindowOpensFromThePopover();
    void quitEndsTheProcess();
    void darkAppearance();

private:
    std::optional<StoredData> stored() const
    {
        return ProfileCodec::decodeStore(
            m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    }
    AppDriver::Node popover();
    AppDriver::Node row(const AppDriver::Node& popover, const QString& name);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AppDriver> m_driver;
};

void tst_AppInTray::initTestCase()
{
    const QStringList missing = AppDriver::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    QVERIFY2(QFile::exists(qEnvironmentVariable("KIVORA_APP")), "KIVORA_APP names no program");

    m_home = std::make_unique<TestHome>();
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name"),
                 QStringLiteral("User 1")});
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.email"),
                 QStringLiteral("user1@example.com")});
    StoredData data;
    for (int i = 1; i <= 4; ++i) {
        data.profiles << GitProfile::create(QStringLiteral("Profile %1").arg(i),
                                            QStringLiteral("User %1").arg(i),
                                            QStringLiteral("user%1@example.com").arg(i), QString());
    }
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
    m_home->write(
        QStringLiteral(".config/Kivora/Kivora.conf"),
        "[General]\nappAppearance=Light\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
        "showSSHKey=true\nshowSSHKeySet=true\n");

    m_driver = std::make_unique<AppDriver>();
    QString problem;
    QVERIFY2(m_driver->startDesktop(*m_home, &problem), qPrintable(problem));
    QVERIFY2(m_driver->launch(),
             "the application did not start, or is not on the accessibility bus");
}

void tst_AppInTray::cleanupTestCase()
{
    m_driver.reset();
    m_home.reset();
}

AppDriver::Node tst_AppInTray::popover()
{
    const auto found = m_driver->openPopover();
    if (!found) {
        qWarning().noquote() << m_driver->dump();
    }
    return found.value_or(AppDriver::Node{});
}

AppDriver::Node tst_AppInTray::row(const AppDriver::Node& popover, const QString& name)
{
    return m_driver->control(popover, QStringLiteral("radio button"), name)
        .value_or(AppDriver::Node{});
}

void tst_AppInTray::trayClickOpensThePopoverWithTheActiveRowFocused()
{
    QVERIFY(!m_driver->window(QStringLiteral("Kivora"), 0));
    QVERIFY2(m_driver->clickTrayIcon(), "no tray icon");
    const auto opened = m_driver->window(QStringLiteral("Kivora"), 10000);
    QVERIFY2(opened, qPrintable(m_driver->dump()));
    // The keyboard is on the active profile's row.
    QVERIFY2(m_driver->waitForFocus(*opened, QStringLiteral("radio button"),
                                    QStringLiteral("Profile 1")),
             qPrintable(m_driver->describeFocus(*opened)));
    // The popover sits by the icon at the top right of the screen.
    const QRect area = m_driver->a11y().extents(*opened);
    QVERIFY(area.width() > 200 && area.height() > 200);
    QVERIFY(area.top() < 100);
    QVERIFY(area.left() > 700 && area.right() < 1400);
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*opened, QStringLiteral("popover-light.png")));
}

void tst_AppInTray::arrowsAndSpaceSwitchTheGlobalIdentity()
{
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 1")));
    m_driver->key(QStringLiteral("Down"));
    QVERIFY2(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 2")),
        qPrintable(m_driver->describeFocus(shown)));
    // Moving switches nothing.
    QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), QStringLiteral("User 1"));
    QThread::msleep(300);
    QVERIFY(m_driver->saveScreenshot(shown, QStringLiteral("popover-focus-light.png")));

    m_driver->key(QStringLiteral("space"));
    QTRY_COMPARE_WITH_TIMEOUT(m_home->gitConfig(QStringLiteral("user.name")),
                              QStringLiteral("User 2"), 10000);
    QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral("user2@example.com"));
    const auto afterSwitch = stored();
    QCOMPARE(afterSwitch->activeProfileID, std::optional<QUuid>(afterSwitch->profiles.at(1).id));
    // The row says it is the active one now, and a notification says it switched; the
    // notification goes after 1.5 seconds.
    const AppDriver::Node second = row(shown, QStringLiteral("Profile 2"));
    QTRY_VERIFY_WITH_TIMEOUT(m_driver->a11y().hasState(second, QStringLiteral("checked")), 5000);
    QVERIFY(!m_driver->a11y().hasState(row(shown, QStringLiteral("Profile 1")),
                                       QStringLiteral("checked")));
    QTRY_VERIFY_WITH_TIMEOUT(!m_driver->control(shown, QStringLiteral("notification"),
                                                QStringLiteral("Switched to Profile 2"), 0),
                             10000);

    // End, then Return: the last profile.
    m_driver->key(QStringLiteral("End"));
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 4")));
    m_driver->key(QStringLiteral("Return"));
    QTRY_COMPARE_WITH_TIMEOUT(m_home->gitConfig(QStringLiteral("user.name")),
                              QStringLiteral("User 4"), 10000);
    m_driver->key(QStringLiteral("Home"));
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 1")));
}

void tst_AppInTray::rowsSayNameIdentityAndWhetherActive()
{
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    AtSpiClient& a11y = m_driver->a11y();
    const AppDriver::Node active = row(shown, QStringLiteral("Profile 4"));
    QVERIFY(active.isValid());
    // "Switched" leaves the description with the notification, after 1.5 seconds.
    QTRY_COMPARE_WITH_TIMEOUT(a11y.description(active),
                              QStringLiteral("User 4 · user4@example.com, Active profile"), 10000);
    QVERIFY(a11y.hasState(active, QStringLiteral("checked")));
    const AppDriver::Node other = row(shown, QStringLiteral("Profile 3"));
    QCOMPARE(a11y.description(other), QStringLiteral("User 3 · user3@example.com"));
    QVERIFY(!a11y.hasState(other, QStringLiteral("checked")));
    // The footer's buttons and the list are named.
    for (const char* name : {"Add Profile", "Settings", "Quit"}) {
        QVERIFY2(m_driver->control(shown, QStringLiteral("push button"), QLatin1String(name), 2000),
                 name);
    }
    QVERIFY(m_driver->control(shown, QStringLiteral("list"), QStringLiteral("Profiles"), 2000));
    const auto sync =
        m_driver->control(shown, QStringLiteral("label"), QStringLiteral("iCloud Sync"), 2000);
    QVERIFY(sync);
    QCOMPARE(a11y.description(*sync), QStringLiteral("Local only"));
}

void tst_AppInTray::pressingARowSwitches()
{
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    QVERIFY(m_driver->press(shown, QStringLiteral("radio button"), QStringLiteral("Profile 3")));
    QTRY_COMPARE_WITH_TIMEOUT(m_home->gitConfig(QStringLiteral("user.name")),
                              QStringLiteral("User 3"), 10000);
    const auto afterPress = stored();
    QCOMPARE(afterPress->activeProfileID, std::optional<QUuid>(afterPress->profiles.at(2).id));
}

void tst_AppInTray::menuKeyOffersTheRowsActionsAndDeleteRemoves()
{
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    // To the last row; Shift+F10 opens its actions.
    m_driver->key(QStringLiteral("End"));
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 4")));
    m_driver->key(QStringLiteral("shift+F10"));
    for (const char* name : {"Open Terminal", "Edit", "Delete"}) {
        QVERIFY2(m_driver->control(shown, QStringLiteral("menu item"), QLatin1String(name), 5000),
                 qPrintable(m_driver->dump()));
    }
    QThread::msleep(300);
    QVERIFY(m_driver->saveScreenshot(shown, QStringLiteral("popover-row-menu-light.png")));
    // Escape closes the menu and leaves the popover open, the row focused.
    m_driver->key(QStringLiteral("Escape"));
    QTRY_VERIFY_WITH_TIMEOUT(
        !m_driver->control(shown, QStringLiteral("menu item"), QStringLiteral("Delete"), 0), 5000);
    QVERIFY(m_driver->window(QStringLiteral("Kivora"), 0));
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 4")));
    // The Menu key, then Delete: the profile is gone from the file; nothing else changes.
    const QString activeName = m_home->gitConfig(QStringLiteral("user.name"));
    m_driver->key(QStringLiteral("Menu"));
    QVERIFY(m_driver->control(shown, QStringLiteral("menu item"), QStringLiteral("Delete"), 5000));
    m_driver->key(QStringLiteral("Down Down Return"));
    QTRY_COMPARE_WITH_TIMEOUT(stored()->profiles.size(), 3, 10000);
    const auto left = stored();
    for (const GitProfile& profile : left->profiles) {
        QVERIFY(profile.name != QLatin1String("Profile 4"));
    }
    QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), activeName);
    // The keyboard goes on from the active profile's row.
    QVERIFY2(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 3")),
        qPrintable(m_driver->describeFocus(shown)));
}

void tst_AppInTray::secondLaunchShowsTheRunningPopover()
{
    m_driver->key(QStringLiteral("Escape"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Kivora")));

    QProcess second;
    second.setProcessEnvironment(m_driver->environment());
    second.start(qEnvironmentVariable("KIVORA_APP"), {});
    QVERIFY(second.waitForFinished(15000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(m_driver->app()->state(), QProcess::Running);
    QVERIFY2(m_driver->window(QStringLiteral("Kivora"), 5000),
             "the running instance did not bring its popover forward");
}

void tst_AppInTray::settingsWindowOpensFromThePopover()
{
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    // Tab from the list to "Add Profile", then Return.
    QVERIFY(m_driver->waitForFocus(shown, QStringLiteral("radio button"), QString()));
    m_driver->key(QStringLiteral("Tab"));
    QVERIFY2(
        m_driver->waitForFocus(shown, QStringLiteral("push button"), QStringLiteral("Add Profile")),
        qPrintable(m_driver->describeFocus(shown)));
    m_driver->key(QStringLiteral("Return"));
    const auto settings = m_driver->window(QStringLiteral("Kivora Settings"));
    QVERIFY2(settings, "no settings window");
    QCOMPARE(m_driver->a11y().extents(*settings).size(), QSize(1100, 650));
    QThread::msleep(500);
    QVERIFY(m_driver->saveScreenshot(*settings, QStringLiteral("settings-light.png")));
    // Ctrl+W closes it.
    m_driver->key(QStringLiteral("ctrl+w"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Kivora Settings")));
}

void tst_AppInTray::quitEndsTheProcess()
{
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    QVERIFY(m_driver->press(shown, QStringLiteral("push button"), QStringLiteral("Quit")));
    QVERIFY(m_driver->app()->waitForFinished(10000));
    QCOMPARE(m_driver->app()->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_driver->app()->exitCode(), 0);
}

void tst_AppInTray::darkAppearance()
{
    m_driver->stopApp();
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"),
                  "[General]\nappAppearance=Dark\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
                  "showSSHKey=true\nshowSSHKeySet=true\n");
    QVERIFY(m_driver->launch());
    const AppDriver::Node shown = popover();
    QVERIFY(shown.isValid());
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 3")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(shown, QStringLiteral("popover-dark.png")));
    m_driver->key(QStringLiteral("Up"));
    QVERIFY(
        m_driver->waitForFocus(shown, QStringLiteral("radio button"), QStringLiteral("Profile 2")));
    QThread::msleep(300);
    QVERIFY(m_driver->saveScreenshot(shown, QStringLiteral("popover-focus-dark.png")));

    QVERIFY(m_driver->press(shown, QStringLiteral("push button"), QStringLiteral("Settings")));
    const auto settings = m_driver->window(QStringLiteral("Kivora Settings"));
    QVERIFY(settings);
    // The Appearance page says Dark is the chosen appearance: Ctrl+F, then down the sidebar.
    m_driver->key(QStringLiteral("ctrl+f"));
    QVERIFY2(m_driver->waitForFocus(*settings, QStringLiteral("text"),
                                    QStringLiteral("Search settings")),
             qPrintable(m_driver->describeFocus(*settings)));
    m_driver->key(QStringLiteral("Down Down"));
    QVERIFY2(
        m_driver->waitForFocus(*settings, QStringLiteral("page tab"), QStringLiteral("Appearance")),
        qPrintable(m_driver->describeFocus(*settings)));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->control(*settings, QStringLiteral("heading"), QStringLiteral("Appearance")));
    const auto dark =
        m_driver->control(*settings, QStringLiteral("radio button"), QStringLiteral("Dark"));
    QVERIFY2(dark, qPrintable(m_driver->a11y().dump(*settings)));
    QVERIFY(m_driver->a11y().hasState(*dark, QStringLiteral("checked")));
    QThread::msleep(500);
    QVERIFY(m_driver->saveScreenshot(*settings, QStringLiteral("settings-dark.png")));
    m_driver->stopApp();
}

QTEST_GUILESS_MAIN(tst_AppInTray)

#include "tst_AppInTray.moc"
