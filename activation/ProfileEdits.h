#pragma once

#include "model/GitProfile.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <functional>

class ProfileManager;

// The changes the profiles page and the command line make to the profile list. Each is one
// change of the manager (made on what the profile file holds at that moment, and saved); none
// of them activates a profile or touches git. Those that can fail return false with one
// sentence in `error` when the profile file could not be written; then nothing was changed.
class ProfileEdits {
public:
    struct ScannedKey {
        QString keyName;
        QString name;
        QString email;
    };

    struct Deletion {
        bool saved = false;
        QString error;       // why the profile file could not be written
        QStringList removed; // key files removed
        QStringList refused; // one sentence for each key file that was kept
    };

    // Removes every profile with the profile's id and forgets it as the active one. With
    // `deleteSSHKey` the key file and its ".pub" beside it are removed too, each attempt on
    // its own and only when it is a regular file inside ~/.ssh (see KeyFileRemoval); the
    // profile goes whatever happens to the key files. When the profile file cannot be written
    // the profile stays, and so do its key files.
    static Deletion deleteProfile(ProfileManager& manager, const GitProfile& profile,
                                  bool deleteSSHKey);

    enum class Replaced { Saved, Gone, Failed };
    // Replaces the first profile with the same id, in place. Gone, and nothing saved, when
    // there is none.
    static Replaced replaceProfile(ProfileManager& manager, const GitProfile& profile,
                                   QString* error = nullptr);
    // The same, with the change given as an edit of the stored profile: fields another process
    // changed meanwhile and `edit` leaves alone are kept.
    static Replaced editProfile(ProfileManager& manager, const QUuid& id,
                                const std::function<void(GitProfile&)>& edit,
                                QString* error = nullptr, GitProfile* edited = nullptr);

    // Appends the profile as it is, keeping its id.
    static bool appendProfile(ProfileManager& manager, const GitProfile& profile,
                              QString* error = nullptr);

    // One profile per entry, named after the key file, with the key at "~/.ssh/<keyName>",
    // all saved at once.
    static bool addScannedKeys(ProfileManager& manager, const QList<ScannedKey>& keys,
                               QString* error = nullptr);
};
