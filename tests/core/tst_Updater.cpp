// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "prefs/SettingsManager.h"
#include "support/LocalHttpServer.h"
#include "support/TestHome.h"
#include "updates/Appcast.h"
#include "updates/UpdateSchedule.h"
#include "updates/Updater.h"
#include "updates/VersionComparator.h"

#include <QFile>
#include <QHostAddress>
#include <QSettings>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr int waitMs = 20000;

const QByteArray feedPath = "/appcast.xml";

QByteArray feed(const QByteArray& items)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/"
           "sparkle\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n"
           "<channel>\n<title>Kivora Changelog</title>\n<link>https://kivora.example/</link>\n" +
           items + "</channel>\n</rss>\n";
}

QByteArray item(const QByteArray& version, const QByteArray& extra = {})
{
    return "<item>\n<title>Version " + version + "</title>\n<sparkle:version>" + version +
           "</sparkle:version>\n<link>https://kivora.example/releases/" + version + "</link>\n" +
           "<pubDate>Mon, 01 Apr 2024 10:00:00 +0000</pubDate>\n" + extra + "</item>\n";
}

LocalHttpServer::Reply rss(const QByteArray& body)
{
    return {200, body, "application/rss+xml"};
}

QDateTime utc(int year, int month, int day, int hour, int minute = 0, int second = 0, int ms = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second, ms), Qt::UTC);
}

// Answers every request with a redirect to `target`.
class RedirectServer : public QObject {
public:
    explicit RedirectServer(const QUrl& target) : m_target(target)
    {
        m_server.listen(QHostAddress::LocalHost, 0);
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                    if (!socket->readAll().contains("\r\n\r\n")) {
                        return;
                    }
                    socket->write("HTTP/1.1 302 Found\r\nLocation: " + m_target.toEncoded() +
                                  "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
                    socket->disconnectFromHost();
                });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
    }
    QUrl url() const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/old-feed.xml").arg(m_server.serverPort()));
    }

private:
    QTcpServer m_server;
    QUrl m_target;
};

} // namespace

class tst_Updater : public QObject {
    Q_OBJECT

private:
    // Every updater of a test reads its settings from the test home's preferences file and
    // its time from `m_now`.
    std::unique_ptr<Updater>
    makeUpdater(const TestHome& home, const QString& currentVersion = QStringLiteral("1.0.0"),
                std::chrono::milliseconds timeout = std::chrono::milliseconds(60000))
    {
        Updater::Options options;
        options.settingsPath = settingsPath(home);
        options.currentVersion = currentVersion;
        options.defaultFeedUrl = QString();
        options.transferTimeout = timeout;
        auto updater = std::make_unique<Updater>(options);
        updater->setClock([this] { return m_now; });
        return updater;
    }

    static QString settingsPath(const TestHome& home)
    {
        return home.configHome() + QStringLiteral("/Kivora/Kivora.conf");
    }

    static void pointAt(TestHome& home, const QUrl& url)
    {
        home.setEnv("KIVORA_UPDATE_FEED_URL", url.toString().toUtf8());
    }

    static void storeLastCheck(const TestHome& home, const QString& text)
    {
        QSettings settings(settingsPath(home), QSettings::NativeFormat);
        settings.setValue(QStringLiteral("updater/lastUpdateCheckDate"), text);
        settings.sync();
    }

    // A user's check against `body`, waited for.
    struct Checked {
        std::unique_ptr<Updater> updater;
        QList<QVariant> finished; // the arguments of checkFinished
    };
    Checked checkAgainst(TestHome& home, LocalHttpServer& server, LocalHttpServer::Reply reply,
                         const QString& currentVersion = QStringLiteral("1.0.0"))
    {
        server.route(feedPath, std::move(reply));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        Checked checked{makeUpdater(home, currentVersion), {}};
        QSignalSpy finished(checked.updater.get(), &Updater::checkFinished);
        checked.updater->checkForUpdates();
        if (finished.wait(waitMs) || !finished.isEmpty()) {
            checked.finished = finished.first();
        }
        return checked;
    }

    QDateTime m_now = utc(2024, 3, 1, 10, 0, 0, 250);

private slots:
    void init() { m_now = utc(2024, 3, 1, 10, 0, 0, 250); }

    // ---- version comparison ----

