// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/CommandRunner.h"
#include "activation/CommitSigning.h"
#include "activation/KeyFileRemoval.h"
#include "activation/ShellIntegration.h"
#include "activation/SigningStore.h"
#include "model/GitProfile.h"
#include "model/ProfileLock.h"
#include "model/ProfileStore.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

#include <functional>
#include <optional>

class AIContextManager;

// Owns the profile list, the active profile and every side effect of switching identity.
// Its list mirrors the profile file. Other processes (command lines, a second session) may
// write that file too, so every change is made under the profile lock on what the file holds
// at that moment: the list is read again first, taking over what others saved, the change is
// applied to it and the result saved. A stale list never overwrites a newer file.
//
// Every change of the list is announced row by row where it can be: a profile inserted,
// updated, removed or moved has its own signal for its row, after the change, so that a list
// model can insert and remove rows instead of starting again; `profilesReset` announces a
// list that changed in more ways at once. `profilesChanged` follows every change.
class ProfileManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<GitProfile> profiles READ profiles NOTIFY profilesChanged)
    Q_PROPERTY(QString activeProfileID READ activeProfileIDText NOTIFY activeProfileIDChanged)
    Q_PROPERTY(QString globalGitName READ globalGitName NOTIFY globalGitNameChanged)
    Q_PROPERTY(QString globalGitEmail READ globalGitEmail NOTIFY globalGitEmailChanged)
    Q_PROPERTY(bool needsProfileSetup READ needsProfileSetup WRITE setNeedsProfileSetup NOTIFY
                   needsProfileSetupChanged)
    Q_PROPERTY(QString fileError READ fileError NOTIFY fileErrorChanged)

public:
    struct Options {
        QString home;                     // empty: the user's home folder
        CommandRunner::Programs programs; // the programs an activation starts
        // At application start the saved profile's AI settings are put back into the
        // environment. A one-shot command that only reads leaves that alone.
        bool restoreAIContext = true;
        // A command that shows no global identity can skip reading it from git.
        bool readGlobalIdentity = true;
        // How long a change waits for another writer to let go of the profile file.
        int lockTimeoutMs = ProfileLock::defaultTimeoutMs;
    };

    // `aiContext` is where activations put the AI configuration; it must outlive the manager.
    explicit ProfileManager(AIContextManager& aiContext, QObject* parent = nullptr);
    ProfileManager(AIContextManager& aiContext, Options options, QObject* parent = nullptr);

    const QList<GitProfile>& profiles() const { return m_profiles; }
    // Changes the list in memory only; save() writes it.
    void setProfiles(const QList<GitProfile>& profiles);
    // The row of the first profile with this id, or -1.
    int indexOf(const QUuid& id) const;

    const std::optional<QUuid>& activeProfileID() const { return m_activeProfileID; }
    void setActiveProfileID(const std::optional<QUuid>& id);
    QString activeProfileIDText() const;
    // The active profile, when the active id names one.
    std::optional<GitProfile> activeProfile() const;

    QString globalGitName() const { return m_globalGitName; }
    QString globalGitEmail() const { return m_globalGitEmail; }

    bool needsProfileSetup() const { return m_needsProfileSetup; }
    void setNeedsProfileSetup(bool needed);

    // Where the profiles live, and what happened to the file at start.
    QString storagePath() const { return m_store.path(); }
    bool startedFresh() const { return m_startedFresh; }
    QString loadError() const { return m_loadError; }
    QString preservedFilePath() const { return m_preservedFilePath; }
    // Why the profiles first-run set-up made could not be saved; empty when they were (or
    // when the file was read).
    QString setupSaveError() const { return m_setupSaveError; }

    // Why the profile file, changed by someone else since, cannot be taken over: one phrase
    // without its full stop; empty while the list follows the file.
    QString fileError() const { return m_fileError; }

    enum class FileFollow {
        Unchanged,  // the file holds what this manager last read or wrote (or is gone)
        Reloaded,   // another writer's profiles are the list now
        Unreadable, // the last profiles read stay; `fileError` says why
        Busy,       // another writer holds the lock, or a change of this manager is under way
    };
    // Takes over what another writer saved to the profile file: its profiles and active id
    // become the list, announced row by row as any change. Never waits for the lock and never
    // writes anything: a file that cannot be read leaves the list as it is, and a file that
    // was removed leaves it too (the next change writes it again). Nothing is applied to git
    // or the shells, also when the active profile changed or went.
    FileFollow followFile();

    QString home() const { return m_home; }
    const ShellIntegration& shellIntegration() const { return m_shell; }
    const CommandRunner& runner() const { return m_runner; }

    // A change of the list and the active id, given the current ones to edit in place.
    using Change = std::function<void(QList<GitProfile>& profiles, std::optional<QUuid>& active)>;

    // Makes one change safely against other writers: with the profile file locked, what
    // another process saved since becomes the list (a missing or unreadable file leaves the
    // list as it is, an unreadable one kept aside first), the change is applied and the result
    // saved; a change that changes nothing saves nothing. Unsaved changes made with setProfiles()
    // stand as long as nobody else changed the file; otherwise the file wins. False when the file
    // could not be locked or written: then the list stays as the file has it, and `error` gets one
    // sentence without its final full stop ("the profiles could not be saved to … (Read-only file
    // system)").
    bool change(const Change& change, QString* error = nullptr);

    // Writes the list and active id in memory as they are (under the lock, but without
    // reading the file first: what was set with setProfiles() wins over what others saved).
    Q_INVOKABLE bool save();
    Q_INVOKABLE void refreshGlobalConfig();
    // Activates the profile. With the file locked, the list is read again first; a profile
    // that another process removed meanwhile is not applied. Every step runs even when one
    // fails (git's own settings may be unwritable); false, with the first failure as one
    // sentence in `error`, when git, the files of ~/.kivora or the profile file could not be
    // written.
    bool applyGlobally(const GitProfile& profile, QString* error = nullptr);
    // Appends a new profile (fresh id, display name by displayName(), no AI settings) and
    // saves; nothing when it could not be saved.
    std::optional<GitProfile> addProfile(const QString& name, const QString& gitName,
                                         const QString& gitEmail, const QString& sshKeyPath,
                                         QString* error = nullptr);
    // The same for several at once, in order, with one save: all or none are added.
    std::optional<QList<GitProfile>> addProfiles(const QList<GitProfile>& sources,
                                                 QString* error = nullptr);
    // Appends the profile as it is, keeping its id. False when it could not be saved.
    bool appendProfile(const GitProfile& profile, QString* error = nullptr);

    enum class Update { Saved, Gone, Failed };
    // Replaces the first profile with the same id, in place; repositories its rules reach take
    // the edited identity at once. Gone, and nothing saved, when there is none.
    Update updateProfile(const GitProfile& profile, QString* error = nullptr);
    // The same, with the change given as an edit of the stored profile: fields another process
    // changed meanwhile and `edit` leaves alone are kept. `edited` receives the result.
    Update editProfile(const QUuid& id, const std::function<void(GitProfile&)>& edit,
                       QString* error = nullptr, GitProfile* edited = nullptr);

    struct Removal {
        bool saved = false;
        QString error; // why the profile file could not be written
        QStringList removedKeyFiles;
        QStringList refusedKeyFiles; // one sentence for each key file that was kept
    };
    // Removes every profile with this profile's id and, with `forgetActive`, forgets it as the
    // active one; git and the shell files are left as they are. With `deleteSSHKey` the key
    // file and the ".pub" beside it are removed too, each on its own and only when it is a
    // regular file inside ~/.ssh (see KeyFileRemoval). The rules of the removed profile go
    // with it. When the profile file cannot be written the profile stays, and so do its key
    // files.
    Removal removeProfile(const GitProfile& profile, bool deleteSSHKey = false,
                          bool forgetActive = true);
    // Moves the profile at row `from` to row `to` and saves. False for a row out of range or
    // when it could not be saved.
    bool moveProfile(int from, int to, QString* error = nullptr);
    Q_INVOKABLE void openTerminal(const GitProfile& profile);

    // "id_rsa_Work" → "Rsa_work", "work laptop" → "Work Laptop".
    static QString displayName(const QString& name);

    // Commit signing, kept beside the profiles by id. Changing the active profile's signing
    // takes effect at once; the allowed signers are rewritten for every change.
    const SigningStore& signingStore() const { return m_signingStore; }
    const CommitSigning& commitSigning() const { return m_signing; }
    bool setSigning(const QUuid& id, const std::optional<SigningSettings>& settings,
                    QString* error = nullptr);

