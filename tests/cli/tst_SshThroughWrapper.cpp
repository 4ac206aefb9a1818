// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

// git over real ssh: `kivora use` sets core.sshCommand, git runs it through a shell, the
// wrapper starts the real ssh with the profile's key, and a private sshd on 127.0.0.1 lets
// the key in. The home folder and the key file both have a blank in their path, which splits
// an unquoted command in three words.
//
// ssh reads its configuration from the home folder of the passwd entry, not from $HOME, so
// the commands run as a user made for this test whose home is the temporary folder. That
// needs root (useradd, runuser, sshd); otherwise the test is skipped with that reason.
class tst_SshThroughWrapper : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_user;
    QString m_home;
    QProcess m_sshd;
    quint16 m_port = 0;

    static int run(const QString& program, const QStringList& arguments, QByteArray* out = nullptr,
                   QByteArray* err = nullptr)
    {
        QProcess process;
        process.setStandardInputFile(QProcess::nullDevice());
        // Started from the root folder: the test's own working folder (in the build folder)
        // may be out of the test user's reach, and git refuses to run where it cannot read
        // the current folder.
        process.setWorkingDirectory(QStringLiteral("/"));
        process.start(program, arguments);
        if (!process.waitForFinished(120000)) {
            process.kill();
            process.waitForFinished(-1);
            return -2;
        }
        if (out) {
            *out = process.readAllStandardOutput();
        }
        if (err) {
            *err = process.readAllStandardError();
        }
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    // Runs a command as the test user, with its home and a plain environment.
    int asUser(const QStringList& command, QByteArray* out = nullptr, QByteArray* err = nullptr)
    {
        QStringList arguments{QStringLiteral("-u"),
                              m_user,
                              QStringLiteral("--"),
                              QStringLiteral("/usr/bin/env"),
                              QStringLiteral("-i"),
                              QStringLiteral("HOME=") + m_home,
                              QStringLiteral("PATH=/usr/local/bin:/usr/bin:/bin"),
                              QStringLiteral("USER=") + m_user,
                              QStringLiteral("LANG=C.UTF-8"),
                              QStringLiteral("GIT_CONFIG_NOSYSTEM=1")};
        return run(QStringLiteral("/usr/sbin/runuser"), arguments + command, out, err);
    }

    bool writeFile(const QString& path, const QByteArray& bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
               file.write(bytes) == bytes.size();
    }

private slots:
    void initTestCase()
    {
        if (::geteuid() != 0) {
            QSKIP("needs root to add a test user and start sshd");
        }
        for (const char* tool : {"/usr/sbin/sshd", "/usr/sbin/useradd", "/usr/sbin/runuser",
                                 "/usr/bin/ssh", "/usr/bin/ssh-keygen"}) {
            if (!QFileInfo(QString::fromLatin1(tool)).isExecutable()) {
                QSKIP(qPrintable(QStringLiteral("%1 is not installed").arg(QLatin1String(tool))));
            }
        }
        QVERIFY(m_dir.isValid());
        // Others must reach the home folder inside the temporary one.
        QVERIFY(QFile::setPermissions(m_dir.path(), QFileDevice::Permissions(0x7755)));
        m_home = m_dir.filePath(QStringLiteral("Ada Lovelace"));
        m_user = QStringLiteral("kvtest%1").arg(::getpid());
        QCOMPARE(run(QStringLiteral("/usr/sbin/useradd"),
                     {QStringLiteral("-M"), QStringLiteral("-d"), m_home, QStringLiteral("-s"),
                      QStringLiteral("/bin/sh"), QStringLiteral("-K"),
                      QStringLiteral("MAIL_DIR=/nonexistent"),
                      // No password, yet not locked: sshd turns a locked account away.
                      QStringLiteral("-p"), QStringLiteral("*"), m_user}),
                 0);
        QVERIFY(QDir().mkpath(m_home));
        QCOMPARE(run(QStringLiteral("/bin/chown"), {m_user, m_home}), 0);

        // The user's key, in a file whose name has a blank, and ssh settings for this host.
        QCOMPARE(asUser({QStringLiteral("/bin/mkdir"), QStringLiteral("-m"), QStringLiteral("700"),
                         m_home + QStringLiteral("/.ssh")}),
                 0);
        QCOMPARE(
            asUser({QStringLiteral("/usr/bin/ssh-keygen"), QStringLiteral("-q"),
                    QStringLiteral("-t"), QStringLiteral("ed25519"), QStringLiteral("-N"),
                    QString(), QStringLiteral("-f"), m_home + QStringLiteral("/.ssh/work key")}),
            0);
        QCOMPARE(asUser({QStringLiteral("/bin/sh"), QStringLiteral("-c"),
                         QStringLiteral("printf 'Host 127.0.0.1\\n  StrictHostKeyChecking no\\n"
                                        "  UserKnownHostsFile /dev/null\\n  IdentitiesOnly yes\\n"
                                        "  LogLevel ERROR\\n' > ~/.ssh/config")}),
                 0);

        // A repository with one commit.
        const QString repo = m_dir.filePath(QStringLiteral("repo.git"));
        QCOMPARE(run(QStringLiteral("/usr/bin/git"),
                     {QStringLiteral("init"), QStringLiteral("-q"), QStringLiteral("--bare"),
                      QStringLiteral("-b"), QStringLiteral("main"), repo}),
                 0);
        QCOMPARE(run(QStringLiteral("/bin/chown"), {QStringLiteral("-R"), m_user, repo}), 0);
        const QString work = m_home + QStringLiteral("/work");
        QCOMPARE(asUser({QStringLiteral("/bin/sh"), QStringLiteral("-c"),
                         QStringLiteral("git init -q -b main '%1' && cd '%1' && "
                                        "git -c user.name=T -c user.email=t@x commit -q "
                                        "--allow-empty -m first && git push -q '%2' main")
                             .arg(work, repo)}),
                 0);

        // sshd of our own: host key and authorized keys in the temporary folder.
        const QString hostKey = m_dir.filePath(QStringLiteral("host_key"));
        QCOMPARE(run(QStringLiteral("/usr/bin/ssh-keygen"),
                     {QStringLiteral("-q"), QStringLiteral("-t"), QStringLiteral("ed25519"),
                      QStringLiteral("-N"), QString(), QStringLiteral("-f"), hostKey}),
                 0);
        QFile pub(m_home + QStringLiteral("/.ssh/work key.pub"));
        QVERIFY(pub.open(QIODevice::ReadOnly));
        const QString authorized = m_dir.filePath(QStringLiteral("authorized_keys"));
        QVERIFY(writeFile(authorized, pub.readAll()));
        {
            QTcpServer probe;
            QVERIFY(probe.listen(QHostAddress::LocalHost, 0));
            m_port = probe.serverPort();
        }
        const QString config = m_dir.filePath(QStringLiteral("sshd_config"));
        QVERIFY(writeFile(config, QStringLiteral("Port %1\nListenAddress 127.0.0.1\nHostKey %2\n"
                                                 "AuthorizedKeysFile %3\nPidFile none\n"
                                                 "StrictModes no\nUsePAM no\n"
                                                 "PasswordAuthentication no\n"
                                                 "KbdInteractiveAuthentication no\n"
                                                 "AllowUsers %4\nLogLevel ERROR\n")
                                      .arg(m_port)
                                      .arg(hostKey, authorized, m_user)
                                      .toUtf8()));
        QDir().mkpath(QStringLiteral("/run/sshd"));
        m_sshd.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_sshd.start(QStringLiteral("/usr/sbin/sshd"),
                     {QStringLiteral("-D"), QStringLiteral("-e"), QStringLiteral("-f"), config});
        QVERIFY(m_sshd.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(
            [this] {
                QTcpSocket socket;
                socket.connectToHost(QHostAddress::LocalHost, m_port);
                return socket.waitForConnected(200);
            }(),
            30000);
    }

    void cleanupTestCase()
    {
        if (m_sshd.state() != QProcess::NotRunning) {
            m_sshd.terminate();
            m_sshd.waitForFinished(10000);
        }
        if (!m_user.isEmpty()) {
            // -f: an ssh session of the user may still be closing down.
            run(QStringLiteral("/usr/sbin/userdel"), {QStringLiteral("-f"), m_user});
        }
    }

    void gitFetchesThroughTheWrapperWithBlanksInPaths()
    {
        // The build folder may be out of the test user's reach (a clone in root's 0700 home
        // folder): the user runs a copy in the temporary folder, which everyone can enter.
        const QString kivora = m_dir.filePath(QStringLiteral("kivora"));
        QVERIFY(QFile::copy(qEnvironmentVariable("KIVORA_CLI"), kivora));
        QVERIFY(QFile::setPermissions(kivora, QFileDevice::Permissions(0x7555)));
        QVERIFY(QFileInfo(kivora).isExecutable());
        QByteArray out;
        QByteArray err;
        QCOMPARE(asUser({kivora, QStringLiteral("add"), QStringLiteral("sshtest"),
                         QStringLiteral("--git-name"), QStringLiteral("Ada"),
                         QStringLiteral("--git-email"), QStringLiteral("ada@x"),
                         QStringLiteral("--ssh-key"), QStringLiteral("~/.ssh/work key")},
                        &out, &err),
                 0);
        QCOMPARE(asUser({kivora, QStringLiteral("use"), QStringLiteral("Sshtest")}, &out, &err), 0);

        // The wrapper path has a blank (the home folder), and so has the key.
        asUser({QStringLiteral("/usr/bin/git"), QStringLiteral("config"),
                QStringLiteral("--global"), QStringLiteral("core.sshCommand")},
               &out);
        QCOMPARE(QString::fromUtf8(out).trimmed(), u'\'' + m_home +
                                                       QStringLiteral("/.kivora/kivora-ssh.sh' '") +
                                                       m_home + QStringLiteral("/.ssh/work key'"));

        const int status = asUser({QStringLiteral("/usr/bin/git"), QStringLiteral("ls-remote"),
                                   QStringLiteral("ssh://%1@127.0.0.1:%2%3")
                                       .arg(m_user)
                                       .arg(m_port)
                                       .arg(m_dir.filePath(QStringLiteral("repo.git")))},
                                  &out, &err);
        QVERIFY2(status == 0, err.constData());
        QVERIFY2(out.contains("\trefs/heads/main\n"), out.constData());
    }
};

QTEST_GUILESS_MAIN(tst_SshThroughWrapper)
#include "tst_SshThroughWrapper.moc"
