// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/GlobalGitConfig.h"
#include "activation/ProfileManager.h"
#include "activation/RuleStore.h"
#include "activation/RuleSync.h"
#include "ai/AIContextManager.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>

// Rules by folder and by remote, checked with the real git: what identity a commit gets in
// repositories inside and outside ruled folders, with remotes, worktrees, submodules and links.
class tst_IdentityRules : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;
    std::unique_ptr<ProfileManager> m_manager;
    GitProfile m_work;
    GitProfile m_personal;

    QString path(const QString& relative) const { return m_home->filePath(relative); }

    // git run in a folder; its trimmed output, failing the test when git fails.
    QString git(const QString& dir, const QStringList& arguments, bool mustSucceed = true) const
    {
        QProcess process;
        process.setWorkingDirectory(dir);
        process.start(QStringLiteral("git"), arguments);
        process.waitForFinished(-1);
        if (mustSucceed && process.exitCode() != 0) {
            qWarning().noquote() << "git" << arguments.join(u' ') << "in" << dir
                                 << "failed:" << process.readAllStandardError();
        }
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }

    QString newRepository(const QString& relative) const
    {
        const QString dir = path(relative);
        QDir().mkpath(dir);
        git(dir, {QStringLiteral("init"), QStringLiteral("-q")});
        return dir;
    }

    // "Name <email>" of the author and of the committer git would record in `dir`.
    QString author(const QString& dir) const { return identityOf(dir, "GIT_AUTHOR_IDENT"); }
    QString committer(const QString& dir) const { return identityOf(dir, "GIT_COMMITTER_IDENT"); }
    QString identityOf(const QString& dir, const char* variable) const
    {
        const QString line = git(dir, {QStringLiteral("var"), QString::fromLatin1(variable)});
        return line.left(line.lastIndexOf(u'>') + 1);
    }

    static QString identity(const GitProfile& p)
    {
        return QStringLiteral("%1 <%2>").arg(p.gitName, p.gitEmail);
    }

    void setRules(const IdentityRules& rules)
    {
        QString error;
        QVERIFY2(RuleSync(m_home->path()).apply(rules, m_manager->profiles(), &error),
                 qPrintable(error));
    }

    IdentityRule dirRule(const GitProfile& p, const QString& relative) const
    {
        return {p.id, IdentityRule::Kind::Dir, path(relative)};
    }

    QByteArray globalFile() const { return m_home->read(QStringLiteral(".gitconfig")); }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>();
        ProfileManager::Options options;
        options.restoreAIContext = false;
        m_manager = std::make_unique<ProfileManager>(*m_ai.get(), options);
        m_work = GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada Work"),
                                    QStringLiteral("ada@corp.example"),
                                    QStringLiteral("~/.ssh/id_work"));
        m_personal = GitProfile::create(QStringLiteral("Personal"), QStringLiteral("Ada Home"),
                                        QStringLiteral("ada@home.example"), QString());
        m_manager->setProfiles({m_work, m_personal});
        m_manager->applyGlobally(m_personal);
    }

    void cleanup()
    {
        m_manager.reset();
        m_ai.reset();
        m_home.reset();
    }

    void folderRuleSetsAuthorAndCommitterOfARealCommit()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString ruled = newRepository(QStringLiteral("work/app"));
        const QString other = newRepository(QStringLiteral("play/app"));
        QCOMPARE(author(ruled), identity(m_work));
        QCOMPARE(committer(ruled), identity(m_work));
        QCOMPARE(author(other), identity(m_personal));

        git(ruled, {QStringLiteral("commit"), QStringLiteral("-q"), QStringLiteral("--allow-empty"),
                    QStringLiteral("-m"), QStringLiteral("first")});
        QCOMPARE(git(ruled, {QStringLiteral("log"), QStringLiteral("-1"),
                             QStringLiteral("--format=%an <%ae>|%cn <%ce>")}),
                 identity(m_work) + u'|' + identity(m_work));
        // The global identity itself is still the active profile's.
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), m_personal.gitEmail);
    }

    void folderRuleGivesTheKeyWithIdentitiesOnly()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString ruled = newRepository(QStringLiteral("work/app"));
        QCOMPARE(git(ruled, {QStringLiteral("config"), QStringLiteral("core.sshCommand")}),
                 path(QStringLiteral(".kivora/kivora-ssh.sh")) + u' ' +
                     path(QStringLiteral(".ssh/id_work")) +
                     QStringLiteral(" -o IdentitiesOnly=yes"));
        QVERIFY(QFileInfo(path(QStringLiteral(".kivora/kivora-ssh.sh"))).isExecutable());
    }

    void remoteRuleAppliesOnceTheRemoteIsAdded()
    {
        setRules({{m_work.id, IdentityRule::Kind::Remote,
                   QStringLiteral("https://git.example.com/acme/**")}});
        const QString repo = newRepository(QStringLiteral("src/tool"));
        QCOMPARE(author(repo), identity(m_personal));
        git(repo, {QStringLiteral("remote"), QStringLiteral("add"), QStringLiteral("origin"),
                   QStringLiteral("https://git.example.com/acme/tool.git")});
        QCOMPARE(author(repo), identity(m_work));

        const QString elsewhere = newRepository(QStringLiteral("src/other"));
        git(elsewhere, {QStringLiteral("remote"), QStringLiteral("add"), QStringLiteral("origin"),
                        QStringLiteral("https://git.example.com/someone/tool.git")});
        QCOMPARE(author(elsewhere), identity(m_personal));
    }

    void worktreeOfARuledRepository()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString repo = newRepository(QStringLiteral("work/app"));
        git(repo, {QStringLiteral("commit"), QStringLiteral("-q"), QStringLiteral("--allow-empty"),
                   QStringLiteral("-m"), QStringLiteral("first")});
        // git's gitdir: sees a linked worktree's git folder, which lives in the main repository.
        git(repo, {QStringLiteral("worktree"), QStringLiteral("add"), QStringLiteral("-q"),
                   path(QStringLiteral("elsewhere/app-wt"))});
        QCOMPARE(author(path(QStringLiteral("elsewhere/app-wt"))), identity(m_work));
    }

    void submoduleOfARuledRepository()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString library = newRepository(QStringLiteral("outside/lib"));
        git(library,
            {QStringLiteral("-c"), QStringLiteral("user.name=x"), QStringLiteral("-c"),
             QStringLiteral("user.email=x@x"), QStringLiteral("commit"), QStringLiteral("-q"),
             QStringLiteral("--allow-empty"), QStringLiteral("-m"), QStringLiteral("lib")});
        QCOMPARE(author(library), identity(m_personal));
        const QString super = newRepository(QStringLiteral("work/super"));
        git(super, {QStringLiteral("-c"), QStringLiteral("protocol.file.allow=always"),
                    QStringLiteral("submodule"), QStringLiteral("add"), QStringLiteral("-q"),
                    library, QStringLiteral("lib")});
        QVERIFY(QFileInfo::exists(super + QStringLiteral("/lib/.git")));
        QCOMPARE(author(super + QStringLiteral("/lib")), identity(m_work));
    }

    void folderReachedThroughALink()
    {
        QDir().mkpath(path(QStringLiteral("data/work")));
        QVERIFY(QFile::link(path(QStringLiteral("data/work")), path(QStringLiteral("work"))));
        const QString real = newRepository(QStringLiteral("data/work/app"));

        // The rule names the link: the repository counts whichever way it is reached.
        setRules({dirRule(m_work, QStringLiteral("work"))});
        QCOMPARE(author(path(QStringLiteral("work/app"))), identity(m_work));
        QCOMPARE(author(real), identity(m_work));

        // The rule names the real folder: reached through the link it counts too.
        setRules({dirRule(m_personal, QStringLiteral("data/work"))});
        m_manager->applyGlobally(m_work);
        QCOMPARE(author(path(QStringLiteral("work/app"))), identity(m_personal));
    }

    void laterRuleWins()
    {
        const QString repo = newRepository(QStringLiteral("work/client/app"));
        setRules({dirRule(m_work, QStringLiteral("work")),
                  dirRule(m_personal, QStringLiteral("work/client"))});
        m_manager->applyGlobally(m_work);
        QCOMPARE(author(repo), identity(m_personal));
        setRules({dirRule(m_personal, QStringLiteral("work/client")),
                  dirRule(m_work, QStringLiteral("work"))});
        m_manager->applyGlobally(m_personal);
        QCOMPARE(author(repo), identity(m_work));
    }

    void repositoryOwnIdentityWins()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString repo = newRepository(QStringLiteral("work/app"));
        git(repo, {QStringLiteral("config"), QStringLiteral("user.email"),
                   QStringLiteral("me@repo.example")});
        QCOMPARE(author(repo), QStringLiteral("Ada Work <me@repo.example>"));
    }

    void globalSwitchLeavesRuledFolder()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString repo = newRepository(QStringLiteral("work/app"));
        m_manager->applyGlobally(m_personal);
        m_manager->applyGlobally(m_work);
        m_manager->applyGlobally(m_personal);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), m_personal.gitEmail);
        QCOMPARE(author(repo), identity(m_work));
    }

    void includeStaysLastAfterActivationsThatAddSections()
    {
        // A user's own file without a [user] section: the first activation makes git append one.
        const QByteArray own = "[alias]\n\tco = checkout\n# mine\n[core]\n\teditor = vim\n";
        m_home->write(QStringLiteral(".gitconfig"), own);
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QByteArray block =
            GlobalGitConfig::includeBlock(path(QStringLiteral(".kivora/git/rules.gitconfig")));
        QCOMPARE(globalFile(), own + block);

        m_manager->applyGlobally(m_personal);
        QByteArray text = globalFile();
        QVERIFY2(text.endsWith(block), text.constData());
        // Everything of the user's stays, in order, before git's new section.
        QVERIFY(text.startsWith(own));
        QCOMPARE(text.count(GlobalGitConfig::marker()), 1);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), m_personal.gitEmail);
        const QString repo = newRepository(QStringLiteral("work/app"));
        QCOMPARE(author(repo), identity(m_work));

        // The section now exists: another activation changes it in place, nothing moves.
        m_manager->applyGlobally(m_work);
        QVERIFY(globalFile().endsWith(block));
        // Every line of the user's is still there, in its order.
        const QList<QByteArray> lines = globalFile().split('\n');
        qsizetype at = 0;
        for (const QByteArray& line : own.split('\n')) {
            at = lines.indexOf(line, at);
            QVERIFY2(at >= 0, line.constData());
        }
        QCOMPARE(author(repo), identity(m_work));
    }

    void includeStaysLastWhenSigningAddsSettings()
    {
        // Giving a profile an SSH signing key makes Kivora point git at its allowed signers,
        // a setting git appends as a new section: the rules' include still ends the file.
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QByteArray block =
            GlobalGitConfig::includeBlock(path(QStringLiteral(".kivora/git/rules.gitconfig")));
        m_home->write(QStringLiteral(".ssh/id_work.pub"), "ssh-ed25519 AAAAC3Nza work\n");
        QString error;
        QVERIFY2(m_manager->setSigning(m_work.id,
                                       SigningSettings{QStringLiteral("~/.ssh/id_work.pub"),
                                                       SigningSettings::Format::ssh, true},
                                       &error),
                 qPrintable(error));
        QVERIFY(!m_home->gitConfig(QStringLiteral("gpg.ssh.allowedSignersFile")).isEmpty());
        QVERIFY2(globalFile().endsWith(block), globalFile().constData());

        // The same after a save that writes the allowed signers again.
        QVERIFY(QFile::remove(path(QStringLiteral(".kivora/allowed_signers"))));
        QCOMPARE(QProcess::execute(QStringLiteral("git"),
                                   {QStringLiteral("config"), QStringLiteral("--global"),
                                    QStringLiteral("--remove-section"), QStringLiteral("gpg.ssh")}),
                 0);
        QVERIFY(m_manager->save());
        QVERIFY(!m_home->gitConfig(QStringLiteral("gpg.ssh.allowedSignersFile")).isEmpty());
        QVERIFY2(globalFile().endsWith(block), globalFile().constData());
    }

    void linkedGlobalFileStaysALink()
    {
        m_home->write(QStringLiteral("dotfiles/gitconfig"), "[user]\n\tname = x\n");
        QFile::remove(path(QStringLiteral(".gitconfig")));
        QVERIFY(QFile::link(path(QStringLiteral("dotfiles/gitconfig")),
                            path(QStringLiteral(".gitconfig"))));
        setRules({dirRule(m_work, QStringLiteral("work"))});
        QVERIFY(QFileInfo(path(QStringLiteral(".gitconfig"))).isSymLink());
        QVERIFY(
            m_home->read(QStringLiteral("dotfiles/gitconfig")).contains(GlobalGitConfig::marker()));
    }

    void onlyTheXdgFileGetsTheInclude()
    {
        QFile::remove(path(QStringLiteral(".gitconfig")));
        m_home->write(QStringLiteral(".config/git/config"), "[user]\n\tname = x\n\temail = x@x\n");
        setRules({dirRule(m_work, QStringLiteral("work"))});
        QVERIFY(!m_home->exists(QStringLiteral(".gitconfig")));
        QVERIFY(
            m_home->read(QStringLiteral(".config/git/config")).contains(GlobalGitConfig::marker()));
        QCOMPARE(author(newRepository(QStringLiteral("work/app"))), identity(m_work));
    }

    void editingAProfileRewritesItsFile()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QString repo = newRepository(QStringLiteral("work/app"));
        GitProfile edited = m_work;
        edited.gitEmail = QStringLiteral("ada@new.example");
        QCOMPARE(m_manager->updateProfile(edited), ProfileManager::Update::Saved);
        QCOMPARE(author(repo), identity(edited));
    }

    void removingTheProfileRemovesItsRules()
    {
        setRules({dirRule(m_work, QStringLiteral("work")),
                  {m_personal.id, IdentityRule::Kind::Remote, QStringLiteral("https://x/**")}});
        const QString repo = newRepository(QStringLiteral("work/app"));
        const QString file = RuleSync(m_home->path()).profileFile(m_work.id);
        QVERIFY(QFileInfo::exists(file));
        m_manager->removeProfile(m_work);
        QVERIFY(!QFileInfo::exists(file));
        const auto rules = RuleStore(m_home->path()).load();
        QVERIFY(rules);
        QCOMPARE(rules->size(), 1);
        QCOMPARE(rules->first().profile, m_personal.id);
        QCOMPARE(author(repo), identity(m_personal));

        // The last rule gone, the include leaves the global file too.
        m_manager->removeProfile(m_personal);
        QVERIFY(!globalFile().contains(GlobalGitConfig::marker()));
        QVERIFY(!QFileInfo::exists(RuleSync(m_home->path()).rulesFile()));
    }

    void rulesSurviveARestartAndStayPrivate()
    {
        setRules({dirRule(m_work, QStringLiteral("work"))});
        const QFileInfo store(RuleStore(m_home->path()).path());
        QCOMPARE(store.permissions() & 0x0077, QFileDevice::Permissions());
        m_manager.reset();
        ProfileManager::Options options;
        options.restoreAIContext = false;
        m_manager = std::make_unique<ProfileManager>(*m_ai.get(), options);
        const auto rules = RuleStore(m_home->path()).load();
        QVERIFY(rules);
        QCOMPARE(*rules, IdentityRules{dirRule(m_work, QStringLiteral("work"))});
    }

    void hostileValuesReachGitUnchanged()
    {
        GitProfile odd =
            GitProfile::create(QStringLiteral("Odd"), QStringLiteral("Ada \"Q\" \\ Lovelace ; # x"),
                               QStringLiteral("ada@odd.example ; # not a comment"),
                               QStringLiteral("~/.ssh/my key $(touch pwned)'x"));
        m_manager->setProfiles({m_work, m_personal, odd});
        const QString folder = QStringLiteral("we\"ird [dir] *");
        setRules({dirRule(odd, folder)});
        const QString repo = newRepository(folder + QStringLiteral("/app"));
        QCOMPARE(git(repo, {QStringLiteral("config"), QStringLiteral("user.name")}), odd.gitName);
        QCOMPARE(git(repo, {QStringLiteral("config"), QStringLiteral("user.email")}), odd.gitEmail);
        // The shell git starts splits the command into the wrapper, the key as one word, and
        // the option; nothing in it runs.
        const QString command =
            git(repo, {QStringLiteral("config"), QStringLiteral("core.sshCommand")});
        QProcess shell;
        shell.setWorkingDirectory(m_home->path());
        shell.start(QStringLiteral("/bin/sh"),
                    {QStringLiteral("-c"),
                     QStringLiteral("eval \"set -- $1\"; printf '%s\\n' \"$@\""),
                     QStringLiteral("sh"), command});
        shell.waitForFinished(-1);
        QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts),
                 (QStringList{path(QStringLiteral(".kivora/kivora-ssh.sh")),
                              path(QStringLiteral(".ssh/my key $(touch pwned)'x")),
                              QStringLiteral("-o"), QStringLiteral("IdentitiesOnly=yes")}));
        QVERIFY(!m_home->exists(QStringLiteral("pwned")));
    }
};

QTEST_GUILESS_MAIN(tst_IdentityRules)
#include "tst_IdentityRules.moc"
