// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppProcess.h"
#include "XSession.h"
#include "model/ProfileCodec.h"
#include "support/LocalHttpServer.h"
#include "support/TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSettings>
#include <QThread>
#include <QtTest>

#include <array>
#include <memory>

namespace {

// Where trayer puts the first icon on a 1400 × 900 screen (top right, 28 pixels high).
constexpr int trayX = 1388;
constexpr int trayY = 14;

// The settings window's sidebar rows, from the window's top left: the rows are 32 pixels
// high below the search field, grouped under their section headers.
constexpr int sidebarRowX = 90;
struct TabRow {
    const char* page; // screenshot name
    int y;
};
constexpr TabRow appearanceRow{"appearance", 127};
constexpr TabRow notificationsRow{"notifications", 160};
constexpr TabRow updatesRow{"updates", 193};
constexpr TabRow aiRow{"ai", 256};
constexpr TabRow sshRow{"ssh", 289};
constexpr TabRow hooksRow{"hooks", 322};
constexpr TabRow syncRow{"sync", 355};
constexpr TabRow aboutRow{"about", 418};
constexpr std::array<TabRow, 8> pageRows{appearanceRow,    aiRow,   sshRow,   hooksRow,
                                         notificationsRow, syncRow, aboutRow, updatesRow};

// Controls on the pages, from the window's top left (the page starts right of the
// 261-pixel sidebar).
constexpr QPoint textStyleSegment(932, 181);
constexpr QPoint fullLogoSegment(680, 181);
constexpr QPoint compactSwitch(1040, 253);
constexpr QPoint lightSegment(680, 380);
constexpr QPoint darkSegment(932, 380);
constexpr QPoint systemSegment(428, 380);
constexpr QPoint checkNowButton(348, 348);
constexpr QPoint websiteLink(351, 412);
// Where "Last Checked" appears below "Check Now".
constexpr QRect lastCheckedArea(300, 376, 760, 18);

double meanGray(const QImage& image, const QRect& area)
{
    const QRect inside = area.intersected(image.rect());
    double sum = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            sum += qGray(image.pixel(x, y));
        }
    }
    return inside.isEmpty() ? 0 : sum / (inside.width() * inside.height());
}

// Pixels of an area that stand out from its first pixel (text, symbols, lines).
int inkPixels(const QImage& image, const QRect& area)
{
    const QRect inside = area.intersected(image.rect());
    const QRgb background = image.pixel(inside.topLeft());
    int count = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            count += std::abs(qGray(image.pixel(x, y)) - qGray(background)) > 40 ? 1 : 0;
        }
    }
    return count;
}

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

} // namespace

class tst_SettingsPages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void everyPageInLight();
    void appearanceChoicesAreStored();
    void darkTurnsTheSettingsWindowAndThePopover();
    void everyPageInDark();
    void systemFollowsTheDesktopAgain();
    void checkNowFillsLastChecked();
    void websiteLinkOpensTheBrowser();

private:
    bool launch();
    std::optional<QString> openPopover();
    std::optional<QString> openSettings();
    // Selects the page and waits until the window shows it selected.
    bool selectPage(const TabRow& row);
    QImage captureSettings();
    void clickInSettings(const QPoint& point);
    void saveScreenshot(const QImage& image, const QString& name);
    void visitEveryPage(const QString& mode);
    QVariant preference(const QString& key) const;

    std::unique_ptr<XSession> m_x;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QProcess> m_app;
    std::unique_ptr<LocalHttpServer> m_feed;
    std::unique_ptr<QTemporaryDir> m_tools;
    QString m_appPath;
    QString m_settingsWindow;
};

void tst_SettingsPages::initTestCase()
{
    const QStringList missing = XSession::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    m_appPath = qEnvironmentVariable("KIVORA_APP");
    QVERIFY2(QFile::exists(m_appPath), "KIVORA_APP names no program");

    m_x = std::make_unique<XSession>();
    QString problem;
    QVERIFY2(m_x->start(&problem), qPrintable(problem));

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

    QVERIFY(launch());
    const auto settings = openSettings();
    QVERIFY2(settings, "no settings window");
    m_settingsWindow = *settings;
}

void tst_SettingsPages::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_x.reset();
    m_home.reset();
}

bool tst_SettingsPages::launch()
{
    QProcessEnvironment env = m_x->environment();
    env.insert(QStringLiteral("KIVORA_UPDATE_FEED_URL"),
               m_feed->url(QStringLiteral("/appcast.xml")).toString());
    env.insert(QStringLiteral("PATH"),
               m_tools->path() + QLatin1Char(':') + env.value(QStringLiteral("PATH")));
    // Only the stand-in opener may be used, whatever the session says about browsers.
    env.remove(QStringLiteral("BROWSER"));
    env.remove(QStringLiteral("DEFAULT_BROWSER"));
    env.remove(QStringLiteral("XDG_CURRENT_DESKTOP"));
    env.remove(QStringLiteral("DESKTOP_SESSION"));
    env.remove(QStringLiteral("KDE_FULL_SESSION"));
    env.remove(QStringLiteral("GNOME_DESKTOP_SESSION_ID"));
    m_app = AppProcess::launch(m_appPath, env);
    return m_app != nullptr;
}

