// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

// How a profile signs its commits and tags. Kept by Kivora beside the profiles (the profile
// file has a fixed layout), keyed by profile id.
struct SigningSettings {
    enum class Format { ssh, openpgp };

    // As the user gave it: the path of an SSH key ("~/.ssh/id_work.pub"; a private key path
    // works too, git then signs with it directly), a literal "key::ssh-ed25519 AAAA…", or an
    // OpenPGP key id or fingerprint.
    QString key;
    Format format = Format::ssh;
    bool signCommits = false;

    friend bool operator==(const SigningSettings&, const SigningSettings&) = default;

    // A path or a literal SSH key signs in the SSH format; anything else names an OpenPGP key.
    static Format formatOf(const QString& key);
    // "ssh" and "openpgp": git's names for gpg.format.
    static QString formatName(Format format);
    static std::optional<Format> formatFromName(const QString& name);

    // True when the settings make git sign: a key and signing switched on.
    bool signs() const { return signCommits && !key.isEmpty(); }
};