signals:
    void profilesChanged();
    void profileInserted(int row);
    void profileUpdated(int row);
    void profileRemoved(int row);
    void profileMoved(int from, int to);
    void profilesReset();
    void activeProfileIDChanged();
    void globalGitNameChanged();
    void globalGitEmailChanged();
    void needsProfileSetupChanged();
    void fileErrorChanged();
    // followFile() took over a file another writer changed.
    void fileReloaded();

private:
    // Runs `work` with the profile file locked; nested calls share the lock. False when the
    // lock could not be had (`error` says why) or `work` returned false.
    bool locked(const std::function<bool()>& work, QString* error);
    // Takes over what the file holds now, when another process changed it and it can be read.
    void readStoredChanges();
    // Saves the list and active id; afterwards they are the state in memory.
    bool store(const QList<GitProfile>& profiles, const std::optional<QUuid>& active,
               QString* error);
    QString saveFailure(const QString& reason) const;
    void start();
    void restoreAIContext();
    // The side effects of an activation: git's settings, the wrapper, the AI environment file
    // and this process's environment. Each failure goes to `note` as one sentence.
    void activate(const GitProfile& profile, const std::function<void(const QString&)>& note);
    void syncAllowedSigners() const;
    void setupOnFreshInstall();
    void setGlobalGitName(const QString& name);
    void setGlobalGitEmail(const QString& email);
    void setFileError(const QString& error);
    // Announces how the list changed from `before` to what it is now.
    void announceChanges(const QList<GitProfile>& before);

    QString m_home;
    CommandRunner m_runner;
    ShellIntegration m_shell;
    ProfileStore m_store;
    ProfileLock m_lock;
    int m_lockTimeoutMs;
    int m_lockDepth = 0;
    // The list in memory is exactly what the file holds (read or written last).
    bool m_inSync = false;
    // The file's bytes as this manager last read or wrote them: a file that still holds them
    // has not been changed by anyone else since.
    QByteArray m_knownBytes;
    SigningStore m_signingStore;
    CommitSigning m_signing;
    AIContextManager& m_aiContext;
    bool m_restoreAIContext;
    bool m_readGlobalIdentity;

    QList<GitProfile> m_profiles;
    std::optional<QUuid> m_activeProfileID;
    QString m_globalGitName;
    QString m_globalGitEmail;
    bool m_needsProfileSetup = false;

    bool m_startedFresh = false;
    QString m_loadError;
    QString m_preservedFilePath;
    QString m_setupSaveError;
    QString m_fileError;
};
