// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/ManagedHome.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The profile list changes one row at a time: each change is announced by its own signal,
// for the row it touched, and saved.
class tst_ProfileListChanges : public QObject {
    Q_OBJECT

    std::unique_ptr<ManagedHome> m_managed;
    TestHome* m_home = nullptr;
    ProfileManager* m_manager = nullptr;

    static GitProfile profile(const QString& name) { return ManagedHome::profile(name); }

    QStringList savedNames() const
    {
        QStringList names;
        const auto stored =
            ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json")));
        for (const GitProfile& saved : stored ? stored->profiles : QList<GitProfile>()) {
            names << saved.name;
        }
        return names;
    }

private slots:
    void init()
    {
        m_managed = std::make_unique<ManagedHome>(
            QList<GitProfile>{profile(QStringLiteral("Work")), profile(QStringLiteral("Home"))});
        m_home = &m_managed->home();
        m_manager = &m_managed->manager();
    }

    void cleanup() { m_managed.reset(); }

    void appendAnnouncesTheNewRow()
    {
        QSignalSpy inserted(m_manager, &ProfileManager::profileInserted);
        QSignalSpy reset(m_manager, &ProfileManager::profilesReset);
        QSignalSpy changed(m_manager, &ProfileManager::profilesChanged);
        const GitProfile lab = profile(QStringLiteral("Lab"));
        m_manager->appendProfile(lab);
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted.first().first().toInt(), 2);
        QCOMPARE(reset.size(), 0);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(m_manager->profiles().at(2).id, lab.id);
        QCOMPARE(savedNames(), QStringList({QStringLiteral("Work"), QStringLiteral("Home"),
                                            QStringLiteral("Lab")}));
    }

    void addProfileNamesItAndAnnouncesIt()
    {
        QSignalSpy inserted(m_manager, &ProfileManager::profileInserted);
        const auto added =
            m_manager->addProfile(QStringLiteral("id_work laptop"), QStringLiteral("A"),
                                  QStringLiteral("a@x.example"), QStringLiteral("~/.ssh/id_work"));
        QVERIFY(added);
        QCOMPARE(added->name, QStringLiteral("Work Laptop"));
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(savedNames().last(), QStringLiteral("Work Laptop"));
    }

    void updateAnnouncesItsRowAndKeepsThePlace()
    {
        QSignalSpy updated(m_manager, &ProfileManager::profileUpdated);
        GitProfile home = m_manager->profiles().at(1);
        home.name = QStringLiteral("House");
        QCOMPARE(m_manager->updateProfile(home), ProfileManager::Update::Saved);
        QCOMPARE(updated.size(), 1);
        QCOMPARE(updated.first().first().toInt(), 1);
        QCOMPARE(savedNames(), QStringList({QStringLiteral("Work"), QStringLiteral("House")}));

        // A profile that is no longer there changes nothing and saves nothing.
        const QByteArray before = m_home->read(QStringLiteral(".git-switcher/profiles.json"));
        QCOMPARE(m_manager->updateProfile(profile(QStringLiteral("Gone"))),
                 ProfileManager::Update::Gone);
        QCOMPARE(updated.size(), 1);
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), before);
    }

    void removeAnnouncesEachRowFromTheBack()
    {
        const GitProfile twin = profile(QStringLiteral("Twin"));
        m_manager->setProfiles({twin, profile(QStringLiteral("Work")), twin});
        m_manager->setActiveProfileID(twin.id);
        QSignalSpy removed(m_manager, &ProfileManager::profileRemoved);
        m_manager->removeProfile(twin);
        QCOMPARE(removed.size(), 2);
        // Each row is the row it was just before its removal.
        QCOMPARE(removed.at(0).first().toInt(), 2);
        QCOMPARE(removed.at(1).first().toInt(), 0);
        QCOMPARE(m_manager->activeProfileID(), std::nullopt);
        QCOMPARE(savedNames(), QStringList({QStringLiteral("Work")}));
    }

    void removeCanKeepTheActiveId()
    {
        const GitProfile work = m_manager->profiles().at(0);
        m_manager->setActiveProfileID(work.id);
        m_manager->removeProfile(work, false, false);
        QCOMPARE(m_manager->activeProfileID(), std::optional<QUuid>(work.id));
        QVERIFY(!m_manager->activeProfile());
    }

    void removeWithTheKeyDeletesTheKeyFiles()
    {
        m_home->write(QStringLiteral(".ssh/id_lab"), "private\n");
        m_home->write(QStringLiteral(".ssh/id_lab.pub"), "public\n");
        const GitProfile lab =
            GitProfile::create(QStringLiteral("Lab"), QStringLiteral("L"),
                               QStringLiteral("l@x.example"), QStringLiteral("~/.ssh/id_lab"));
        m_manager->appendProfile(lab);
        const auto removal = m_manager->removeProfile(lab, true);
        QCOMPARE(removal.removedKeyFiles.size(), 2);
        QVERIFY(removal.refusedKeyFiles.isEmpty());
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_lab")));
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_lab.pub")));
    }

    void moveAnnouncesBothRowsAndSaves()
    {
        m_manager->appendProfile(profile(QStringLiteral("Lab")));
        QSignalSpy moved(m_manager, &ProfileManager::profileMoved);
        QVERIFY(m_manager->moveProfile(2, 0));
        QCOMPARE(moved.size(), 1);
        QCOMPARE(moved.first().at(0).toInt(), 2);
        QCOMPARE(moved.first().at(1).toInt(), 0);
        QCOMPARE(savedNames(), QStringList({QStringLiteral("Lab"), QStringLiteral("Work"),
                                            QStringLiteral("Home")}));
        QVERIFY(!m_manager->moveProfile(-1, 0));
        QVERIFY(!m_manager->moveProfile(0, 3));
        QCOMPARE(moved.size(), 1);
    }

    void replacingTheListIsAReset()
    {
        QSignalSpy reset(m_manager, &ProfileManager::profilesReset);
        QSignalSpy inserted(m_manager, &ProfileManager::profileInserted);
        m_manager->setProfiles({profile(QStringLiteral("Solo"))});
        QCOMPARE(reset.size(), 1);
        QCOMPARE(inserted.size(), 0);
    }

    void insertingAroundTheOthersAnnouncesOnlyTheNewRows()
    {
        const GitProfile work = m_manager->profiles().at(0);
        const GitProfile home = m_manager->profiles().at(1);
        const GitProfile first = profile(QStringLiteral("First"));
        const GitProfile last = profile(QStringLiteral("Last"));
        QSignalSpy inserted(m_manager, &ProfileManager::profileInserted);
        QSignalSpy reset(m_manager, &ProfileManager::profilesReset);
        QVERIFY(m_manager->change([&](QList<GitProfile>& profiles, std::optional<QUuid>&) {
            profiles = {first, work, home, last};
        }));
        QCOMPARE(inserted.size(), 2);
        QCOMPARE(inserted.at(0).first().toInt(), 0);
        QCOMPARE(inserted.at(1).first().toInt(), 3);
        QCOMPARE(reset.size(), 0);
    }

    void aChangeThatCannotBeSavedAnnouncesNothing()
    {
        QSignalSpy inserted(m_manager, &ProfileManager::profileInserted);
        // The folder of the profile file turned into a file: nothing can be written there.
        const QString folder = m_home->filePath(QStringLiteral(".git-switcher"));
        QVERIFY(QDir(folder).removeRecursively());
        m_home->write(QStringLiteral(".git-switcher"), "not a folder");
        QString why;
        QVERIFY(!m_manager->appendProfile(profile(QStringLiteral("Lab")), &why));
        QVERIFY2(why.contains(m_manager->storagePath()), qPrintable(why));
        QCOMPARE(inserted.size(), 0);
        QCOMPARE(m_manager->profiles().size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_ProfileListChanges)
#include "tst_ProfileListChanges.moc"
