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

    // Fails for a missing, unreadable or undecodable file; `error` then says why.
    std::optional<StoredData> load(QString* error = nullptr) const;

    bool save(const StoredData& data) const;

    // Removes temporary files that a killed save left beside the profile file.
    void removeLeftovers() const;

    // Keeps a copy of a file that could not be read as profiles, so that replacing it loses
    // nothing. Returns the copy's path, or an empty string when there was no file to keep.
    QString preserveUnreadable() const;

private:
    QString m_path;
};
