// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/CliProcess.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>

// `kivora guard` with the real git: a commit in a ruled repository that would record another
// identity than the rule's profile is refused (by the environment, by `git -c`, as a merge),
// the same commit elsewhere goes through, the repository's own hooks keep running, and off
// leaves ~/.gitconfig as it was.
class tst_CliGuard : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    QString m_work;  // a repository under the folder ruled for Work
    QString m_other; // a repository no rule reaches

    static CliProcess::Result kivora(const QStringList& arguments)
    {
        return CliProcess::run(arguments);
    }

    struct Git {
        int status = -1;
        QString output;
    };

    Git git(const QString& folder, const QStringList& arguments,
            const QStringList& environment = {}) const
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const QString& entry : environment) {
            env.insert(entry.section(u'=', 0, 0), entry.section(u'=', 1));
        }
        process.setProcessEnvironment(env);
        process.setWorkingDirectory(folder);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(QStringLiteral("git"), arguments);
        process.waitForFinished(-1);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAll())};
    }

    Git commit(const QString& folder, const QString& message, const QStringList& environment = {},
               const QStringList& options = {}) const
    {
        QFile file(folder + QStringLiteral("/f.txt"));
        file.open(QIODevice::Append);
        file.write(message.toUtf8() + '\n');
        file.close();
        git(folder, {QStringLiteral("add"), QStringLiteral("f.txt")});
        return git(folder,
                   options + QStringList{QStringLiteral("commit"), QStringLiteral("-q"),
                                         QStringLiteral("-m"), message},
                   environment);
    }

    QString lastSubject(const QString& folder) const
    {
        return git(folder,
                   {QStringLiteral("log"), QStringLiteral("-1"), QStringLiteral("--format=%s")})
            .output.trimmed();
    }

    QString makeRepository(const QString& relative) const
    {
        const QString path = m_home->filePath(relative);
        QDir().mkpath(path);
        m_home->git({QStringLiteral("init"), QStringLiteral("-q"), path});
        return path;
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }

    void init()
    {
        m_home = std::make_unique<TestHome>();
        const QList<GitProfile> profiles{
            GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada Work"),
                               QStringLiteral("ada@work.example"), QString()),
            GitProfile::create(QStringLiteral("Home"), QStringLiteral("Ada Home"),
                               QStringLiteral("ada@home.example"), QString())};
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, std::nullopt}));
        m_home->write(QStringLiteral(".gitconfig"), "[core]\n\teditor = true\n");
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("Home")}).status, 0);
        m_work = makeRepository(QStringLiteral("work/app"));
        m_other = makeRepository(QStringLiteral("elsewhere/app"));
        const auto added =
            kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("Work"),
                    QStringLiteral("--dir"), QStringLiteral("~/work")});
        QVERIFY2(added.status == 0, qPrintable(added.err));
    }

    void cleanup() { m_home.reset(); }

    void commitsWithTheRulesIdentityGoThrough()
    {
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        const Git result = commit(m_work, QStringLiteral("as work"));
        QVERIFY2(result.status == 0, qPrintable(result.output));
        QCOMPARE(git(m_work, {QStringLiteral("log"), QStringLiteral("-1"),
                              QStringLiteral("--format=%ae %ce")})
                     .output.trimmed(),
                 QStringLiteral("ada@work.example ada@work.example"));
    }

    void anotherIdentityInARuledRepositoryIsRefused_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<QStringList>("options");
        QTest::newRow("author e-mail")
            << QStringList{QStringLiteral("GIT_AUTHOR_EMAIL=ada@home.example")} << QStringList();
        QTest::newRow("committer name")
            << QStringList{QStringLiteral("GIT_COMMITTER_NAME=Someone")} << QStringList();
        QTest::newRow("git -c") << QStringList()
                                << QStringList{QStringLiteral("-c"),
                                               QStringLiteral("user.email=ada@home.example")};
    }

    void anotherIdentityInARuledRepositoryIsRefused()
    {
        QFETCH(QStringList, environment);
        QFETCH(QStringList, options);
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        QCOMPARE(commit(m_work, QStringLiteral("first")).status, 0);
        const Git refused = commit(m_work, QStringLiteral("second"), environment, options);
        QVERIFY(refused.status != 0);
        QCOMPARE(lastSubject(m_work), QStringLiteral("first"));
        // The message names both identities, the rule, and the ways on.
        QVERIFY2(refused.output.contains(QStringLiteral("Ada Work <ada@work.example>")),
                 qPrintable(refused.output));
        QVERIFY2(refused.output.contains(QStringLiteral("dir ")) &&
                     refused.output.contains(m_home->filePath(QStringLiteral("work"))),
                 qPrintable(refused.output));
        QVERIFY(refused.output.contains(QStringLiteral("kivora which")));
        QVERIFY(refused.output.contains(QStringLiteral("--no-verify")));
        const QString wrong =
            environment.value(0).section(u'=', 1) + options.value(1).section(u'=', 1);
        QVERIFY2(refused.output.contains(wrong), qPrintable(refused.output));
        // --no-verify is the way through for one commit.
        const QString flag = QStringLiteral("--no-verify");
        QProcess process;
        QCOMPARE(git(m_work,
                     options + QStringList{QStringLiteral("commit"), QStringLiteral("-q"), flag,
                                           QStringLiteral("-m"), QStringLiteral("anyway")},
                     environment)
                     .status,
                 0);
        QCOMPARE(lastSubject(m_work), QStringLiteral("anyway"));
    }

    void outsideRuledRepositoriesNothingIsChecked()
    {
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        const Git result = commit(m_other, QStringLiteral("as anyone"),
                                  {QStringLiteral("GIT_AUTHOR_EMAIL=x@y.example")});
        QVERIFY2(result.status == 0, qPrintable(result.output));
    }

    void mergeCommitsAreGuarded()
    {
        QCOMPARE(commit(m_work, QStringLiteral("base")).status, 0);
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        const QString main =
            git(m_work, {QStringLiteral("branch"), QStringLiteral("--show-current")})
                .output.trimmed();
        git(m_work, {QStringLiteral("checkout"), QStringLiteral("-q"), QStringLiteral("-b"),
                     QStringLiteral("side")});
        QCOMPARE(commit(m_work, QStringLiteral("side")).status, 0);
        git(m_work, {QStringLiteral("checkout"), QStringLiteral("-q"), main});
        m_home->write(QStringLiteral("work/app/g.txt"), "main");
        git(m_work, {QStringLiteral("add"), QStringLiteral("g.txt")});
        QCOMPARE(git(m_work, {QStringLiteral("commit"), QStringLiteral("-q"), QStringLiteral("-m"),
                              QStringLiteral("main")})
                     .status,
                 0);
        const Git merge = git(
            m_work, {QStringLiteral("merge"), QStringLiteral("--no-edit"), QStringLiteral("side")},
            {QStringLiteral("GIT_COMMITTER_EMAIL=ada@home.example")});
        QVERIFY2(merge.status != 0, qPrintable(merge.output));
        QVERIFY(merge.output.contains(QStringLiteral("ada@home.example")));
        QCOMPARE(lastSubject(m_work), QStringLiteral("main"));
    }

    void worktreesAreGuardedAndOwnHooksStillRun()
    {
        QCOMPARE(commit(m_work, QStringLiteral("base")).status, 0);
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        // A worktree outside the ruled folder belongs to a repository inside it.
        const QString tree = m_home->filePath(QStringLiteral("trees/app-feature"));
        QCOMPARE(git(m_work, {QStringLiteral("worktree"), QStringLiteral("add"),
                              QStringLiteral("-q"), tree})
                     .status,
                 0);
        QVERIFY(commit(tree, QStringLiteral("wrong"),
                       {QStringLiteral("GIT_AUTHOR_EMAIL=ada@home.example")})
                    .status != 0);
        // The repository's own pre-commit hook runs first and can still refuse.
        m_home->write(QStringLiteral("work/app/.git/hooks/pre-commit"),
                      "#!/bin/sh\necho own hook >&2\nexit 7\n");
        QFile::setPermissions(
            m_work + QStringLiteral("/.git/hooks/pre-commit"),
            QFile::permissions(m_work + QStringLiteral("/.git/hooks/pre-commit")) |
                QFileDevice::ExeOwner);
        const Git refused = commit(tree, QStringLiteral("right identity, own hook says no"));
        QVERIFY(refused.status != 0);
        QVERIFY2(refused.output.contains(QStringLiteral("own hook")), qPrintable(refused.output));
    }

    void offLeavesGitconfigAsBeforeOn()
    {
        const QByteArray before = m_home->read(QStringLiteral(".gitconfig"));
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        QVERIFY(m_home->read(QStringLiteral(".gitconfig")) != before);
        // A switch in between keeps the rules' include last; off still restores the file.
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("Work")}).status, 0);
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("Home")}).status, 0);
        const auto off = kivora({QStringLiteral("guard"), QStringLiteral("off")});
        QCOMPARE(off.status, 0);
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), before);
        QVERIFY(commit(m_work, QStringLiteral("unguarded"),
                       {QStringLiteral("GIT_AUTHOR_EMAIL=x@y.example")})
                    .status == 0);
    }

    void aHooksPathOfTheUsersIsRefused()
    {
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("core.hooksPath"), QStringLiteral("/opt/team-hooks")});
        const QByteArray before = m_home->read(QStringLiteral(".gitconfig"));
        const auto on = kivora({QStringLiteral("guard"), QStringLiteral("on")});
        QCOMPARE(on.status, 1);
        QVERIFY(on.err.contains(QStringLiteral("/opt/team-hooks")));
        QCOMPARE(on.err.trimmed().count(u'\n'), 0);
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), before);
    }

    void statusNamesRepositoriesThatBypassTheGuard()
    {
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("on")}).status, 0);
        auto status = kivora({QStringLiteral("guard"), QStringLiteral("status"), m_work});
        QCOMPARE(status.status, 0);
        QVERIFY(status.out.startsWith(QStringLiteral("The guard is on")));
        git(m_work,
            {QStringLiteral("config"), QStringLiteral("core.hooksPath"), QStringLiteral(".husky")});
        status = kivora({QStringLiteral("guard"), QStringLiteral("status"), m_work});
        QCOMPARE(status.status, 1);
        QVERIFY2(status.out.contains(QStringLiteral(".husky")), qPrintable(status.out));
        QCOMPARE(kivora({QStringLiteral("guard"), QStringLiteral("sideways")}).status, 2);
    }
};

QTEST_GUILESS_MAIN(tst_CliGuard)
#include "tst_CliGuard.moc"
