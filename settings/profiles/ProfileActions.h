// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"
#include "model/GitProfile.h"

#include <QObject>
#include <QVariantList>

// What the profiles page does to the profile list: activate, delete (with or without the key
// files), add the profile a new-profile editor returns, put an edited profile back in place,
// and turn the entries of a key scan into profiles. Every change is saved.
class ProfileActions : public QObject {
    Q_OBJECT
    // Why the last action failed (git or the profile file could not be written), as one
    // sentence; empty after one that worked. Also why the profile file, changed by someone
    // else, could not be read, until it can.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)

public:
    explicit ProfileActions(ProfileManager& manager, QObject* parent = nullptr);

    QString error() const { return m_error; }

    // The profile a new-profile editor starts from. It is made once per run of the program,
    // so every profile added through the editor in one run carries its id.
    static const GitProfile& newProfileTemplate();
    Q_INVOKABLE GitProfile profileTemplate() const { return newProfileTemplate(); }

    // The profile at a position of the list; an empty one past its end.
    Q_INVOKABLE GitProfile profileAt(int index) const;

    // Makes the profile active and rewrites the global identity. False when git or a file
    // could not be written.
    Q_INVOKABLE bool activate(const GitProfile& profile);
    // Removes every profile with this profile's id; with `deleteSSHKey` its key file and the
    // ".pub" beside it go first (each on its own; a missing one does not matter, and only a
    // regular file inside ~/.ssh is ever removed). When the profile was active none is
    // afterwards, and git is left as it is. Returns why a key file was kept (one sentence a
    // file), or an empty text.
    Q_INVOKABLE QString deleteProfile(const GitProfile& profile, bool deleteSSHKey);
    // The names of the other profiles that use the same key file, joined for a sentence
    // ("Work", "Work and Home", "Work, Home and Lab"); empty when none does.
    Q_INVOKABLE QString keySharedWith(const GitProfile& profile) const;
    // Appends the profile as it is, keeping its id. False when it could not be saved.
    Q_INVOKABLE bool addProfile(const GitProfile& profile);
    // Replaces the first profile with the same id in place. False, and nothing saved, when
    // the id is no longer in the list or the file could not be written.
    Q_INVOKABLE bool updateProfile(const GitProfile& profile);
    // One new profile per entry of a key scan (scannedKey values), in order, named after the
    // key file, with the key at "~/.ssh/<key>", all saved at once; an empty list does
    // nothing. False when they could not be saved.
    Q_INVOKABLE bool addScannedKeys(const QVariantList& entries);

signals:
    void errorChanged();

private:
    void setError(const QString& phrase);
    void showFileError();

    ProfileManager& m_manager;
    QString m_error;
    // The manager's file error as shown, to put it away when the file can be read again.
    QString m_fileError;
};
