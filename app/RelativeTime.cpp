// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/RelativeTime.h"

#include <QCoreApplication>

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
        // "%n year(s)": the count and its unit, in the plural form the count needs.
        const char* text;
    };
    static constexpr std::array<Unit, 7> units{{
        {365 * 86400, QT_TRANSLATE_N_NOOP("RelativeTime", "%n year(s)")},
        {30 * 86400, QT_TRANSLATE_N_NOOP("RelativeTime", "%n month(s)")},
        {7 * 86400, QT_TRANSLATE_N_NOOP("RelativeTime", "%n week(s)")},
        {86400, QT_TRANSLATE_N_NOOP("RelativeTime", "%n day(s)")},
        {3600, QT_TRANSLATE_N_NOOP("RelativeTime", "%n hour(s)")},
        {60, QT_TRANSLATE_N_NOOP("RelativeTime", "%n minute(s)")},
        {1, QT_TRANSLATE_N_NOOP("RelativeTime", "%n second(s)")},
    }};
    const qint64 elapsed = std::max<qint64>(0, since.secsTo(now));
    for (const Unit& unit : units) {
        const qint64 count = elapsed / unit.seconds;
        if (count >= 1 || unit.seconds == 1) {
            return QCoreApplication::translate("RelativeTime", unit.text, nullptr, int(count));
        }
    }
    return {};
}
