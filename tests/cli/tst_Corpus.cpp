// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>

// The bad-input corpus (tests/corpus, written by its generate.py): every profile file and
// every import file, given to the built `kivora`, ends in the outcome its name announces, with
// no crash, no hang and nothing the user had lost.
//
//   profiles/loads-*      `kivora list` reads it: exit 0, nothing on standard error, the file
//                         left byte for byte
//   profiles/refused-*    `kivora list` refuses it: exit 0, one sentence naming the copy, the
//                         copy holds the file byte for byte, a readable new profile file
//   import/imports-N-*    `kivora import` adds N profiles after the one already there
//   import/refused-*      `kivora import` exits 1 with one sentence; the profile file unchanged
class tst_Corpus : public QObject {
    Q_OBJECT

    struct Result {
        int status = -1; // -1 crashed, -2 hung
        QString out;
        QString err;
    };

    QMap<QString, int> m_outcomes;

    static QString corpus(const QString& folder)
    {
        return QStringLiteral(KIVORA_SOURCE_DIR "/tests/corpus/") + folder;
    }

    static Result kivora(const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("DISPLAY"));
        env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        process.setProcessEnvironment(env);
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
        if (!process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished(-1);
            return {-2, {}, {}};
        }
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    static QByteArray readFile(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void rows(const QString& folder)
    {
        QTest::addColumn<QString>("file");
        const QStringList files =
            QDir(corpus(folder)).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
        for (const QString& file : files) {
            QTest::newRow(qPrintable(file)) << corpus(folder) + u'/' + file;
        }
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
        const int profiles =
            int(QDir(corpus(QStringLiteral("profiles"))).entryList(QDir::Files).size());
        const int imports =
            int(QDir(corpus(QStringLiteral("import"))).entryList(QDir::Files).size());
        QVERIFY2(profiles + imports >= 200, "the corpus holds fewer than 200 files");
    }

    void cleanupTestCase()
    {
        for (auto it = m_outcomes.cbegin(); it != m_outcomes.cend(); ++it) {
            qInfo("%s: %d", qPrintable(it.key()), it.value());
        }
    }

    void profileFile_data() { rows(QStringLiteral("profiles")); }

    void profileFile()
    {
        QFETCH(QString, file);
        const QString name = QFileInfo(file).fileName();
        const QByteArray bytes = readFile(file);
        TestHome home;
        home.write(QStringLiteral(".git-switcher/profiles.json"), bytes);

        const Result r = kivora({QStringLiteral("list")});
        QVERIFY2(r.status != -2, "kivora list hung");
        QVERIFY2(r.status != -1, "kivora list crashed");
        QCOMPARE(r.status, 0);

        if (name.startsWith(QLatin1String("loads-"))) {
            QVERIFY2(r.err.isEmpty(), qPrintable(r.err));
            QCOMPARE(home.read(QStringLiteral(".git-switcher/profiles.json")), bytes);
            ++m_outcomes[QStringLiteral("profile files loaded")];
            return;
        }
        QVERIFY(name.startsWith(QLatin1String("refused-")));
        QCOMPARE(r.err.count(u'\n'), 1);
        const QString marker = QStringLiteral("; it was kept as ");
        QVERIFY2(r.err.contains(marker), qPrintable(r.err));
        const QString kept =
            r.err.section(marker, 1).section(QStringLiteral(" and new profiles"), 0, 0);
        QVERIFY2(QFileInfo(kept).fileName().startsWith(QLatin1String("profiles.json.unreadable-")),
                 qPrintable(kept));
        QCOMPARE(readFile(kept), bytes);
        QVERIFY(
            ProfileCodec::decodeStore(home.read(QStringLiteral(".git-switcher/profiles.json"))));
        ++m_outcomes[QStringLiteral("profile files refused and kept aside")];
    }

    void importFile_data() { rows(QStringLiteral("import")); }

    void importFile()
    {
        QFETCH(QString, file);
        const QString name = QFileInfo(file).fileName();
        TestHome home;
        const GitProfile keep = GitProfile::create(QStringLiteral("Keep"), QStringLiteral("k"),
                                                   QStringLiteral("k@x"), QString());
        home.write(QStringLiteral(".git-switcher/profiles.json"),
                   ProfileCodec::encodeStore({{keep}, keep.id}));
        const QByteArray before = home.read(QStringLiteral(".git-switcher/profiles.json"));

        const Result r = kivora({QStringLiteral("import"), file});
        QVERIFY2(r.status != -2, "kivora import hung");
        QVERIFY2(r.status != -1, "kivora import crashed");

        if (name.startsWith(QLatin1String("imports-"))) {
            const int count = name.section(u'-', 1, 1).toInt();
            QVERIFY2(r.status == 0, qPrintable(r.err));
            QCOMPARE(r.out, QStringLiteral("Imported %1 profile%2.\n")
                                .arg(count)
                                .arg(count == 1 ? QString() : QStringLiteral("s")));
            const auto stored =
                ProfileCodec::decodeStore(home.read(QStringLiteral(".git-switcher/profiles.json")));
            QVERIFY(stored);
            QCOMPARE(stored->profiles.size(), count + 1);
            QCOMPARE(stored->profiles.first(), keep);
            QCOMPARE(stored->activeProfileID, std::optional<QUuid>(keep.id));
            ++m_outcomes[QStringLiteral("import files imported")];
            return;
        }
        QVERIFY(name.startsWith(QLatin1String("refused-")));
        QCOMPARE(r.status, 1);
        QVERIFY(r.out.isEmpty());
        QVERIFY2(r.err.startsWith(QLatin1String("kivora: ")), qPrintable(r.err));
        QCOMPARE(r.err.count(u'\n'), 1);
        QVERIFY2(r.err.contains(QLatin1String("nothing was imported")), qPrintable(r.err));
        QCOMPARE(home.read(QStringLiteral(".git-switcher/profiles.json")), before);
        ++m_outcomes[QStringLiteral("import files refused")];
    }
};

QTEST_GUILESS_MAIN(tst_Corpus)
#include "tst_Corpus.moc"
