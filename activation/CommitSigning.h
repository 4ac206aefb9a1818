// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/CommandRunner.h"
#include "activation/SigningSettings.h"
#include "model/GitProfile.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

// Puts a profile's commit signing into the global git configuration, and keeps the file of
// allowed signers through which git verifies the user's own SSH signatures.
//
// A profile that signs sets user.signingKey, gpg.format, commit.gpgSign and tag.gpgSign. What
// Kivora wrote is remembered in ~/.kivora/signing-applied.json together with the value each
// key had before; switching to a profile that does not sign puts back those earlier values,
// but only for keys that still hold what Kivora wrote: a value the user has set by hand since
// is theirs and stays.
class CommitSigning {
public:
    CommitSigning(const QString& home, CommandRunner::Programs programs);

    QString allowedSignersPath() const;
    QString appliedRecordPath() const;

    // Applies the signing of the profile being activated (nothing: it does not sign). False,
    // with `error`, when git could not be changed.
    bool apply(const std::optional<SigningSettings>& settings, QString* error = nullptr) const;

    // Rewrites the allowed-signers file from every profile's e-mail and SSH public key, and
    // points gpg.ssh.allowedSignersFile at it unless the user points it elsewhere.
    bool writeAllowedSigners(const QList<GitProfile>& profiles,
                             const QHash<QUuid, SigningSettings>& signing,
                             QString* error = nullptr) const;

    // Rewrites the allowed-signers file only when its text would change; cheap when it would not
    // (no git is started), so it can follow every save of the profiles.
    bool refreshAllowedSigners(const QList<GitProfile>& profiles,
                               const QHash<QUuid, SigningSettings>& signing,
                               QString* error = nullptr) const;

    // The allowed-signers text for these profiles (one line per profile that signs with an
    // SSH key whose public half can be read). E-mails that would change the meaning of the
    // line (blanks, commas, wildcards, quotes, control characters) are left out.
    QByteArray allowedSignersText(const QList<GitProfile>& profiles,
                                  const QHash<QUuid, SigningSettings>& signing) const;

    // The public key ("ssh-ed25519 AAAA…") of an SSH signing key, or nothing.
    QString publicKey(const QString& key) const;

    // The value given to git for user.signingKey: SSH key paths expanded, the rest as given.
    static QString gitSigningKey(const SigningSettings& settings);

private:
    std::optional<QString> get(const QString& key) const;
    bool setValue(const QString& key, const QString& value) const;
    bool unset(const QString& key) const;

    QString m_home;
    CommandRunner::Programs m_programs;
};
