// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppDriver.h"
#include "model/ProfileCodec.h"
#include "support/LocalHttpServer.h"
#include "support/TestHome.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

const QByteArray appcast =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
    "  <channel>\n"
    "    <title>Kivora</title>\n"
    "    <item>\n"
    "      <title>Kivora 0.1</title>\n"
    "      <sparkle:version>0.1.0</sparkle:version>\n"
    "      <link>https://example.org/kivora/releases/0.1</link>\n"
    "    </item>\n"
    "  </channel>\n"
    "</rss>\n";

// The pages in the sidebar's order, with the names of their screenshots.
const QList<std::pair<QString, QString>> pages{
    {QStringLiteral("Appearance"), QStringLiteral("appearance")},
    {QStringLiteral("Notifications"), QStringLiteral("notifications")},
    {QStringLiteral("Updates"), QStringLiteral("updates")},
    {QStringLiteral("AI"), QStringLiteral("ai")},
    {QStringLiteral("SSH"), QStringLiteral("ssh")},
    {QStringLiteral("Hooks"), QStringLiteral("hooks")},
    {QStringLiteral("Sync"), QStringLiteral("sync")},
    {QStringLiteral("About"), QStringLiteral("about")},
};

const QString radio = QStringLiteral("radio button");

} // namespace

// The settings window's pages, reached from the keyboard: Ctrl+F, the arrow keys down the
// sidebar, Return. Each page says its title as a heading; the appearance choices, the switch,
// "Check Now" and the About page's links do what they say, checked in the preferences file
// and in what the desktop was asked to open.
class tst_SettingsPages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void everyPageInLight();
    void appearanceChoicesAreStored();
    void darkTurnsTheSettingsWindowDark();
    void everyPageInDark();
    void systemFollowsTheDesktopAgain();
    void checkNowFillsLastChecked();
    void websiteLinkOpensTheBrowser();

private:
    // Shows the page from the keyboard and waits for its heading.
    bool selectPage(const QString& title);
    // Tab from the sidebar to the page's first control.
    bool tabIntoPage();
    // Tabs on until the control of that role and name has the focus.
    bool tabTo(const QString& role, const QString& name);
    void visitEveryPage(const QString& mode);
    QVariant preference(const QString& key) const;

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AppDriver> m_driver;
    std::unique_ptr<LocalHttpServer> m_feed;
    std::unique_ptr<QTemporaryDir> m_tools;
    AppDriver::Node m_settings;
};

void tst_SettingsPages::initTestCase()
{
    const QStringList missing = AppDriver::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    QVERIFY2(QFile::exists(qEnvironmentVariable("KIVORA_APP")), "KIVORA_APP names no program");

    m_home = std::make_unique<TestHome>();
    StoredData data;
    for (int i = 1; i <= 5; ++i) {
        data.profiles << GitProfile::create(QStringLiteral("Profile %1").arg(i),
                                            QStringLiteral("User %1").arg(i),
                                            QStringLiteral("user%1@example.com").arg(i), QString());
    }
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
    m_home->write(
        QStringLiteral(".config/Kivora/Kivora.conf"),
        "[General]\nappAppearance=Light\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
        "showSSHKey=true\nshowSSHKeySet=true\n"
        // No check at launch: the first check is the one the test asks for.
        "[updater]\nautomaticallyChecksForUpdates=false\n");

    m_feed = std::make_unique<LocalHttpServer>();
    m_feed->route("/appcast.xml", {200, appcast, "application/rss+xml"});

    // A stand-in for the desktop's opener: it notes the address it was asked to open.
    m_tools = std::make_unique<QTemporaryDir>();
    const QString opener = m_tools->filePath(QStringLiteral("xdg-open"));
    QFile script(opener);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$(dirname \"$0\")/opened\"\n");
    script.close();
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    m_driver = std::make_unique<AppDriver>();
    QString problem;
    QVERIFY2(m_driver->startDesktop(*m_home, &problem), qPrintable(problem));
    QProcessEnvironment env;
    env.insert(QStringLiteral("KIVORA_UPDATE_FEED_URL"),
               m_feed->url(QStringLiteral("/appcast.xml")).toString());
    env.insert(QStringLiteral("PATH"), m_tools->path() + QLatin1Char(':') +
                                           m_driver->environment().value(QStringLiteral("PATH")));
    QVERIFY(m_driver->launch(env));

    // The settings window from the popover's "Settings" button, pressed over the bus.
    const auto popover = m_driver->openPopover();
    QVERIFY2(popover, qPrintable(m_driver->dump()));
    QVERIFY(m_driver->press(*popover, QStringLiteral("push button"), QStringLiteral("Settings")));
    const auto settings = m_driver->window(QStringLiteral("Kivora Settings"));
    QVERIFY2(settings, "no settings window");
    m_settings = *settings;
}

void tst_SettingsPages::cleanupTestCase()
{
    m_driver.reset();
    m_home.reset();
}

QVariant tst_SettingsPages::preference(const QString& key) const
{
    // A fresh reader each time: the file on disk as the application left it.
    const QSettings file(m_home->filePath(QStringLiteral(".config/Kivora/Kivora.conf")),
                         QSettings::IniFormat);
    return file.value(key);
}

