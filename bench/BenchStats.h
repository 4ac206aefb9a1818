// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

#include <algorithm>

// Median and 95th percentile of a series of timings in milliseconds.
struct BenchStats {
    double median = 0;
    double p95 = 0;

    static BenchStats of(QList<double> samples)
    {
        BenchStats stats;
        if (samples.isEmpty()) {
            return stats;
        }
        std::sort(samples.begin(), samples.end());
        const auto at = [&samples](double q) {
            const qsizetype i = std::min<qsizetype>(
                samples.size() - 1, qsizetype(q * double(samples.size() - 1) + 0.5));
            return samples.at(i);
        };
        stats.median = at(0.5);
        stats.p95 = at(0.95);
        return stats;
    }

    QString text() const
    {
        return QStringLiteral("median %1 ms, p95 %2 ms").arg(median, 0, 'f', 2).arg(p95, 0, 'f', 2);
    }
};
