// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>

// Elapsed time in words, as "Last checked: 5 minutes ago" writes it: the largest whole unit
// ("45 seconds", "1 minute", "3 hours", "2 days", "1 week", "4 months", "1 year").
class RelativeTime : public QObject {
    Q_OBJECT

public:
    explicit RelativeTime(QObject* parent = nullptr);

    Q_INVOKABLE static QString describe(const QDateTime& since);
    static QString describe(const QDateTime& since, const QDateTime& now);
};
