// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Where the per-user preferences live: $XDG_CONFIG_HOME/Kivora/Kivora.conf, or
// ~/.config/Kivora/Kivora.conf when XDG_CONFIG_HOME is unset, empty or not absolute. The
// path is derived here rather than from the application's names, so the command line, the
// application and the tests all reach the same file.
class PreferencesFile {
public:
    static QString path();
};
