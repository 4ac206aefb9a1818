// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/SSHKeyScanner.h"
#include "support/TestHome.h"

#include <QtTest>

#include <memory>

class tst_SSHKeyScanner : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;

    void touch(const QString& name) const { m_home->write(QStringLiteral(".ssh/") + name, "x"); }

private slots:
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void onlyPairsCount()
    {
        for (const char* name : {"id_ed25519", "id_ed25519.pub", "id_rsa.pub", "known_hosts",
                                 "config", "authorized_keys"}) {
            touch(QString::fromLatin1(name));
        }
        QCOMPARE(SSHKeyScanner::scan(m_home->path()), QStringList{QStringLiteral("id_ed25519")});
    }

    void doublePubIsIgnored()
    {
        for (const char* name : {"x", "x.pub", "x.pub.pub", "y.pub.pub"}) {
            touch(QString::fromLatin1(name));
        }
        QCOMPARE(SSHKeyScanner::scan(m_home->path()), QStringList{QStringLiteral("x")});
    }

    void scanSheetRule()
    {
        for (const char* name : {"id_rsa", "id_rsa.pub", "work.pub", "x.pub.pub"}) {
            touch(QString::fromLatin1(name));
        }
        QCOMPARE(SSHKeyScanner::scanSorted(m_home->path()), QStringList{QStringLiteral("id_rsa")});
    }

    void missingFolderGivesNothing() { QVERIFY(SSHKeyScanner::scan(m_home->path()).isEmpty()); }

    void hiddenKeysAndFoldersCount()
    {
        touch(QStringLiteral(".hidden"));
        touch(QStringLiteral(".hidden.pub"));
        touch(QStringLiteral("dir/inner")); // a folder named "dir" with "dir.pub" beside it
        touch(QStringLiteral("dir.pub"));
        touch(QStringLiteral("nested.pub"));
        touch(QStringLiteral("sub/nested")); // not beside its .pub: does not count
        QStringList keys = SSHKeyScanner::scan(m_home->path());
        keys.sort();
        QCOMPARE(keys, (QStringList{QStringLiteral(".hidden"), QStringLiteral("dir")}));
    }

    void sortedIsPlainOrder()
    {
        for (const char* name : {"id_rsa", "id_ed25519", "Zeta", "alpha", "B"}) {
            touch(QString::fromLatin1(name));
            touch(QString::fromLatin1(name) + QStringLiteral(".pub"));
        }
        QCOMPARE(SSHKeyScanner::scanSorted(m_home->path()),
                 (QStringList{QStringLiteral("B"), QStringLiteral("Zeta"), QStringLiteral("alpha"),
                              QStringLiteral("id_ed25519"), QStringLiteral("id_rsa")}));
    }
};

QTEST_GUILESS_MAIN(tst_SSHKeyScanner)
#include "tst_SSHKeyScanner.moc"