bool tst_SettingsPages::selectPage(const QString& title)
{
    m_driver->key(QStringLiteral("ctrl+f"));
    if (!m_driver->waitForFocus(m_settings, QStringLiteral("text"),
                                QStringLiteral("Search settings"))) {
        qWarning() << "Ctrl+F did not reach the search field:"
                   << m_driver->describeFocus(m_settings);
        return false;
    }
    // Down to the rows, Home to the first, then down until the page's row has the focus.
    m_driver->key(QStringLiteral("Down Home"));
    for (int step = 0; step < 16; ++step) {
        if (m_driver->waitForFocus(m_settings, QStringLiteral("page tab"), title, 1000)) {
            m_driver->key(QStringLiteral("Return"));
            return m_driver->control(m_settings, QStringLiteral("heading"), title, 5000) &&
                   m_driver->a11y().hasState(
                       *m_driver->control(m_settings, QStringLiteral("page tab"), title, 0),
                       QStringLiteral("selected"));
        }
        m_driver->key(QStringLiteral("Down"));
    }
    qWarning() << "no sidebar row" << title << "; the focus is on"
               << m_driver->describeFocus(m_settings);
    return false;
}

bool tst_SettingsPages::tabIntoPage()
{
    m_driver->key(QStringLiteral("Tab"));
    const auto focus = m_driver->focused(m_settings);
    return focus && m_driver->a11y().roleName(*focus) != QLatin1String("page tab");
}

bool tst_SettingsPages::tabTo(const QString& role, const QString& name)
{
    for (int step = 0; step < 30; ++step) {
        if (m_driver->waitForFocus(m_settings, role, name, 500)) {
            return true;
        }
        m_driver->key(QStringLiteral("Tab"));
    }
    qWarning() << "Tab never reached" << role << name << "; the focus is on"
               << m_driver->describeFocus(m_settings);
    return false;
}

void tst_SettingsPages::visitEveryPage(const QString& mode)
{
    for (const auto& [title, name] : pages) {
        QVERIFY2(selectPage(title), qPrintable(title));
        QThread::msleep(400);
        QVERIFY(m_driver->saveScreenshot(m_settings, QStringLiteral("%1-%2.png").arg(name, mode)));
        if (title == QLatin1String("Appearance")) {
            // The preview is below the fold: into the page, then Page Down.
            QVERIFY(tabIntoPage());
            m_driver->key(QStringLiteral("Next"));
            QThread::msleep(400);
            QVERIFY(m_driver->saveScreenshot(
                m_settings, QStringLiteral("appearance-preview-%1.png").arg(mode)));
        }
    }
}

void tst_SettingsPages::everyPageInLight()
{
    visitEveryPage(QStringLiteral("light"));
}

void tst_SettingsPages::appearanceChoicesAreStored()
{
    QVERIFY(selectPage(QStringLiteral("Appearance")));
    // The icon style is the page's first stop: the selected segment, Dot.
    QVERIFY(tabIntoPage());
    QVERIFY2(m_driver->waitForFocus(m_settings, radio, QStringLiteral("Dot")),
             qPrintable(m_driver->describeFocus(m_settings)));
    m_driver->key(QStringLiteral("End"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("menuBarIconStyle")).toString(),
                              QStringLiteral("text"), 5000);
    m_driver->key(QStringLiteral("Left"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("menuBarIconStyle")).toString(),
                              QStringLiteral("full"), 5000);
    QVERIFY(m_driver->a11y().hasState(
        *m_driver->control(m_settings, radio, QStringLiteral("Full Logo")),
        QStringLiteral("checked")));
    // The next stop is the Compact Mode switch; Space turns it on and off.
    QVERIFY(!preference(QStringLiteral("compactMode")).isValid());
    m_driver->key(QStringLiteral("Tab"));
    QVERIFY2(m_driver->waitForFocus(m_settings, QStringLiteral("check box"),
                                    QStringLiteral("Compact Mode")),
             qPrintable(m_driver->describeFocus(m_settings)));
    m_driver->key(QStringLiteral("space"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("compactMode")).toString(),
                              QStringLiteral("true"), 5000);
    QVERIFY(m_driver->a11y().hasState(
        *m_driver->control(m_settings, QStringLiteral("check box"), QStringLiteral("Compact Mode")),
        QStringLiteral("checked")));
    QThread::msleep(300);
    QVERIFY(m_driver->saveScreenshot(m_settings, QStringLiteral("appearance-focus-light.png")));
    m_driver->key(QStringLiteral("space"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("compactMode")).toString(),
                              QStringLiteral("false"), 5000);
    // Over the accessibility bus too: "Show SSH Key Path" toggled off and on.
    const auto sshSwitch = m_driver->control(m_settings, QStringLiteral("check box"),
                                             QStringLiteral("Show SSH Key Path"));
    QVERIFY(sshSwitch);
    QVERIFY(m_driver->a11y().press(*sshSwitch));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("showSSHKey")).toString(),
                              QStringLiteral("false"), 5000);
    QVERIFY(m_driver->a11y().press(*sshSwitch));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("showSSHKey")).toString(),
                              QStringLiteral("true"), 5000);
    // Everything else in the file is as it was.
    QCOMPARE(preference(QStringLiteral("appAppearance")).toString(), QStringLiteral("Light"));
    QCOMPARE(preference(QStringLiteral("showProfileEmail")).toString(), QStringLiteral("true"));
}

