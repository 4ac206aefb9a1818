#pragma once

#include "model/GitProfile.h"

#include <QList>
#include <QString>
#include <QStringList>

class ProfileManager;

// The changes the profiles page and the command line make to the profile list. They edit the
// manager's list and save it; none of them activates a profile or touches git.
class ProfileEdits {
public:
    struct ScannedKey {
        QString keyName;
        QString name;
        QString email;
    };

    // Removes every profile with the profile's id and forgets it as the active one. With
    // `deleteSSHKey` the key file and its ".pub" beside it are removed first, each attempt on
    // its own and only when it is a regular file inside ~/.ssh (see KeyFileRemoval); a
    // sentence for each file refused goes to `refused`. The profile goes either way.
    // Returns the key files that were removed.
    static QStringList deleteProfile(ProfileManager& manager, const GitProfile& profile,
                                     bool deleteSSHKey, QStringList* refused = nullptr);

    // Replaces the first profile with the same id, in place. False when there is none; then
    // nothing is saved.
    static bool replaceProfile(ProfileManager& manager, const GitProfile& profile);

    // Appends the profile as it is, keeping its id.
    static void appendProfile(ProfileManager& manager, const GitProfile& profile);

    // One profile per entry, named after the key file, with the key at "~/.ssh/<keyName>".
    static void addScannedKeys(ProfileManager& manager, const QList<ScannedKey>& keys);
};
