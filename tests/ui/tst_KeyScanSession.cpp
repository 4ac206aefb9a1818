// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Translations.h"
#include "settings/profiles/KeyScanSession.h"
#include "support/TestHome.h"

#include <QSignalSpy>
#include <QtTest>

// The key scan's walk without its sheet: which keys it offers, in which order, and what it
// collects, over a temporary ~/.ssh.
class tst_KeyScanSession : public QObject {
    Q_OBJECT

    static void writeKeys(const TestHome& home, const QStringList& names)
    {
        for (const QString& name : names) {
            home.write(QStringLiteral(".ssh/") + name, "x\n");
        }
    }

private slots:
    // The count line's plural forms come from the English translation, as in the program.
    void initTestCase() { QVERIFY(Translations::install().contains(QStringLiteral("en"))); }

    void startsScanningAndFindsOnlyPairsInPlainOrder()
    {
        TestHome home;
        writeKeys(home,
                  {QStringLiteral("zeta"), QStringLiteral("zeta.pub"), QStringLiteral("id_rsa"),
                   QStringLiteral("id_rsa.pub"), QStringLiteral("Work"), QStringLiteral("Work.pub"),
                   QStringLiteral("lonely.pub"), QStringLiteral("x.pub.pub")});
        KeyScanSession session(home.path());
        QVERIFY(session.isScanning());
        QVERIFY(!session.isAsking());
        QVERIFY(!session.isComplete());
        session.scan();
        QVERIFY(!session.isScanning());
        QCOMPARE(session.keys(), QStringList({QStringLiteral("Work"), QStringLiteral("id_rsa"),
                                              QStringLiteral("zeta")}));
        QVERIFY(session.isAsking());
        QCOMPARE(session.currentKey(), QStringLiteral("Work"));
    }

    void addAndSkipCollectInOrder()
    {
        TestHome home;
        writeKeys(home, {QStringLiteral("a"), QStringLiteral("a.pub"), QStringLiteral("b"),
                         QStringLiteral("b.pub"), QStringLiteral("c"), QStringLiteral("c.pub")});
        KeyScanSession session(home.path());
        session.scan();
        session.setGitName(QStringLiteral("Ada"));
        session.setGitEmail(QStringLiteral("ada@example.com"));
        session.addCurrentKey();
        // The fields are empty at every new key.
        QCOMPARE(session.gitName(), QString());
        QCOMPARE(session.gitEmail(), QString());
        QCOMPARE(session.currentKey(), QStringLiteral("b"));
        session.setGitName(QStringLiteral("Bob"));
        session.nextKey();
        QCOMPARE(session.gitName(), QString());
        // Empty fields are accepted as typed.
        session.addCurrentKey();
        QVERIFY(session.isComplete());
        QCOMPARE(session.entries().size(), 2);
        QCOMPARE(session.entries().at(0), (ScannedKey{QStringLiteral("a"), QStringLiteral("Ada"),
                                                      QStringLiteral("ada@example.com")}));
        QCOMPARE(session.entries().at(1), (ScannedKey{QStringLiteral("c"), QString(), QString()}));
        QCOMPARE(session.profiles().value(1).value<ScannedKey>().keyName, QStringLiteral("c"));
        QCOMPARE(session.createdText(), QStringLiteral("2 profiles created"));
        // Past the last key there is nothing to add.
        session.addCurrentKey();
        QCOMPARE(session.entries().size(), 2);
    }

    void countLineIsSingularOnlyForOne_data()
    {
        QTest::addColumn<int>("added");
        QTest::addColumn<QString>("line");
        QTest::newRow("none") << 0 << QStringLiteral("0 profiles created");
        QTest::newRow("one") << 1 << QStringLiteral("1 profile created");
        QTest::newRow("two") << 2 << QStringLiteral("2 profiles created");
    }

    void countLineIsSingularOnlyForOne()
    {
        QFETCH(int, added);
        QFETCH(QString, line);
        TestHome home;
        writeKeys(home, {QStringLiteral("a"), QStringLiteral("a.pub"), QStringLiteral("b"),
                         QStringLiteral("b.pub")});
        KeyScanSession session(home.path());
        session.scan();
        for (int i = 0; i < 2; ++i) {
            if (i < added) {
                session.addCurrentKey();
            } else {
                session.nextKey();
            }
        }
        QVERIFY(session.isComplete());
        QCOMPARE(session.createdText(), line);
    }

    void noFolderGoesStraightToCompletion()
    {
        TestHome home;
        KeyScanSession session(home.path());
        QSignalSpy steps(&session, &KeyScanSession::stepChanged);
        session.scan();
        QCOMPARE(steps.size(), 1);
        QVERIFY(session.keys().isEmpty());
        QVERIFY(session.isComplete());
        QCOMPARE(session.createdText(), QStringLiteral("0 profiles created"));
    }
};

QTEST_MAIN(tst_KeyScanSession)
#include "tst_KeyScanSession.moc"
