// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

// "Start at login": a desktop entry in the user's autostart folder, which every desktop
// following the XDG autostart rules reads when the session starts.
//
// The entry is $XDG_CONFIG_HOME/autostart/kivora.desktop, or ~/.config/autostart/kivora.desktop
// when XDG_CONFIG_HOME is unset, empty or not absolute. Kivora starts at login when that file
// exists and the desktop has not been told to skip it: `Hidden=true` (the XDG way of deleting
// an entry) or `X-GNOME-Autostart-enabled=false` (how GNOME's own switch turns it off) read
// as off.
class Autostart {
public:
    // Where the entry lives.
    static QString path();

    // The bytes written when starting at login is switched on.
    static QByteArray entry();

    static bool isEnabled();

    // On writes the entry whole and atomically, replacing whatever was there (a hidden copy
    // included); off removes it. Both are idempotent; false when the file could not be written
    // or removed.
    static bool setEnabled(bool enabled);

    // Whether the desktop entry `contents` asks to be started at login.
    static bool entryEnabled(const QByteArray& contents);
};
