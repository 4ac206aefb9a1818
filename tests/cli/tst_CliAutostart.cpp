// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CliProcess.h"
#include "support/TestHome.h"

#include <QFileInfo>
#include <QtTest>

#include <memory>

// `kivora autostart` run as a user runs it, with a temporary home and config folder.
class tst_CliAutostart : public QObject {
    Q_OBJECT

    using Result = CliProcess::Result;

    static Result kivora(const QStringList& arguments) { return CliProcess::run(arguments); }

    static Result autostart(const QString& choice)
    {
        return kivora({QStringLiteral("autostart"), choice});
    }

private slots:
    void autostartOnOffStatus()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
        TestHome home;
        // The config folder is not the home's .config: the entry follows XDG_CONFIG_HOME.
        home.setEnv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
        const QString entry = QStringLiteral("config/autostart/kivora.desktop");
        const QString on = QStringLiteral("Kivora starts at login.\n");
        const QString off = QStringLiteral("Kivora does not start at login.\n");

        Result r = autostart(QStringLiteral("status"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, off);
        QVERIFY(!home.exists(entry));

        r = autostart(QStringLiteral("on"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, on);
        QCOMPARE(r.err, QString());
        QCOMPARE(home.read(entry),
                 QByteArray("[Desktop Entry]\n"
                            "Type=Application\n"
                            "Name=Kivora\n"
                            "Comment=Switch between git identities from the tray\n"
                            "Exec=kivora\n"
                            "Icon=kivora\n"
                            "X-GNOME-Autostart-enabled=true\n"));
        QVERIFY(!home.exists(QStringLiteral(".config/autostart")));

        r = autostart(QStringLiteral("on"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, on);
        QCOMPARE(autostart(QStringLiteral("status")).out, on);

        r = autostart(QStringLiteral("off"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, off);
        QVERIFY(!home.exists(entry));
        r = autostart(QStringLiteral("off"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, off);
        QCOMPARE(autostart(QStringLiteral("status")).out, off);

        // An entry the desktop was told to hide does not start Kivora.
        home.write(entry, "[Desktop Entry]\nType=Application\nName=Kivora\nExec=kivora\n"
                          "Hidden=true\n");
        r = autostart(QStringLiteral("status"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, off);
        QCOMPARE(autostart(QStringLiteral("on")).out, on);
        QCOMPARE(autostart(QStringLiteral("status")).out, on);
        QCOMPARE(autostart(QStringLiteral("off")).out, off);

        // Usage errors change nothing.
        for (const QStringList& arguments :
             {QStringList{QStringLiteral("autostart"), QStringLiteral("maybe")},
              QStringList{QStringLiteral("autostart"), QStringLiteral("ON")},
              QStringList{QStringLiteral("autostart")},
              QStringList{QStringLiteral("autostart"), QStringLiteral("on"),
                          QStringLiteral("off")}}) {
            r = kivora(arguments);
            QCOMPARE(r.status, 2);
            QCOMPARE(r.out, QString());
            QVERIFY2(r.err.startsWith(QStringLiteral("kivora: ")), qPrintable(r.err));
            QVERIFY(!home.exists(entry));
        }

        r = kivora({QStringLiteral("autostart"), QStringLiteral("--help")});
        QCOMPARE(r.status, 0);
        QVERIFY2(r.out.startsWith(QStringLiteral("Usage: kivora autostart on|off|status\n")),
                 qPrintable(r.out));
    }
};

QTEST_GUILESS_MAIN(tst_CliAutostart)
#include "tst_CliAutostart.moc"
