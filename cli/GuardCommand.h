// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/CommandRunner.h"
#include "model/GitProfile.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <functional>

// `kivora guard on|off|status [DIR]` and the `kivora guard check` the hooks run: refuses a
// commit in a repository that a rule governs when the identity git is about to record is not
// the rule's profile.
class GuardCommand {
    Q_DECLARE_TR_FUNCTIONS(GuardCommand)

public:
    // The hooks run `kivoraProgram guard check`. `profiles` is only asked for when a rule
    // governs the repository, so a commit elsewhere reads no profile file.
    using Profiles = std::function<QList<GitProfile>()>;
    GuardCommand(QString home, CommandRunner::Programs programs, Profiles profiles,
                 QTextStream& out, QTextStream& err, QString kivoraProgram);

    // The exit status: 0 done (or the commit may go ahead), 1 refused or failed.
    int on();
    int off();
    int status(const QString& folder);
    int check();

private:
    int fail(const QString& sentence);

    QString m_home;
    CommandRunner::Programs m_programs;
    Profiles m_profiles;
    QTextStream& m_out;
    QTextStream& m_err;
    QString m_kivora;
};
