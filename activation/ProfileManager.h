// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/CommandRunner.h"
#include "activation/CommitSigning.h"
#include "activation/KeyFileRemoval.h"
#include "activation/ShellIntegration.h"
#include "activation/SigningStore.h"
#include "model/GitProfile.h"
#include "model/ProfileStore.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

class AIContextManager;

// Owns the profile list, the active profile and every side effect of switching identity.
// The in-memory state is authoritative; the profile file mirrors it after each save().
//
// The list changes one row at a time (add, update, remove, move), each announced by its own
// signal after the change, so that a list model can insert and remove rows instead of
// starting again; `profilesReset` announces a list replaced whole. `profilesChanged` follows
// every change of either kind.
class ProfileManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<GitProfile> profiles READ profiles NOTIFY profilesChanged)
    Q_PROPERTY(QString activeProfileID READ activeProfileIDText NOTIFY activeProfileIDChanged)
    Q_PROPERTY(QString globalGitName READ globalGitName NOTIFY globalGitNameChanged)
    Q_PROPERTY(QString globalGitEmail READ globalGitEmail NOTIFY globalGitEmailChanged)
    Q_PROPERTY(bool needsProfileSetup READ needsProfileSetup WRITE setNeedsProfileSetup NOTIFY
                   needsProfileSetupChanged)
    Q_PROPERTY(QString saveError READ saveError NOTIFY saveErrorChanged)

public:
    struct Options {
        QString home;                     // empty: the user's home folder
        CommandRunner::Programs programs; // the programs an activation starts
        // At application start the saved profile's AI settings are put back into the
        // environment. A one-shot command that only reads leaves that alone.
        bool restoreAIContext = true;
        // A command that shows no global identity can skip reading it from git.
        bool readGlobalIdentity = true;
    };

    // `aiContext` is where activations put the AI configuration; it must outlive the manager.
    explicit ProfileManager(AIContextManager& aiContext, QObject* parent = nullptr);
    ProfileManager(AIContextManager& aiContext, Options options, QObject* parent = nullptr);

    const QList<GitProfile>& profiles() const { return m_profiles; }
    // Replaces the list whole (start-up, tests arranging a state). Not saved.
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

    QString home() const { return m_home; }
    const ShellIntegration& shellIntegration() const { return m_shell; }
    const CommandRunner& runner() const { return m_runner; }

    // Writes the profile file; false, with `saveError` saying so, when it could not be written.
    Q_INVOKABLE bool save();
    // The sentence for the last save that failed; empty once one succeeded.
    QString saveError() const { return m_saveError; }
    Q_INVOKABLE void refreshGlobalConfig();
    void applyGlobally(const GitProfile& profile);
    // A new profile with a fresh id, its display name made from `name` by displayName(),
    // appended and saved.
    GitProfile addProfile(const QString& name, const QString& gitName, const QString& gitEmail,
                          const QString& sshKeyPath);
    // Appends the profile as it is, keeping its id, and saves.
    void appendProfile(const GitProfile& profile);
    // Replaces the first profile with the same id in place and saves; its rules follow the
    // edited identity at once. False, and nothing saved, when no profile has the id.
    bool updateProfile(const GitProfile& profile);

    struct Removal {
        QStringList removedKeyFiles;
        QStringList refusedKeyFiles; // one sentence for each key file kept, and why
    };
    // Removes every profile with this profile's id and, with `forgetActive`, forgets it as the
    // active one; git and the shell files are left as they are. With `deleteSSHKey`, its key
    // file and the ".pub" beside it go first (see KeyFileRemoval): the profile goes whatever
    // happens to them. Saves; the rules of the removed profile go too.
    Removal removeProfile(const GitProfile& profile, bool deleteSSHKey = false,
                          bool forgetActive = true);
    // Moves the profile at row `from` to row `to` and saves. False for a row out of range.
    bool moveProfile(int from, int to);
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
    void saveErrorChanged();

private:
    void start();
    void restoreAIContext();
    void syncAllowedSigners() const;
    void setupOnFreshInstall();
    void setGlobalGitName(const QString& name);
    void setGlobalGitEmail(const QString& email);
    void listChanged();

    QString m_home;
    CommandRunner m_runner;
    ShellIntegration m_shell;
    ProfileStore m_store;
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
    QString m_saveError;

    bool m_startedFresh = false;
    QString m_loadError;
    QString m_preservedFilePath;
};
