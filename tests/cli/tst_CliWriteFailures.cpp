// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/SecondUser.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/stat.h>
#include <unistd.h>

// Success is never claimed for work not done: when the profile file or git's settings cannot
// be written (a read-only home, a full disk, a ~/.git-switcher that is a file or that the user
// cannot read), every command that changes profiles exits 1 with one sentence, prints no
// success, and leaves what was there as it was. The read-only home and the full disk are real
// mounts in a mount namespace of their own (root only; skipped otherwise).
class tst_CliWriteFailures : public QObject {
    Q_OBJECT

    struct Result {
        int status = -1;
        QString out;
        QString err;
    };

    std::unique_ptr<TestHome> m_home;
    GitProfile m_work;

    static QStringList changes(const QString& profile, const QString& importFile)
    {
        return {QStringLiteral("add|Home|--git-name|H|--git-email|h@home.example"),
                QStringLiteral("edit|%1|--git-email|new@corp.example").arg(profile),
                QStringLiteral("remove|%1").arg(profile),
                QStringLiteral("import|%1").arg(importFile), QStringLiteral("use|%1").arg(profile)};
    }

    static Result run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("DISPLAY"));
        env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        process.setProcessEnvironment(env);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(program, arguments);
        if (!process.waitForFinished(120000)) {
            process.kill();
            process.waitForFinished(-1);
            return {-2, {}, QStringLiteral("hung")};
        }
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    // The command line run in a mount namespace of its own, after `setup` (shell commands) made
    // its mounts there; afterwards the profile file as that namespace saw it is copied to
    // ~/seen.json. Nothing of the mounts outlives the command.
    Result inNamespace(const QString& setup, const QStringList& arguments) const
    {
        const QString script =
            setup + QStringLiteral(" || exit 99; \"$0\" \"$@\"; s=$?; cat '%1' 2>/dev/null > '%2' "
                                   "2>/dev/null; exit $s")
                        .arg(m_home->filePath(QStringLiteral(".git-switcher/profiles.json")),
                             m_home->filePath(QStringLiteral("seen.json")));
        return run(QStringLiteral("/usr/bin/unshare"),
                   QStringList{QStringLiteral("-m"), QStringLiteral("/bin/sh"),
                               QStringLiteral("-c"), script, qEnvironmentVariable("KIVORA_CLI")} +
                       arguments);
    }

    static void verifyOneSentence(const Result& r)
    {
        QVERIFY2(r.status == 1,
                 qPrintable(QStringLiteral("status %1, stderr: %2").arg(r.status).arg(r.err)));
        QVERIFY2(r.out.isEmpty(), qPrintable(r.out));
        QVERIFY2(r.err.startsWith(QLatin1String("kivora: ")) && r.err.count(u'\n') == 1 &&
                     r.err.endsWith(QLatin1String(".\n")),
                 qPrintable(QString::fromLatin1(r.err.toUtf8().toPercentEncoding(" /:(),;."))));
    }

    QByteArray store() const { return m_home->read(QStringLiteral(".git-switcher/profiles.json")); }

    // Why mounts of the test's own cannot be made here; empty when they can.
    static QString noMountsBecause()
    {
        if (::geteuid() != 0) {
            return QStringLiteral(
                "needs root to mount a read-only or full file system in a namespace of its own");
        }
        if (run(QStringLiteral("/usr/bin/unshare"), {QStringLiteral("-m"), QStringLiteral("true")})
                .status != 0) {
            return QStringLiteral("unshare -m is not allowed here");
        }
        return {};
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }

    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_work = GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada"),
                                    QStringLiteral("ada@corp.example"),
                                    QStringLiteral("~/.ssh/id_work"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({{m_work}, std::nullopt}));
        m_home->write(QStringLiteral(".ssh/id_work"), "private\n");
        m_home->write(QStringLiteral(".ssh/id_work.pub"), "ssh-ed25519 AAAA work\n");
        m_home->write(QStringLiteral("export.json"),
                      ProfileCodec::encodeProfileArray(
                          {GitProfile::create(QStringLiteral("Imported"), QStringLiteral("I"),
                                              QStringLiteral("i@x.example"), QString())}));
        QCOMPARE(m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                              QStringLiteral("user.name"), QStringLiteral("Before")}),
                 QString());
    }

    void cleanup() { m_home.reset(); }

    void readOnlyHome_data()
    {
        QTest::addColumn<QString>("command");
        for (const QString& c :
             changes(QStringLiteral("Work"), QStringLiteral("@HOME@/export.json"))) {
            QTest::newRow(qPrintable(c.section(u'|', 0, 0))) << c;
        }
    }

    void readOnlyHome()
    {
        if (const QString why = noMountsBecause(); !why.isEmpty()) {
            QSKIP(qPrintable(why));
        }
        QFETCH(QString, command);
        command.replace(QStringLiteral("@HOME@"), m_home->path());
        const auto before = m_home->snapshot();
        const QString home = m_home->path();
        const Result r = inNamespace(
            QStringLiteral("mount --bind '%1' '%1' && mount -o remount,ro,bind '%1'").arg(home),
            command.split(u'|'));
        verifyOneSentence(r);
        if (QTest::currentTestFailed()) {
            return;
        }
        QVERIFY2(r.err.contains(QLatin1String("Read-only file system")), qPrintable(r.err));
        // Everything as it was, the key files and git's settings included.
        auto after = m_home->snapshot();
        after.erase(QStringLiteral("seen.json"));
        QVERIFY(after == before);
    }

    void fullDisk_data() { readOnlyHome_data(); }

    void fullDisk()
    {
        if (const QString why = noMountsBecause(); !why.isEmpty()) {
            QSKIP(qPrintable(why));
        }
        QFETCH(QString, command);
        command.replace(QStringLiteral("@HOME@"), m_home->path());
        const QByteArray before = store();
        const QString folder = m_home->filePath(QStringLiteral(".git-switcher"));
        m_home->write(QStringLiteral("kept.json"), before);
        // ~/.git-switcher becomes a small file system holding the same profile file, then
        // filled to the last byte.
        const Result r = inNamespace(
            QStringLiteral("mount -t tmpfs -o size=64k,mode=0700 tmpfs '%1' && cp '%2' "
                           "'%1/profiles.json' && { dd if=/dev/zero of='%1/filler' bs=1k "
                           "2>/dev/null; true; }")
                .arg(folder, m_home->filePath(QStringLiteral("kept.json"))),
            command.split(u'|'));
        verifyOneSentence(r);
        if (QTest::currentTestFailed()) {
            return;
        }
        QVERIFY2(r.err.contains(QLatin1String("No space left on device")), qPrintable(r.err));
        QCOMPARE(m_home->read(QStringLiteral("seen.json")), before);
        // A key is deleted only together with its profile.
        QVERIFY(m_home->exists(QStringLiteral(".ssh/id_work")));
        QVERIFY(m_home->exists(QStringLiteral(".ssh/id_work.pub")));
    }

    void keyStaysWhenTheProfileCannotGo()
    {
        if (const QString why = noMountsBecause(); !why.isEmpty()) {
            QSKIP(qPrintable(why));
        }
        const QString folder = m_home->filePath(QStringLiteral(".git-switcher"));
        m_home->write(QStringLiteral("kept.json"), store());
        const Result r = inNamespace(
            QStringLiteral("mount -t tmpfs -o size=64k tmpfs '%1' && cp '%2' '%1/profiles.json' "
                           "&& { dd if=/dev/zero of='%1/filler' bs=1k 2>/dev/null; true; }")
                .arg(folder, m_home->filePath(QStringLiteral("kept.json"))),
            {QStringLiteral("remove"), QStringLiteral("Work"), QStringLiteral("--delete-key")});
        verifyOneSentence(r);
        if (QTest::currentTestFailed()) {
            return;
        }
        QCOMPARE(m_home->read(QStringLiteral(".ssh/id_work")), QByteArray("private\n"));
        QCOMPARE(m_home->read(QStringLiteral(".ssh/id_work.pub")),
                 QByteArray("ssh-ed25519 AAAA work\n"));
    }

    // A ~/.git-switcher that is a file: there is no profile file to write, whatever the
    // commands do with the fresh profile they start with (made from ~/.ssh/id_work).
    void profileFolderIsAFile_data() { readOnlyHome_data(); }

    void profileFolderIsAFile()
    {
        QFETCH(QString, command);
        command.replace(QStringLiteral("@HOME@"), m_home->path());
        QVERIFY(QDir(m_home->filePath(QStringLiteral(".git-switcher"))).removeRecursively());
        m_home->write(QStringLiteral(".git-switcher"), "my notes\n");
        const Result r = run(qEnvironmentVariable("KIVORA_CLI"), command.split(u'|'));
        verifyOneSentence(r);
        if (QTest::currentTestFailed()) {
            return;
        }
        QVERIFY2(r.err.contains(QLatin1String("Not a directory")), qPrintable(r.err));
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher")), QByteArray("my notes\n"));
    }

    // A ~/.git-switcher the user took read access from. Root reads it all the same, so as
    // root the command runs as a second user made for the test, in a home of its own.
    void profileFolderIsUnreadable_data() { profileFolderIsAFile_data(); }

    void profileFolderIsUnreadable()
    {
        QFETCH(QString, command);
        std::unique_ptr<SecondUser> user;
        QTemporaryDir outer;
        QString home = m_home->path();
        if (::geteuid() == 0) {
            if (const QString why = SecondUser::unavailableBecause(); !why.isEmpty()) {
                QSKIP(qPrintable(why));
            }
            user = std::make_unique<SecondUser>();
            QVERIFY(user->isValid());
            QVERIFY(QFile::setPermissions(outer.path(), QFileDevice::Permissions(0x7755)));
            home = outer.filePath(QStringLiteral("home"));
            QVERIFY(QDir().mkpath(home + QStringLiteral("/.git-switcher")));
            QFile::copy(m_home->filePath(QStringLiteral(".git-switcher/profiles.json")),
                        home + QStringLiteral("/.git-switcher/profiles.json"));
            QVERIFY(QDir().mkpath(home + QStringLiteral("/.ssh")));
            for (const QString& file :
                 {QStringLiteral("export.json"), QStringLiteral(".ssh/id_work"),
                  QStringLiteral(".ssh/id_work.pub")}) {
                QVERIFY(QFile::copy(m_home->filePath(file), home + u'/' + file));
            }
            QCOMPARE(run(QStringLiteral("/bin/chown"), {QStringLiteral("-R"), user->name(), home})
                         .status,
                     0);
        }
        command.replace(QStringLiteral("@HOME@"), home);
        const QByteArray folder = QFile::encodeName(home + QStringLiteral("/.git-switcher"));
        QVERIFY(::chmod(folder.constData(), 0) == 0);
        Result r;
        if (user) {
            // The build folder may be out of the other user's reach (a clone in root's 0700
            // home folder): the user runs a copy in the temporary folder everyone can enter.
            const QString kivora = outer.filePath(QStringLiteral("kivora"));
            QVERIFY(QFile::exists(kivora) ||
                    QFile::copy(qEnvironmentVariable("KIVORA_CLI"), kivora));
            QVERIFY(QFile::setPermissions(kivora, QFileDevice::Permissions(0x7555)));
            QByteArray out;
            QByteArray err;
            r.status = user->run(
                QStringList{QStringLiteral("/usr/bin/env"), QStringLiteral("HOME=") + home,
                            QStringLiteral("XDG_CONFIG_HOME=") + home + QStringLiteral("/.config"),
                            QStringLiteral("GIT_CONFIG_NOSYSTEM=1"), kivora} +
                    command.split(u'|'),
                {}, &out, &err);
            r.out = QString::fromUtf8(out);
            r.err = QString::fromUtf8(err);
        } else {
            r = run(qEnvironmentVariable("KIVORA_CLI"), command.split(u'|'));
        }
        ::chmod(folder.constData(), 0700);
        verifyOneSentence(r);
        if (QTest::currentTestFailed()) {
            return;
        }
        QVERIFY2(r.err.contains(QLatin1String("Permission denied")), qPrintable(r.err));
        const auto stored = ProfileCodec::decodeStore([&] {
            QFile file(home + QStringLiteral("/.git-switcher/profiles.json"));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        }());
        QVERIFY(stored);
        QCOMPARE(stored->profiles, QList<GitProfile>{m_work});
    }

    // git's own settings cannot be written (~/.gitconfig is a folder here): the switch is not
    // claimed.
    void gitThatCannotWrite()
    {
        QVERIFY(QFile::remove(m_home->filePath(QStringLiteral(".gitconfig"))));
        QVERIFY(QDir().mkpath(m_home->filePath(QStringLiteral(".gitconfig"))));
        const Result r = run(qEnvironmentVariable("KIVORA_CLI"),
                             {QStringLiteral("use"), QStringLiteral("Work")});
        verifyOneSentence(r);
        if (QTest::currentTestFailed()) {
            return;
        }
        QVERIFY2(r.err.startsWith(QLatin1String("kivora: git did not take the new identity")),
                 qPrintable(r.err));
    }
};

QTEST_GUILESS_MAIN(tst_CliWriteFailures)
#include "tst_CliWriteFailures.moc"
