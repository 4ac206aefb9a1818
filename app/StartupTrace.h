// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QString>

// Timing and memory figures of the running application, printed to standard error when
// KIVORA_TRACE=1 is set: time from process start to a milestone and the resident memory.
// app/measure.sh drives a whole measurement with it.
class StartupTrace {
public:
    static bool enabled();
    // Milliseconds since the process started (from /proc; the clock of this class when
    // the start time cannot be read).
    static qint64 sinceProcessStart();
    // The resident set size in kibibytes, from /proc/self/status.
    static qint64 residentKiB();
    // One line: "kivora-trace: <what> <ms> ms rss <KiB> KiB".
    static void mark(const QString& what, qint64 milliseconds);
};
