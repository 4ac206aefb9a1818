// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"
#include "activation/RuleStore.h"
#include "ai/AIContextManager.h"
#include "model/JsonGuard.h"
#include "model/ProfileCodec.h"
#include "model/ProfileStore.h"
#include "model/RegularFileReader.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <cstring>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

// A profile file that is not a plain, reasonable JSON file is refused, never obeyed: it is
// kept aside (moved when it cannot be copied safely) and first-run set-up takes its place.
// None of these may hang or crash the start.
class tst_HostileProfileFiles : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;

    QString storePath() const
    {
        return m_home->filePath(QStringLiteral(".git-switcher/profiles.json"));
    }

    std::unique_ptr<ProfileManager> makeManager()
    {
        ProfileManager::Options options;
        return std::make_unique<ProfileManager>(*m_ai.get(), options);
    }

    static QByteArray validStore()
    {
        GitProfile profile = GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada"),
                                                QStringLiteral("ada@x"), QString());
        return ProfileCodec::encodeStore({{profile}, profile.id});
    }

    // Starts a manager on the file as it is and checks that it was refused: a fresh start
    // with the file kept aside under its own name.
    QString refusedAndKept()
    {
        const auto manager = makeManager();
        if (!manager->startedFresh()) {
            return QStringLiteral("the file was loaded");
        }
        const QString kept = manager->preservedFilePath();
        if (!QFileInfo(kept).fileName().startsWith(QStringLiteral("profiles.json.unreadable-"))) {
            return QStringLiteral("nothing was kept aside: ") + kept;
        }
        // The new file is a readable profile file.
        if (!ProfileStore(m_home->path()).load()) {
            return QStringLiteral("first-run set-up wrote no readable file");
        }
        return kept;
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>();
        QDir().mkpath(m_home->filePath(QStringLiteral(".git-switcher")));
    }
    void cleanup()
    {
        m_ai.reset();
        m_home.reset();
    }

    void fifoIsMovedAsideWithoutBlocking()
    {
        QVERIFY(::mkfifo(QFile::encodeName(storePath()).constData(), 0600) == 0);
        const QString kept = refusedAndKept();
        struct stat info {};
        QVERIFY2(::lstat(QFile::encodeName(kept).constData(), &info) == 0, qPrintable(kept));
        QVERIFY(S_ISFIFO(info.st_mode));
        RegularFileReader reader;
        QVERIFY(!reader.read(kept));
        QCOMPARE(reader.failure(), RegularFileReader::Failure::NotRegular);
        QVERIFY(reader.error().contains(QLatin1String("FIFO")));
    }

    void deviceIsNeverRead()
    {
        // /dev/zero would be read forever, /dev/tty could block waiting for a key.
        for (const char* device : {"/dev/zero", "/dev/null", "/dev/urandom"}) {
            QFile::remove(storePath());
            QVERIFY(QFile::link(QString::fromLatin1(device), storePath()));
            const QString kept = refusedAndKept();
            QVERIFY2(QFileInfo(kept).isSymLink(), qPrintable(kept));
            QCOMPARE(QFileInfo(kept).symLinkTarget(), QString::fromLatin1(device));
        }
    }

    void socketAndFolderAreMovedAside()
    {
        const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(storePath());
        QVERIFY(size_t(name.size()) < sizeof(address.sun_path));
        std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
        QVERIFY(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0);
        QString kept = refusedAndKept();
        ::close(fd);
        struct stat info {};
        QVERIFY(::lstat(QFile::encodeName(kept).constData(), &info) == 0 && S_ISSOCK(info.st_mode));

        QFile::remove(storePath());
        QDir().mkpath(storePath() + QStringLiteral("/inside"));
        kept = refusedAndKept();
        QVERIFY2(QFileInfo(kept + QStringLiteral("/inside")).isDir(), qPrintable(kept));
    }

    void oversizedFileIsMovedAsideWhole()
    {
        // A valid profile file padded with blanks past the limit: valid, but refused.
        QByteArray bytes = validStore();
        bytes += QByteArray(RegularFileReader::defaultLimit - bytes.size() + 1, ' ');
        QFile file(storePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
        file.close();
        QString error;
        QVERIFY(!ProfileStore(m_home->path()).load(&error));
        QVERIFY2(error.contains(QLatin1String("larger than 16 MiB")), qPrintable(error));
        const QString kept = refusedAndKept();
        QFile copy(kept);
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.size(), bytes.size());
        QCOMPARE(copy.readAll(), bytes);
    }

    void fileAtTheLimitLoads()
    {
        QByteArray bytes = validStore();
        bytes += QByteArray(RegularFileReader::defaultLimit - bytes.size(), ' ');
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), bytes);
        const auto manager = makeManager();
        QVERIFY(!manager->startedFresh());
        QCOMPARE(manager->profiles().size(), 1);
    }

    void deepNestingIsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("100000 open brackets") << QByteArray(100000, '[');
        QTest::newRow("100000 closed arrays") << QByteArray(100000, '[') + QByteArray(100000, ']');
        QByteArray objects;
        for (int i = 0; i < 50000; ++i) {
            objects += "{\"a\":";
        }
        QTest::newRow("50000 objects") << objects + "1" + QByteArray(50000, '}');
        // Deep inside an unknown key of an otherwise valid file.
        QByteArray store = validStore();
        store.insert(store.size() - 1, ",\"extra\":" + QByteArray(40, '[') + QByteArray(40, ']'));
        QTest::newRow("40 levels in an extra key") << store;
    }

    void deepNestingIsRefused()
    {
        QFETCH(QByteArray, bytes);
        QString why;
        QVERIFY(!JsonGuard::check(bytes, &why));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), bytes);
        const QString kept = refusedAndKept();
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/") + QFileInfo(kept).fileName()),
                 bytes);
        QString error;
        QVERIFY(!ProfileCodec::decodeProfileArray(bytes, &error));
    }

    void nestingWithinTheLimitIsFine()
    {
        QByteArray store = validStore();
        store.insert(store.size() - 1, ",\"extra\":" + QByteArray(20, '[') + QByteArray(20, ']'));
        QVERIFY(JsonGuard::check(store));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), store);
        QVERIFY(!makeManager()->startedFresh());
    }

    void duplicateKeysAreRefused_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        QTest::newRow("top level")
            << QByteArray("{\"profiles\":") << QByteArray("{\"profiles\":[],\"profiles\":");
        QTest::newRow("in a profile")
            << QByteArray("\"name\":\"Work\"") << QByteArray("\"name\":\"Work\",\"name\":\"Evil\"");
        QTest::newRow("in the AI settings") << QByteArray("\"isEnabled\":false")
                                            << QByteArray("\"isEnabled\":false,\"isEnabled\":true");
        QTest::newRow("in the headers")
            << QByteArray("\"customHeaders\":{}")
            << QByteArray("\"customHeaders\":{\"X\":\"1\",\"X\":\"2\"}");
        QTest::newRow("active profile")
            << QByteArray("\"activeProfileID\":")
            << QByteArray("\"activeProfileID\":\"00000000-0000-0000-0000-000000000000\","
                          "\"activeProfileID\":");
    }

    void duplicateKeysAreRefused()
    {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QByteArray bytes = validStore();
        QVERIFY(bytes.contains(from));
        bytes.replace(from, to);
        QString error;
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), bytes);
        QVERIFY(!ProfileStore(m_home->path()).load(&error));
        QVERIFY2(error.contains(QLatin1String("twice")), qPrintable(error));
        const QString kept = refusedAndKept();
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/") + QFileInfo(kept).fileName()),
                 bytes);
    }

    void sameKeyInDifferentObjectsIsFine()
    {
        // Two profiles each with their own "name" is not a duplicate.
        GitProfile a = GitProfile::create(QStringLiteral("A"), QStringLiteral("a"),
                                          QStringLiteral("a@x"), QString());
        GitProfile b = GitProfile::create(QStringLiteral("B"), QStringLiteral("b"),
                                          QStringLiteral("b@x"), QString());
        const QByteArray bytes = ProfileCodec::encodeStore({{a, b}, std::nullopt});
        QVERIFY(JsonGuard::check(bytes));
        QVERIFY(ProfileCodec::decodeStore(bytes));
    }

    void ruleFileThatIsAFifoIsRefusedWithoutBlocking()
    {
        const QString path = m_home->filePath(QStringLiteral(".kivora/rules.json"));
        QDir().mkpath(QFileInfo(path).path());
        QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
        QString error;
        QVERIFY(!RuleStore(m_home->path()).load(&error));
        QVERIFY2(error.contains(QLatin1String("FIFO")), qPrintable(error));
        // No file at all is no rules, not an error.
        QFile::remove(path);
        const auto none = RuleStore(m_home->path()).load(&error);
        QVERIFY(none && none->isEmpty());
    }

    void unreadableFileIsMovedAside()
    {
        if (::geteuid() == 0) {
            QSKIP("root reads a file without read permission; the case cannot be made here");
        }
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), validStore());
        QFile::setPermissions(storePath(), QFileDevice::Permissions());
        const QString kept = refusedAndKept();
        QVERIFY(QFileInfo::exists(kept));
    }
};

QTEST_GUILESS_MAIN(tst_HostileProfileFiles)
#include "tst_HostileProfileFiles.moc"
