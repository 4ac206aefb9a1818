// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

// When the next automatic update check falls due.
//
// A check is due an interval after the last completed check, or at once when there has
// never been one. A check that failed (server unreachable, bad feed) does not count as a
// completed check, so on its own it would be due again at once; to spare a server that is
// down, the next try waits an hour after the failure (or the interval, if shorter).
class UpdateSchedule {
public:
    static constexpr qint64 retryAfterFailureSeconds = 3600;

    // `lastCheck`: the last completed check, invalid when none; `lastFailure`: the last
    // failed try since then, invalid when none. A last check later than `now` (the clock
    // was put back) counts as made now.
    static QDateTime nextCheckDate(const QDateTime& lastCheck, const QDateTime& lastFailure,
                                   double intervalSeconds, const QDateTime& now);

    static bool isDue(const QDateTime& nextCheck, const QDateTime& now) { return nextCheck <= now; }
};
