// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

// Removes what a write that was killed half way leaves behind. AtomicFile writes a file's new
// bytes to "<name>.kivora-XXXXXX" beside it (six letters or digits from mkstemp) and renames
// that over the file; a process killed in between leaves the temporary file. Only files of
// exactly that form, for the names given, are touched: regular files of this user, not links,
// not changed for a while (a write in progress in another Kivora process takes milliseconds,
// so a file older than `minimumAgeSeconds` belongs to nobody).
class LeftoverTemporaryFiles {
public:
    static constexpr int minimumAgeSeconds = 10;

    // True when `fileName` is a temporary file AtomicFile makes for `target`.
    static bool isTemporaryFor(const QString& fileName, const QString& target);

    // Removes the leftovers of the `targets` (file names) in `folder`; returns their paths.
    static QStringList remove(const QString& folder, const QStringList& targets);
};
