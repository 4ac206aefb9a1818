// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/IdentityRule.h"
#include "activation/SigningSettings.h"
#include "model/GitProfile.h"

#include <QList>
#include <QString>

// Turns the stored rules into git configuration, in ~/.kivora/git/:
//   profile-<UUID>.gitconfig  user.name, user.email and, with a key, core.sshCommand;
//   rule-<n>.gitconfig        the n-th rule: includes its profile's file and sets kivora.rule=n,
//                             so `git config kivora.rule` names the rule git applied last;
//   rules.gitconfig           one includeIf block per rule, in rule order (later ones win).
// The user's global configuration includes rules.gitconfig last. Without rules, none of these
// files exist and the include is gone.
class RuleSync {
public:
    explicit RuleSync(const QString& home);

    QString folder() const { return m_home + QStringLiteral("/.kivora/git"); }
    QString rulesFile() const { return folder() + QStringLiteral("/rules.gitconfig"); }
    QString profileFile(const QUuid& profile) const;
    QString ruleFile(qsizetype position) const;

    // The stored rules, or nothing with the reason in `error`.
    std::optional<IdentityRules> rules(QString* error = nullptr) const;

    // Stores `rules` and rewrites every generated file for them and these profiles. A rule
    // whose profile is not in the list is dropped. False, with a sentence in `error`, when a
    // file could not be written.
    bool apply(IdentityRules rules, const QList<GitProfile>& profiles,
               QString* error = nullptr) const;
    // Rewrites the generated files from the stored rules (after a profile was edited or deleted).
    bool refresh(const QList<GitProfile>& profiles, QString* error = nullptr) const;
    // Moves the global include back to the end when there are rules (after an activation).
    bool keepIncludeLast() const;

    // The shell command git runs for SSH with this profile's key: the wrapper, the key and an
    // option that stops ssh from offering any other key, e.g. one an agent holds.
    QString sshCommand(const GitProfile& profile) const;

    // The profile whose remote rule git applies to a repository with this remote URL, or
    // nothing. git itself matches the patterns, outside of any repository.
    std::optional<GitProfile> profileForRemote(const QString& url, const IdentityRules& rules,
                                               const QList<GitProfile>& profiles) const;

    // "/home/u/work" from "~/work", "work/" (against `base`) or "/home/u/work/."; empty when the
    // text cannot name a folder in a configuration file.
    static QString normalizedDir(const QString& text, const QString& base);

    // A profile that signs carries its signing key and format and switches signing on; one
    // that does not switches it off, so a commit there is never signed with the key of the
    // profile that happens to be active globally.
    static QByteArray profileText(const GitProfile& profile, const QString& sshCommand,
                                  const std::optional<SigningSettings>& signing = std::nullopt);

private:
    QByteArray rulesText(const IdentityRules& rules) const;
    QString m_home;
};
