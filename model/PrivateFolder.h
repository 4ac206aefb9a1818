// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The folders that hold the user's keys and the script git runs (~/.git-switcher, ~/.kivora):
// open to the user alone whatever the umask, whether Kivora made them or found them.
class PrivateFolder {
public:
    // Creates the folder (and missing parents) 0700, or brings an existing folder of the user
    // back to 0700 when others could enter, read or write it. A link to a folder is followed.
    // True when the folder is there and private afterwards.
    static bool ensure(const QString& path);
};
