// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

class AutostartSwitch;

// The status-area item: the logo with the title "Kivora". A left click toggles the popover,
// a right click opens the menu "Open Kivora", "Settings…" (the settings window),
// "Preferences…" (the small preferences window), "Check for Updates…", the checkable
// "Start at Login", "Quit". When the desktop has no status area yet, it keeps trying.
//
// Qt offers the item as a StatusNotifierItem (with the menu exported over dbusmenu) when the
// desktop runs a StatusNotifierWatcher, and as an XEmbed icon otherwise.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    explicit TrayIcon(AutostartSwitch& autostart, QObject* parent = nullptr);

    // Shows the item, or starts retrying. True when it is shown now.
    bool show();
    bool isShown() const { return m_tray.isVisible() && m_available; }
    // The icon's place on the screen; empty when the status area does not tell.
    QRect geometry() const;
    // The menu, as a right click shows it.
    QMenu& menu() { return m_menu; }

signals:
    void toggleRequested(const QRect& iconGeometry);
    void openRequested(const QRect& iconGeometry);
    void settingsRequested();
    void preferencesRequested();
    void checkForUpdatesRequested();
    void quitRequested();
    // The status area appeared after the start.
    void becameAvailable();

private:
    void retry();

    AutostartSwitch& m_autostart;
    QSystemTrayIcon m_tray;
    QMenu m_menu;
    QTimer m_retry;
    bool m_available = false;
};
