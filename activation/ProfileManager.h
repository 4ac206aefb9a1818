#pragma once

#include "activation/CommandRunner.h"
#include "activation/CommitSigning.h"
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
class ProfileManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<GitProfile> profiles READ profiles WRITE setProfiles NOTIFY profilesChanged)
    Q_PROPERTY(QString activeProfileID READ activeProfileIDText NOTIFY activeProfileIDChanged)
    Q_PROPERTY(QString globalGitName READ globalGitName NOTIFY globalGitNameChanged)
    Q_PROPERTY(QString globalGitEmail READ globalGitEmail NOTIFY globalGitEmailChanged)
    Q_PROPERTY(bool needsProfileSetup READ needsProfileSetup WRITE setNeedsProfileSetup NOTIFY
                   needsProfileSetupChanged)

public:
    struct Options {
        QString home;                          // empty: the user's home folder
        CommandRunner::Programs programs;      // the programs an activation starts
        AIContextManager* aiContext = nullptr; // null: the process's shared instance
        // At application start the saved profile's AI settings are put back into the
        // environment. A one-shot command that only reads leaves that alone.
        bool restoreAIContext = true;
        // A command that shows no global identity can skip reading it from git.
        bool readGlobalIdentity = true;
        // How long a change waits for another writer to let go of the profile file.
        int lockTimeoutMs = ProfileLock::defaultTimeoutMs;
    };

    explicit ProfileManager(QObject* parent = nullptr);
    explicit ProfileManager(Options options, QObject* parent = nullptr);

    const QList<GitProfile>& profiles() const { return m_profiles; }
    // Changes the list in memory only; save() writes it.
    void setProfiles(const QList<GitProfile>& profiles);

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
    void activeProfileIDChanged();
    void globalGitNameChanged();
    void globalGitEmailChanged();
    void needsProfileSetupChanged();

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
    AIContextManager& aiContext() const;

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
    AIContextManager* m_aiContext;
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
};
