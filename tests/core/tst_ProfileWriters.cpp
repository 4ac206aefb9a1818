// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "model/ProfileCodec.h"
#include "model/ProfileLock.h"
#include "model/Translations.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

#include <memory>

// The profile file has several writers: command lines and the running application. Each
// change is made under the lock on what the file holds at that moment, so a writer with an
// older list in memory never overwrites what another saved.
class tst_ProfileWriters : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;

    std::unique_ptr<ProfileManager> makeManager(int lockTimeoutMs = ProfileLock::defaultTimeoutMs)
    {
        ProfileManager::Options options;
        options.lockTimeoutMs = lockTimeoutMs;
        return std::make_unique<ProfileManager>(*m_ai, options);
    }

    void writeStore(const QList<GitProfile>& profiles, std::optional<QUuid> active = {}) const
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, active}));
    }

    StoredData stored() const
    {
        return *ProfileCodec::decodeStore(
            m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    }

    static QStringList names(const QList<GitProfile>& profiles)
    {
        QStringList list;
        for (const GitProfile& p : profiles) {
            list << p.name;
        }
        return list;
    }

    static GitProfile profile(const QString& name)
    {
        return GitProfile::create(name, name + QStringLiteral(" G"),
                                  name.toLower() + QStringLiteral("@example.org"), QString());
    }

    QString lockPath() const
    {
        return m_home->filePath(QStringLiteral(".git-switcher/profiles.lock"));
    }

    // Another process holding the lock: util-linux's flock running a shell command.
    std::unique_ptr<QProcess> holdLock(const QString& command) const
    {
        auto holder = std::make_unique<QProcess>();
        holder->start(QStringLiteral("/usr/bin/flock"),
                      {lockPath(), QStringLiteral("/bin/sh"), QStringLiteral("-c"),
                       QStringLiteral("touch '%1.held'; %2").arg(lockPath(), command)});
        return holder;
    }

private slots:
    void initTestCase()
    {
        // The plural forms of the sentences come from the English translation, as in the
        // program.
        QVERIFY(Translations::install().contains(QStringLiteral("en")));
        if (!QFileInfo(QStringLiteral("/usr/bin/flock")).isExecutable()) {
            QSKIP("needs flock (util-linux) to hold the lock from another process");
        }
    }

    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>(nullptr);
    }

    void cleanup()
    {
        m_ai.reset();
        m_home.reset();
    }

    // The application started with Work; a command line added Home since. The application's
    // next change builds on the file, and its list now shows Home as well.
    void aChangeTakesOverWhatOthersSaved()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        writeStore({work});
        const auto app = makeManager();
        const auto cli = makeManager();
        QVERIFY(cli->addProfile(QStringLiteral("Home"), QStringLiteral("H"),
                                QStringLiteral("h@example.org"), QString()));
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});

        QSignalSpy changed(app.get(), &ProfileManager::profilesChanged);
        QString why;
        QVERIFY2(app->appendProfile(profile(QStringLiteral("Lab")), &why), qPrintable(why));
        const QStringList all{QStringLiteral("Work"), QStringLiteral("Home"),
                              QStringLiteral("Lab")};
        QCOMPARE(names(stored().profiles), all);
        QCOMPARE(names(app->profiles()), all);
        QVERIFY(changed.count() >= 1);
    }

    void anEditKeepsWhatOthersChangedElsewhere()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        writeStore({work, home}, work.id);
        const auto app = makeManager();
        // Another writer edits Home and switches to it.
        const auto cli = makeManager();
        QCOMPARE(cli->editProfile(home.id,
                                  [](GitProfile& p) { p.gitEmail = QStringLiteral("new@home"); }),
                 ProfileManager::Update::Saved);
        QVERIFY(cli->change(
            [&](QList<GitProfile>&, std::optional<QUuid>& active) { active = home.id; }));

        // The application edits Work from its older list.
        GitProfile edited = work;
        edited.gitName = QStringLiteral("Ada Work");
        QCOMPARE(app->updateProfile(edited), ProfileManager::Update::Saved);
        const StoredData now = stored();
        QCOMPARE(now.profiles.at(0).gitName, QStringLiteral("Ada Work"));
        QCOMPARE(now.profiles.at(1).gitEmail, QStringLiteral("new@home"));
        QCOMPARE(now.activeProfileID, std::optional<QUuid>(home.id));
    }

    void aProfileRemovedMeanwhileIsNotApplied()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        writeStore({work, home});
        const auto app = makeManager();
        const auto cli = makeManager();
        QVERIFY(cli->removeProfile(home, false).saved);
        const QByteArray before = m_home->read(QStringLiteral(".git-switcher/profiles.json"));

        QString why;
        QVERIFY(!app->applyGlobally(home, &why));
        QCOMPARE(why, QStringLiteral("\"Home\" was removed meanwhile; nothing was changed"));
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), before);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QString());
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});
    }

    // While another process holds the lock, a change waits for it, and then builds on what
    // that process wrote.
    void aChangeWaitsForTheLock()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        writeStore({work});
        const auto app = makeManager();
        const QString other = QString::fromUtf8(
            ProfileCodec::encodeStore({{work, profile(QStringLiteral("Other"))}, std::nullopt}));
        QFile next(m_home->filePath(QStringLiteral("next.json")));
        QVERIFY(next.open(QIODevice::WriteOnly));
        next.write(other.toUtf8());
        next.close();
        // The holder writes its own change a moment after taking the lock.
        auto holder =
            holdLock(QStringLiteral("sleep 1; cp '%1' '%2'")
                         .arg(m_home->filePath(QStringLiteral("next.json")),
                              m_home->filePath(QStringLiteral(".git-switcher/profiles.json"))));
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(lockPath() + QStringLiteral(".held")), 20000);

        QString why;
        QVERIFY2(app->appendProfile(profile(QStringLiteral("Mine")), &why), qPrintable(why));
        QCOMPARE(
            names(stored().profiles),
            (QStringList{QStringLiteral("Work"), QStringLiteral("Other"), QStringLiteral("Mine")}));
        QVERIFY(holder->waitForFinished(20000));
    }

    void aLockHeldTooLongIsReported()
    {
        writeStore({profile(QStringLiteral("Work"))});
        const QByteArray before = m_home->read(QStringLiteral(".git-switcher/profiles.json"));
        const auto app = makeManager(1500);
        auto holder = holdLock(QStringLiteral("sleep 30"));
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(lockPath() + QStringLiteral(".held")), 20000);
        QString why;
        QElapsedTimer waited;
        waited.start();
        QVERIFY(!app->addProfile(QStringLiteral("Late"), QStringLiteral("L"),
                                 QStringLiteral("l@example.org"), QString(), &why));
        QVERIFY(waited.elapsed() >= 1400);
        QCOMPARE(why, QStringLiteral("the profiles could not be saved to %1 (another Kivora "
                                     "process kept them locked for 2 seconds)")
                          .arg(m_home->filePath(QStringLiteral(".git-switcher/profiles.json"))));
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), before);
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});
        holder->kill();
        holder->waitForFinished(10000);
    }

    // Programs started while the lock is held (git during a switch, a terminal) must not keep
    // it once this process lets go.
    void programsStartedMeanwhileDoNotKeepTheLock()
    {
        QVERIFY(QDir().mkpath(m_home->filePath(QStringLiteral(".git-switcher"))));
        ProfileLock lock(m_home->filePath(QStringLiteral(".git-switcher")));
        QCOMPARE(lock.lock(), ProfileLock::Outcome::Locked);
        QProcess child;
        child.start(QStringLiteral("/bin/sleep"), {QStringLiteral("20")});
        QVERIFY(child.waitForStarted());
        lock.unlock();
        ProfileLock again(m_home->filePath(QStringLiteral(".git-switcher")));
        QCOMPARE(again.lock(nullptr, 1000), ProfileLock::Outcome::Locked);
        child.kill();
        child.waitForFinished();
    }

    // Someone broke the file while the application ran: its list is saved again, and what
    // stood there is kept aside first.
    void aFileBrokenMeanwhileIsKeptAside()
    {
        writeStore({profile(QStringLiteral("Work"))});
        const auto app = makeManager();
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), "{\"profiles\": [oops");
        QVERIFY(app->addProfile(QStringLiteral("Home"), QStringLiteral("H"),
                                QStringLiteral("h@example.org"), QString()));
        QCOMPARE(names(stored().profiles),
                 (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}));
        const QStringList kept = QDir(m_home->filePath(QStringLiteral(".git-switcher")))
                                     .entryList({QStringLiteral("profiles.json.unreadable-*")});
        QCOMPARE(kept.size(), 1);
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/") + kept.first()),
                 QByteArray("{\"profiles\": [oops"));
    }

    void importIsOneSave()
    {
        writeStore({profile(QStringLiteral("Work"))});
        const auto manager = makeManager();
        QList<GitProfile> many;
        for (int i = 0; i < 500; ++i) {
            many << profile(QStringLiteral("p%1").arg(i));
        }
        QSignalSpy changed(manager.get(), &ProfileManager::profilesChanged);
        const auto added = manager->addProfiles(many);
        QVERIFY(added);
        QCOMPARE(added->size(), 500);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(stored().profiles.size(), 501);
        QCOMPARE(stored().profiles.last().name, QStringLiteral("P499"));
    }
};

QTEST_GUILESS_MAIN(tst_ProfileWriters)
#include "tst_ProfileWriters.moc"
