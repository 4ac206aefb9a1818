// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

// Command lines changing the profiles at the same moment, with no application running: loops
// of adds, switches, edits and removals (bench/parallel-writers.sh, which `make bench` runs
// for its figures too) must not lose a profile, bring back a removed one, or fail a command.
class tst_ParallelWriters : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }

    void nothingIsLost_data()
    {
        QTest::addColumn<int>("loops");
        QTest::newRow("2 loops") << 2;
        QTest::newRow("4 loops") << 4;
    }

    void nothingIsLost()
    {
        QFETCH(int, loops);
        const int operations = 200;
        QProcess script;
        script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        script.start(QStringLiteral(KIVORA_SOURCE_DIR "/bench/parallel-writers.sh"),
                     {qEnvironmentVariable("KIVORA_CLI"), QString::number(loops),
                      QString::number(operations)});
        QVERIFY(script.waitForFinished(240000));
        QCOMPARE(script.exitCode(), 0);
        const QString report = QString::fromUtf8(script.readAllStandardOutput()).trimmed();
        qInfo().noquote() << report;
        const QRegularExpression figures(QStringLiteral(
            R"((\d+) profiles expected, (\d+) lost, (\d+) removed ones back, (\d+) failed commands)"));
        const auto match = figures.match(report);
        QVERIFY2(match.hasMatch(), qPrintable(report));
        // Each loop adds 120 profiles and removes 40 of them again.
        QCOMPARE(match.captured(1).toInt(), loops * 80);
        QCOMPARE(match.captured(2).toInt(), 0);
        QCOMPARE(match.captured(3).toInt(), 0);
        QCOMPARE(match.captured(4).toInt(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_ParallelWriters)
#include "tst_ParallelWriters.moc"
