// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/ProfileActions.h"

#include "settings/profiles/ScannedKey.h"

ProfileActions::ProfileActions(ProfileManager& manager, QObject* parent)
    : QObject(parent), m_manager(manager)
{
}

const GitProfile& ProfileActions::newProfileTemplate()
{
    static const GitProfile profileTemplate = GitProfile::empty();
    return profileTemplate;
}

GitProfile ProfileActions::profileAt(int index) const
{
    return index >= 0 && index < m_manager.profiles().size() ? m_manager.profiles().at(index)
                                                             : GitProfile();
}

void ProfileActions::activate(const GitProfile& profile)
{
    m_manager.applyGlobally(profile);
}

QString ProfileActions::deleteProfile(const GitProfile& profile, bool deleteSSHKey)
{
    return m_manager.removeProfile(profile, deleteSSHKey).refusedKeyFiles.join(u' ');
}

QString ProfileActions::keySharedWith(const GitProfile& profile) const
{
    QStringList names = KeyFileRemoval::otherUsers(m_manager.profiles(), profile, m_manager.home());
    for (QString& name : names) {
        name = u'"' + name + u'"';
    }
    if (names.size() < 2) {
        return names.value(0);
    }
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

void ProfileActions::addProfile(const GitProfile& profile)
{
    m_manager.appendProfile(profile);
}

bool ProfileActions::updateProfile(const GitProfile& profile)
{
    return m_manager.updateProfile(profile);
}

void ProfileActions::addScannedKeys(const QVariantList& entries)
{
    for (const QVariant& entry : entries) {
        const auto key = entry.value<ScannedKey>();
        m_manager.addProfile(key.keyName, key.name, key.email,
                             QStringLiteral("~/.ssh/") + key.keyName);
    }
}
