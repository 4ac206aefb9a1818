// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StartupTrace.h"

#include <QFile>
#include <QTextStream>

#include <ctime>
#include <unistd.h>

bool StartupTrace::enabled()
{
    static const bool on = qEnvironmentVariableIntValue("KIVORA_TRACE") == 1;
    return on;
}

qint64 StartupTrace::sinceProcessStart()
{
    // Field 22 of /proc/self/stat is the start time in clock ticks after boot; the
    // monotonic "boot time" clock gives now on the same scale.
    QFile stat(QStringLiteral("/proc/self/stat"));
    if (stat.open(QIODevice::ReadOnly)) {
        const QByteArray line = stat.readAll();
        const qsizetype close = line.lastIndexOf(')');
        const QList<QByteArray> fields = line.mid(close + 2).split(' ');
        // After the command name, field 3 is at index 0, so field 22 is at index 19.
        if (fields.size() > 19) {
            const double ticks = double(sysconf(_SC_CLK_TCK));
            const double started = fields.at(19).toDouble() / ticks;
            timespec now{};
            clock_gettime(CLOCK_BOOTTIME, &now);
            const double seconds = double(now.tv_sec) + double(now.tv_nsec) / 1e9;
            return qint64((seconds - started) * 1000.0);
        }
    }
    static QElapsedTimer fallback;
    if (!fallback.isValid()) {
        fallback.start();
    }
    return fallback.elapsed();
}

qint64 StartupTrace::residentKiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        return -1;
    }
    // Files under /proc report no size, so read them whole rather than testing for the end.
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).simplified().split(' ').value(0).toLongLong();
        }
    }
    return -1;
}

void StartupTrace::mark(const QString& what, qint64 milliseconds)
{
    if (!enabled()) {
        return;
    }
    QTextStream(stderr) << "kivora-trace: " << what << ' ' << milliseconds << " ms rss "
                        << residentKiB() << " KiB" << Qt::endl;
}
