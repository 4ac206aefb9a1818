// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

// Finds the key pairs in ~/.ssh: a private key counts only when its ".pub" half sits beside it.
class SSHKeyScanner {
public:
    // Private-key file names (no folder) in the order the folder listing gives them; an
    // unreadable or missing folder gives none.
    static QStringList scan(const QString& home);

    // The same names in ascending plain string order (upper case before lower case).
    static QStringList scanSorted(const QString& home);
};
