// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/CommitGuard.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>

// Installing and removing the guard's hooks with the real git: nobody's own hooks stop
// running, a global hooks folder of the user's is never replaced, and switching the guard off
// leaves ~/.gitconfig byte for byte as it was.
class tst_CommitGuard : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    QString m_repo;

    CommitGuard guard(const QString& kivora = QStringLiteral("/nonexistent/kivora")) const
    {
        return CommitGuard(m_home->path(), {}, kivora);
    }

    int git(const QStringList& arguments, const QString& folder, QString* output = nullptr) const
    {
        QProcess process;
        process.setWorkingDirectory(folder);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(QStringLiteral("git"), arguments);
        process.waitForFinished(-1);
        if (output) {
            *output = QString::fromUtf8(process.readAll());
        }
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    int commit(const QString& folder, const QString& message, QString* output = nullptr) const
    {
        m_home->write(QDir(m_home->path()).relativeFilePath(folder) + QStringLiteral("/f.txt"),
                      message.toUtf8());
        git({QStringLiteral("add"), QStringLiteral("f.txt")}, folder);
        return git({QStringLiteral("commit"), QStringLiteral("-q"), QStringLiteral("-m"), message},
                   folder, output);
    }

    // A hook of the repository's own that leaves a mark and exits with `status`.
    void writeOwnHook(const QString& name, int status) const
    {
        const QString path = m_repo + QStringLiteral("/.git/hooks/") + name;
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QStringLiteral("#!/bin/sh\necho ran >> \"%1/%2.ran\"\nexit %3\n")
                       .arg(m_home->path(), name)
                       .arg(status)
                       .toUtf8());
        file.close();
        QVERIFY(file.setPermissions(file.permissions() | QFileDevice::ExeOwner));
    }

    int runs(const QString& hook) const
    {
        return int(m_home->read(hook + QStringLiteral(".ran")).count("ran"));
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_repo = m_home->filePath(QStringLiteral("repo"));
        QDir().mkpath(m_repo);
        m_home->git({QStringLiteral("init"), QStringLiteral("-q"), m_repo});
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.name"), QStringLiteral("Ada")});
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.email"), QStringLiteral("ada@example.com")});
    }

    void cleanup() { m_home.reset(); }

    void enableWritesEveryHookAndSetsTheFolder()
    {
        QString error;
        QVERIFY2(guard().enable(&error), qPrintable(error));
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.hooksPath")), guard().hooksFolder());
        QCOMPARE(guard().state(), CommitGuard::State::on);
        for (const QString& name : CommitGuard::hookNames()) {
            const QFileInfo hook(guard().hooksFolder() + u'/' + name);
            QVERIFY2(hook.isFile() && hook.isExecutable(), qPrintable(name));
            QCOMPARE(hook.permissions() & 0x0077, QFileDevice::Permissions());
        }
        QVERIFY(CommitGuard::hookNames().contains(QStringLiteral("pre-merge-commit")));
        QVERIFY(CommitGuard::hookNames().contains(QStringLiteral("reference-transaction")));
        // Enabling twice changes nothing.
        const auto before = m_home->snapshot();
        QVERIFY(guard().enable());
        QCOMPARE(m_home->snapshot(), before);
    }

    void aHooksFolderOfTheUsersIsNeverReplaced()
    {
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("core.hooksPath"), QStringLiteral("~/my-hooks")});
        const QByteArray before = m_home->read(QStringLiteral(".gitconfig"));
        QString error;
        QVERIFY(!guard().enable(&error));
        QVERIFY2(error.contains(QStringLiteral("~/my-hooks")), qPrintable(error));
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), before);
        QCOMPARE(guard().state(), CommitGuard::State::other);
        QVERIFY(!QFileInfo::exists(guard().hooksFolder()));
        // Off does not touch the user's setting either.
        QVERIFY(guard().disable());
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), before);
    }

    void offLeavesGitconfigAsBeforeOn_data()
    {
        QTest::addColumn<QByteArray>("gitconfig");
        QTest::newRow("no core section")
            << QByteArray("[user]\n\tname = Ada\n\temail = ada@example.com\n");
        QTest::newRow("core section of the user's") << QByteArray(
            "[core]\n\teditor = vim\n[user]\n\tname = Ada\n\temail = ada@example.com\n");
        QTest::newRow("include last")
            << QByteArray("[user]\n\tname = Ada\n\temail = ada@example.com\n[include]\n\tpath = "
                          "~/other.gitconfig\n");
    }

    void offLeavesGitconfigAsBeforeOn()
    {
        QFETCH(QByteArray, gitconfig);
        m_home->write(QStringLiteral(".gitconfig"), gitconfig);
        QVERIFY(guard().enable());
        QVERIFY(m_home->read(QStringLiteral(".gitconfig")) != gitconfig);
        QVERIFY(guard().disable());
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), gitconfig);
        QCOMPARE(guard().state(), CommitGuard::State::off);
        QVERIFY(!QFileInfo::exists(guard().hooksFolder()));
    }

    void theRepositorysOwnHooksStillRunAndRefuse()
    {
        QVERIFY(guard().enable());
        writeOwnHook(QStringLiteral("pre-commit"), 0);
        writeOwnHook(QStringLiteral("post-commit"), 0);
        writeOwnHook(QStringLiteral("commit-msg"), 0);
        QCOMPARE(commit(m_repo, QStringLiteral("one")), 0);
        QCOMPARE(runs(QStringLiteral("pre-commit")), 1);
        QCOMPARE(runs(QStringLiteral("post-commit")), 1);
        QCOMPARE(runs(QStringLiteral("commit-msg")), 1);

        writeOwnHook(QStringLiteral("pre-commit"), 3);
        QString output;
        QVERIFY(commit(m_repo, QStringLiteral("two"), &output) != 0);
        QCOMPARE(runs(QStringLiteral("pre-commit")), 2);
        QString log;
        git({QStringLiteral("log"), QStringLiteral("--format=%s")}, m_repo, &log);
        QCOMPARE(log.trimmed(), QStringLiteral("one"));
    }

    void worktreesRunTheHooksOfTheirRepository()
    {
        QVERIFY(guard().enable());
        QCOMPARE(commit(m_repo, QStringLiteral("base")), 0);
        const QString tree = m_home->filePath(QStringLiteral("tree"));
        QCOMPARE(
            git({QStringLiteral("worktree"), QStringLiteral("add"), QStringLiteral("-q"), tree},
                m_repo),
            0);
        writeOwnHook(QStringLiteral("pre-commit"), 1);
        QVERIFY(commit(tree, QStringLiteral("in the worktree")) != 0);
        QCOMPARE(runs(QStringLiteral("pre-commit")), 1);
    }

    void theCheckRunsAfterTheRepositorysHook()
    {
        // A stand-in for the command line that records its arguments and refuses.
        const QString program = m_home->filePath(QStringLiteral("bin/kivora checker"));
        m_home->write(QStringLiteral("bin/kivora checker"),
                      QStringLiteral("#!/bin/sh\necho \"$@\" >> \"%1/checked\"\nexit 1\n")
                          .arg(m_home->path())
                          .toUtf8());
        QFile(program).setPermissions(QFile(program).permissions() | QFileDevice::ExeOwner);
        QVERIFY(guard(program).enable());
        writeOwnHook(QStringLiteral("pre-commit"), 0);
        QVERIFY(commit(m_repo, QStringLiteral("refused by the check")) != 0);
        QCOMPARE(runs(QStringLiteral("pre-commit")), 1);
        QCOMPARE(m_home->read(QStringLiteral("checked")), QByteArray("guard check\n"));
        // A refusing repository hook stops before the check.
        writeOwnHook(QStringLiteral("pre-commit"), 1);
        QVERIFY(commit(m_repo, QStringLiteral("refused by the repository")) != 0);
        QCOMPARE(m_home->read(QStringLiteral("checked")), QByteArray("guard check\n"));
    }

    void repositoriesWithTheirOwnHooksPathAreFound()
    {
        QVERIFY(!guard().repositoryHooksPath(m_repo));
        git({QStringLiteral("config"), QStringLiteral("core.hooksPath"), QStringLiteral(".husky")},
            m_repo);
        QCOMPARE(guard().repositoryHooksPath(m_repo),
                 std::optional<QString>(QStringLiteral(".husky")));
    }
};

QTEST_GUILESS_MAIN(tst_CommitGuard)
#include "tst_CommitGuard.moc"
