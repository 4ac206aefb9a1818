// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>
#include <sys/stat.h>

// The built `kivora` given hostile input: files that are not plain JSON, key paths that lead
// out of ~/.ssh, names that try to become commands.
class tst_CliSafety : public QObject {
    Q_OBJECT

    struct Result {
        int status = -1;
        QString out;
        QString err;
    };

    std::unique_ptr<TestHome> m_home;

    Result kivora(const QStringList& arguments) const
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("DISPLAY"));
        env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        process.setProcessEnvironment(env);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
        // A hang is a failure of its own, not a stuck test run.
        if (!process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished(-1);
            return {-2, {}, QStringLiteral("hung")};
        }
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    void writeStore(const QList<GitProfile>& profiles) const
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, std::nullopt}));
    }

    QString pwned() const { return m_home->filePath(QStringLiteral("pwned")); }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void removeDeleteKeyKeepsFilesOutsideSsh()
    {
        m_home->write(QStringLiteral("notes.txt"), "mine");
        m_home->write(QStringLiteral("notes.txt.pub"), "mine too");
        m_home->write(QStringLiteral(".ssh/id_ok"), "k");
        writeStore(
            {GitProfile::create(QStringLiteral("Evil"), QStringLiteral("e"), QStringLiteral("e@x"),
                                QStringLiteral("~/.ssh/../notes.txt")),
             GitProfile::create(QStringLiteral("Good"), QStringLiteral("g"), QStringLiteral("g@x"),
                                QStringLiteral("~/.ssh/id_ok"))});
        Result r = kivora(
            {QStringLiteral("remove"), QStringLiteral("Evil"), QStringLiteral("--delete-key")});
        QCOMPARE(r.status, 1);
        QVERIFY(r.out.contains(QLatin1String("Removed profile Evil.")));
        // One sentence for each of the two files, each on its own line.
        QCOMPARE(r.err.count(QLatin1String("kivora: ")), 2);
        QCOMPARE(r.err.count(u'\n'), 2);
        QVERIFY2(r.err.contains(QLatin1String("not inside ~/.ssh")), qPrintable(r.err));
        QCOMPARE(m_home->read(QStringLiteral("notes.txt")), QByteArray("mine"));
        QCOMPARE(m_home->read(QStringLiteral("notes.txt.pub")), QByteArray("mine too"));
        const auto stored =
            ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json")));
        QVERIFY(stored);
        QCOMPARE(stored->profiles.size(), 1);

        // An ordinary key still goes, with a zero exit status.
        r = kivora(
            {QStringLiteral("remove"), QStringLiteral("Good"), QStringLiteral("--delete-key")});
        QCOMPARE(r.status, 0);
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_ok")));
        QVERIFY(r.err.isEmpty());
    }

    void importRefusesWhatIsNotAPlainFile()
    {
        writeStore({GitProfile::create(QStringLiteral("Keep"), QStringLiteral("k"),
                                       QStringLiteral("k@x"), QString())});
        const QByteArray before = m_home->read(QStringLiteral(".git-switcher/profiles.json"));

        const QString fifo = m_home->filePath(QStringLiteral("export.json"));
        QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
        Result r = kivora({QStringLiteral("import"), fifo});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains(QLatin1String("FIFO")), qPrintable(r.err));
        QCOMPARE(r.err.count(u'\n'), 1);

        r = kivora({QStringLiteral("import"), QStringLiteral("/dev/zero")});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains(QLatin1String("device")), qPrintable(r.err));

        r = kivora({QStringLiteral("import"), m_home->path()});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains(QLatin1String("folder")), qPrintable(r.err));

        m_home->write(QStringLiteral("deep.json"), QByteArray(100000, '['));
        r = kivora({QStringLiteral("import"), m_home->filePath(QStringLiteral("deep.json"))});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains(QLatin1String("deeper")), qPrintable(r.err));

        m_home->write(QStringLiteral("big.json"), QByteArray(16 * 1024 * 1024 + 1, ' '));
        r = kivora({QStringLiteral("import"), m_home->filePath(QStringLiteral("big.json"))});
        QCOMPARE(r.status, 1);
        QVERIFY2(r.err.contains(QLatin1String("16 MiB")), qPrintable(r.err));

        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), before);
    }

    void deepProfileFileIsKeptAndReplaced()
    {
        const QByteArray bytes(100000, '[');
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), bytes);
        const Result r = kivora({QStringLiteral("list")});
        QCOMPARE(r.status, 0);
        QVERIFY2(r.err.contains(QLatin1String("it was kept as")), qPrintable(r.err));
        const QString kept =
            r.err.section(QStringLiteral("it was kept as "), 1).section(u' ', 0, 0);
        QFile copy(kept);
        QVERIFY2(copy.open(QIODevice::ReadOnly), qPrintable(kept));
        QCOMPARE(copy.readAll(), bytes);
        QVERIFY(
            ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json"))));
    }

    void importedHostileFieldsNeverRun()
    {
        // An export someone sent: a name with a line end, a key path with a command in it.
        GitProfile evil = GitProfile::create(QStringLiteral("Team\ntouch ") + pwned(),
                                             QStringLiteral("Eve $(touch ") + pwned() + u')',
                                             QStringLiteral("eve@x"),
                                             QStringLiteral("/x; touch ") + pwned() + u';');
        m_home->write(QStringLiteral("team.json"), ProfileCodec::encodeProfileArray({evil}));
        writeStore({});
        Result r =
            kivora({QStringLiteral("import"), m_home->filePath(QStringLiteral("team.json"))});
        QCOMPARE(r.status, 0);
        r = kivora({QStringLiteral("use"), QStringLiteral("Team")});
        QVERIFY2(r.status == 0, qPrintable(r.err));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), evil.gitName);

        // Every new shell sources the environment file; git runs the ssh command.
        QProcess shell;
        shell.setWorkingDirectory(m_home->path());
        shell.start(
            QStringLiteral("/bin/bash"),
            {QStringLiteral("-c"), QStringLiteral("source ~/.kivora/ai-env.sh; "
                                                  "git ls-remote ssh://git@127.0.0.1:1/none.git")});
        QVERIFY(shell.waitForFinished(60000));
        QVERIFY(!QFileInfo::exists(pwned()));
        const QByteArray env = m_home->read(QStringLiteral(".kivora/ai-env.sh"));
        QCOMPARE(env.count('\n'), 2);
    }
};

QTEST_GUILESS_MAIN(tst_CliSafety)
#include "tst_CliSafety.moc"
