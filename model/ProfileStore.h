// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/ProfileCodec.h"

#include <QString>

#include <optional>

// The profile file, ~/.git-switcher/profiles.json: read whole, written whole and atomically,
// private to the user.
class ProfileStore {
public:
    // Computes the location under `home` and creates its folder (0700) when missing.
    explicit ProfileStore(const QString& home);

    QString path() const { return m_path; }
    QString folder() const;

    // Fails for a missing, unreadable or undecodable file; `error` then says why. `bytes`
    // gets what was read, whenever the file could be read.
    std::optional<StoredData> load(QString* error = nullptr, QByteArray* bytes = nullptr) const;

    // Writes the whole file atomically. On failure the old file stays as it was and `error`
    // gets the system's reason ("No space left on device").
    // `written` gets the bytes the file holds afterwards.
    bool save(const StoredData& data, QString* error = nullptr,
              QByteArray* written = nullptr) const;

    // Whether anything (a file, a link, something else) stands at the file's place.
    bool exists() const;

    // Removes temporary files that a killed save left beside the profile file.
    void removeLeftovers() const;

    // Keeps a copy of a file that could not be read as profiles, so that replacing it loses
    // nothing. Returns the copy's path, or an empty string when there was no file to keep.
    QString preserveUnreadable() const;

private:
    QString m_path;
};
