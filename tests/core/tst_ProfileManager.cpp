// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QFileInfo>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// Start-up, first-run set-up and activation against a real git writing a real global
// configuration in a temporary home folder.
class tst_ProfileManager : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;

    std::unique_ptr<ProfileManager> makeManager(bool restoreAI = true)
    {
        ProfileManager::Options options;
        options.restoreAIContext = restoreAI;
        return std::make_unique<ProfileManager>(*m_ai.get(), options);
    }

    void setGlobalIdentity(const QString& name, const QString& email)
    {
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.name"), name});
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.email"), email});
    }

    void makeKeyPair(const QString& name)
    {
        m_home->write(QStringLiteral(".ssh/") + name, "private");
        m_home->write(QStringLiteral(".ssh/") + name + QStringLiteral(".pub"), "public");
    }

    std::optional<StoredData> storedFile() const
    {
        return ProfileCodec::decodeStore(
            m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    }

    QString wrapper() const { return m_home->filePath(QStringLiteral(".kivora/kivora-ssh.sh")); }

    // Writes a profile file as a previous run would have left it.
    void writeStore(const QList<GitProfile>& profiles, std::optional<QUuid> active)
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, active}));
    }

    static GitProfile profile(const QString& name, const QString& gitName, const QString& email,
                              const QString& key = {})
    {
        return GitProfile::create(name, gitName, email, key);
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>();
    }

    void cleanup()
    {
        m_ai.reset();
        m_home.reset();
    }

    // First run -------------------------------------------------------------------------

    void firstRunWithGlobalIdentityAndNoKeys()
    {
        setGlobalIdentity(QStringLiteral("Ada Lovelace"), QStringLiteral("ada@example.com"));
        m_home->write(QStringLiteral(".bashrc"), "# mine\n");
        const auto manager = makeManager();
        QCOMPARE(manager->profiles().size(), 1);
        const GitProfile& p = manager->profiles().first();
        QCOMPARE(p.name, QStringLiteral("Default"));
        QCOMPARE(p.gitName, QStringLiteral("Ada Lovelace"));
        QCOMPARE(p.gitEmail, QStringLiteral("ada@example.com"));
        QCOMPARE(p.sshKeyPath, QString());
        QCOMPARE(p.aiConfig, AIConfig::empty());
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(p.id));
        QVERIFY(!manager->needsProfileSetup());
        QVERIFY(manager->startedFresh());
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), QStringLiteral("Ada Lovelace"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")),
                 QStringLiteral("ada@example.com"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.sshCommand")), QString());
        QCOMPARE(storedFile(), std::optional<StoredData>(StoredData{{p}, p.id}));
        // Applied: the unconfigured environment file and the hook.
        QVERIFY(m_home->read(QStringLiteral(".kivora/ai-env.sh"))
                    .startsWith("# No AI configuration for profile: Default\n"));
        QVERIFY(m_home->read(QStringLiteral(".bashrc")).endsWith("source ~/.kivora/ai-env.sh\n"));
    }

    void firstRunWithTwoKeys()
    {
        makeKeyPair(QStringLiteral("id_ed25519"));
        makeKeyPair(QStringLiteral("id_rsa_work"));
        setGlobalIdentity(QStringLiteral("Ada"), QStringLiteral("ada@example.com"));
        const QByteArray gitconfig = m_home->read(QStringLiteral(".gitconfig"));
        const auto manager = makeManager();
        QCOMPARE(manager->profiles().size(), 2);
        QMap<QString, QString> pathByName;
        for (const GitProfile& p : manager->profiles()) {
            pathByName.insert(p.name, p.sshKeyPath);
            QCOMPARE(p.gitName, QStringLiteral("Ada"));
            QCOMPARE(p.gitEmail, QStringLiteral("ada@example.com"));
        }
        QCOMPARE(pathByName.value(QStringLiteral("Ed25519")), QStringLiteral("~/.ssh/id_ed25519"));
        QCOMPARE(pathByName.value(QStringLiteral("Rsa_work")),
                 QStringLiteral("~/.ssh/id_rsa_work"));
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(manager->profiles().first().id));
        QVERIFY(manager->needsProfileSetup());
        // Nothing applied.
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), gitconfig);
        QVERIFY(!m_home->exists(QStringLiteral(".kivora")));
        QCOMPARE(storedFile()->profiles, manager->profiles());
    }

    void firstRunWithoutAnything()
    {
        const auto manager = makeManager();
        QCOMPARE(manager->profiles().size(), 1);
        const GitProfile& p = manager->profiles().first();
        QCOMPARE(p.name, QStringLiteral("Default"));
        QVERIFY(p.gitName.isEmpty() && p.gitEmail.isEmpty() && p.sshKeyPath.isEmpty());
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(p.id));
        QVERIFY(manager->needsProfileSetup());
        QVERIFY(!m_home->exists(QStringLiteral(".gitconfig")));
        QVERIFY(!m_home->exists(QStringLiteral(".kivora")));
        QVERIFY(storedFile());
    }

    void firstRunWithOneKeyAndGlobalIdentity()
    {
        makeKeyPair(QStringLiteral("id_ed25519"));
        setGlobalIdentity(QStringLiteral("Ada"), QStringLiteral("ada@example.com"));
        const auto manager = makeManager();
        QCOMPARE(manager->profiles().size(), 1);
        QCOMPARE(manager->profiles().first().name, QStringLiteral("Ed25519"));
        QVERIFY(!manager->needsProfileSetup());
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.sshCommand")),
                 wrapper() + u' ' + m_home->filePath(QStringLiteral(".ssh/id_ed25519")));
        QCOMPARE(storedFile()->activeProfileID,
                 std::optional<QUuid>(manager->profiles().first().id));
    }

    void firstRunWithOneKeyAndNoGlobalIdentity()
    {
        makeKeyPair(QStringLiteral("id_work"));
        const auto manager = makeManager();
        QCOMPARE(manager->profiles().size(), 1);
        const GitProfile& p = manager->profiles().first();
        QCOMPARE(p.name, QStringLiteral("Work"));
        QCOMPARE(p.sshKeyPath, QStringLiteral("~/.ssh/id_work"));
        QVERIFY(p.gitName.isEmpty() && p.gitEmail.isEmpty());
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(p.id));
        // Empty identity, and yet no set-up prompt.
        QVERIFY(!manager->needsProfileSetup());
        QVERIFY(!m_home->exists(QStringLiteral(".gitconfig")));
    }

    void halfAGlobalIdentityCountsAsNone()
    {
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.name"), QStringLiteral("Ada")});
        const auto manager = makeManager();
        QVERIFY(manager->profiles().first().gitName.isEmpty());
        QVERIFY(manager->needsProfileSetup());
        QCOMPARE(manager->globalGitName(), QStringLiteral("Ada"));
    }

    // Loading ---------------------------------------------------------------------------

    void existingFileIsLoaded()
    {
        const GitProfile a =
            profile(QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("a@x"));
        const GitProfile b =
            profile(QStringLiteral("B"), QStringLiteral("b"), QStringLiteral("b@x"));
        writeStore({a, b}, b.id);
        setGlobalIdentity(QStringLiteral("Someone"), QStringLiteral("s@x"));
        const QByteArray before = m_home->read(QStringLiteral(".git-switcher/profiles.json"));
        const auto manager = makeManager();
        QCOMPARE(manager->profiles(), (QList<GitProfile>{a, b}));
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(b.id));
        QVERIFY(!manager->startedFresh());
        QCOMPARE(manager->globalGitName(), QStringLiteral("Someone"));
        QCOMPARE(manager->globalGitEmail(), QStringLiteral("s@x"));
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), before);
    }

    void emptyListIsNotAFreshInstall()
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), "{\"profiles\":[]}");
        const auto manager = makeManager();
        QVERIFY(manager->profiles().isEmpty());
        QVERIFY(!manager->activeProfileID());
        QVERIFY(!manager->needsProfileSetup());
        QVERIFY(!manager->startedFresh());
    }

    void activeIdOfNoProfileIsKept()
    {
        const QUuid ghost = QUuid::createUuid();
        writeStore({profile(QStringLiteral("A"), {}, {})}, ghost);
        const auto manager = makeManager();
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(ghost));
        QVERIFY(!manager->activeProfile());
    }

    void profileWithoutAIConfigMeansFirstRun()
    {
        const QByteArray broken =
            R"({"profiles":[{"id":"9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B","name":"Old",)"
            R"("gitName":"o","gitEmail":"o@x","sshKeyPath":""}]})";
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), broken);
        const auto manager = makeManager();
        QVERIFY(manager->startedFresh());
        QCOMPARE(manager->profiles().first().name, QStringLiteral("Default"));
        QVERIFY(storedFile());
        // The old file was kept aside before being replaced.
        QVERIFY(!manager->preservedFilePath().isEmpty());
        QFile kept(manager->preservedFilePath());
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), broken);
        QVERIFY(manager->loadError().contains(QStringLiteral("aiConfig")));
    }

    void startupWithAIDisabledLeavesEnvironmentFile()
    {
        GitProfile p = profile(QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("a@x"));
        p.aiConfig.apiKey = QStringLiteral("key-but-disabled");
        writeStore({p}, p.id);
        m_home->write(QStringLiteral(".kivora/ai-env.sh"), "earlier");
        const auto manager = makeManager();
        QCOMPARE(m_home->read(QStringLiteral(".kivora/ai-env.sh")), QByteArray("earlier"));
        QVERIFY(!m_ai->isConfigured());
    }

    void startupRestoresEnabledAI()
    {
        GitProfile p = profile(QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("a@x"));
        p.aiConfig.isEnabled = true;
        p.aiConfig.provider = AIProvider::Anthropic;
        p.aiConfig.apiKey = QStringLiteral("sk-ant");
        writeStore({p}, p.id);
        m_home->write(QStringLiteral(".zshrc"), "");
        const auto manager = makeManager();
        QVERIFY(m_home->read(QStringLiteral(".kivora/ai-env.sh"))
                    .startsWith("export ANTHROPIC_API_KEY='sk-ant'\n"));
        QVERIFY(m_home->read(QStringLiteral(".zshrc")).contains("source ~/.kivora/ai-env.sh"));
        QVERIFY(m_ai->isConfigured());
        QCOMPARE(qEnvironmentVariable("ANTHROPIC_API_KEY"), QStringLiteral("sk-ant"));
        // Git is not touched by restoring.
        QVERIFY(!m_home->exists(QStringLiteral(".gitconfig")));
    }

    void readOnlyStartLeavesEverythingAlone()
    {
        GitProfile p = profile(QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("a@x"));
        p.aiConfig.isEnabled = true;
        p.aiConfig.apiKey = QStringLiteral("k");
        writeStore({p}, p.id);
        const auto before = m_home->snapshot();
        const auto manager = makeManager(false);
        QCOMPARE(m_home->snapshot(), before);
        QVERIFY(!m_ai->isConfigured());
    }

    // addProfile ------------------------------------------------------------------------

    void displayNames_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("expected");
        QTest::newRow("id_work") << "id_work"
                                 << "Work";
        QTest::newRow("id_ed25519") << "id_ed25519"
                                    << "Ed25519";
        QTest::newRow("id_rsa_Work") << "id_rsa_Work"
                                     << "Rsa_work";
        QTest::newRow("two words") << "work laptop"
                                   << "Work Laptop";
        QTest::newRow("tabs and line ends") << "a\tb\nc"
                                            << "A\tB\nC";
        QTest::newRow("every occurrence") << "id_id_x id_y"
                                          << "X Y";
        QTest::newRow("upper case rest") << "WORK LAPTOP"
                                         << "Work Laptop";
        QTest::newRow("hyphen is not a boundary") << "my-work"
                                                  << "My-work";
        QTest::newRow("non-ascii") << "élan ÖL"
                                   << "Élan Öl";
        QTest::newRow("empty") << ""
                               << "";
    }

    void displayNames()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        QCOMPARE(ProfileManager::displayName(input), expected);
    }

    void addProfileAppendsAndSaves()
    {
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        QSignalSpy changed(manager.get(), &ProfileManager::profilesChanged);
        const GitProfile added =
            *manager->addProfile(QStringLiteral("id_work"), QStringLiteral("W"),
                                 QStringLiteral("w@x"), QStringLiteral("~/.ssh/id_work"));
        QCOMPARE(added.name, QStringLiteral("Work"));
        QCOMPARE(added.aiConfig, AIConfig::empty());
        QCOMPARE(manager->profiles(), QList<GitProfile>{added});
        QVERIFY(!manager->activeProfileID());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(storedFile(), std::optional<StoredData>(StoredData{{added}, std::nullopt}));
        QVERIFY(!m_home->exists(QStringLiteral(".gitconfig")));
    }

    // applyGlobally ---------------------------------------------------------------------

    void keyPathSetsWrapperCommand()
    {
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        const GitProfile p = profile(QStringLiteral("W"), QStringLiteral("Ada"),
                                     QStringLiteral("a@x"), QStringLiteral("~/.ssh/id_work"));
        QSignalSpy active(manager.get(), &ProfileManager::activeProfileIDChanged);
        manager->applyGlobally(p);
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.sshCommand")),
                 m_home->path() + QStringLiteral("/.kivora/kivora-ssh.sh ") + m_home->path() +
                     QStringLiteral("/.ssh/id_work"));
        QVERIFY(QFileInfo(wrapper()).isExecutable());
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(p.id));
        QCOMPARE(active.count(), 1);
        QCOMPARE(storedFile()->activeProfileID, std::optional<QUuid>(p.id));
        QCOMPARE(manager->globalGitName(), QStringLiteral("Ada"));
        QCOMPARE(manager->globalGitEmail(), QStringLiteral("a@x"));
    }

    void profileWithoutKeyKeepsPreviousSshCommand()
    {
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        manager->applyGlobally(profile(QStringLiteral("K"), QStringLiteral("k"),
                                       QStringLiteral("k@x"), QStringLiteral("/keys/with space")));
        const QString withKey = m_home->gitConfig(QStringLiteral("core.sshCommand"));
        // git hands the value to a shell: the blank would split the path, so it is quoted.
        QCOMPARE(withKey, wrapper() + QStringLiteral(" '/keys/with space'"));
        manager->applyGlobally(
            profile(QStringLiteral("N"), QStringLiteral("n"), QStringLiteral("n@x")));
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.sshCommand")), withKey);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), QStringLiteral("n"));
        // And back to a key.
        manager->applyGlobally(profile(QStringLiteral("K2"), QStringLiteral("k2"),
                                       QStringLiteral("k2@x"), QStringLiteral("~/.ssh/other")));
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.sshCommand")),
                 wrapper() + u' ' + m_home->filePath(QStringLiteral(".ssh/other")));
    }

    void namesSurviveGitExactly_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("email");
        // git itself trims quotes and dots at the ends of an identity when committing, so the
        // special characters stand inside the values here.
        QTest::newRow("double quotes") << "Ada \"The Countess\" Lovelace"
                                       << "a\"q\"b@example.com";
        QTest::newRow("single quotes") << "O'Brien 'x' Jr"
                                       << "o'brien@example.com";
        QTest::newRow("dollar and backticks") << "$HOME `id` $(whoami)"
                                              << "$USER@example.com";
        QTest::newRow("non-ascii") << "Zoë Ærøskøbing 名前"
                                   << "zoë@exämple.com";
        QTest::newRow("backslash and semicolon") << "a\\b; rm -rf ~"
                                                 << "x;y@example.com";
        QTest::newRow("hash") << "name # not a comment"
                              << "a#b@example.com";
    }

    void namesSurviveGitExactly()
    {
        QFETCH(QString, name);
        QFETCH(QString, email);
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        manager->applyGlobally(profile(QStringLiteral("P"), name, email));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), name);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), email);
        QCOMPARE(manager->globalGitName(), name);
        QCOMPARE(manager->globalGitEmail(), email);
        // A commit made with the global identity carries it.
        m_home->git({QStringLiteral("init"), QStringLiteral("-q"),
                     m_home->filePath(QStringLiteral("repo"))});
        m_home->git({QStringLiteral("-C"), m_home->filePath(QStringLiteral("repo")),
                     QStringLiteral("commit"), QStringLiteral("-q"),
                     QStringLiteral("--allow-empty"), QStringLiteral("-m"), QStringLiteral("x")});
        QCOMPARE(m_home->git({QStringLiteral("-C"), m_home->filePath(QStringLiteral("repo")),
                              QStringLiteral("log"), QStringLiteral("-1"),
                              QStringLiteral("--format=%an|%ae")}),
                 name + u'|' + email);
    }

    void trailingBlankIsStoredButTrimmedOnReadBack()
    {
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        manager->applyGlobally(
            profile(QStringLiteral("P"), QStringLiteral("Ada "), QStringLiteral(" a@x")));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), QStringLiteral("Ada "));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral(" a@x"));
        QCOMPARE(manager->globalGitName(), QStringLiteral("Ada"));
        QCOMPARE(manager->globalGitEmail(), QStringLiteral("a@x"));
    }

    void newlineInNameIsKeptInside()
    {
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        manager->applyGlobally(
            profile(QStringLiteral("P"), QStringLiteral("first\nsecond"), QStringLiteral("a@x")));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), QStringLiteral("first\nsecond"));
        QCOMPARE(manager->globalGitName(), QStringLiteral("first\nsecond"));
        // The profile file keeps it too.
        const auto reloaded = makeManager();
        QVERIFY(reloaded->profiles().isEmpty()); // applyGlobally does not add the profile
        QCOMPARE(storedFile()->activeProfileID, manager->activeProfileID());
    }

    void applyWithAIWritesFileAndEnvironment()
    {
        writeStore({}, std::nullopt);
        m_home->write(QStringLiteral(".bashrc"), "");
        m_home->write(QStringLiteral(".zshrc"), "");
        const auto manager = makeManager();
        GitProfile p = profile(QStringLiteral("AI"), QStringLiteral("a"), QStringLiteral("a@x"));
        p.aiConfig.isEnabled = true;
        p.aiConfig.apiKey = QStringLiteral("sk-1");
        manager->applyGlobally(p);
        QVERIFY(m_home->read(QStringLiteral(".kivora/ai-env.sh"))
                    .startsWith("export OPENAI_API_KEY='sk-1'\n"));
        QCOMPARE(qEnvironmentVariable("OPENAI_API_KEY"), QStringLiteral("sk-1"));
        QVERIFY(m_ai->isConfigured());
        manager->applyGlobally(
            profile(QStringLiteral("Plain"), QStringLiteral("b"), QStringLiteral("b@x")));
        QVERIFY(m_home->read(QStringLiteral(".kivora/ai-env.sh"))
                    .startsWith("# No AI configuration for profile: Plain\n"));
        QVERIFY(!qEnvironmentVariableIsSet("OPENAI_API_KEY"));
        QVERIFY(!m_ai->isConfigured());
        // The hook was added once.
        QCOMPARE(m_home->read(QStringLiteral(".bashrc")).count("source ~/.kivora/ai-env.sh"), 1);
        QCOMPARE(m_home->read(QStringLiteral(".zshrc")).count("source ~/.kivora/ai-env.sh"), 1);
    }

    void gitUnsetGivesEmptyStrings()
    {
        writeStore({}, std::nullopt);
        const auto manager = makeManager();
        int status = 0;
        m_home->git(
            {QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name")},
            &status);
        QVERIFY(status != 0);
        manager->refreshGlobalConfig();
        QCOMPARE(manager->globalGitName(), QString());
        QCOMPARE(manager->globalGitEmail(), QString());
    }

    void missingGitStillActivates()
    {
        writeStore({}, std::nullopt);
        setGlobalIdentity(QStringLiteral("Before"), QStringLiteral("before@x"));
        const auto manager = makeManager();
        QCOMPARE(manager->globalGitName(), QStringLiteral("Before"));
        const QByteArray gitconfig = m_home->read(QStringLiteral(".gitconfig"));
        QDir().mkpath(m_home->filePath(QStringLiteral("empty-bin")));
        m_home->setEnv("PATH", m_home->filePath(QStringLiteral("empty-bin")).toLocal8Bit());
        const GitProfile p = profile(QStringLiteral("P"), QStringLiteral("After"),
                                     QStringLiteral("after@x"), QStringLiteral("~/.ssh/id"));
        manager->applyGlobally(p);
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(p.id));
        QCOMPARE(storedFile()->activeProfileID, std::optional<QUuid>(p.id));
        QCOMPARE(manager->globalGitName(), QString());
        QCOMPARE(manager->globalGitEmail(), QString());
        QVERIFY(m_home->exists(QStringLiteral(".kivora/ai-env.sh")));
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), gitconfig);
    }

    void unwritableGitConfigStillActivates()
    {
        writeStore({}, std::nullopt);
        // A folder where git wants its file: every git config write fails.
        QDir().mkpath(m_home->filePath(QStringLiteral(".gitconfig")));
        const auto manager = makeManager();
        const GitProfile p = profile(QStringLiteral("P"), QStringLiteral("n"), QStringLiteral("e"));
        manager->applyGlobally(p);
        QCOMPARE(manager->activeProfileID(), std::optional<QUuid>(p.id));
        QCOMPARE(storedFile()->activeProfileID, std::optional<QUuid>(p.id));
        QCOMPARE(manager->globalGitName(), QString());
    }

    void switchingBackAndForth()
    {
        const GitProfile work = profile(QStringLiteral("Work"), QStringLiteral("W"),
                                        QStringLiteral("w@corp"), QStringLiteral("~/.ssh/id_work"));
        const GitProfile home =
            profile(QStringLiteral("Home"), QStringLiteral("H"), QStringLiteral("h@home"));
        writeStore({work, home}, std::nullopt);
        const auto manager = makeManager();
        for (int round = 0; round < 2; ++round) {
            manager->applyGlobally(work);
            QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral("w@corp"));
            QCOMPARE(manager->activeProfile()->name, QStringLiteral("Work"));
            manager->applyGlobally(home);
            QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral("h@home"));
            QCOMPARE(manager->activeProfile()->name, QStringLiteral("Home"));
            QVERIFY(m_home->gitConfig(QStringLiteral("core.sshCommand"))
                        .endsWith(QStringLiteral("/.ssh/id_work")));
        }
        QCOMPARE(storedFile(), std::optional<StoredData>(StoredData{{work, home}, home.id}));
    }

    void setupFlagIsWritableAndNeverClearedHere()
    {
        const auto manager = makeManager();
        QVERIFY(manager->needsProfileSetup());
        manager->applyGlobally(manager->profiles().first());
        QVERIFY(manager->needsProfileSetup());
        QSignalSpy spy(manager.get(), &ProfileManager::needsProfileSetupChanged);
        manager->setNeedsProfileSetup(false);
        QCOMPARE(spy.count(), 1);
        QVERIFY(!manager->needsProfileSetup());
    }
};

QTEST_GUILESS_MAIN(tst_ProfileManager)
#include "tst_ProfileManager.moc"
