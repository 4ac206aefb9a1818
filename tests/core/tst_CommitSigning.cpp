// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/CommitSigning.h"
#include "activation/ProfileManager.h"
#include "activation/RuleSync.h"
#include "ai/AIContextManager.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

#include <memory>

// Commit signing per profile against the real git, ssh-keygen and gpg: what a switch writes to
// the global configuration, what it takes back, and whether git verifies the commits.
class tst_CommitSigning : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;
    QString m_repo;

    std::unique_ptr<ProfileManager> makeManager()
    {
        ProfileManager::Options options;
        return std::make_unique<ProfileManager>(*m_ai.get(), options);
    }

    // Runs a program in the repository; returns standard output and error together.
    QString run(const QString& program, const QStringList& arguments, int* status = nullptr,
                const QString& folder = {}) const
    {
        QProcess process;
        process.setWorkingDirectory(folder.isEmpty() ? m_repo : folder);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(program, arguments);
        process.waitForFinished(-1);
        if (status) {
            *status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        }
        return QString::fromUtf8(process.readAll());
    }

    QString git(const QStringList& arguments, int* status = nullptr) const
    {
        return run(QStringLiteral("git"), arguments, status);
    }

    void makeSSHKey(const QString& name)
    {
        QDir(m_home->path()).mkpath(QStringLiteral(".ssh"));
        int status = -1;
        run(QStringLiteral("/usr/bin/ssh-keygen"),
            {QStringLiteral("-q"), QStringLiteral("-t"), QStringLiteral("ed25519"),
             QStringLiteral("-N"), QString(), QStringLiteral("-C"), name, QStringLiteral("-f"),
             m_home->filePath(QStringLiteral(".ssh/") + name)},
            &status, m_home->path());
        QCOMPARE(status, 0);
    }

    // Two profiles with keys, written as a previous run left them; the first signs with SSH.
    QList<GitProfile> writeProfiles()
    {
        QList<GitProfile> profiles{
            GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada Work"),
                               QStringLiteral("ada@work.example"),
                               QStringLiteral("~/.ssh/id_work")),
            GitProfile::create(QStringLiteral("Home"), QStringLiteral("Ada Home"),
                               QStringLiteral("ada@home.example"), QString())};
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, std::nullopt}));
        return profiles;
    }

    void commit(const QString& message)
    {
        m_home->write(QStringLiteral("repo/file.txt"), message.toUtf8());
        int status = -1;
        git({QStringLiteral("add"), QStringLiteral("file.txt")});
        const QString output =
            git({QStringLiteral("commit"), QStringLiteral("-m"), message}, &status);
        QVERIFY2(status == 0, qPrintable(output));
    }

    // git's %G? for HEAD: G good, N none, and so on.
    QString signatureState() const
    {
        return git({QStringLiteral("log"), QStringLiteral("-1"), QStringLiteral("--format=%G?")})
            .trimmed();
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>();
        m_home->setEnv("GNUPGHOME", std::nullopt);
        m_home->setEnv("SSH_AUTH_SOCK", std::nullopt);
        m_repo = m_home->filePath(QStringLiteral("repo"));
        QDir().mkpath(m_repo);
        QCOMPARE(m_home->git({QStringLiteral("init"), QStringLiteral("-q"), m_repo}), QString());
    }

    void cleanup()
    {
        // gpg leaves an agent behind for the temporary home; it goes with it.
        QProcess::execute(QStringLiteral("gpgconf"),
                          {QStringLiteral("--kill"), QStringLiteral("all")});
        m_ai.reset();
        m_home.reset();
    }

    void formatFollowsTheKey()
    {
        using F = SigningSettings::Format;
        QCOMPARE(SigningSettings::formatOf(QStringLiteral("~/.ssh/id_work.pub")), F::ssh);
        QCOMPARE(SigningSettings::formatOf(QStringLiteral("/keys/signing")), F::ssh);
        QCOMPARE(SigningSettings::formatOf(QStringLiteral("key::ssh-ed25519 AAAA")), F::ssh);
        QCOMPARE(SigningSettings::formatOf(QStringLiteral("3AA5C34371567BD2")), F::openpgp);
        QCOMPARE(SigningSettings::formatOf(QStringLiteral("ada@work.example")), F::openpgp);
    }

    void storeKeepsSettingsByProfileWithPrivateFile()
    {
        SigningStore store(m_home->path());
        const QUuid id = QUuid::createUuid();
        const SigningSettings settings{QStringLiteral("~/.ssh/id_work.pub"),
                                       SigningSettings::Format::ssh, true};
        QVERIFY(store.set(id, settings));
        QCOMPARE(SigningStore(m_home->path()).find(id), std::optional<SigningSettings>(settings));
        QCOMPARE(QFileInfo(store.path()).permissions() & 0x0077, QFileDevice::Permissions());
        QVERIFY(store.set(id, std::nullopt));
        QVERIFY(!store.find(id));
        // The profile file is not where signing lives.
        QVERIFY(!m_home->exists(QStringLiteral(".git-switcher/profiles.json")));
    }

    void sshSignedCommitVerifiesThroughAllowedSigners()
    {
        makeSSHKey(QStringLiteral("id_work"));
        const auto profiles = writeProfiles();
        auto manager = makeManager();
        QVERIFY(manager->setSigning(profiles[0].id,
                                    SigningSettings{QStringLiteral("~/.ssh/id_work.pub"),
                                                    SigningSettings::Format::ssh, true}));
        manager->applyGlobally(profiles[0]);

        QCOMPARE(m_home->gitConfig(QStringLiteral("gpg.format")), QStringLiteral("ssh"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QStringLiteral("true"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("tag.gpgsign")), QStringLiteral("true"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.signingkey")),
                 m_home->filePath(QStringLiteral(".ssh/id_work.pub")));
        const QString signers = m_home->filePath(QStringLiteral(".kivora/allowed_signers"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("gpg.ssh.allowedsignersfile")), signers);

        commit(QStringLiteral("signed"));
        int status = -1;
        const QString verified =
            git({QStringLiteral("verify-commit"), QStringLiteral("HEAD")}, &status);
        QVERIFY2(status == 0, qPrintable(verified));
        QVERIFY2(verified.contains(QStringLiteral("Good \"git\" signature for ada@work.example")),
                 qPrintable(verified));
        const QString shown =
            git({QStringLiteral("log"), QStringLiteral("-1"), QStringLiteral("--show-signature")});
        QVERIFY2(shown.contains(QStringLiteral("Good \"git\" signature")), qPrintable(shown));
        QCOMPARE(signatureState(), QStringLiteral("G"));
    }

    void profileWithoutSigningCommitsUnsignedAndKeepsHandSetValues()
    {
        makeSSHKey(QStringLiteral("id_work"));
        const auto profiles = writeProfiles();
        // What the user had before Kivora signed anything comes back.
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("gpg.format"), QStringLiteral("openpgp")});
        auto manager = makeManager();
        QVERIFY(manager->setSigning(profiles[0].id,
                                    SigningSettings{QStringLiteral("~/.ssh/id_work.pub"),
                                                    SigningSettings::Format::ssh, true}));
        manager->applyGlobally(profiles[0]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("gpg.format")), QStringLiteral("ssh"));
        // A value set by hand after the switch belongs to the user.
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.signingKey"), QStringLiteral("/elsewhere/mine.pub")});

        manager->applyGlobally(profiles[1]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.signingkey")),
                 QStringLiteral("/elsewhere/mine.pub"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("gpg.format")), QStringLiteral("openpgp"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QString());
        QCOMPARE(m_home->gitConfig(QStringLiteral("tag.gpgsign")), QString());
        commit(QStringLiteral("unsigned"));
        QCOMPARE(signatureState(), QStringLiteral("N"));
        QVERIFY(!m_home->exists(QStringLiteral(".kivora/signing-applied.json")));
    }

    void signingOffLeavesGitAsItWas()
    {
        const auto profiles = writeProfiles();
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.signingKey"), QStringLiteral("ABCDEF")});
        auto manager = makeManager();
        // A key with signing switched off, and a profile with no entry: neither signs.
        QVERIFY(manager->setSigning(profiles[0].id,
                                    SigningSettings{QStringLiteral("~/.ssh/id_work.pub"),
                                                    SigningSettings::Format::ssh, false}));
        manager->applyGlobally(profiles[0]);
        manager->applyGlobally(profiles[1]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.signingkey")), QStringLiteral("ABCDEF"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QString());
        commit(QStringLiteral("plain"));
        QCOMPARE(signatureState(), QStringLiteral("N"));
    }

    void changingTheActiveProfilesSigningTakesEffect()
    {
        makeSSHKey(QStringLiteral("id_work"));
        const auto profiles = writeProfiles();
        auto manager = makeManager();
        manager->applyGlobally(profiles[0]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QString());
        QVERIFY(manager->setSigning(
            profiles[0].id,
            SigningSettings{QStringLiteral("~/.ssh/id_work"), SigningSettings::Format::ssh, true}));
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QStringLiteral("true"));
        commit(QStringLiteral("signed with the private key path"));
        QCOMPARE(signatureState(), QStringLiteral("G"));
        QVERIFY(manager->setSigning(profiles[0].id, std::nullopt));
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QString());
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.signingkey")), QString());
    }

    void openPGPSignedCommitVerifies()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("gpg")).isEmpty()) {
            QSKIP("gpg is not installed");
        }
        int status = -1;
        const QString made =
            run(QStringLiteral("gpg"),
                {QStringLiteral("--batch"), QStringLiteral("--passphrase"), QString(),
                 QStringLiteral("--quick-gen-key"), QStringLiteral("Ada Home <ada@home.example>"),
                 QStringLiteral("ed25519"), QStringLiteral("sign"), QStringLiteral("never")},
                &status, m_home->path());
        QVERIFY2(status == 0, qPrintable(made));
        const QString listing = run(QStringLiteral("gpg"),
                                    {QStringLiteral("--batch"), QStringLiteral("--with-colons"),
                                     QStringLiteral("--list-secret-keys")},
                                    &status, m_home->path());
        QString fingerprint;
        for (const QString& line : listing.split(u'\n')) {
            if (line.startsWith(QStringLiteral("fpr:"))) {
                fingerprint = line.section(u':', 9, 9);
                break;
            }
        }
        QVERIFY(!fingerprint.isEmpty());
        QCOMPARE(SigningSettings::formatOf(fingerprint), SigningSettings::Format::openpgp);

        const auto profiles = writeProfiles();
        auto manager = makeManager();
        QVERIFY(manager->setSigning(
            profiles[1].id, SigningSettings{fingerprint, SigningSettings::Format::openpgp, true}));
        manager->applyGlobally(profiles[1]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("gpg.format")), QStringLiteral("openpgp"));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.signingkey")), fingerprint);
        commit(QStringLiteral("signed with OpenPGP"));
        const QString verified =
            git({QStringLiteral("verify-commit"), QStringLiteral("HEAD")}, &status);
        QVERIFY2(status == 0 && verified.contains(QStringLiteral("Good signature")),
                 qPrintable(verified));
        // No SSH key signs, so there is no allowed-signers file to keep.
        QVERIFY(!m_home->exists(QStringLiteral(".kivora/allowed_signers")));
    }

    void allowedSignersListEveryProfileAndRefuseHostileEmails()
    {
        makeSSHKey(QStringLiteral("id_work"));
        makeSSHKey(QStringLiteral("id_home"));
        const QList<GitProfile> profiles{
            GitProfile::create(QStringLiteral("Work"), QStringLiteral("A"),
                               QStringLiteral("ada@work.example"), QString()),
            GitProfile::create(QStringLiteral("Home"), QStringLiteral("A"),
                               QStringLiteral("ada@home.example"), QString()),
            GitProfile::create(QStringLiteral("Star"), QStringLiteral("A"), QStringLiteral("*"),
                               QString()),
            GitProfile::create(QStringLiteral("Line"), QStringLiteral("A"),
                               QStringLiteral("x@y\n* ssh-ed25519 AAAA"), QString())};
        QHash<QUuid, SigningSettings> signing;
        for (const GitProfile& profile : profiles) {
            const QString key = profile.name == QStringLiteral("Home")
                                    ? QStringLiteral("~/.ssh/id_home")
                                    : QStringLiteral("~/.ssh/id_work.pub");
            signing.insert(profile.id, SigningSettings{key, SigningSettings::Format::ssh, true});
        }
        CommitSigning commitSigning(m_home->path(), {});
        const QString text = QString::fromUtf8(commitSigning.allowedSignersText(profiles, signing));
        const QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        const QString workKey =
            QString::fromUtf8(m_home->read(QStringLiteral(".ssh/id_work.pub"))).section(u' ', 0, 1);
        const QString homeKey =
            QString::fromUtf8(m_home->read(QStringLiteral(".ssh/id_home.pub"))).section(u' ', 0, 1);
        QCOMPARE(lines[0], QStringLiteral("ada@work.example namespaces=\"git\" ") + workKey);
        QCOMPARE(lines[1], QStringLiteral("ada@home.example namespaces=\"git\" ") + homeKey);
    }

    void ruledFoldersSignAsTheirProfileWhateverIsActive()
    {
        makeSSHKey(QStringLiteral("id_work"));
        const auto profiles = writeProfiles();
        auto manager = makeManager();
        QVERIFY(manager->setSigning(profiles[0].id,
                                    SigningSettings{QStringLiteral("~/.ssh/id_work.pub"),
                                                    SigningSettings::Format::ssh, true}));
        // The repository is under Work's folder; a second one is under Home's.
        const QString homeRepo = m_home->filePath(QStringLiteral("home-projects/repo"));
        QDir().mkpath(homeRepo);
        QCOMPARE(m_home->git({QStringLiteral("init"), QStringLiteral("-q"), homeRepo}), QString());
        QVERIFY(RuleSync(m_home->path())
                    .apply({IdentityRule{profiles[0].id, IdentityRule::Kind::Dir, m_repo},
                            IdentityRule{profiles[1].id, IdentityRule::Kind::Dir,
                                         m_home->filePath(QStringLiteral("home-projects"))}},
                           manager->profiles()));

        // Home is active globally and does not sign; Work's folder still signs with Work's key.
        manager->applyGlobally(profiles[1]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QString());
        commit(QStringLiteral("in work's folder"));
        QCOMPARE(signatureState(), QStringLiteral("G"));
        QVERIFY(git({QStringLiteral("log"), QStringLiteral("-1"), QStringLiteral("--format=%ae")})
                    .startsWith(QStringLiteral("ada@work.example")));

        // Work is active globally and signs; Home's folder does not sign with Work's key.
        manager->applyGlobally(profiles[0]);
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QStringLiteral("true"));
        m_home->write(QStringLiteral("home-projects/repo/file.txt"), "home");
        int status = -1;
        run(QStringLiteral("git"), {QStringLiteral("add"), QStringLiteral("file.txt")}, &status,
            homeRepo);
        const QString output =
            run(QStringLiteral("git"),
                {QStringLiteral("commit"), QStringLiteral("-m"), QStringLiteral("home")}, &status,
                homeRepo);
        QVERIFY2(status == 0, qPrintable(output));
        QCOMPARE(
            run(QStringLiteral("git"),
                {QStringLiteral("log"), QStringLiteral("-1"), QStringLiteral("--format=%G? %ae")},
                nullptr, homeRepo)
                .trimmed(),
            QStringLiteral("N ada@home.example"));

        // Signing switched off for Work reaches its folder's include at once.
        QVERIFY(manager->setSigning(profiles[0].id, std::nullopt));
        commit(QStringLiteral("work, unsigned now"));
        QCOMPARE(signatureState(), QStringLiteral("N"));
    }

    void allowedSignersFileSetByTheUserIsLeftAlone()
    {
        makeSSHKey(QStringLiteral("id_work"));
        const auto profiles = writeProfiles();
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("gpg.ssh.allowedSignersFile"),
                     QStringLiteral("/etc/my_signers")});
        auto manager = makeManager();
        QVERIFY(manager->setSigning(profiles[0].id,
                                    SigningSettings{QStringLiteral("~/.ssh/id_work.pub"),
                                                    SigningSettings::Format::ssh, true}));
        QCOMPARE(m_home->gitConfig(QStringLiteral("gpg.ssh.allowedsignersfile")),
                 QStringLiteral("/etc/my_signers"));
        QVERIFY(
            m_home->read(QStringLiteral(".kivora/allowed_signers")).contains("ada@work.example"));
    }
};

QTEST_GUILESS_MAIN(tst_CommitSigning)
#include "tst_CommitSigning.moc"
