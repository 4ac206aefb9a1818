// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileFileWatcher.h"
#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#include <cstdio>
#include <memory>

// A running application follows the profile file when someone else writes it: another
// Kivora, the user's editor, a backup put back. Real files in a temporary home, real git.
class tst_ProfileFileWatcher : public QObject {
    Q_OBJECT

    // Generous: the machine running the tests may be slow and busy.
    static constexpr int waitMs = 20000;

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;

    std::unique_ptr<ProfileManager> makeManager()
    {
        ProfileManager::Options options;
        options.restoreAIContext = false;
        return std::make_unique<ProfileManager>(*m_ai, options);
    }

    QString filePath() const
    {
        return m_home->filePath(QStringLiteral(".git-switcher/profiles.json"));
    }

    static GitProfile profile(const QString& name)
    {
        return GitProfile::create(name, name + QStringLiteral(" G"),
                                  name.toLower() + QStringLiteral("@example.org"), QString());
    }

    static QStringList names(const QList<GitProfile>& profiles)
    {
        QStringList list;
        for (const GitProfile& p : profiles) {
            list << p.name;
        }
        return list;
    }

    // As another writer saves: a whole new file beside the old one, renamed over it.
    void replaceFile(const QByteArray& bytes) const
    {
        const QString temporary = filePath() + QStringLiteral(".other-writer");
        QFile file(temporary);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(bytes), bytes.size());
        file.close();
        QCOMPARE(std::rename(QFile::encodeName(temporary).constData(),
                             QFile::encodeName(filePath()).constData()),
                 0);
    }

    // As an editor that saves in place: the same file, truncated and written again.
    void rewriteFile(const QByteArray& bytes) const
    {
        QFile file(filePath());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    static QByteArray encoded(const QList<GitProfile>& profiles, std::optional<QUuid> active = {})
    {
        return ProfileCodec::encodeStore({profiles, active});
    }

    QStringList keptAside() const
    {
        return QDir(m_home->filePath(QStringLiteral(".git-switcher")))
            .entryList({QStringLiteral("profiles.json.unreadable-*")}, QDir::Files);
    }

private slots:
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

    void followsAFileReplacedByARename()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        const GitProfile lab = profile(QStringLiteral("Lab"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        QSignalSpy inserted(app.get(), &ProfileManager::profileInserted);
        QSignalSpy reloaded(app.get(), &ProfileManager::fileReloaded);

        replaceFile(encoded({work, home}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()),
                                  (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}),
                                  waitMs);
        // One row came: announced as that row, not as a new list.
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(inserted.first().first().toInt(), 1);

        // The rename ended the watch on the old file; the folder's watch still sees the next.
        replaceFile(encoded({work, home, lab}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()).size(), 3, waitMs);
        QCOMPARE(names(app->profiles()).last(), QStringLiteral("Lab"));
        QCOMPARE(reloaded.count(), 2);
    }

    void followsAnotherKivora()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);

        // A command line that could not reach the application saves under the lock.
        const auto other = makeManager();
        QVERIFY(other->addProfile(QStringLiteral("Home"), QStringLiteral("H"),
                                  QStringLiteral("h@example.org"), QString()));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()),
                                  (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}),
                                  waitMs);
        const GitProfile homeProfile = other->profiles().last();
        QCOMPARE(app->profiles().last(), homeProfile);
    }

    void followsAFileWrittenInPlace()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        QSignalSpy updated(app.get(), &ProfileManager::profileUpdated);

        GitProfile renamed = work;
        renamed.name = QStringLiteral("Office");
        rewriteFile(encoded({renamed}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()), QStringList{QStringLiteral("Office")},
                                  waitMs);
        QCOMPARE(updated.count(), 1);
        QCOMPARE(updated.first().first().toInt(), 0);

        // The same file, written in place once more.
        renamed.gitEmail = QStringLiteral("office@example.org");
        rewriteFile(encoded({renamed}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(app->profiles().first().gitEmail,
                                  QStringLiteral("office@example.org"), waitMs);
    }

    void ownSavesAreNotTakenOverAgain()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        QSignalSpy checked(&watcher, &ProfileFileWatcher::checked);
        QSignalSpy reloaded(app.get(), &ProfileManager::fileReloaded);
        QSignalSpy reset(app.get(), &ProfileManager::profilesReset);
        QSignalSpy inserted(app.get(), &ProfileManager::profileInserted);

        QVERIFY(app->appendProfile(profile(QStringLiteral("Home"))));
        QCOMPARE(inserted.count(), 1);
        // The save was noticed and looked at, and not taken for someone else's.
        QTRY_VERIFY_WITH_TIMEOUT(checked.count() >= 1, waitMs);
        QCOMPARE(reloaded.count(), 0);
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(reset.count(), 0);

        // Someone else's save after it is.
        replaceFile(encoded({work}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(reloaded.count(), 1, waitMs);
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});
    }

    void aBurstOfWritesIsReadOnce()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        // A quiet time far longer than the writes below take, even on a busy machine.
        ProfileFileWatcher watcher(*app, 2000);
        QSignalSpy reloaded(app.get(), &ProfileManager::fileReloaded);

        QList<GitProfile> profiles{work};
        for (int n = 1; n <= 5; ++n) {
            profiles << profile(QStringLiteral("P%1").arg(n));
            replaceFile(encoded(profiles, work.id));
        }
        QTRY_COMPARE_WITH_TIMEOUT(app->profiles().size(), 6, waitMs);
        QCOMPARE(reloaded.count(), 1);
    }

    void aFileThatCannotBeReadKeepsTheLastProfiles()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        QVERIFY(app->fileError().isEmpty());
        QSignalSpy errorChanged(app.get(), &ProfileManager::fileErrorChanged);

        // Half an edit: what the user saved is not profiles.
        const QByteArray broken = R"({"profiles":[{"id":)";
        replaceFile(broken);
        QTRY_VERIFY_WITH_TIMEOUT(!app->fileError().isEmpty(), waitMs);
        QVERIFY2(app->fileError().contains(filePath()), qPrintable(app->fileError()));
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});
        QCOMPARE(app->activeProfileID(), std::optional<QUuid>(work.id));
        // Reading it changed nothing: the file is the user's, as they left it.
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), broken);
        QVERIFY(keptAside().isEmpty());

        // Fixed: the error goes and the list follows.
        replaceFile(encoded({work, home}, work.id));
        QTRY_VERIFY_WITH_TIMEOUT(app->fileError().isEmpty(), waitMs);
        QCOMPARE(names(app->profiles()),
                 (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}));
        QCOMPARE(errorChanged.count(), 2);

        // Broken again, then put back exactly as it was: nothing to take over, no error.
        const QByteArray good = m_home->read(QStringLiteral(".git-switcher/profiles.json"));
        rewriteFile("not json");
        QTRY_VERIFY_WITH_TIMEOUT(!app->fileError().isEmpty(), waitMs);
        rewriteFile(good);
        QTRY_VERIFY_WITH_TIMEOUT(app->fileError().isEmpty(), waitMs);
        QCOMPARE(names(app->profiles()),
                 (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}));
    }

    void aChangeOverAFileThatCannotBeReadClearsTheError()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        replaceFile("[");
        QTRY_VERIFY_WITH_TIMEOUT(!app->fileError().isEmpty(), waitMs);

        // The user adds a profile in the application: the broken file is kept aside first, the
        // list saved, and there is nothing left to complain about.
        QVERIFY(app->appendProfile(profile(QStringLiteral("Home"))));
        QVERIFY(app->fileError().isEmpty());
        QCOMPARE(keptAside().size(), 1);
        QCOMPARE(ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/"
                                                                       "profiles.json")))
                     ->profiles.size(),
                 2);
    }

    void aRemovedFileLeavesTheList()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        QSignalSpy checked(&watcher, &ProfileFileWatcher::checked);

        QVERIFY(QFile::remove(filePath()));
        QTRY_VERIFY_WITH_TIMEOUT(checked.count() >= 1, waitMs);
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});
        QVERIFY(app->fileError().isEmpty());
        QVERIFY(!QFile::exists(filePath()));

        // A file that comes back is watched again.
        replaceFile(encoded({home}, home.id));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()), QStringList{QStringLiteral("Home")},
                                  waitMs);
    }

    void theActiveProfileIsNeverAppliedAgain()
    {
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      encoded({work, home}, work.id));
        const auto app = makeManager();
        QVERIFY(app->applyGlobally(work));
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), work.gitName);
        ProfileFileWatcher watcher(*app);
        QSignalSpy activeChanged(app.get(), &ProfileManager::activeProfileIDChanged);

        // The active profile stays, with another git name: git keeps what it was given.
        GitProfile edited = work;
        edited.gitName = QStringLiteral("Someone Else");
        replaceFile(encoded({edited, home}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(app->profiles().first().gitName, edited.gitName, waitMs);
        QCOMPARE(app->activeProfile()->id, work.id);
        QCOMPARE(activeChanged.count(), 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), work.gitName);

        // The active profile goes (its id still named by the file): none is active.
        replaceFile(encoded({home}, work.id));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()), QStringList{QStringLiteral("Home")},
                                  waitMs);
        QVERIFY(!app->activeProfile());
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), work.gitName);

        // The file names no active profile at all.
        replaceFile(encoded({work, home}));
        QTRY_COMPARE_WITH_TIMEOUT(app->profiles().size(), 2, waitMs);
        QVERIFY(!app->activeProfileID());
        QVERIFY(!app->activeProfile());
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), work.gitName);
    }

    void aWriterHoldingTheLockIsWaitedFor()
    {
        if (!QFileInfo(QStringLiteral("/usr/bin/flock")).isExecutable()) {
            QSKIP("needs flock (util-linux) to hold the lock from another process");
        }
        const GitProfile work = profile(QStringLiteral("Work"));
        const GitProfile home = profile(QStringLiteral("Home"));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), encoded({work}, work.id));
        const auto app = makeManager();
        ProfileFileWatcher watcher(*app);
        QSignalSpy checked(&watcher, &ProfileFileWatcher::checked);

        // Another process takes the lock, writes the file and holds on until told to let go.
        const QString lock = m_home->filePath(QStringLiteral(".git-switcher/profiles.lock"));
        // Written outside the watched folder, so that only the other writer's rename is seen.
        const QString next = m_home->filePath(QStringLiteral("profiles.next"));
        const QString release = m_home->filePath(QStringLiteral("release"));
        {
            QFile file(next);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(encoded({work, home}, work.id));
        }
        QProcess holder;
        holder.start(QStringLiteral("/usr/bin/flock"),
                     {lock, QStringLiteral("/bin/sh"), QStringLiteral("-c"),
                      QStringLiteral("mv '%1' '%2'; while [ ! -e '%3' ]; do sleep 0.05; done")
                          .arg(next, filePath(), release)});
        QVERIFY(holder.waitForStarted());
        // Looked at, and left for later while the other writer holds the lock.
        QTRY_VERIFY_WITH_TIMEOUT(checked.count() >= 2, waitMs);
        QCOMPARE(names(app->profiles()), QStringList{QStringLiteral("Work")});

        m_home->write(QStringLiteral("release"), "");
        QVERIFY(holder.waitForFinished(waitMs));
        QTRY_COMPARE_WITH_TIMEOUT(names(app->profiles()),
                                  (QStringList{QStringLiteral("Work"), QStringLiteral("Home")}),
                                  waitMs);
    }
};

QTEST_GUILESS_MAIN(tst_ProfileFileWatcher)
#include "tst_ProfileFileWatcher.moc"
