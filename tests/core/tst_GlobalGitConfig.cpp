// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/GlobalGitConfig.h"
#include "support/TestHome.h"

#include <QtTest>

// Keeping Kivora's include last in the global git configuration, byte for byte, and git still
// reading the result.
class tst_GlobalGitConfig : public QObject {
    Q_OBJECT

    static QString target() { return QStringLiteral("/home/ada/.kivora/git/rules.gitconfig"); }
    static QByteArray block() { return GlobalGitConfig::includeBlock(target()); }

private slots:
    void blockText()
    {
        QCOMPARE(block(), QByteArray("# Kivora identity rules. Kivora keeps this include last so "
                                     "its rules win.\n[include]\n\tpath = "
                                     "\"/home/ada/.kivora/git/rules.gitconfig\"\n"));
    }

    void appendedToAFileWithoutFinalLineEnd()
    {
        QCOMPARE(GlobalGitConfig::withIncludeLast("[user]\n\tname = A", target()),
                 "[user]\n\tname = A\n" + block());
        QCOMPARE(GlobalGitConfig::withIncludeLast({}, target()), block());
    }

    void alreadyLastChangesNothing()
    {
        const QByteArray text = "[alias]\n\tst = status\n" + block();
        QCOMPARE(GlobalGitConfig::withIncludeLast(text, target()), text);
    }

    void onlyTheBlockMoves()
    {
        const QByteArray before = "# mine\n[alias]\n\tst = status\n";
        const QByteArray after = "[user]\n\tname = Ada\n\temail = ada@x\n";
        QCOMPARE(GlobalGitConfig::withIncludeLast(before + block() + after, target()),
                 before + after + block());
    }

    void aKeyGitAddedUnderTheHeaderKeepsAHeader()
    {
        const QByteArray text = "[user]\n\tname = A\n" + block() + "\tpath = /other\n[core]\n";
        QCOMPARE(GlobalGitConfig::withIncludeLast(text, target()),
                 "[user]\n\tname = A\n[include]\n\tpath = /other\n[core]\n" + block());
    }

    void removal()
    {
        bool found = false;
        QCOMPARE(GlobalGitConfig::withoutInclude("[a]\n\tb = c\n" + block(), target(), &found),
                 QByteArray("[a]\n\tb = c\n"));
        QVERIFY(found);
        QCOMPARE(GlobalGitConfig::withoutInclude("[a]\n", target(), &found), QByteArray("[a]\n"));
        QVERIFY(!found);
    }

    void gitReadsAPathWithQuotesAndBlanks()
    {
        TestHome home;
        const QString odd = home.filePath(QStringLiteral("we \"ird\\ dir/rules.gitconfig"));
        home.write(QStringLiteral("we \"ird\\ dir/rules.gitconfig"), "[kivora]\n\tprobe = yes\n");
        QVERIFY(GlobalGitConfig(home.path()).keepIncludeLast(odd));
        // --global alone reads no includes.
        QCOMPARE(home.git({QStringLiteral("config"), QStringLiteral("--global"),
                           QStringLiteral("--includes"), QStringLiteral("kivora.probe")}),
                 QStringLiteral("yes"));
        QCOMPARE(GlobalGitConfig(home.path()).path(), home.filePath(QStringLiteral(".gitconfig")));
        QVERIFY(GlobalGitConfig(home.path()).removeInclude(odd));
        QCOMPARE(home.read(QStringLiteral(".gitconfig")), QByteArray());
    }
};

QTEST_GUILESS_MAIN(tst_GlobalGitConfig)
#include "tst_GlobalGitConfig.moc"
