// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/LeftoverTemporaryFiles.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

bool LeftoverTemporaryFiles::isTemporaryFor(const QString& fileName, const QString& target)
{
    const QString prefix = target + QStringLiteral(".kivora-");
    if (fileName.size() != prefix.size() + 6 || !fileName.startsWith(prefix)) {
        return false;
    }
    for (const QChar c : QStringView(fileName).mid(prefix.size())) {
        const char16_t u = c.unicode();
        const bool letterOrDigit =
            (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9');
        if (!letterOrDigit) {
            return false;
        }
    }
    return true;
}

QStringList LeftoverTemporaryFiles::remove(const QString& folder, const QStringList& targets)
{
    QStringList removed;
    const QStringList entries =
        QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks);
    const time_t now = ::time(nullptr);
    for (const QString& entry : entries) {
        const bool ours = std::any_of(targets.cbegin(), targets.cend(),
                                      [&](const QString& t) { return isTemporaryFor(entry, t); });
        if (!ours) {
            continue;
        }
        const QString path = folder + u'/' + entry;
        const QByteArray name = QFile::encodeName(path);
        struct stat info {};
        if (::lstat(name.constData(), &info) != 0 || !S_ISREG(info.st_mode) ||
            info.st_uid != ::geteuid() || now - info.st_mtime < minimumAgeSeconds) {
            continue;
        }
        if (::unlink(name.constData()) == 0) {
            removed << path;
        }
    }
    return removed;
}
