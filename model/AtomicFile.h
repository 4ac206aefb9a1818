// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

#include <optional>

// Whole-file writes that readers never see half done: the bytes go to a temporary file
// beside the target, which then replaces it with one rename. There is no fsync: a reader
// sees the old or the new file, and ext4 and the other common file systems flush a file
// that replaces another on rename. Activation writes several small files, and a sync each
// would cost more than the rest of the switch.
class AtomicFile {
public:
    static constexpr QFileDevice::Permissions privateFile =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner;

    // Writes `bytes` to `path`. With `permissions` the file gets exactly those; without,
    // an existing file keeps its own and a new one gets the usual defaults. A symbolic
    // link is followed, so a start-up file kept in a dotfiles folder stays a link. On
    // failure the old file is untouched and `error` gets the system's reason ("No space
    // left on device", "Read-only file system", …).
    static bool write(const QString& path, const QByteArray& bytes,
                      std::optional<QFileDevice::Permissions> permissions = std::nullopt,
                      QString* error = nullptr);

    // Creates `path` and missing parents; the folders it creates are private to the user.
    static bool makePrivateFolder(const QString& path);
};
