#include "activation/ProfileEdits.h"

#include "activation/ProfileManager.h"
#include "model/HomePath.h"

#include <QFile>

QStringList ProfileEdits::deleteProfile(ProfileManager& manager, const GitProfile& profile,
                                        bool deleteSSHKey)
{
    QStringList removed;
    if (deleteSSHKey && !profile.sshKeyPath.isEmpty()) {
        const QString key = HomePath::expandTilde(profile.sshKeyPath);
        for (const QString& file : {key, key + QStringLiteral(".pub")}) {
            if (QFile::remove(file)) {
                removed << file;
            }
        }
    }
    QList<GitProfile> profiles = manager.profiles();
    profiles.removeIf([&profile](const GitProfile& p) { return p.id == profile.id; });
    manager.setProfiles(profiles);
    if (manager.activeProfileID() == profile.id) {
        manager.setActiveProfileID(std::nullopt);
    }
    manager.save();
    return removed;
}

bool ProfileEdits::replaceProfile(ProfileManager& manager, const GitProfile& profile)
{
    QList<GitProfile> profiles = manager.profiles();
    for (GitProfile& existing : profiles) {
        if (existing.id == profile.id) {
            existing = profile;
            manager.setProfiles(profiles);
            manager.save();
            return true;
        }
    }
    return false;
}

void ProfileEdits::appendProfile(ProfileManager& manager, const GitProfile& profile)
{
    QList<GitProfile> profiles = manager.profiles();
    profiles.append(profile);
    manager.setProfiles(profiles);
    manager.save();
}

void ProfileEdits::addScannedKeys(ProfileManager& manager, const QList<ScannedKey>& keys)
{
    for (const ScannedKey& key : keys) {
        manager.addProfile(key.keyName, key.name, key.email,
                           QStringLiteral("~/.ssh/") + key.keyName);
    }
}
