// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/KeyFileRemoval.h"
#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <memory>

// "Delete Profile and SSH Key" removes a key pair in ~/.ssh and nothing else, whatever path a
// profile (typed, edited or imported) names.
class tst_KeyFileRemoval : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;

    GitProfile withKey(const QString& name, const QString& key) const
    {
        return GitProfile::create(name, QStringLiteral("A"), QStringLiteral("a@x"), key);
    }

    std::unique_ptr<ProfileManager> managerWith(const QList<GitProfile>& profiles)
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, std::nullopt}));
        ProfileManager::Options options;
        return std::make_unique<ProfileManager>(*m_ai.get(), options);
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>();
        m_home->write(QStringLiteral(".ssh/id_work"), "private");
        m_home->write(QStringLiteral(".ssh/id_work.pub"), "public");
        m_home->write(QStringLiteral("precious"), "not a key");
        m_home->write(QStringLiteral("precious.pub"), "not a key either");
    }
    void cleanup()
    {
        m_ai.reset();
        m_home.reset();
    }

    void keyPairInsideSshIsRemoved()
    {
        const auto outcome =
            KeyFileRemoval::removeKeyPair(m_home->path(), QStringLiteral("~/.ssh/id_work"));
        QCOMPARE(outcome.refused, QStringList());
        QCOMPARE(outcome.removed,
                 (QStringList{m_home->filePath(QStringLiteral(".ssh/id_work")),
                              m_home->filePath(QStringLiteral(".ssh/id_work.pub"))}));
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_work")));
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_work.pub")));
    }

    void missingFileIsNoRefusal()
    {
        QFile::remove(m_home->filePath(QStringLiteral(".ssh/id_work.pub")));
        const auto outcome =
            KeyFileRemoval::removeKeyPair(m_home->path(), QStringLiteral("~/.ssh/id_work"));
        QCOMPARE(outcome.refused, QStringList());
        QCOMPARE(outcome.removed.size(), 1);
        QCOMPARE(outcome.missing.size(), 1);
    }

    void anythingElseIsRefused_data()
    {
        QTest::addColumn<QString>("keyPath");
        QTest::addColumn<QString>("survivor"); // under the home folder
        QTest::newRow("outside ~/.ssh") << "~/precious"
                                        << "precious";
        QTest::newRow("dot-dot out of ~/.ssh") << "~/.ssh/../precious"
                                               << "precious";
        QTest::newRow("absolute, outside") << "@HOME@/precious"
                                           << "precious";
        QTest::newRow("link in ~/.ssh to a file outside") << "~/.ssh/id_link"
                                                          << "precious";
        QTest::newRow("ssh folder itself") << "~/.ssh"
                                           << ".ssh/id_work";
        QTest::newRow("folder inside ~/.ssh") << "~/.ssh/sub"
                                              << ".ssh/sub/id_x";
        QTest::newRow("authorized_keys") << "~/.ssh/authorized_keys"
                                         << ".ssh/authorized_keys";
        QTest::newRow("config") << "~/.ssh/config"
                                << ".ssh/config";
        QTest::newRow("known_hosts") << "~/.ssh/known_hosts"
                                     << ".ssh/known_hosts";
    }

    void anythingElseIsRefused()
    {
        QFETCH(QString, keyPath);
        QFETCH(QString, survivor);
        keyPath.replace(QStringLiteral("@HOME@"), m_home->path());
        QVERIFY(QFile::link(m_home->filePath(QStringLiteral("precious")),
                            m_home->filePath(QStringLiteral(".ssh/id_link"))));
        QVERIFY(QFile::link(m_home->filePath(QStringLiteral("precious.pub")),
                            m_home->filePath(QStringLiteral(".ssh/id_link.pub"))));
        m_home->write(QStringLiteral(".ssh/sub/id_x"), "x");
        m_home->write(QStringLiteral(".ssh/authorized_keys"), "ssh-ed25519 AAAA me");
        m_home->write(QStringLiteral(".ssh/config"), "Host *\n");
        m_home->write(QStringLiteral(".ssh/known_hosts"), "host key\n");
        const auto before = m_home->snapshot();

        // Through the same code both the profiles page and `kivora remove` use: the profile
        // goes, the file stays, and a sentence says why.
        const GitProfile profile = withKey(QStringLiteral("Evil"), keyPath);
        const auto manager = managerWith({profile, withKey(QStringLiteral("Other"), QString())});
        const auto deletion = manager->removeProfile(profile, true);
        QVERIFY(deletion.saved);
        const QStringList& removed = deletion.removedKeyFiles;
        const QStringList& refused = deletion.refusedKeyFiles;
        QVERIFY2(removed.isEmpty(), qPrintable(removed.join(u' ')));
        QVERIFY(!refused.isEmpty());
        for (const QString& sentence : refused) {
            QVERIFY2(sentence.endsWith(u'.') && sentence.contains(QLatin1String("not")),
                     qPrintable(sentence));
        }
        QVERIFY(m_home->exists(survivor));
        QCOMPARE(manager->profiles().size(), 1);
        QCOMPARE(manager->profiles().first().name, QStringLiteral("Other"));
        // Nothing outside the profile file (and the lock of its writers) changed.
        auto after = m_home->snapshot();
        auto expected = before;
        after.erase(QStringLiteral(".git-switcher/profiles.json"));
        after.erase(QStringLiteral(".git-switcher/profiles.lock"));
        expected.erase(QStringLiteral(".git-switcher/profiles.json"));
        for (auto it = after.begin(); it != after.end();) {
            it = it->first.startsWith(QLatin1String(".kivora/")) ? after.erase(it) : std::next(it);
        }
        for (auto it = expected.begin(); it != expected.end();) {
            it = it->first.startsWith(QLatin1String(".kivora/")) ? expected.erase(it)
                                                                 : std::next(it);
        }
        QVERIFY(after == expected);
    }

    void linkedSshFolderStillCounts()
    {
        // ~/.ssh kept in a dotfiles folder and linked: its keys are inside ~/.ssh.
        QDir(m_home->filePath(QStringLiteral(".ssh"))).removeRecursively();
        m_home->write(QStringLiteral("dotfiles/ssh/id_dot"), "k");
        m_home->write(QStringLiteral("dotfiles/ssh/id_dot.pub"), "p");
        QVERIFY(QFile::link(m_home->filePath(QStringLiteral("dotfiles/ssh")),
                            m_home->filePath(QStringLiteral(".ssh"))));
        const auto outcome =
            KeyFileRemoval::removeKeyPair(m_home->path(), QStringLiteral("~/.ssh/id_dot"));
        QCOMPARE(outcome.refused, QStringList());
        QCOMPARE(outcome.removed.size(), 2);
        QVERIFY(!m_home->exists(QStringLiteral("dotfiles/ssh/id_dot")));
    }

    void otherUsersOfTheKeyAreNamed()
    {
        const GitProfile work = withKey(QStringLiteral("Work"), QStringLiteral("~/.ssh/id_work"));
        const QList<GitProfile> profiles{
            work,
            withKey(QStringLiteral("Client"), m_home->filePath(QStringLiteral(".ssh/id_work"))),
            withKey(QStringLiteral("Same Via Dots"), QStringLiteral("~/.ssh/../.ssh/id_work")),
            withKey(QStringLiteral("Home"), QStringLiteral("~/.ssh/id_home")),
            withKey(QStringLiteral("No Key"), QString()),
        };
        QCOMPARE(KeyFileRemoval::otherUsers(profiles, work, m_home->path()),
                 (QStringList{QStringLiteral("Client"), QStringLiteral("Same Via Dots")}));
        QCOMPARE(KeyFileRemoval::otherUsers(profiles, profiles.at(3), m_home->path()),
                 QStringList());
        QCOMPARE(KeyFileRemoval::otherUsers(profiles, profiles.at(4), m_home->path()),
                 QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_KeyFileRemoval)
#include "tst_KeyFileRemoval.moc"
