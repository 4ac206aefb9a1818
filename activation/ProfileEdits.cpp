#include "activation/ProfileEdits.h"

#include "activation/KeyFileRemoval.h"
#include "activation/ProfileManager.h"
#include "activation/RuleSync.h"

ProfileEdits::Deletion ProfileEdits::deleteProfile(ProfileManager& manager,
                                                   const GitProfile& profile, bool deleteSSHKey)
{
    Deletion deletion;
    deletion.saved = manager.change(
        [&profile](QList<GitProfile>& profiles, std::optional<QUuid>& active) {
            profiles.removeIf([&profile](const GitProfile& p) { return p.id == profile.id; });
            if (active == profile.id) {
                active.reset();
            }
        },
        &deletion.error);
    if (!deletion.saved) {
        // The key files stay with the profile that names them.
        return deletion;
    }
    if (deleteSSHKey && !profile.sshKeyPath.isEmpty()) {
        const auto outcome = KeyFileRemoval::removeKeyPair(manager.home(), profile.sshKeyPath);
        deletion.removed = outcome.removed;
        deletion.refused = outcome.refused;
    }
    // Its rules and generated git configuration go with it.
    RuleSync(manager.home()).refresh(manager.profiles());
    return deletion;
}

ProfileEdits::Replaced ProfileEdits::replaceProfile(ProfileManager& manager,
                                                    const GitProfile& profile, QString* error)
{
    return editProfile(
        manager, profile.id, [&profile](GitProfile& stored) { stored = profile; }, error);
}

ProfileEdits::Replaced ProfileEdits::editProfile(ProfileManager& manager, const QUuid& id,
                                                 const std::function<void(GitProfile&)>& edit,
                                                 QString* error, GitProfile* edited)
{
    bool found = false;
    const bool saved = manager.change(
        [&](QList<GitProfile>& profiles, std::optional<QUuid>&) {
            for (GitProfile& existing : profiles) {
                if (existing.id == id) {
                    edit(existing);
                    if (edited) {
                        *edited = existing;
                    }
                    found = true;
                    return;
                }
            }
        },
        error);
    if (!saved) {
        return Replaced::Failed;
    }
    if (!found) {
        return Replaced::Gone;
    }
    // Repositories its rules reach take the edited identity at once.
    RuleSync(manager.home()).refresh(manager.profiles());
    return Replaced::Saved;
}

bool ProfileEdits::appendProfile(ProfileManager& manager, const GitProfile& profile, QString* error)
{
    return manager.change([&profile](QList<GitProfile>& profiles,
                                     std::optional<QUuid>&) { profiles.append(profile); },
                          error);
}

bool ProfileEdits::addScannedKeys(ProfileManager& manager, const QList<ScannedKey>& keys,
                                  QString* error)
{
    QList<GitProfile> sources;
    for (const ScannedKey& key : keys) {
        GitProfile source;
        source.name = key.keyName;
        source.gitName = key.name;
        source.gitEmail = key.email;
        source.sshKeyPath = QStringLiteral("~/.ssh/") + key.keyName;
        sources.append(source);
    }
    return manager.addProfiles(sources, error).has_value();
}
