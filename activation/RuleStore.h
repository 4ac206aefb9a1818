// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/IdentityRule.h"

#include <QByteArray>
#include <QString>

#include <optional>

// The rules in ~/.kivora/rules.json, in order:
//   {"rules": [{"profile": "<UUID>", "kind": "dir"|"remote", "pattern": "<text>"}, …]}
// The file is private to the user and replaced whole. A missing file holds no rules.
class RuleStore {
public:
    explicit RuleStore(const QString& home);

    QString path() const { return m_path; }

    // The stored rules; nothing, with the reason in `error`, when the file cannot be read.
    std::optional<IdentityRules> load(QString* error = nullptr) const;
    bool save(const IdentityRules& rules) const;

    static QByteArray encode(const IdentityRules& rules);
    static std::optional<IdentityRules> decode(const QByteArray& bytes, QString* error = nullptr);

private:
    QString m_path;
};
