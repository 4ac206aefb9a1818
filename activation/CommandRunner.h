// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// Starts the external programs of an activation and waits for each. The program paths are
// explicit; tests can point them at other executables, which then run for real.
class CommandRunner {
public:
    struct Programs {
        QString bash = QStringLiteral("/bin/bash");
        QString env = QStringLiteral("/usr/bin/env");
    };

    CommandRunner() = default;
    explicit CommandRunner(Programs programs) : m_programs(std::move(programs)) {}

    // Runs `bash -c commandLine` and returns its standard output trimmed, or nothing when the
    // output is empty, not UTF-8, or the shell could not start. Standard error is dropped.
    std::optional<QString> shell(const QString& commandLine) const;

    // Runs several `bash -c` command lines at the same time and returns their results in order,
    // each as `shell` gives it.
    QList<std::optional<QString>> shellAll(const QStringList& commandLines) const;

    // Runs `env arguments…` (the first argument names a program found on PATH) with this
    // process's standard streams, waits for it and ignores its status.
    void run(const QStringList& arguments) const;

    // Runs `env arguments…` like run(), but with its standard error captured: nothing when
    // the program exited with status 0, else why not, as a phrase (the program's own first
    // line of complaint without its "error: " or "fatal: ", or that it could not start).
    std::optional<QString> attempt(const QStringList& arguments) const;

    // Runs `program arguments…` with nothing captured; returns its exit status, or -1 when it
    // could not be started or did not exit normally.
    int execute(const QString& program, const QStringList& arguments) const;

    const Programs& programs() const { return m_programs; }

private:
    Programs m_programs;
};
