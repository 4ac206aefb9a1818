// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/CommandRunner.h"

#include <QString>
#include <QStringList>

#include <optional>

// The wrong-identity guard's installation: a folder of hooks, ~/.kivora/hooks, named by the
// global core.hooksPath. Each hook first runs the repository's own hook of the same name (so
// installing the guard disables nobody's hooks) and keeps its exit status; pre-commit and
// pre-merge-commit then ask `kivora guard check` whether the identity about to be recorded is
// the one the repository's rule gives.
class CommitGuard {
public:
    enum class State { off, on, other }; // other: core.hooksPath names a folder of the user's

    CommitGuard(const QString& home, CommandRunner::Programs programs, QString kivoraProgram);

    QString hooksFolder() const { return m_home + QStringLiteral("/.kivora/hooks"); }

    State state() const;
    // The global core.hooksPath, or empty when it is not set.
    QString globalHooksPath() const;

    // Writes the hooks and sets core.hooksPath. Refused, with the reason in `error`, when the
    // user already has a global core.hooksPath of their own.
    bool enable(QString* error = nullptr) const;
    // Unsets core.hooksPath when it still names Kivora's folder (git drops a [core] section
    // that this leaves empty, so the file is as it was) and removes the hooks.
    bool disable(QString* error = nullptr) const;

    // Whether a repository bypasses the guard with a core.hooksPath of its own (set by husky
    // and the like); its value, or nothing.
    std::optional<QString> repositoryHooksPath(const QString& folder) const;

    // Every hook git runs, by name.
    static const QStringList& hookNames();
    // The text of one hook; `checks` adds the identity check after the repository's hook.
    static QByteArray hookText(const QString& name, const QString& kivoraProgram, bool checks);

private:
    QString m_home;
    CommandRunner::Programs m_programs;
    QString m_kivora;
};
