// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The folders that hold the user's keys and the script git runs (~/.git-switcher, ~/.kivora):
// open to the user alone whatever the umask, whether Kivora made them or found them.
class PrivateFolder {
public:
    // Creates the folder (and missing parents) 0700, or takes every permission of group and
    // others away from an existing folder of the user (0755 becomes 0700); the user's own
    // permissions stay as they are. A link to a folder is followed. True when the folder is
    // there and private afterwards.
    static bool ensure(const QString& path);
};
