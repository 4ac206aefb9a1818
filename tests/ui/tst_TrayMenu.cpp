// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AutostartSwitch.h"
#include "app/TrayIcon.h"
#include "support/TestHome.h"

#include <QAction>
#include <QMenu>
#include <QtTest>

// The tray item's menu, and starting at login from it: the checkable entry writes and removes
// the autostart entry in a temporary home, and shows what is on disk.
class tst_TrayMenu : public QObject {
    Q_OBJECT

    static QAction* entry(TrayIcon& tray, const QString& text)
    {
        for (QAction* action : tray.menu().actions()) {
            if (action->text() == text) {
                return action;
            }
        }
        return nullptr;
    }

    static QStringList texts(TrayIcon& tray)
    {
        QStringList list;
        for (QAction* action : tray.menu().actions()) {
            list << (action->isSeparator() ? QStringLiteral("-") : action->text());
        }
        return list;
    }

private slots:
    void menuEntriesInOrder()
    {
        TestHome home;
        AutostartSwitch autostart;
        TrayIcon tray(autostart);
        QCOMPARE(texts(tray),
                 QStringList({QStringLiteral("Open Kivora"), QStringLiteral("Settings…"),
                              QStringLiteral("Preferences…"), QStringLiteral("Check for Updates…"),
                              QStringLiteral("-"), QStringLiteral("Start at Login"),
                              QStringLiteral("-"), QStringLiteral("Quit")}));
    }

    // "Settings…" asks for the settings window, "Preferences…" for the preferences window,
    // which shows Ctrl+, as its shortcut.
    void settingsAndPreferencesAreTwoEntries()
    {
        TestHome home;
        AutostartSwitch autostart;
        TrayIcon tray(autostart);
        QSignalSpy settings(&tray, &TrayIcon::settingsRequested);
        QSignalSpy preferences(&tray, &TrayIcon::preferencesRequested);
        QAction* settingsEntry = entry(tray, QStringLiteral("Settings…"));
        QAction* preferencesEntry = entry(tray, QStringLiteral("Preferences…"));
        QVERIFY(settingsEntry && preferencesEntry);
        QCOMPARE(preferencesEntry->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        settingsEntry->trigger();
        QCOMPARE(settings.size(), 1);
        QCOMPARE(preferences.size(), 0);
        preferencesEntry->trigger();
        QCOMPARE(settings.size(), 1);
        QCOMPARE(preferences.size(), 1);
    }

    void startAtLoginWritesAndRemovesTheEntry()
    {
        TestHome home;
        const QString entryFile = QStringLiteral(".config/autostart/kivora.desktop");
        AutostartSwitch autostart;
        TrayIcon tray(autostart);
        QAction* startAtLogin = entry(tray, QStringLiteral("Start at Login"));
        QVERIFY(startAtLogin);
        QVERIFY(startAtLogin->isCheckable());
        // A fresh home has no entry.
        QVERIFY(!startAtLogin->isChecked());

        startAtLogin->trigger();
        QVERIFY(home.exists(entryFile));
        QVERIFY(startAtLogin->isChecked());
        QVERIFY(autostart.enabled());

        startAtLogin->trigger();
        QVERIFY(!home.exists(entryFile));
        QVERIFY(!startAtLogin->isChecked());
        QVERIFY(autostart.errorMessage().isEmpty());
    }

    void theEntryFollowsChangesMadeElsewhere()
    {
        TestHome home;
        AutostartSwitch autostart;
        TrayIcon tray(autostart);
        QAction* startAtLogin = entry(tray, QStringLiteral("Start at Login"));
        // The command line (or the desktop's settings) wrote the entry meanwhile.
        home.write(QStringLiteral(".config/autostart/kivora.desktop"),
                   "[Desktop Entry]\nType=Application\nName=Kivora\nExec=kivora-app\n");
        QVERIFY(!startAtLogin->isChecked());
        emit tray.menu().aboutToShow();
        QVERIFY(startAtLogin->isChecked());
    }

    void aSwitchThatFailsIsSaidAndNotShownAsDone()
    {
        TestHome home;
        // The autostart folder is a file: no entry can be written into it.
        home.write(QStringLiteral(".config/autostart"), "not a folder");
        AutostartSwitch autostart;
        TrayIcon tray(autostart);
        QSignalSpy failed(&autostart, &AutostartSwitch::failed);
        QAction* startAtLogin = entry(tray, QStringLiteral("Start at Login"));
        startAtLogin->trigger();
        QCOMPARE(failed.size(), 1);
        QVERIFY(failed.first().first().toString().startsWith(
            QStringLiteral("Could not turn on start at login")));
        QVERIFY(!startAtLogin->isChecked());
        QVERIFY(!autostart.enabled());
    }
};

QTEST_MAIN(tst_TrayMenu)
#include "tst_TrayMenu.moc"