void tst_SettingsPages::darkTurnsTheSettingsWindowDark()
{
    QVERIFY(selectPage(QStringLiteral("Appearance")));
    QVERIFY(tabIntoPage());
    QVERIFY(tabTo(radio, QStringLiteral("Light")));
    m_driver->key(QStringLiteral("Right"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("appAppearance")).toString(),
                              QStringLiteral("Dark"), 5000);
    QVERIFY(m_driver->waitForFocus(m_settings, radio, QStringLiteral("Dark")));
    QVERIFY(m_driver->a11y().hasState(*m_driver->control(m_settings, radio, QStringLiteral("Dark")),
                                      QStringLiteral("checked")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(m_settings, QStringLiteral("appearance-focus-dark.png")));
}

void tst_SettingsPages::everyPageInDark()
{
    visitEveryPage(QStringLiteral("dark"));
}

void tst_SettingsPages::systemFollowsTheDesktopAgain()
{
    QVERIFY(selectPage(QStringLiteral("Appearance")));
    QVERIFY(tabIntoPage());
    QVERIFY(tabTo(radio, QStringLiteral("Dark")));
    m_driver->key(QStringLiteral("Home"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("appAppearance")).toString(),
                              QStringLiteral("System"), 5000);
    m_driver->key(QStringLiteral("Right"));
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("appAppearance")).toString(),
                              QStringLiteral("Light"), 5000);
}

void tst_SettingsPages::checkNowFillsLastChecked()
{
    QVERIFY(selectPage(QStringLiteral("Updates")));
    QVERIFY(!preference(QStringLiteral("updater/lastUpdateCheckDate")).isValid());
    QVERIFY(
        !m_driver->control(m_settings, QStringLiteral("label"), QStringLiteral("Last Checked"), 0));

    QVERIFY(tabIntoPage());
    QVERIFY(tabTo(QStringLiteral("push button"), QStringLiteral("Check Now")));
    m_driver->key(QStringLiteral("Return"));
    // The feed is served from this process: let its event loop answer while waiting.
    QTRY_VERIFY_WITH_TIMEOUT(!m_feed->requests().isEmpty(), 10000);
    QCOMPARE(m_feed->requests().first().target, QByteArray("/appcast.xml"));
    std::optional<AppDriver::Node> updater;
    QTRY_VERIFY_WITH_TIMEOUT((updater = m_driver->window(QStringLiteral("Software Update"), 100)),
                             10000);
    QVERIFY(
        m_driver->control(*updater, QStringLiteral("label"), QStringLiteral("You're up to date!")));
    QTRY_VERIFY_WITH_TIMEOUT(preference(QStringLiteral("updater/lastUpdateCheckDate")).isValid(),
                             5000);
    const QDateTime checked = QDateTime::fromString(
        preference(QStringLiteral("updater/lastUpdateCheckDate")).toString(), Qt::ISODate);
    QVERIFY(checked.isValid());
    QVERIFY(std::abs(checked.secsTo(QDateTime::currentDateTimeUtc())) < 120);
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*updater, QStringLiteral("updater-result.png")));

    // Return presses its default button, OK, which closes it.
    QVERIFY(m_driver->focusWindow(QStringLiteral("Software Update")));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Software Update")));
    const auto lastChecked =
        m_driver->control(m_settings, QStringLiteral("label"), QStringLiteral("Last Checked"));
    QVERIFY2(lastChecked, qPrintable(m_driver->a11y().dump(m_settings)));
    QVERIFY(m_driver->a11y().description(*lastChecked).endsWith(QStringLiteral(" ago")));
    QThread::msleep(300);
    QVERIFY(m_driver->saveScreenshot(m_settings, QStringLiteral("updates-checked.png")));
}

void tst_SettingsPages::websiteLinkOpensTheBrowser()
{
    QVERIFY(selectPage(QStringLiteral("About")));
    QVERIFY(tabIntoPage());
    QVERIFY(tabTo(QString(), QStringLiteral("Website")));
    m_driver->key(QStringLiteral("Return"));
    const QString opened = m_tools->filePath(QStringLiteral("opened"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(opened), 10000);
    // And "Support" pressed over the accessibility bus.
    QVERIFY(m_driver->press(m_settings, QString(), QStringLiteral("Support")));
    const auto openedLines = [&] {
        QFile lines(opened);
        return lines.open(QIODevice::ReadOnly) ? lines.readAll().count('\n') : 0;
    };
    QTRY_COMPARE_WITH_TIMEOUT(openedLines(), 2, 10000);
    QFile file(opened);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("https://kivora.app/\nhttps://kivora.app/support/\n"));
}

QTEST_GUILESS_MAIN(tst_SettingsPages)

#include "tst_SettingsPages.moc"
