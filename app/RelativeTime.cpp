// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/RelativeTime.h"

#include <array>

RelativeTime::RelativeTime(QObject* parent) : QObject(parent) {}

QString RelativeTime::describe(const QDateTime& since)
{
    return describe(since, QDateTime::currentDateTimeUtc());
}

QString RelativeTime::describe(const QDateTime& since, const QDateTime& now)
{
    struct Unit {
        qint64 seconds;
        const char* one;
        const char* many;
    };
    static constexpr std::array<Unit, 7> units{{
        {365 * 86400, "year", "years"},
        {30 * 86400, "month", "months"},
        {7 * 86400, "week", "weeks"},
        {86400, "day", "days"},
        {3600, "hour", "hours"},
        {60, "minute", "minutes"},
        {1, "second", "seconds"},
    }};
    const qint64 elapsed = std::max<qint64>(0, since.secsTo(now));
    for (const Unit& unit : units) {
        const qint64 count = elapsed / unit.seconds;
        if (count >= 1 || unit.seconds == 1) {
            return QStringLiteral("%1 %2").arg(count).arg(
                QLatin1String(count == 1 ? unit.one : unit.many));
        }
    }
    return {};
}
