#include "activation/ProfileEdits.h"

#include "activation/KeyFileRemoval.h"
#include "activation/ProfileManager.h"
#include "activation/RuleSync.h"

QStringList ProfileEdits::deleteProfile(ProfileManager& manager, const GitProfile& profile,
                                        bool deleteSSHKey, QStringList* refused)
{
    QStringList removed;
    if (deleteSSHKey && !profile.sshKeyPath.isEmpty()) {
        const auto outcome = KeyFileRemoval::removeKeyPair(manager.home(), profile.sshKeyPath);
        removed = outcome.removed;
        if (refused) {
            *refused = outcome.refused;
        }
    }
    QList<GitProfile> profiles = manager.profiles();
    profiles.removeIf([&profile](const GitProfile& p) { return p.id == profile.id; });
    manager.setProfiles(profiles);
    if (manager.activeProfileID() == profile.id) {
        manager.setActiveProfileID(std::nullopt);
    }
    manager.save();
    // Its rules and generated git configuration go with it.
    RuleSync(manager.home()).refresh(manager.profiles());
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
            // Repositories its rules reach take the edited identity at once.
            RuleSync(manager.home()).refresh(manager.profiles());
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
