// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/InstanceChannel.h"
#include "support/SecondUser.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QLocalServer>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

// The application's socket is the user's alone: where it lives, its mode whatever the umask,
// and the uid check at both ends against a second user made for the test.
class tst_InstanceChannel : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;

    static mode_t modeOf(const QString& path)
    {
        struct stat info {};
        return ::lstat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode : 0;
    }

    static QJsonObject show() { return {{QStringLiteral("command"), QStringLiteral("show")}}; }

    // A socket file with nobody behind it, as a crashed application leaves one.
    static bool leaveDeadSocket(const QString& path)
    {
        const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        std::memcpy(address.sun_path, name.constData(), size_t(name.size()) + 1);
        const bool bound = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        ::close(fd);
        return bound;
    }

    static bool haveSocat() { return QFileInfo(QStringLiteral("/usr/bin/socat")).isExecutable(); }

private slots:
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void runtimeFolderWhenItIsPrivate()
    {
        QTemporaryDir runtime;
        QVERIFY(QFile::setPermissions(runtime.path(), QFileDevice::Permissions(0x7000)));
        m_home->setEnv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
        QCOMPARE(InstanceChannel::socketFolder(), runtime.path());
        QVERIFY(InstanceChannel::socketPath().startsWith(runtime.path() + u'/'));
    }

    void elseAPrivateFolderInTheHome_data()
    {
        QTest::addColumn<QString>("runtime");
        QTest::newRow("unset") << QString();
        QTest::newRow("relative") << QStringLiteral("run/user");
        QTest::newRow("open to others") << QStringLiteral("@open@");
        QTest::newRow("missing") << QStringLiteral("/nonexistent/run");
        QTest::newRow("shared /tmp") << QStringLiteral("/tmp");
    }

    void elseAPrivateFolderInTheHome()
    {
        QFETCH(QString, runtime);
        QTemporaryDir open;
        QVERIFY(QFile::setPermissions(open.path(), QFileDevice::Permissions(0x7755)));
        runtime.replace(QStringLiteral("@open@"), open.path());
        m_home->setEnv("XDG_RUNTIME_DIR",
                       runtime.isNull() ? std::nullopt : std::optional(runtime.toLocal8Bit()));
        const QString folder = m_home->filePath(QStringLiteral(".kivora/run"));
        // A client only looks; it makes no folder.
        QCOMPARE(InstanceChannel::socketFolder(), QString());
        QCOMPARE(InstanceChannel::socketFolder(true), folder);
        QCOMPARE(modeOf(folder) & 07777, mode_t(0700));
        QCOMPARE(modeOf(m_home->filePath(QStringLiteral(".kivora"))) & 07777, mode_t(0700));
    }

    void looseFallbackFolderIsTightened()
    {
        QVERIFY(QDir().mkpath(m_home->filePath(QStringLiteral(".kivora/run"))));
        QVERIFY(QFile::setPermissions(m_home->filePath(QStringLiteral(".kivora/run")),
                                      QFileDevice::Permissions(0x7777)));
        QVERIFY(InstanceChannel::socketFolder().isEmpty());
        InstanceChannel channel;
        QVERIFY(channel.listen());
        QCOMPARE(modeOf(m_home->filePath(QStringLiteral(".kivora/run"))) & 07777, mode_t(0700));
    }

    void socketIsPrivateWhateverTheUmask()
    {
        const mode_t mask = ::umask(0);
        InstanceChannel channel;
        const bool listening = channel.listen();
        ::umask(mask);
        QVERIFY(listening);
        const mode_t mode = modeOf(InstanceChannel::socketPath());
        QVERIFY(S_ISSOCK(mode));
        QCOMPARE(mode & 07777, mode_t(0600));
    }

    void aSecondInstanceFindsTheFirst()
    {
        InstanceChannel first;
        QVERIFY(first.listen());
        InstanceChannel second;
        QString why;
        QVERIFY(!second.listen(&why));
        QCOMPARE(why, QStringLiteral("another instance is running"));
    }

    void aDeadSocketIsTakenOver()
    {
        QVERIFY(leaveDeadSocket(InstanceChannel::socketPath(true)));
        QCOMPARE(InstanceChannel::ask(show(), 2000).kind,
                 InstanceChannel::Answer::Kind::NotRunning);
        InstanceChannel channel;
        QVERIFY(channel.listen());
    }

    void clientKnowsNotRunningFromNoAnswer()
    {
        QCOMPARE(InstanceChannel::ask(show(), 2000).kind,
                 InstanceChannel::Answer::Kind::NotRunning);
        // Listening, but never answering: the request may have been taken.
        QLocalServer silent;
        QVERIFY(silent.listen(InstanceChannel::socketPath(true)));
        QElapsedTimer waited;
        waited.start();
        QCOMPARE(InstanceChannel::ask(show(), 1000).kind, InstanceChannel::Answer::Kind::NoAnswer);
        QVERIFY(waited.elapsed() >= 900);
    }

    // A process of another user holding the socket's name (only root could put it in the
    // private folder, but a root-run or misconfigured system can) is no Kivora: the client
    // does not talk to it, and the application takes the name over.
    void aStrangersSocketIsNeverTakenForKivora()
    {
        if (const QString why = SecondUser::unavailableBecause(); !why.isEmpty()) {
            QSKIP(qPrintable(why));
        }
        if (!haveSocat()) {
            QSKIP("needs socat to listen as the second user");
        }
        SecondUser stranger;
        QVERIFY(stranger.isValid());
        QTemporaryDir theirs;
        QVERIFY(QFile::setPermissions(theirs.path(), QFileDevice::Permissions(0x7777)));
        const QString theirSocket = theirs.filePath(QStringLiteral("s"));
        const QString received = theirs.filePath(QStringLiteral("received"));
        auto listener = stranger.start({QStringLiteral("/usr/bin/socat"),
                                        QStringLiteral("UNIX-LISTEN:%1,fork").arg(theirSocket),
                                        QStringLiteral("SYSTEM:cat >> %1").arg(received)});
        QTRY_VERIFY_WITH_TIMEOUT(S_ISSOCK(modeOf(theirSocket)), 20000);
        // Moved to the very name the application uses; it stays bound to the stranger.
        const QString ours = InstanceChannel::socketPath(true);
        QVERIFY(::rename(QFile::encodeName(theirSocket).constData(),
                         QFile::encodeName(ours).constData()) == 0);

        const auto answer =
            InstanceChannel::ask({{QStringLiteral("command"), QStringLiteral("cli")},
                                  {QStringLiteral("arguments"), QStringLiteral("[\"add\"]")}},
                                 2000);
        QCOMPARE(answer.kind, InstanceChannel::Answer::Kind::Foreign);

        InstanceChannel channel;
        bool shown = false;
        channel.addCommand(QStringLiteral("show"), [&shown](const QJsonObject&) {
            shown = true;
            return QJsonObject{};
        });
        QVERIFY(channel.listen());

        // The name now leads to this user's channel.
        QProcess client;
        client.start(QStringLiteral("/usr/bin/socat"),
                     {QStringLiteral("-t"), QStringLiteral("10"), QStringLiteral("-"),
                      QStringLiteral("UNIX-CONNECT:") + ours});
        client.write("{\"command\":\"show\"}\n");
        QTRY_VERIFY_WITH_TIMEOUT(shown, 20000);
        client.closeWriteChannel();
        QTRY_VERIFY_WITH_TIMEOUT(client.state() == QProcess::NotRunning, 20000);
        QVERIFY(client.readAllStandardOutput().contains("\"ok\":true"));

        // Nothing was ever said to the stranger.
        QVERIFY(!QFileInfo(received).exists() || QFileInfo(received).size() == 0);
        listener->kill();
        listener->waitForFinished(10000);
    }

    // Should the socket be reachable by others after all (a loosened mode, a shared folder),
    // a process of another user is still not listened to; the same request from this user is.
    void aStrangerIsNotListenedTo()
    {
        if (const QString why = SecondUser::unavailableBecause(); !why.isEmpty()) {
            QSKIP(qPrintable(why));
        }
        if (!haveSocat()) {
            QSKIP("needs socat to connect as the second user");
        }
        SecondUser stranger;
        QVERIFY(stranger.isValid());
        QTemporaryDir runtime;
        QVERIFY(QFile::setPermissions(runtime.path(), QFileDevice::Permissions(0x7000)));
        m_home->setEnv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());

        InstanceChannel channel;
        int handled = 0;
        channel.addCommand(QStringLiteral("cli"), [&handled](const QJsonObject&) {
            ++handled;
            return QJsonObject{{QStringLiteral("out"), QStringLiteral("done")}};
        });
        QVERIFY(channel.listen());
        const QString socket = InstanceChannel::socketPath();
        QVERIFY(::chmod(QFile::encodeName(runtime.path()).constData(), 0711) == 0);
        QVERIFY(::chmod(QFile::encodeName(socket).constData(), 0666) == 0);

        const QString request = runtime.filePath(QStringLiteral("request.json"));
        QFile file(request);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("{\"command\":\"cli\",\"arguments\":[\"remove\",\"Work\"]}\n");
        file.close();
        QVERIFY(::chmod(QFile::encodeName(request).constData(), 0644) == 0);
        // The request, then a pause with the connection still open for the answer.
        const QStringList talk{
            QStringLiteral("/bin/sh"), QStringLiteral("-c"),
            QStringLiteral("(cat '%1'; sleep 2) | /usr/bin/socat - UNIX-CONNECT:'%2'")
                .arg(request, socket)};

        auto theirs = stranger.start(talk);
        QTRY_VERIFY_WITH_TIMEOUT(theirs->state() == QProcess::NotRunning, 30000);
        QCOMPARE(handled, 0);
        QVERIFY(theirs->readAllStandardOutput().isEmpty());

        QProcess own;
        own.start(talk.first(), talk.mid(1));
        QTRY_VERIFY_WITH_TIMEOUT(own.state() == QProcess::NotRunning, 30000);
        QCOMPARE(handled, 1);
        QVERIFY(own.readAllStandardOutput().contains("\"out\":\"done\""));
    }
};

QTEST_GUILESS_MAIN(tst_InstanceChannel)
#include "tst_InstanceChannel.moc"
