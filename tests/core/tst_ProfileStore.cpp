// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileStore.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <memory>

class tst_ProfileStore : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;

private slots:
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void locationAndPrivacy()
    {
        const ProfileStore store(m_home->path());
        QCOMPARE(store.path(), m_home->filePath(QStringLiteral(".git-switcher/profiles.json")));
        const QFileInfo folder(m_home->filePath(QStringLiteral(".git-switcher")));
        QVERIFY(folder.isDir());
        QCOMPARE(folder.permissions() & 0x0077, QFileDevice::Permissions());
        QVERIFY(store.save({{GitProfile::empty()}, std::nullopt}));
        QCOMPARE(QFileInfo(store.path()).permissions() & 0x0777,
                 QFileDevice::ReadUser | QFileDevice::WriteUser);
    }

    void savedFileIsExactlyTheEncoding()
    {
        const ProfileStore store(m_home->path());
        const GitProfile profile = GitProfile::empty();
        const StoredData data{{profile}, profile.id};
        QVERIFY(store.save(data));
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")),
                 ProfileCodec::encodeStore(data));
        QCOMPARE(store.load(), std::optional<StoredData>(data));
        QVERIFY(!m_home->read(QStringLiteral(".git-switcher/profiles.json")).contains('\n'));
    }

    void saveLeavesNoTemporaryFiles()
    {
        const ProfileStore store(m_home->path());
        for (int i = 0; i < 3; ++i) {
            QVERIFY(store.save({{GitProfile::empty()}, std::nullopt}));
        }
        QCOMPARE(QDir(m_home->filePath(QStringLiteral(".git-switcher")))
                     .entryList(QDir::Files | QDir::Hidden),
                 QStringList{QStringLiteral("profiles.json")});
    }

    void missingOrCorruptFails()
    {
        const ProfileStore store(m_home->path());
        QString error;
        QVERIFY(!store.load(&error));
        QVERIFY(error.contains(QStringLiteral("does not exist")));
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), "{\"profiles\":[{}]}");
        QVERIFY(!store.load(&error));
        QVERIFY(error.contains(QStringLiteral("cannot be read as profiles")));
    }

    void emptyListLoads()
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), "{\"profiles\":[]}");
        const auto data = ProfileStore(m_home->path()).load();
        QVERIFY(data);
        QVERIFY(data->profiles.isEmpty());
        QVERIFY(!data->activeProfileID);
    }

    void unreadableFileIsCopiedAside()
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), "precious but broken");
        const ProfileStore store(m_home->path());
        const QString copy = store.preserveUnreadable();
        QVERIFY(!copy.isEmpty());
        QVERIFY(QFileInfo(copy).fileName().startsWith(QStringLiteral("profiles.json.unreadable-")));
        QFile file(copy);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("precious but broken"));
        QCOMPARE(QFileInfo(copy).permissions() & 0x0077, QFileDevice::Permissions());
        // A second copy in the same second gets its own name.
        const QString second = store.preserveUnreadable();
        QVERIFY(!second.isEmpty());
        QVERIFY(second != copy);
    }

    void nothingToPreserve()
    {
        QVERIFY(ProfileStore(m_home->path()).preserveUnreadable().isEmpty());
    }

    void existingFolderIsLeftAlone()
    {
        QDir().mkpath(m_home->filePath(QStringLiteral(".git-switcher")));
        QFile::setPermissions(m_home->filePath(QStringLiteral(".git-switcher")),
                              QFileDevice::Permissions(0x7755));
        const ProfileStore store(m_home->path());
        QVERIFY(store.save({}));
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")),
                 QByteArray("{\"profiles\":[]}"));
    }
};

QTEST_GUILESS_MAIN(tst_ProfileStore)
#include "tst_ProfileStore.moc"
