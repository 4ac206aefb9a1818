// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "prefs/Autostart.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

namespace {

// The entry as a desktop reads it: the application, its name, icon and comment, and GNOME's
// switch set to on.
const QByteArray expectedEntry = "[Desktop Entry]\n"
                                 "Type=Application\n"
                                 "Name=Kivora\n"
                                 "Comment=Switch between git identities from the tray\n"
                                 "Exec=kivora\n"
                                 "Icon=kivora\n"
                                 "X-GNOME-Autostart-enabled=true\n";

const QString entryPath = QStringLiteral(".config/autostart/kivora.desktop");

} // namespace

class tst_Autostart : public QObject {
    Q_OBJECT

private slots:
    void pathIsInTheConfigFolder()
    {
        TestHome home;
        QCOMPARE(Autostart::path(), home.filePath(entryPath));

        home.setEnv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("elsewhere")).toLocal8Bit());
        QCOMPARE(Autostart::path(),
                 home.filePath(QStringLiteral("elsewhere/autostart/kivora.desktop")));

        // Unset, empty or relative: the folder every desktop falls back to.
        for (const std::optional<QByteArray>& value :
             {std::optional<QByteArray>(), std::optional<QByteArray>(""),
              std::optional<QByteArray>("relative/config")}) {
            home.setEnv("XDG_CONFIG_HOME", value);
            QCOMPARE(Autostart::path(), home.filePath(entryPath));
        }
    }

    void offWithoutAFile()
    {
        TestHome home;
        QVERIFY(!Autostart::isEnabled());
        QVERIFY(!home.exists(entryPath));
    }

    void onWritesTheEntry()
    {
        TestHome home;
        QVERIFY(!home.exists(QStringLiteral(".config/autostart")));
        QVERIFY(Autostart::setEnabled(true));
        QCOMPARE(home.read(entryPath), expectedEntry);
        QVERIFY(Autostart::isEnabled());
    }

    void onTwiceLeavesOneIdenticalEntry()
    {
        TestHome home;
        QVERIFY(Autostart::setEnabled(true));
        QVERIFY(Autostart::setEnabled(true));
        QCOMPARE(home.read(entryPath), expectedEntry);
        // No temporary file is left beside the entry.
        QCOMPARE(QDir(home.filePath(QStringLiteral(".config/autostart")))
                     .entryList(QDir::Files | QDir::Hidden | QDir::System),
                 QStringList{QStringLiteral("kivora.desktop")});
        QVERIFY(Autostart::isEnabled());
    }

    void offRemovesTheEntryOnly()
    {
        TestHome home;
        home.write(QStringLiteral(".config/autostart/other.desktop"), "[Desktop Entry]\n");
        QVERIFY(Autostart::setEnabled(true));
        QVERIFY(Autostart::setEnabled(false));
        QVERIFY(!home.exists(entryPath));
        QVERIFY(!Autostart::isEnabled());
        QCOMPARE(home.read(QStringLiteral(".config/autostart/other.desktop")),
                 QByteArray("[Desktop Entry]\n"));

        // Off again, and off with no autostart folder at all, succeed and create nothing.
        QVERIFY(Autostart::setEnabled(false));
        QDir(home.filePath(QStringLiteral(".config/autostart"))).removeRecursively();
        QVERIFY(Autostart::setEnabled(false));
        QVERIFY(!home.exists(QStringLiteral(".config/autostart")));
    }

    void entryStates_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<bool>("enabled");
        const QByteArray head = "[Desktop Entry]\nType=Application\nName=Kivora\nExec=kivora\n";
        QTest::newRow("plain") << head << true;
        QTest::newRow("hidden") << head + "Hidden=true\n" << false;
        QTest::newRow("hidden, spaced") << head + "Hidden = true\n" << false;
        QTest::newRow("hidden false") << head + "Hidden=false\n" << true;
        QTest::newRow("gnome switch off") << head + "X-GNOME-Autostart-enabled=false\n" << false;
        QTest::newRow("gnome switch on") << head + "X-GNOME-Autostart-enabled=true\n" << true;
        QTest::newRow("hidden in another group") << head + "\n[Desktop Action quit]\nHidden=true\n"
                                                 << true;
        QTest::newRow("commented out") << head + "# Hidden=true\n" << true;
        QTest::newRow("empty file") << QByteArray() << true;
    }

    void entryStates()
    {
        QFETCH(QByteArray, contents);
        QFETCH(bool, enabled);
        TestHome home;
        home.write(entryPath, contents);
        QCOMPARE(Autostart::isEnabled(), enabled);
    }

    void onReplacesAHiddenEntry()
    {
        TestHome home;
        home.write(entryPath, "[Desktop Entry]\nType=Application\nName=Kivora\nExec=kivora\n"
                              "Hidden=true\n");
        QVERIFY(!Autostart::isEnabled());
        QVERIFY(Autostart::setEnabled(true));
        QCOMPARE(home.read(entryPath), expectedEntry);
        QVERIFY(Autostart::isEnabled());
    }

    void aLinkIsReplacedNotWrittenThrough()
    {
        TestHome home;
        const QByteArray linked = "[Desktop Entry]\nType=Application\nName=Kivora\nExec=kivora\n";
        home.write(QStringLiteral("shared/kivora.desktop"), linked);
        QDir().mkpath(home.filePath(QStringLiteral(".config/autostart")));
        QVERIFY(QFile::link(home.filePath(QStringLiteral("shared/kivora.desktop")),
                            home.filePath(entryPath)));
        QVERIFY(Autostart::isEnabled());

        QVERIFY(Autostart::setEnabled(true));
        QVERIFY(!QFileInfo(home.filePath(entryPath)).isSymLink());
        QCOMPARE(home.read(entryPath), expectedEntry);
        QCOMPARE(home.read(QStringLiteral("shared/kivora.desktop")), linked);

        // Off removes a link, dangling or not, and leaves its target alone.
        QFile::remove(home.filePath(entryPath));
        QVERIFY(
            QFile::link(home.filePath(QStringLiteral("gone.desktop")), home.filePath(entryPath)));
        QVERIFY(!Autostart::isEnabled());
        QVERIFY(Autostart::setEnabled(false));
        QVERIFY(!QFileInfo(home.filePath(entryPath)).isSymLink());
    }

    void aFolderThatCannotBeMadeFails()
    {
        TestHome home;
        // A file where the autostart folder should be: no permission bit stops root, this does.
        home.write(QStringLiteral(".config/autostart"), "not a folder");
        QVERIFY(!Autostart::setEnabled(true));
        QVERIFY(!Autostart::isEnabled());
        QCOMPARE(home.read(QStringLiteral(".config/autostart")), QByteArray("not a folder"));
    }

    void theEntryIsAValidDesktopFile()
    {
        const QString validator =
            QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate"));
        if (validator.isEmpty()) {
            QSKIP("desktop-file-validate (desktop-file-utils) is not installed");
        }
        TestHome home;
        QVERIFY(Autostart::setEnabled(true));
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(validator, {home.filePath(entryPath)});
        QVERIFY(process.waitForFinished(-1));
        const QByteArray report = process.readAll();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 report.constData());
        QVERIFY2(report.trimmed().isEmpty(), report.constData());
    }
};

QTEST_GUILESS_MAIN(tst_Autostart)
#include "tst_Autostart.moc"