std::optional<QString> tst_SettingsPages::openPopover()
{
    if (auto open = m_x->waitForWindow(QStringLiteral("^Kivora$"), 200)) {
        return open;
    }
    m_x->click(trayX, trayY);
    return m_x->waitForWindow(QStringLiteral("^Kivora$"), 10000);
}

std::optional<QString> tst_SettingsPages::openSettings()
{
    const auto popover = openPopover();
    if (!popover) {
        return std::nullopt;
    }
    const QRect area = m_x->geometry(*popover);
    // "Settings" is the footer's second button from the right.
    m_x->click(area.right() - 80, area.bottom() - 22);
    return m_x->waitForWindow(QStringLiteral("^Kivora Settings$"), 10000);
}

QImage tst_SettingsPages::captureSettings()
{
    return m_x->capture(m_x->geometry(m_settingsWindow));
}

void tst_SettingsPages::clickInSettings(const QPoint& point)
{
    const QRect window = m_x->geometry(m_settingsWindow);
    m_x->click(window.left() + point.x(), window.top() + point.y());
}

bool tst_SettingsPages::selectPage(const TabRow& row)
{
    clickInSettings(QPoint(sidebarRowX, row.y));
    // Move away so that no hover colour remains in the picture.
    const QRect window = m_x->geometry(m_settingsWindow);
    m_x->move(window.left() + 1090, window.top() + 640);
    // The selected row is tinted with the accent blue.
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 5000) {
        QThread::msleep(300);
        const QRgb pixel = captureSettings().pixel(200, row.y);
        if (qBlue(pixel) > qRed(pixel) + 12) {
            QThread::msleep(200);
            return true;
        }
    }
    return false;
}

void tst_SettingsPages::saveScreenshot(const QImage& image, const QString& name)
{
    QVERIFY(AppProcess::saveScreenshot(image, name));
}

QVariant tst_SettingsPages::preference(const QString& key) const
{
    // A fresh reader each time: the file on disk as the application left it.
    const QSettings file(m_home->filePath(QStringLiteral(".config/Kivora/Kivora.conf")),
                         QSettings::IniFormat);
    return file.value(key);
}

void tst_SettingsPages::visitEveryPage(const QString& mode)
{
    // Each page has its own header: no two pictures of the header area are the same.
    QList<QImage> headers;
    for (const TabRow& row : pageRows) {
        QVERIFY(selectPage(row));
        const QImage window = captureSettings();
        saveScreenshot(window, QStringLiteral("%1-%2.png").arg(QLatin1String(row.page), mode));
        if (row.y == appearanceRow.y) {
            // The preview sits below the fold: scroll down to it for a second picture.
            const QRect area = m_x->geometry(m_settingsWindow);
            m_x->move(area.left() + 680, area.top() + 400);
            for (int i = 0; i < 15; ++i) {
                m_x->run(QStringLiteral("xdotool"), {QStringLiteral("click"), QStringLiteral("5")});
            }
            m_x->move(area.left() + 1090, area.top() + 640);
            QThread::msleep(500);
            saveScreenshot(captureSettings(),
                           QStringLiteral("appearance-preview-%1.png").arg(mode));
        }
        const QImage header = window.copy(QRect(262, 0, 838, 90));
        for (const QImage& seen : headers) {
            QVERIFY2(header != seen, row.page);
        }
        headers << header;
    }
}

void tst_SettingsPages::everyPageInLight()
{
    visitEveryPage(QStringLiteral("light"));
}

void tst_SettingsPages::appearanceChoicesAreStored()
{
    QVERIFY(selectPage(appearanceRow));
    clickInSettings(textStyleSegment);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("menuBarIconStyle")).toString(),
                              QStringLiteral("text"), 5000);
    clickInSettings(fullLogoSegment);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("menuBarIconStyle")).toString(),
                              QStringLiteral("full"), 5000);
    QVERIFY(!preference(QStringLiteral("compactMode")).isValid());
    clickInSettings(compactSwitch);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("compactMode")).toString(),
                              QStringLiteral("true"), 5000);
    clickInSettings(compactSwitch);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("compactMode")).toString(),
                              QStringLiteral("false"), 5000);
    // Everything else in the file is as it was.
    QCOMPARE(preference(QStringLiteral("appAppearance")).toString(), QStringLiteral("Light"));
    QCOMPARE(preference(QStringLiteral("showProfileEmail")).toString(), QStringLiteral("true"));
    QCOMPARE(preference(QStringLiteral("showSSHKey")).toString(), QStringLiteral("true"));
}

