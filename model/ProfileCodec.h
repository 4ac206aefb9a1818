// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

// What the profile file holds: every profile in the user's order and the active one.
struct StoredData {
    QList<GitProfile> profiles;
    std::optional<QUuid> activeProfileID;

    friend bool operator==(const StoredData&, const StoredData&) = default;
};

// The JSON form of profiles. Keys are written in a fixed order and read strictly: every
// key must be present with the right type, and one bad profile rejects the whole document.
class ProfileCodec {
public:
    // Compact, as stored in the profile file; "activeProfileID" only when there is one.
    static QByteArray encodeStore(const StoredData& data);
    static std::optional<StoredData> decodeStore(const QByteArray& bytes, QString* error = nullptr);

    // A pretty-printed array of profiles, as exported and imported.
    static QByteArray encodeProfileArray(const QList<GitProfile>& profiles);
    static std::optional<QList<GitProfile>> decodeProfileArray(const QByteArray& bytes,
                                                               QString* error = nullptr);

    // Upper-case, hyphenated, without braces.
    static QString uuidText(const QUuid& id);
    // Accepts exactly the 36-character hyphenated form, in either case.
    static std::optional<QUuid> parseUuid(const QString& text);
};
