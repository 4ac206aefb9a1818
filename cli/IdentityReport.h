// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/IdentityRule.h"
#include "model/GitProfile.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

// What identity git uses in a folder and why, as `kivora which` shows it. Everything comes from
// git itself run in that folder: the identity from `git var`, the origin of each value from
// `git config --show-origin --show-scope`, and the rule git applied last from the kivora.rule
// value that each rule's generated file sets.
struct IdentityReport {
    enum class Source { Rule, Repository, Environment, Global };

    QString gitName;
    QString gitEmail;
    std::optional<QString> sshCommand;
    std::optional<GitProfile> profile;
    Source source = Source::Global;
    std::optional<IdentityRule> rule;

    // Nothing, with a sentence in `error`, when `dir` is not a folder or git cannot run there.
    static std::optional<IdentityReport> probe(const QString& home, const QString& dir,
                                               const QList<GitProfile>& profiles,
                                               const std::optional<QUuid>& active,
                                               const IdentityRules& rules, QString* error);

    static QString sourceText(Source source);
    QByteArray json() const;
    // `kivora rule list --json`: an array of {"profile", "name", "kind", "pattern"}.
    static QByteArray rulesJson(const IdentityRules& rules, const QList<GitProfile>& profiles);
    // The display name of a rule's profile; empty when it has none.
    static QString profileName(const IdentityRule& rule, const QList<GitProfile>& profiles);
};
