// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"

#include <QList>
#include <QString>
#include <QStringList>

// Deleting a profile's SSH key: the private key file and the ".pub" beside it, and nothing
// else. A file is removed only when, after "~" is expanded and every ".." and link resolved,
// it is a regular file inside the user's ~/.ssh folder and not one of ssh's own files there
// (config, known_hosts, authorized_keys, …). Anything else is refused with a sentence saying
// why; a file that is simply not there is no refusal.
class KeyFileRemoval {
public:
    struct Outcome {
        QStringList removed; // the files removed, resolved
        QStringList missing; // files that were not there
        QStringList refused; // one sentence per file that was not removed, and why
    };

    // `home` holds ~/.ssh; `sshKeyPath` is the profile's key path as stored.
    static Outcome removeKeyPair(const QString& home, const QString& sshKeyPath);

    // Why the file at `path` (expanded) may not be removed, or an empty text when it may.
    // `shownAs` names it in the sentence.
    static QString refusal(const QString& home, const QString& path, const QString& shownAs);

    // The display names of the other profiles (another id) whose key path, expanded and
    // resolved, is the same file as this profile's. Empty when it has no key.
    static QStringList otherUsers(const QList<GitProfile>& profiles, const GitProfile& profile,
                                  const QString& home);
};
