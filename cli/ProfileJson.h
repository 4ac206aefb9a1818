#pragma once

#include "model/GitProfile.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// The documented JSON shapes of `kivora list --json` and `kivora current --json`. API keys are
// never part of them.
class ProfileJson {
public:
    static QByteArray list(const QList<GitProfile>& profiles, const std::optional<QUuid>& active);
    static QByteArray current(const std::optional<GitProfile>& profile, bool active,
                              const QString& globalGitName, const QString& globalGitEmail,
                              bool needsProfileSetup);
};
