// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

// "Repositories under this folder" or "repositories with a remote matching this pattern" use
// a profile. Where several rules match, the later one in the list wins.
struct IdentityRule {
    enum class Kind { Dir, Remote };

    QUuid profile;
    Kind kind = Kind::Dir;
    // For a folder: an absolute, cleaned path without a trailing "/". For a remote: git's
    // wildcard pattern for a URL, as the user typed it.
    QString pattern;

    static QString kindText(Kind kind)
    {
        return kind == Kind::Dir ? QStringLiteral("dir") : QStringLiteral("remote");
    }
    static std::optional<Kind> kindFrom(const QString& text);

    friend bool operator==(const IdentityRule&, const IdentityRule&) = default;
};

using IdentityRules = QList<IdentityRule>;
