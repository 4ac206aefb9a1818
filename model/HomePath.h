// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The user's home folder and tilde paths. Key paths are stored as "~/.ssh/<file>" and only
// expanded when a file is touched or a command line is built.
class HomePath {
public:
    // $HOME, as every other program of the session sees it.
    static QString home();

    // "~" and "~/…" expand to the home folder, "~user/…" to that user's home folder;
    // anything else is returned unchanged.
    static QString expandTilde(const QString& path);
};
