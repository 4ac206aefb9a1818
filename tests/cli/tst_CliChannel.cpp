// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/InstanceChannel.h"
#include "model/ProfileCodec.h"
#include "support/CliProcess.h"
#include "support/SecondUser.h"
#include "support/TestHome.h"

#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/stat.h>

// The command line and the application's socket: what it hands on, what it never hands on,
// an application that does not answer, and a socket that belongs to somebody else.
class tst_CliChannel : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    GitProfile m_work;

    QByteArray storeBytes() const
    {
        return m_home->read(QStringLiteral(".git-switcher/profiles.json"));
    }

    QStringList storedNames() const
    {
        QStringList names;
        if (const auto data = ProfileCodec::decodeStore(storeBytes())) {
            for (const GitProfile& p : data->profiles) {
                names << p.name;
            }
        }
        return names;
    }

    // Runs the command line while this process keeps serving its event loop (for a server
    // living here).
    static CliProcess::Result runServing(const QStringList& arguments,
                                         const QByteArray& timeoutSeconds = "3")
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("KIVORA_ANSWER_TIMEOUT"), QString::fromLatin1(timeoutSeconds));
        process.setProcessEnvironment(env);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
        QDeadlineTimer deadline(120000);
        while (process.state() != QProcess::NotRunning && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
            process.waitForFinished(20);
        }
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    static QStringList addHome()
    {
        return {QStringLiteral("add"),         QStringLiteral("Home"),
                QStringLiteral("--git-name"),  QStringLiteral("H"),
                QStringLiteral("--git-email"), QStringLiteral("h@home.example")};
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }

    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_work = GitProfile::create(QStringLiteral("Work"), QStringLiteral("W"),
                                    QStringLiteral("w@corp.example"), QString());
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({{m_work}, m_work.id}));
    }

    void cleanup() { m_home.reset(); }

    // Taken, then no answer: the application may still make the change, so the command line
    // must not make it a second time. It says so and fails.
    void anApplicationThatDoesNotAnswerIsNotOverruled()
    {
        QLocalServer silent;
        QVERIFY(silent.listen(InstanceChannel::socketPath(true)));
        const QByteArray before = storeBytes();
        const auto r = runServing(addHome(), "2");
        QCOMPARE(r.status, 1);
        QCOMPARE(r.out, QString());
        QCOMPARE(r.err.count(u'\n'), 1);
        QVERIFY2(r.err.startsWith(
                     QLatin1String("kivora: the running Kivora did not answer within 2 seconds")),
                 qPrintable(r.err));
        QCOMPARE(storeBytes(), before);
    }

    void anApplicationThatHangsUpIsNotOverruled()
    {
        QLocalServer rude;
        QVERIFY(rude.listen(InstanceChannel::socketPath(true)));
        connect(&rude, &QLocalServer::newConnection, &rude, [&rude] {
            while (QLocalSocket* socket = rude.nextPendingConnection()) {
                socket->waitForReadyRead(5000);
                socket->abort();
            }
        });
        const QByteArray before = storeBytes();
        const auto r = runServing({QStringLiteral("remove"), QStringLiteral("Work")});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains(QLatin1String("did not answer")), qPrintable(r.err));
        QCOMPARE(storeBytes(), before);
    }

    // Reading commands never leave the command line: a listing, an export with its API keys.
    void readingCommandsAreNeverHandedOn_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("list") << QStringList{QStringLiteral("list")};
        QTest::newRow("list --json")
            << QStringList{QStringLiteral("list"), QStringLiteral("--json")};
        QTest::newRow("export") << QStringList{QStringLiteral("export")};
        QTest::newRow("export to a file")
            << QStringList{QStringLiteral("export"), QStringLiteral("@HOME@/out.json")};
        QTest::newRow("current") << QStringList{QStringLiteral("current")};
        QTest::newRow("keys") << QStringList{QStringLiteral("keys")};
    }

    void readingCommandsAreNeverHandedOn()
    {
        QFETCH(QStringList, arguments);
        arguments.replaceInStrings(QStringLiteral("@HOME@"), m_home->path());
        QLocalServer listening;
        QVERIFY(listening.listen(InstanceChannel::socketPath(true)));
        int connections = 0;
        connect(&listening, &QLocalServer::newConnection, &listening, [&] { ++connections; });
        const auto r = runServing(arguments, "30");
        QCOMPARE(r.status, 0);
        QCOMPARE(connections, 0);
        QVERIFY(!listening.hasPendingConnections());
    }

    void changesAreHandedOn()
    {
        QLocalServer app;
        QVERIFY(app.listen(InstanceChannel::socketPath(true)));
        QByteArray request;
        connect(&app, &QLocalServer::newConnection, &app, [&] {
            QLocalSocket* socket = app.nextPendingConnection();
            connect(socket, &QLocalSocket::readyRead, socket, [&request, socket] {
                request += socket->readAll();
                if (request.endsWith('\n')) {
                    socket->write(R"({"ok":true,"status":0,"out":"Added profile Home.\n","err":""})"
                                  "\n");
                }
            });
        });
        const QByteArray before = storeBytes();
        const auto r = runServing(addHome());
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("Added profile Home.\n"));
        QVERIFY(request.contains("\"add\""));
        // Made there, not here.
        QCOMPARE(storeBytes(), before);
    }

    // A socket of another user's process, standing where the application's would: not
    // spoken to; the command works without an application and says why.
    void aStrangersSocketIsNotTheApplication()
    {
        if (const QString why = SecondUser::unavailableBecause(); !why.isEmpty()) {
            QSKIP(qPrintable(why));
        }
        if (!QFileInfo(QStringLiteral("/usr/bin/socat")).isExecutable()) {
            QSKIP("needs socat to listen as the second user");
        }
        SecondUser stranger;
        QVERIFY(stranger.isValid());
        QTemporaryDir theirs;
        QVERIFY(QFile::setPermissions(theirs.path(), QFileDevice::Permissions(0x7777)));
        const QString theirSocket = theirs.filePath(QStringLiteral("s"));
        const QString received = theirs.filePath(QStringLiteral("received"));
        // It would answer like the application, and take note of what it hears.
        auto listener = stranger.start(
            {QStringLiteral("/usr/bin/socat"),
             QStringLiteral("UNIX-LISTEN:%1,fork").arg(theirSocket),
             QStringLiteral("SYSTEM:tee -a %1 >/dev/null; echo '{\"ok\":true,\"status\":0}'")
                 .arg(received)});
        struct stat info {};
        QTRY_VERIFY_WITH_TIMEOUT(::stat(QFile::encodeName(theirSocket).constData(), &info) == 0,
                                 20000);
        QVERIFY(::rename(QFile::encodeName(theirSocket).constData(),
                         QFile::encodeName(InstanceChannel::socketPath(true)).constData()) == 0);

        const auto r = runServing(addHome());
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("Added profile Home.\n"));
        QVERIFY2(r.err.contains(QLatin1String("belongs to a process of another user")),
                 qPrintable(r.err));
        QCOMPARE(storedNames(), (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}));
        QVERIFY(!QFileInfo(received).exists() || QFileInfo(received).size() == 0);
        listener->terminate();
        listener->waitForFinished(10000);
    }
};

QTEST_GUILESS_MAIN(tst_CliChannel)
#include "tst_CliChannel.moc"
