// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileFileWatcher.h"
#include "menubar/ProfileListModel.h"
#include "model/ProfileCodec.h"
#include "settings/profiles/ProfileActions.h"
#include "support/ManagedHome.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The profile list model follows the profile manager row by row, and stays a well-formed
// model through every kind of change (QAbstractItemModelTester checks each step).
class tst_ProfileListModel : public QObject {
    Q_OBJECT

    std::unique_ptr<ManagedHome> m_managed;
    ProfileManager* m_manager = nullptr;
    std::unique_ptr<ProfileListModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;

    static GitProfile profile(const QString& name) { return ManagedHome::profile(name); }

    QStringList names() const
    {
        QStringList list;
        for (int row = 0; row < m_model->rowCount(); ++row) {
            list << m_model->data(m_model->index(row), ProfileListModel::NameRole).toString();
        }
        return list;
    }

private slots:
    void init()
    {
        m_managed = std::make_unique<ManagedHome>(
            QList<GitProfile>{profile(QStringLiteral("Work")), profile(QStringLiteral("Home"))});
        m_manager = &m_managed->manager();
        m_model = std::make_unique<ProfileListModel>(*m_manager);
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        m_managed.reset();
    }

    void addingInsertsOneRowAtTheEnd()
    {
        QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
        m_manager->addProfile(QStringLiteral("id_lab"), QStringLiteral("L"),
                              QStringLiteral("l@example.com"), QString());
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted.first().at(1).toInt(), 2);
        QCOMPARE(inserted.first().at(2).toInt(), 2);
        QCOMPARE(reset.size(), 0);
        QCOMPARE(names(), QStringList({QStringLiteral("Work"), QStringLiteral("Home"),
                                       QStringLiteral("Lab")}));
        QCOMPARE(m_model->count(), 3);
    }

    void removingRemovesEveryRowWithTheId()
    {
        // Two rows with one id, as two profiles added from the editor in one run have.
        const GitProfile twin = profile(QStringLiteral("Twin"));
        m_manager->appendProfile(twin);
        m_manager->appendProfile(twin);
        QCOMPARE(m_model->count(), 4);
        QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
        m_manager->removeProfile(twin);
        QCOMPARE(removed.size(), 2);
        QCOMPARE(reset.size(), 0);
        QCOMPARE(names(), QStringList({QStringLiteral("Work"), QStringLiteral("Home")}));
    }

    void updatingChangesOnlyThatRow()
    {
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        GitProfile home = m_manager->profiles().at(1);
        home.gitEmail = QStringLiteral("new@example.com");
        QCOMPARE(m_manager->updateProfile(home), ProfileManager::Update::Saved);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 1);
        QCOMPARE(changed.first().at(1).toModelIndex().row(), 1);
        QCOMPARE(m_model->data(m_model->index(1), ProfileListModel::GitEmailRole).toString(),
                 QStringLiteral("new@example.com"));
    }

    void movingMovesTheRow()
    {
        m_manager->appendProfile(profile(QStringLiteral("Lab")));
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QVERIFY(m_manager->moveProfile(0, 2));
        QCOMPARE(moved.size(), 1);
        QCOMPARE(names(), QStringList({QStringLiteral("Home"), QStringLiteral("Lab"),
                                       QStringLiteral("Work")}));
        QVERIFY(m_manager->moveProfile(2, 0));
        QCOMPARE(names(), QStringList({QStringLiteral("Work"), QStringLiteral("Home"),
                                       QStringLiteral("Lab")}));
        QVERIFY(!m_manager->moveProfile(0, 3));
        QCOMPARE(moved.size(), 2);
    }

    void replacingTheListResetsTheModel()
    {
        QSignalSpy reset(m_model.get(), &QAbstractItemModel::modelReset);
        m_manager->setProfiles({profile(QStringLiteral("Solo"))});
        QCOMPARE(reset.size(), 1);
        QCOMPARE(names(), QStringList({QStringLiteral("Solo")}));
    }

    void profileRoleIsTheWholeRecord()
    {
        const QVariant value = m_model->data(m_model->index(1), ProfileListModel::ProfileRole);
        QVERIFY(value.canConvert<GitProfile>());
        QCOMPARE(value.value<GitProfile>(), m_manager->profiles().at(1));
        QVERIFY(m_model->roleNames().values().contains("profile"));
    }

    void activatingMarksOneRow()
    {
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QVERIFY(m_model->activate(m_manager->profiles().at(1).idText()));
        QVERIFY(!changed.isEmpty());
        QVERIFY(!m_model->data(m_model->index(0), ProfileListModel::IsActiveRole).toBool());
        QVERIFY(m_model->data(m_model->index(1), ProfileListModel::IsActiveRole).toBool());
        QCOMPARE(m_model->activeProfile().value(QStringLiteral("name")).toString(),
                 QStringLiteral("Home"));
    }

    void popoverDeleteKeepsTheActiveId()
    {
        const GitProfile work = m_manager->profiles().at(0);
        m_manager->setActiveProfileID(work.id);
        QVERIFY(m_model->remove(work.idText()));
        QCOMPARE(m_manager->activeProfileID(), std::optional<QUuid>(work.id));
        QVERIFY(!m_model->hasActiveProfile());
        QCOMPARE(names(), QStringList({QStringLiteral("Home")}));
    }

    // Someone else writes the profile file while the application runs: the rows follow it,
    // and a file that cannot be read is said in the popover and on the profiles page until
    // it can.
    void followsTheFileWrittenBySomeoneElse()
    {
        ProfileActions actions(*m_manager);
        ProfileFileWatcher watcher(*m_manager);
        const QString file = QStringLiteral(".git-switcher/profiles.json");
        QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);

        m_managed->home().write(file, "{\"profiles\":");
        QTRY_VERIFY_WITH_TIMEOUT(!m_model->error().isEmpty(), 20000);
        const QString path = m_managed->home().filePath(file);
        QVERIFY2(m_model->error().contains(path), qPrintable(m_model->error()));
        QVERIFY(m_model->error().endsWith(QLatin1Char('.')));
        QCOMPARE(actions.error(), m_model->error());
        QCOMPARE(names(), QStringList({QStringLiteral("Work"), QStringLiteral("Home")}));
        // A popover view that starts afresh still says it.
        const QString sentence = m_model->error();
        m_model->clearError();
        QCOMPARE(m_model->error(), sentence);

        QList<GitProfile> profiles = m_manager->profiles();
        profiles << profile(QStringLiteral("Lab"));
        m_managed->home().write(file, ProfileCodec::encodeStore({profiles, std::nullopt}));
        QTRY_VERIFY_WITH_TIMEOUT(m_model->error().isEmpty(), 20000);
        QVERIFY(actions.error().isEmpty());
        QCOMPARE(names(), QStringList({QStringLiteral("Work"), QStringLiteral("Home"),
                                       QStringLiteral("Lab")}));
        QCOMPARE(inserted.size(), 1);
    }
};

QTEST_MAIN(tst_ProfileListModel)
#include "tst_ProfileListModel.moc"
