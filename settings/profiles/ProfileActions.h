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

public:
    explicit ProfileActions(ProfileManager& manager, QObject* parent = nullptr);

    // The profile a new-profile editor starts from. It is made once per run of the program,
    // so every profile added through the editor in one run carries its id.
    static const GitProfile& newProfileTemplate();
    Q_INVOKABLE GitProfile profileTemplate() const { return newProfileTemplate(); }

    // The profile at a position of the list; an empty one past its end.
    Q_INVOKABLE GitProfile profileAt(int index) const;

    // Makes the profile active and rewrites the global identity.
    Q_INVOKABLE void activate(const GitProfile& profile);
    // Removes every profile with this profile's id; with `deleteSSHKey` its key file and the
    // ".pub" beside it go first (each on its own; a missing one does not matter, and only a
    // regular file inside ~/.ssh is ever removed). When the profile was active none is
    // afterwards, and git is left as it is. Returns why a key file was kept (one sentence a
    // file), or an empty text.
    Q_INVOKABLE QString deleteProfile(const GitProfile& profile, bool deleteSSHKey);
    // The names of the other profiles that use the same key file, joined for a sentence
    // ("Work", "Work and Home", "Work, Home and Lab"); empty when none does.
    Q_INVOKABLE QString keySharedWith(const GitProfile& profile) const;
    // Appends the profile as it is, keeping its id.
    Q_INVOKABLE void addProfile(const GitProfile& profile);
    // Replaces the first profile with the same id in place. False, and nothing saved, when
    // the id is no longer in the list.
    Q_INVOKABLE bool updateProfile(const GitProfile& profile);
    // One new profile per entry of a key scan (scannedKey values), in order, named after the
    // key file, with the key at "~/.ssh/<key>"; an empty list does nothing.
    Q_INVOKABLE void addScannedKeys(const QVariantList& entries);

private:
    ProfileManager& m_manager;
};