void tst_SettingsPages::darkTurnsTheSettingsWindowAndThePopover()
{
    QVERIFY(selectPage(appearanceRow));
    const QImage light = captureSettings();
    // The page's background right of the cards, and the sidebar below its rows.
    const QRect pageArea(1085, 300, 10, 300);
    const QRect sidebarArea(20, 560, 200, 60);
    QVERIFY(meanGray(light, pageArea) > 200);
    QVERIFY(meanGray(light, sidebarArea) > 200);

    clickInSettings(darkSegment);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("appAppearance")).toString(),
                              QStringLiteral("Dark"), 5000);
    QThread::msleep(400);
    const QImage dark = captureSettings();
    QVERIFY(meanGray(dark, pageArea) < 60);
    QVERIFY(meanGray(dark, sidebarArea) < 60);

    const auto popover = openPopover();
    QVERIFY(popover);
    const QRect area = m_x->geometry(*popover);
    m_x->move(area.left() - 40, area.bottom() + 40);
    QThread::msleep(400);
    const QImage popoverPicture = m_x->capture(area);
    QVERIFY(meanGray(popoverPicture, QRect(4, 4, area.width() - 8, area.height() - 8)) < 80);
    m_x->run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Escape")});
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Kivora$"), 100), 5000);
}

void tst_SettingsPages::everyPageInDark()
{
    // The popover took the focus; the settings window is still there.
    m_x->run(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), m_settingsWindow});
    visitEveryPage(QStringLiteral("dark"));
}

void tst_SettingsPages::systemFollowsTheDesktopAgain()
{
    QVERIFY(selectPage(appearanceRow));
    clickInSettings(systemSegment);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("appAppearance")).toString(),
                              QStringLiteral("System"), 5000);
    // This X session has no desktop portal, so the system's mode is light.
    QThread::msleep(400);
    QVERIFY(meanGray(captureSettings(), QRect(1085, 300, 10, 300)) > 200);
    clickInSettings(lightSegment);
    QTRY_COMPARE_WITH_TIMEOUT(preference(QStringLiteral("appAppearance")).toString(),
                              QStringLiteral("Light"), 5000);
}

void tst_SettingsPages::checkNowFillsLastChecked()
{
    QVERIFY(selectPage(updatesRow));
    QVERIFY(!preference(QStringLiteral("updater/lastUpdateCheckDate")).isValid());
    const QImage before = captureSettings();
    QCOMPARE(inkPixels(before, lastCheckedArea), 0);

    clickInSettings(checkNowButton);
    // The feed is served from this process: let its event loop answer while waiting.
    QTRY_VERIFY_WITH_TIMEOUT(!m_feed->requests().isEmpty(), 10000);
    QCOMPARE(m_feed->requests().first().target, QByteArray("/appcast.xml"));
    const auto updater = [&] {
        return m_x->waitForWindow(QStringLiteral("^Software Update$"), 100);
    };
    QTRY_VERIFY_WITH_TIMEOUT(updater().has_value(), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(preference(QStringLiteral("updater/lastUpdateCheckDate")).isValid(),
                             5000);
    const QDateTime checked = QDateTime::fromString(
        preference(QStringLiteral("updater/lastUpdateCheckDate")).toString(), Qt::ISODate);
    QVERIFY(checked.isValid());
    QVERIFY(std::abs(checked.secsTo(QDateTime::currentDateTimeUtc())) < 120);

    QThread::msleep(400);
    const auto updaterWindow = updater();
    QVERIFY(updaterWindow);
    saveScreenshot(m_x->capture(m_x->geometry(*updaterWindow)),
                   QStringLiteral("updater-result.png"));
    // Out of the way of the settings window (this X session has no window manager).
    m_x->run(QStringLiteral("xdotool"), {QStringLiteral("windowunmap"), *updaterWindow});
    QThread::msleep(400);
    const QImage after = captureSettings();
    saveScreenshot(after, QStringLiteral("updates-checked.png"));
    QVERIFY(inkPixels(after, lastCheckedArea) > 40);
}

void tst_SettingsPages::websiteLinkOpensTheBrowser()
{
    QVERIFY(selectPage(aboutRow));
    clickInSettings(websiteLink);
    const QString opened = m_tools->filePath(QStringLiteral("opened"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(opened), 10000);
    QFile file(opened);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().trimmed(), QByteArray("https://kivora.app/"));
}

QTEST_GUILESS_MAIN(tst_SettingsPages)

#include "tst_SettingsPages.moc"
