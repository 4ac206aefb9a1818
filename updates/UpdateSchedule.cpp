// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/UpdateSchedule.h"

#include <algorithm>

namespace {

QDateTime after(const QDateTime& start, double seconds)
{
    return start.addMSecs(static_cast<qint64>(seconds * 1000.0));
}

} // namespace

QDateTime UpdateSchedule::nextCheckDate(const QDateTime& lastCheck, const QDateTime& lastFailure,
                                        double intervalSeconds, const QDateTime& now)
{
    QDateTime next = now;
    if (lastCheck.isValid()) {
        next = after(std::min(lastCheck, now), intervalSeconds);
    }
    if (lastFailure.isValid() && (!lastCheck.isValid() || lastFailure > lastCheck)) {
        const double wait =
            std::min(intervalSeconds, static_cast<double>(retryAfterFailureSeconds));
        next = std::max(next, after(lastFailure, wait));
    }
    return next;
}
