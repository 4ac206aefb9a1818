// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AIConfig.h"

#include <QMetaType>
#include <QString>
#include <QUuid>

// One git identity the user can switch to.
struct GitProfile {
    Q_GADGET
    Q_PROPERTY(QString id READ idText)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString gitName MEMBER gitName)
    Q_PROPERTY(QString gitEmail MEMBER gitEmail)
    Q_PROPERTY(QString sshKeyPath MEMBER sshKeyPath)
    Q_PROPERTY(AIConfig aiConfig MEMBER aiConfig)

public:
    QUuid id;
    QString name;
    QString gitName;
    QString gitEmail;
    QString sshKeyPath; // "~/.ssh/<file>" or an absolute path; empty when there is no key
    AIConfig aiConfig;

    // A profile with a fresh id, empty texts and the default AI settings.
    static GitProfile empty();

    static GitProfile create(const QString& name, const QString& gitName, const QString& gitEmail,
                             const QString& sshKeyPath);

    bool hasKey() const { return !sshKeyPath.isEmpty(); }

    // The id as written in the profile file: upper case, hyphenated, no braces.
    QString idText() const;

    friend bool operator==(const GitProfile&, const GitProfile&) = default;
};

Q_DECLARE_METATYPE(GitProfile)
