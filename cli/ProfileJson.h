// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/SigningSettings.h"
#include "model/GitProfile.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

// The documented JSON shapes of `kivora list --json` and `kivora current --json`. API keys are
// never part of them.
class ProfileJson {
public:
    // Each profile object carries "signing": its signing settings from `signing`, or null.
    static QByteArray list(const QList<GitProfile>& profiles, const std::optional<QUuid>& active,
                           const QHash<QUuid, SigningSettings>& signing);
    static QByteArray current(const std::optional<GitProfile>& profile, bool active,
                              const QString& globalGitName, const QString& globalGitEmail,
                              bool needsProfileSetup, const QHash<QUuid, SigningSettings>& signing);
};
