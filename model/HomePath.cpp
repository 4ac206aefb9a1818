// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/HomePath.h"

#include <QDir>

#include <pwd.h>

QString HomePath::home()
{
    return QDir::homePath();
}

QString HomePath::expandTilde(const QString& path)
{
    if (!path.startsWith(u'~')) {
        return path;
    }
    const qsizetype slash = path.indexOf(u'/');
    const QString user = path.mid(1, slash < 0 ? -1 : slash - 1);
    const QString rest = slash < 0 ? QString() : path.mid(slash);
    if (user.isEmpty()) {
        return home() + rest;
    }
    const QByteArray userName = user.toLocal8Bit();
    if (const passwd* entry = ::getpwnam(userName.constData()); entry && entry->pw_dir) {
        return QString::fromLocal8Bit(entry->pw_dir) + rest;
    }
    return path;
}