    void versionComparison_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("expected");
        QTest::newRow("numeric parts") << "1.10"
                                       << "1.9" << 1;
        QTest::newRow("trailing zero") << "1.2"
                                       << "1.2.0" << 0;
        QTest::newRow("several trailing zeros") << "1.2.0.0"
                                                << "1.2" << 0;
        QTest::newRow("same") << "0.1.0"
                              << "0.1.0" << 0;
        QTest::newRow("patch") << "1.0"
                               << "1.0.1" << -1;
        QTest::newRow("major by value") << "2"
                                        << "10" << -1;
        QTest::newRow("leading zeros") << "1.01"
                                       << "1.1" << 0;
        QTest::newRow("beta before release") << "1.0b1"
                                             << "1.0" << -1;
        QTest::newRow("dashed rc before release") << "1.0-rc2"
                                                  << "1.0" << -1;
        QTest::newRow("beta before rc") << "1.0beta2"
                                        << "1.0rc1" << -1;
        QTest::newRow("alpha before beta") << "1.0alpha"
                                           << "1.0beta" << -1;
        QTest::newRow("words ignore case") << "1.0-RC1"
                                           << "1.0-rc1" << 0;
        QTest::newRow("pre-release numbers") << "1.0b2"
                                             << "1.0b10" << -1;
        QTest::newRow("number above word") << "1.0.1"
                                           << "1.0b1" << 1;
        QTest::newRow("v prefix") << "v1.2"
                                  << "1.2" << 0;
        QTest::newRow("v prefix newer") << "v1.10"
                                        << "1.9" << 1;
        QTest::newRow("separators alike") << "1-2_3+4"
                                          << "1.2.3.4" << 0;
        QTest::newRow("long numbers") << "1.12345678901234567890"
                                      << "1.12345678901234567889" << 1;
        QTest::newRow("empty is zero") << ""
                                       << "0" << 0;
        QTest::newRow("anything above empty") << "0.0.1"
                                              << "" << 1;
    }

    void versionComparison()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, expected);
        QCOMPARE(VersionComparator::compare(a, b), expected);
        QCOMPARE(VersionComparator::compare(b, a), -expected);
        QCOMPARE(VersionComparator::isNewer(a, b), expected > 0);
    }

    // ---- the feed ----

    void defaultsBeforeAnyCheck()
    {
        TestHome home;
        auto updater = makeUpdater(home);
        QCOMPARE(updater->automaticallyChecksForUpdates(), true);
        QCOMPARE(updater->updateCheckInterval(), 86400.0);
        QVERIFY(!updater->lastUpdateCheckDate().isValid());
        QVERIFY(!updater->hasLastUpdateCheckDate());
        QCOMPARE(updater->state(), Updater::State::Idle);
        QCOMPARE(updater->currentVersion(), QStringLiteral("1.0.0"));
        // Reading the settings writes nothing.
        QVERIFY(!QFile::exists(settingsPath(home)));
    }

    void runningVersionDefaultsToTheBuiltOne()
    {
        TestHome home;
        Updater updater(Updater::Options{
            settingsPath(home), {}, QString(), nullptr, std::chrono::milliseconds(60000)});
        QCOMPARE(updater.currentVersion(), QStringLiteral(KIVORA_VERSION));
    }

    void upToDate()
    {
        TestHome home;
        LocalHttpServer server;
        const Checked checked =
            checkAgainst(home, server, rss(feed(item("1.0.0") + item("0.9.0"))));
        Updater& updater = *checked.updater;
        QCOMPARE(checked.finished, QList<QVariant>{true});
        QCOMPARE(updater.state(), Updater::State::UpToDate);
        QVERIFY(updater.availableVersion().isEmpty());
        QVERIFY(updater.downloadUrl().isEmpty());
        QVERIFY(updater.errorMessage().isEmpty());
        QCOMPARE(updater.lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 0));
        QCOMPARE(server.requests().size(), 1);
        QCOMPARE(server.requests().first().method, QByteArray("GET"));
        QCOMPARE(server.requests().first().target, feedPath);
    }

    void newerVersionFound()
    {
        TestHome home;
        LocalHttpServer server;
        const QByteArray notes = "<h2>What's new</h2><ul><li>Faster switching</li></ul>";
        const Checked checked = checkAgainst(
            home, server,
            rss(feed(item("1.0.0") +
                     item("1.1.0", "<sparkle:shortVersionString>1.1</sparkle:shortVersionString>\n"
                                   "<description><![CDATA[" +
                                       notes +
                                       "]]></description>\n"
                                       "<sparkle:releaseNotesLink>https://kivora.example/notes/"
                                       "1.1.html</sparkle:releaseNotesLink>\n"
                                       "<enclosure url=\"https://kivora.example/dl/"
                                       "kivora-1.1.tar.gz\" length=\"1234\" "
                                       "type=\"application/octet-stream\"/>\n"))));
        Updater& updater = *checked.updater;
        QCOMPARE(checked.finished, QList<QVariant>{true});
        QCOMPARE(updater.state(), Updater::State::UpdateFound);
        QCOMPARE(updater.availableVersion(), QStringLiteral("1.1"));
        QCOMPARE(updater.update()->version, QStringLiteral("1.1.0"));
        QCOMPARE(updater.releaseTitle(), QStringLiteral("Version 1.1.0"));
        QCOMPARE(updater.releaseNotes(), QString::fromUtf8(notes));
        QCOMPARE(updater.releaseNotesUrl(),
                 QUrl(QStringLiteral("https://kivora.example/notes/1.1.html")));
        // The release page wins over the file.
        QCOMPARE(updater.downloadUrl(),
                 QUrl(QStringLiteral("https://kivora.example/releases/1.1.0")));
        QCOMPARE(updater.update()->enclosureUrl,
                 QUrl(QStringLiteral("https://kivora.example/dl/kivora-1.1.tar.gz")));
        QCOMPARE(updater.lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 0));
    }

    void newestItemIsChosenInAnyOrder_data()
    {
        QTest::addColumn<QStringList>("versions");
        QTest::addColumn<QString>("expected");
        QTest::newRow("newest first")
            << QStringList{QStringLiteral("1.10.0"), QStringLiteral("1.9.0"),
                           QStringLiteral("1.2.0"), QStringLiteral("0.9")}
            << QStringLiteral("1.10.0");
        QTest::newRow("newest last")
            << QStringList{QStringLiteral("0.9"), QStringLiteral("1.2.0"), QStringLiteral("1.9.0"),
                           QStringLiteral("1.10.0")}
            << QStringLiteral("1.10.0");
        QTest::newRow("newest in the middle")
            << QStringList{QStringLiteral("1.2.0"), QStringLiteral("2.0"), QStringLiteral("1.9.0")}
            << QStringLiteral("2.0");
        QTest::newRow("release above its beta")
            << QStringList{QStringLiteral("1.1b2"), QStringLiteral("1.1"), QStringLiteral("1.1rc1")}
            << QStringLiteral("1.1");
    }

    void newestItemIsChosenInAnyOrder()
    {
        QFETCH(QStringList, versions);
        QFETCH(QString, expected);
        TestHome home;
        LocalHttpServer server;
        QByteArray items;
        for (const QString& version : versions) {
            items += item(version.toUtf8());
        }
        const Checked checked = checkAgainst(home, server, rss(feed(items)));
        QCOMPARE(checked.updater->state(), Updater::State::UpdateFound);
        QCOMPARE(checked.updater->availableVersion(), expected);
        QCOMPARE(checked.updater->downloadUrl(),
                 QUrl(QStringLiteral("https://kivora.example/releases/") + expected));
    }

    void onlyOlderReleasesMeansUpToDate()
    {
        TestHome home;
        LocalHttpServer server;
        const Checked checked = checkAgainst(home, server, rss(feed(item("1.9") + item("1.10"))),
                                             QStringLiteral("1.10.0"));
        QCOMPARE(checked.updater->state(), Updater::State::UpToDate);
    }

    void enclosureCarriesTheVersion()
    {
        TestHome home;
        LocalHttpServer server;
        const QByteArray body = feed("<item><title>Kivora 2</title>"
                                     "<enclosure url=\"downloads/kivora-2.0.tar.gz\" "
                                     "sparkle:version=\"2.0.0\" "
                                     "sparkle:shortVersionString=\"2.0\" length=\"10\"/>"
                                     "</item>");
        const Checked checked = checkAgainst(home, server, rss(body));
        Updater& updater = *checked.updater;
        QCOMPARE(updater.state(), Updater::State::UpdateFound);
        QCOMPARE(updater.availableVersion(), QStringLiteral("2.0"));
        QCOMPARE(updater.update()->version, QStringLiteral("2.0.0"));
        // No release page: the file itself, its relative address taken from the feed's.
        QCOMPARE(updater.downloadUrl(), server.url(QStringLiteral("/downloads/kivora-2.0.tar.gz")));
    }

    void versionElementWinsOverTheEnclosure()
    {
        const QByteArray body =
            feed("<item><sparkle:version>3.0</sparkle:version>"
                 "<enclosure url=\"https://kivora.example/a.tar.gz\" sparkle:version=\"2.0\"/>"
                 "</item>");
        QString error;
        const auto items =
            Appcast::parse(body, QUrl(QStringLiteral("https://kivora.example/")), &error);
        QVERIFY(items);
        QCOMPARE(items->size(), 1);
        QCOMPARE(items->first().version, QStringLiteral("3.0"));
        QVERIFY(error.isEmpty());
    }

    void onlyWebAddressesAreOffered()
    {
        const QByteArray body =
            feed("<item><sparkle:version>3.0</sparkle:version>"
                 "<link>file:///etc/passwd</link>"
                 "<enclosure url=\"javascript:alert(1)\"/>"
                 "<sparkle:releaseNotesLink>ftp://x/y</sparkle:releaseNotesLink>"
                 "</item>");
        QString error;
        const auto items =
            Appcast::parse(body, QUrl(QStringLiteral("https://kivora.example/")), &error);
        QVERIFY(items);
        QCOMPARE(items->size(), 1);
        QVERIFY(items->first().link.isEmpty());
        QVERIFY(items->first().enclosureUrl.isEmpty());
        QVERIFY(items->first().releaseNotesLink.isEmpty());
        QVERIFY(items->first().downloadUrl().isEmpty());
    }

    void malformedXml()
    {
        TestHome home;
        LocalHttpServer server;
        const Checked checked =
            checkAgainst(home, server,
                         rss("<?xml version=\"1.0\"?><rss version=\"2.0\"><channel><item>"
                             "<title>Broken</item></channel></rss>"));
        Updater& updater = *checked.updater;
        QCOMPARE(checked.finished, QList<QVariant>{true});
        QCOMPARE(updater.state(), Updater::State::Error);
        QVERIFY2(
            updater.errorMessage().startsWith(QStringLiteral("The update feed is not valid XML: ")),
            qPrintable(updater.errorMessage()));
        QVERIFY(updater.errorMessage().contains(QStringLiteral("line 1")));
        // A failed check is not a completed one.
        QVERIFY(!updater.hasLastUpdateCheckDate());
    }

    void undeclaredSparklePrefixIsMalformed()
    {
        QString error;
        const auto items = Appcast::parse(
            "<rss version=\"2.0\"><channel><item><sparkle:version>2</sparkle:version></item>"
            "</channel></rss>",
            QUrl(), &error);
        QVERIFY(!items);
        QVERIFY2(error.startsWith(QStringLiteral("The update feed is not valid XML: ")),
                 qPrintable(error));
    }

    void notAnRssDocument()
    {
        TestHome home;
        LocalHttpServer server;
        const Checked checked =
            checkAgainst(home, server, {200, "<html><body>Hello</body></html>", "text/html"});
        QCOMPARE(checked.updater->state(), Updater::State::Error);
        QCOMPARE(checked.updater->errorMessage(),
                 QStringLiteral("The update feed is not an RSS feed."));
    }

    void emptyAnswer()
    {
        TestHome home;
        LocalHttpServer server;
        const Checked checked = checkAgainst(home, server, rss(""));
        QCOMPARE(checked.updater->state(), Updater::State::Error);
        QCOMPARE(checked.updater->errorMessage(), QStringLiteral("The update feed is empty."));
    }

    void feedWithoutItems_data()
    {
        QTest::addColumn<QByteArray>("items");
        QTest::newRow("no items") << QByteArray();
        QTest::newRow("items without a version")
            << QByteArray("<item><title>News</title><link>https://kivora.example/n</link></item>");
    }

    void feedWithoutItems()
    {
        QFETCH(QByteArray, items);
        TestHome home;
        LocalHttpServer server;
        const Checked checked = checkAgainst(home, server, rss(feed(items)));
        QCOMPARE(checked.finished, QList<QVariant>{true});
        QCOMPARE(checked.updater->state(), Updater::State::Error);
        QCOMPARE(checked.updater->errorMessage(),
                 QStringLiteral("The update feed lists no releases."));
        QVERIFY(!checked.updater->hasLastUpdateCheckDate());
    }

    void httpErrorStatus_data()
    {
        QTest::addColumn<int>("status");
        QTest::newRow("404") << 404;
        QTest::newRow("500") << 500;
        QTest::newRow("403") << 403;
    }

    void httpErrorStatus()
    {
        QFETCH(int, status);
        TestHome home;
        LocalHttpServer server;
        const Checked checked = checkAgainst(home, server, {status, "nope", "text/plain"});
        QCOMPARE(checked.updater->state(), Updater::State::Error);
        QCOMPARE(checked.updater->errorMessage(),
                 QStringLiteral("The update feed answered HTTP %1.").arg(status));
        QVERIFY(!checked.updater->hasLastUpdateCheckDate());
    }

    void serverUnreachable()
    {
        TestHome home;
        pointAt(home, QUrl(QStringLiteral("http://127.0.0.1:%1/appcast.xml")
                               .arg(LocalHttpServer::closedPort())));
        auto updater = makeUpdater(home);
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater->state(), Updater::State::Error);
        const QString prefix = QStringLiteral("Could not reach the update feed: ");
        QVERIFY2(updater->errorMessage().startsWith(prefix), qPrintable(updater->errorMessage()));
        QVERIFY(updater->errorMessage().size() > prefix.size());
        QVERIFY(!updater->hasLastUpdateCheckDate());
    }

    void silentServerTimesOut()
    {
        TestHome home;
        QTcpServer silent; // accepts connections and never answers
        QVERIFY(silent.listen(QHostAddress::LocalHost, 0));
        pointAt(home,
                QUrl(QStringLiteral("http://127.0.0.1:%1/appcast.xml").arg(silent.serverPort())));
        auto updater = makeUpdater(home, QStringLiteral("1.0.0"), std::chrono::milliseconds(2000));
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater->state(), Updater::State::Error);
        QCOMPARE(updater->errorMessage(),
                 QStringLiteral("The update feed did not answer within 2 seconds."));
    }

    void redirectsAreFollowed()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.5"))));
        RedirectServer redirect(server.url(QString::fromLatin1(feedPath)));
        pointAt(home, redirect.url());
        auto updater = makeUpdater(home);
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater->state(), Updater::State::UpdateFound);
        QCOMPARE(updater->availableVersion(), QStringLiteral("1.5"));
        QCOMPARE(server.requests().size(), 1);
    }

    void noFeedConfigured()
    {
        TestHome home;
        home.setEnv("KIVORA_UPDATE_FEED_URL", std::nullopt);
        auto updater = makeUpdater(home);
        QVERIFY(updater->feedUrl().isEmpty());
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->checkForUpdates();
        // The result arrives from the event loop, so a caller can connect first and wait.
        QCOMPARE(finished.count(), 0);
        QCOMPARE(updater->state(), Updater::State::Checking);
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(finished.first(), QList<QVariant>{true});
        QCOMPARE(updater->state(), Updater::State::Error);
        QCOMPARE(updater->errorMessage(), QStringLiteral("No update feed is configured."));
    }

    void environmentOverridesTheDefaultFeed()
    {
        TestHome home;
        LocalHttpServer server;
        server.route("/default.xml", rss(feed(item("9.0"))));
        server.route("/override.xml", rss(feed(item("1.0.0"))));
        Updater::Options options;
        options.settingsPath = settingsPath(home);
        options.currentVersion = QStringLiteral("1.0.0");
        options.defaultFeedUrl = server.url(QStringLiteral("/default.xml")).toString();

        home.setEnv("KIVORA_UPDATE_FEED_URL", std::nullopt);
        {
            Updater updater(options);
            QCOMPARE(updater.feedUrl(), server.url(QStringLiteral("/default.xml")));
        }
        home.setEnv("KIVORA_UPDATE_FEED_URL",
                    server.url(QStringLiteral("/override.xml")).toString().toUtf8());
        Updater updater(options);
        QCOMPARE(updater.feedUrl(), server.url(QStringLiteral("/override.xml")));
        QSignalSpy finished(&updater, &Updater::checkFinished);
        updater.checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater.state(), Updater::State::UpToDate);
        QCOMPARE(server.requests().size(), 1);
        QCOMPARE(server.requests().first().target, QByteArray("/override.xml"));
    }

    void invalidFeedAddress()
    {
        TestHome home;
        home.setEnv("KIVORA_UPDATE_FEED_URL", QByteArrayLiteral("mailto:someone@example.com"));
        auto updater = makeUpdater(home);
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(
            updater->errorMessage(),
            QStringLiteral("The update feed address is not valid: mailto:someone@example.com"));
    }

    void aNewCheckReplacesTheOldResult()
    {
        TestHome home;
        LocalHttpServer server;
        Checked checked = checkAgainst(home, server, rss(feed(item("2.0"))));
        Updater& updater = *checked.updater;
        QCOMPARE(updater.state(), Updater::State::UpdateFound);

        server.route(feedPath, {404, "gone", "text/plain"});
        QSignalSpy finished(&updater, &Updater::checkFinished);
        updater.checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater.state(), Updater::State::Error);
        QVERIFY(updater.availableVersion().isEmpty());
        QVERIFY(updater.downloadUrl().isEmpty());

        server.route(feedPath, rss(feed(item("1.0"))));
        updater.checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, waitMs);
        QCOMPARE(updater.state(), Updater::State::UpToDate);
        QVERIFY(updater.errorMessage().isEmpty());
    }

    // ---- the schedule ----

    void neverCheckedChecksAtStart()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        auto updater = makeUpdater(home);
        QVERIFY(updater->isCheckDue());
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->start();
        QCOMPARE(updater->state(), Updater::State::Checking);
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(finished.first(), QList<QVariant>{false});
        QCOMPARE(updater->state(), Updater::State::UpToDate);
        QCOMPARE(updater->lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 0));
        // The next one a day later, waited for by the timer.
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 2, 10, 0, 0));
        QVERIFY(updater->isScheduled());
        QVERIFY(!updater->isCheckDue());
    }

    void checkDueWhenTheIntervalHasPassed()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.2.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        storeLastCheck(home, QStringLiteral("2024-02-29T10:00:00Z")); // exactly a day before
        m_now = utc(2024, 3, 1, 10, 0, 0);
        auto updater = makeUpdater(home);
        QCOMPARE(updater->lastUpdateCheckDate(), utc(2024, 2, 29, 10, 0, 0));
        QVERIFY(updater->isCheckDue());
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->start();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(finished.first(), QList<QVariant>{false});
        // A background check that finds an update publishes it: that window is shown.
        QCOMPARE(updater->state(), Updater::State::UpdateFound);
        QCOMPARE(updater->availableVersion(), QStringLiteral("1.2.0"));
        QCOMPARE(updater->lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 0));
        QCOMPARE(server.requests().size(), 1);
    }

    void checkNotDueWithinTheInterval()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        storeLastCheck(home, QStringLiteral("2024-02-29T10:00:01Z")); // a second short of a day
        m_now = utc(2024, 3, 1, 10, 0, 0);
        auto updater = makeUpdater(home);
        QVERIFY(!updater->isCheckDue());
        updater->start();
        QCOMPARE(updater->state(), Updater::State::Idle);
        QVERIFY(!updater->isChecking());
        QVERIFY(updater->isScheduled());
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 1, 10, 0, 1));
        QVERIFY(!updater->checkIfDue());
        QCOMPARE(server.requests().size(), 0);

        // When the clock reaches the due time, the timer's check goes ahead.
        m_now = utc(2024, 3, 1, 10, 0, 1);
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        QVERIFY(updater->checkIfDue());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(server.requests().size(), 1);
        QCOMPARE(updater->lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 1));
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 2, 10, 0, 1));
    }

    void automaticChecksOff()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        auto updater = makeUpdater(home);
        updater->setAutomaticallyChecksForUpdates(false);
        updater->start();
        QCOMPARE(updater->state(), Updater::State::Idle);
        QVERIFY(!updater->isScheduled());
        QVERIFY(!updater->nextCheckDate().isValid());
        QVERIFY(!updater->isCheckDue());
        QVERIFY(!updater->checkIfDue());
        QCOMPARE(server.requests().size(), 0);

        // The user can still check at once.
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->checkForUpdates();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater->state(), Updater::State::UpToDate);
        QVERIFY(!updater->isScheduled());
    }

    void turningAutomaticChecksOnSchedulesAndOffStops()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        storeLastCheck(home, QStringLiteral("2024-03-01T09:00:00Z"));
        auto updater = makeUpdater(home);
        QSignalSpy switched(updater.get(), &Updater::automaticallyChecksForUpdatesChanged);
        updater->start();
        QVERIFY(updater->isScheduled());

        updater->setAutomaticallyChecksForUpdates(false);
        QCOMPARE(switched.count(), 1);
        QVERIFY(!updater->isScheduled());
        QVERIFY(!updater->nextCheckDate().isValid());

        updater->setAutomaticallyChecksForUpdates(true);
        QCOMPARE(switched.count(), 2);
        QVERIFY(updater->isScheduled());
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 2, 9, 0, 0));
        QCOMPARE(server.requests().size(), 0);
    }

    void turningAutomaticChecksOnWhenDueChecks()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        auto updater = makeUpdater(home);
        updater->setAutomaticallyChecksForUpdates(false);
        updater->start();
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->setAutomaticallyChecksForUpdates(true);
        QVERIFY(updater->isScheduled());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(finished.first(), QList<QVariant>{false});
        QCOMPARE(server.requests().size(), 1);
    }

    void changingTheIntervalReschedules()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        storeLastCheck(home, QStringLiteral("2024-03-01T08:00:00Z"));
        auto updater = makeUpdater(home);
        QSignalSpy intervalChanged(updater.get(), &Updater::updateCheckIntervalChanged);
        updater->start();
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 2, 8, 0, 0));

        updater->setUpdateCheckInterval(604800);
        QCOMPARE(intervalChanged.count(), 1);
        QCOMPARE(updater->updateCheckInterval(), 604800.0);
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 8, 8, 0, 0));
        QVERIFY(updater->isScheduled());
        QCOMPARE(server.requests().size(), 0);

        // Two hours since the last check: an hourly interval makes a check due at once.
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->setUpdateCheckInterval(3600);
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 1, 9, 0, 0));
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(server.requests().size(), 1);
    }

    void intervalValidation_data()
    {
        QTest::addColumn<double>("requested");
        QTest::addColumn<double>("expected");
        QTest::newRow("monthly") << 2592000.0 << 2592000.0;
        QTest::newRow("below an hour") << 60.0 << 3600.0;
        QTest::newRow("zero ignored") << 0.0 << 86400.0;
        QTest::newRow("negative ignored") << -5.0 << 86400.0;
        QTest::newRow("not a number ignored")
            << std::numeric_limits<double>::quiet_NaN() << 86400.0;
        QTest::newRow("infinity ignored") << std::numeric_limits<double>::infinity() << 86400.0;
    }

    void intervalValidation()
    {
        QFETCH(double, requested);
        QFETCH(double, expected);
        TestHome home;
        auto updater = makeUpdater(home);
        updater->setUpdateCheckInterval(requested);
        QCOMPARE(updater->updateCheckInterval(), expected);
    }

    void storedOddValuesFallBack()
    {
        TestHome home;
        home.write(QStringLiteral(".config/Kivora/Kivora.conf"),
                   "[updater]\nupdateCheckInterval=often\nlastUpdateCheckDate=yesterday\n");
        auto updater = makeUpdater(home);
        QCOMPARE(updater->updateCheckInterval(), 86400.0);
        QVERIFY(!updater->hasLastUpdateCheckDate());
        QVERIFY(updater->isCheckDue());
    }

    void backgroundFailureDoesNotPublishAnError()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, {404, "gone", "text/plain"});
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        auto updater = makeUpdater(home);
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        QSignalSpy failed(updater.get(), &Updater::backgroundCheckFailed);
        QSignalSpy errorChanged(updater.get(), &Updater::errorMessageChanged);
        updater->start();
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(finished.first(), QList<QVariant>{false});
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.first().first().toString(),
                 QStringLiteral("The update feed answered HTTP 404."));
        QCOMPARE(updater->backgroundErrorMessage(),
                 QStringLiteral("The update feed answered HTTP 404."));
        QCOMPARE(updater->state(), Updater::State::Idle);
        QVERIFY(updater->errorMessage().isEmpty());
        QCOMPARE(errorChanged.count(), 0);
        QVERIFY(!updater->hasLastUpdateCheckDate());
        // Not counted as a check: tried again an hour later rather than at once.
        QCOMPARE(updater->nextCheckDate(), utc(2024, 3, 1, 11, 0, 0, 250));
        QVERIFY(updater->isScheduled());
        QVERIFY(!updater->isCheckDue());
    }

    void backgroundFailureKeepsTheEarlierResult()
    {
        TestHome home;
        LocalHttpServer server;
        Checked checked = checkAgainst(home, server, rss(feed(item("2.0"))));
        Updater& updater = *checked.updater;
        QCOMPARE(updater.state(), Updater::State::UpdateFound);

        server.route(feedPath, {500, "down", "text/plain"});
        m_now = utc(2024, 3, 2, 10, 0, 0);
        QSignalSpy finished(&updater, &Updater::checkFinished);
        QVERIFY(updater.checkIfDue());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(updater.state(), Updater::State::UpdateFound);
        QCOMPARE(updater.availableVersion(), QStringLiteral("2.0"));
        QCOMPARE(updater.lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 0));
    }

    void userCheckTakesOverARunningBackgroundCheck()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, {404, "gone", "text/plain"});
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        auto updater = makeUpdater(home);
        QSignalSpy finished(updater.get(), &Updater::checkFinished);
        updater->start();
        QVERIFY(updater->isChecking());
        QVERIFY(!updater->lastCheckUserInitiated());
        updater->checkForUpdates();
        QVERIFY(updater->lastCheckUserInitiated());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
        QCOMPARE(finished.first(), QList<QVariant>{true});
        QCOMPARE(updater->state(), Updater::State::Error);
        QCOMPARE(updater->errorMessage(), QStringLiteral("The update feed answered HTTP 404."));
        QCOMPARE(server.requests().size(), 1);
    }

    void scheduleRule_data()
    {
        QTest::addColumn<QDateTime>("lastCheck");
        QTest::addColumn<QDateTime>("lastFailure");
        QTest::addColumn<double>("interval");
        QTest::addColumn<QDateTime>("expected");
        const QDateTime now = utc(2024, 3, 1, 12, 0, 0);
        QTest::newRow("never checked") << QDateTime() << QDateTime() << 86400.0 << now;
        QTest::newRow("checked this morning")
            << utc(2024, 3, 1, 8, 0, 0) << QDateTime() << 86400.0 << utc(2024, 3, 2, 8, 0, 0);
        QTest::newRow("overdue") << utc(2024, 2, 1, 8, 0, 0) << QDateTime() << 86400.0
                                 << utc(2024, 2, 2, 8, 0, 0);
        QTest::newRow("failed, never checked")
            << QDateTime() << utc(2024, 3, 1, 11, 30, 0) << 86400.0 << utc(2024, 3, 1, 12, 30, 0);
        QTest::newRow("failed after an old check")
            << utc(2024, 2, 1, 8, 0, 0) << utc(2024, 3, 1, 11, 30, 0) << 86400.0
            << utc(2024, 3, 1, 12, 30, 0);
        QTest::newRow("failure before the last check is forgotten")
            << utc(2024, 3, 1, 8, 0, 0) << utc(2024, 3, 1, 7, 0, 0) << 86400.0
            << utc(2024, 3, 2, 8, 0, 0);
        QTest::newRow("check in the future counts as now")
            << utc(2025, 1, 1, 0, 0, 0) << QDateTime() << 86400.0 << utc(2024, 3, 2, 12, 0, 0);
    }

    void scheduleRule()
    {
        QFETCH(QDateTime, lastCheck);
        QFETCH(QDateTime, lastFailure);
        QFETCH(double, interval);
        QFETCH(QDateTime, expected);
        const QDateTime now = utc(2024, 3, 1, 12, 0, 0);
        QCOMPARE(UpdateSchedule::nextCheckDate(lastCheck, lastFailure, interval, now), expected);
    }

    // ---- settings ----

    void settingsSurviveARestart()
    {
        TestHome home;
        LocalHttpServer server;
        server.route(feedPath, rss(feed(item("1.0.0"))));
        pointAt(home, server.url(QString::fromLatin1(feedPath)));
        {
            auto updater = makeUpdater(home);
            updater->setAutomaticallyChecksForUpdates(false);
            updater->setUpdateCheckInterval(604800);
            QSignalSpy finished(updater.get(), &Updater::checkFinished);
            QSignalSpy lastChanged(updater.get(), &Updater::lastUpdateCheckDateChanged);
            updater->checkForUpdates();
            QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, waitMs);
            QCOMPARE(lastChanged.count(), 1);
        }
        QSettings stored(settingsPath(home), QSettings::NativeFormat);
        QCOMPARE(stored.value(QStringLiteral("updater/automaticallyChecksForUpdates")).toString(),
                 QStringLiteral("false"));
        QCOMPARE(stored.value(QStringLiteral("updater/updateCheckInterval")).toDouble(), 604800.0);
        QCOMPARE(stored.value(QStringLiteral("updater/lastUpdateCheckDate")).toString(),
                 QStringLiteral("2024-03-01T10:00:00Z"));

        auto restarted = makeUpdater(home);
        QCOMPARE(restarted->automaticallyChecksForUpdates(), false);
        QCOMPARE(restarted->updateCheckInterval(), 604800.0);
        QCOMPARE(restarted->lastUpdateCheckDate(), utc(2024, 3, 1, 10, 0, 0));
        QVERIFY(restarted->hasLastUpdateCheckDate());
    }

    void sharesThePreferencesFileWithTheInterfaceSettings()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        auto updater = makeUpdater(home);
        settings.setCompactMode(true);
        updater->setAutomaticallyChecksForUpdates(false);
        settings.setIconStyle(MenuBarIconStyle::text);
        updater->setUpdateCheckInterval(2592000);

        QSettings stored(settingsPath(home), QSettings::NativeFormat);
        QStringList keys = stored.allKeys();
        keys.sort();
        QStringList expected{QStringLiteral("compactMode"),
                             QStringLiteral("menuBarIconStyle"),
                             QStringLiteral("showProfileEmailSet"),
                             QStringLiteral("showSSHKeySet"),
                             QStringLiteral("updater/automaticallyChecksForUpdates"),
                             QStringLiteral("updater/updateCheckInterval")};
        expected.sort();
        QCOMPARE(keys, expected);
        QCOMPARE(stored.value(QStringLiteral("menuBarIconStyle")).toString(),
                 QStringLiteral("text"));
        QCOMPARE(stored.value(QStringLiteral("updater/updateCheckInterval")).toDouble(), 2592000.0);
    }

    void propertiesAreReachableByName()
    {
        TestHome home;
        auto updater = makeUpdater(home);
        QVERIFY(updater->setProperty("automaticallyChecksForUpdates", false));
        QVERIFY(updater->setProperty("updateCheckInterval", 604800.0));
        QCOMPARE(updater->automaticallyChecksForUpdates(), false);
        QCOMPARE(updater->updateCheckInterval(), 604800.0);
        QCOMPARE(updater->property("hasLastUpdateCheckDate").toBool(), false);
        QVERIFY(!updater->property("lastUpdateCheckDate").toDateTime().isValid());
        QCOMPARE(updater->property("state").value<Updater::State>(), Updater::State::Idle);
        QCOMPARE(updater->property("currentVersion").toString(), QStringLiteral("1.0.0"));
    }
};

QTEST_GUILESS_MAIN(tst_Updater)
#include "tst_Updater.moc"
