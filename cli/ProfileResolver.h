// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"

#include <QList>
#include <QString>

#include <optional>

// Finds the profile a user means on the command line: its id, its exact display name, or the
// start of exactly one display name, in any case.
class ProfileResolver {
public:
    explicit ProfileResolver(const QList<GitProfile>& profiles) : m_profiles(profiles) {}

    // The profile, or nothing with `error` saying why in one sentence.
    std::optional<GitProfile> resolve(const QString& query, QString* error) const;

private:
    static QString quotedList(const QList<GitProfile>& profiles, bool withIds);

    const QList<GitProfile>& m_profiles;
};
