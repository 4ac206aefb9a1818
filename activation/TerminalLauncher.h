// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"

#include <QString>
#include <QStringList>

#include <optional>

// Opens a new terminal window whose shell has a profile's git author, committer and SSH key
// preset through environment variables. The global git configuration is left alone.
//
// The window runs `/bin/bash -O xpg_echo -c "L; exec ${SHELL:-/bin/bash} -i"`: L exports the
// identity and prints a greeting, then the user's own shell takes over the window and inherits
// the exports. The emulator is the first that starts of $TERMINAL, x-terminal-emulator and a
// fixed list of well-known emulators (see candidates()). "Starts" means it is executed and
// does not fail at once (see DetachedStart); emulators that need Wayland are passed over
// without a Wayland display. Nothing is shown when none starts.
class TerminalLauncher {
public:
    // What was started: the emulator's full path and its arguments.
    struct Launch {
        QString program;
        QStringList arguments;
    };

    // `home` is the folder that holds ".kivora"; empty means the user's home folder.
    explicit TerminalLauncher(const QString& home = QString());

    // Opens the window for the profile. Returns what was started, or nothing when no
    // emulator could be started (which nobody is told about).
    std::optional<Launch> open(const GitProfile& profile) const;

    // The command line L: the exports, then the greeting.
    static QString commandLine(const GitProfile& profile, const QString& home);

    // The text bash runs in the window: L, then the user's interactive shell.
    static QString shellCommand(const GitProfile& profile, const QString& home);

    // The program and arguments that run the shell command, before the emulator's own part.
    static QStringList bashInvocation(const QString& shellCommand);

    // The emulators tried after $TERMINAL, in order.
    static QStringList candidates();

    // The emulator's arguments that make it run `command`. `emulator` is a program name or
    // path; its file name picks the convention, and unknown names get "-e".
    static QStringList emulatorArguments(const QString& emulator, const QStringList& command);

    // True for emulators that only run on a Wayland display (foot).
    static bool needsWayland(const QString& emulator);

    QString home() const { return m_home; }

private:
    QString m_home;
};
