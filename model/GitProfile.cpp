// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/GitProfile.h"

#include "model/ProfileCodec.h"

GitProfile GitProfile::empty()
{
    GitProfile profile;
    profile.id = QUuid::createUuid();
    return profile;
}

GitProfile GitProfile::create(const QString& name, const QString& gitName, const QString& gitEmail,
                              const QString& sshKeyPath)
{
    GitProfile profile = empty();
    profile.name = name;
    profile.gitName = gitName;
    profile.gitEmail = gitEmail;
    profile.sshKeyPath = sshKeyPath;
    return profile;
}

QString GitProfile::idText() const
{
    return ProfileCodec::uuidText(id);
}
