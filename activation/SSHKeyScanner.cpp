// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/SSHKeyScanner.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

QStringList SSHKeyScanner::scan(const QString& home)
{
    const QString folder = home + QStringLiteral("/.ssh");
    QStringList keys;
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        if (!name.endsWith(QLatin1String(".pub")) || name.contains(QLatin1String(".pub.pub"))) {
            continue;
        }
        const QString base = name.chopped(4);
        if (!base.isEmpty() && QFileInfo::exists(folder + u'/' + base)) {
            keys.append(base);
        }
    }
    return keys;
}

QStringList SSHKeyScanner::scanSorted(const QString& home)
{
    QStringList keys = scan(home);
    std::sort(keys.begin(), keys.end());
    return keys;
}
