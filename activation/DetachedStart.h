// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

// Starts a program detached from this process (its own session, standard streams on
// /dev/null; it outlives us and is never our zombie) and watches it for a short while.
//
// A program that ends within that while with a failure status, or by a signal, did not
// start: a terminal emulator that cannot reach its display prints an error and exits at
// once. One that is still running, or ended successfully (it handed the window over to a
// server process, as gnome-terminal does), started.
class DetachedStart {
public:
    enum class Outcome {
        Running,    // still running at the end of the watch
        ExitedOkay, // ended with status 0 within the watch
        Failed,     // could not be executed, or ended with another status or a signal
    };

    struct Result {
        Outcome outcome = Outcome::Failed;
        // The exit status, or 128 + the signal, when it ended; -1 otherwise.
        int status = -1;
        bool started() const { return outcome != Outcome::Failed; }
    };

    // `program` is a full path. The environment is this process's own.
    static Result run(const QString& program, const QStringList& arguments,
                      const QString& workingDirectory, std::chrono::milliseconds watch);
};
