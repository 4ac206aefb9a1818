// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/PrivateFolder.h"

#include "model/AtomicFile.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

bool PrivateFolder::ensure(const QString& path)
{
    AtomicFile::makePrivateFolder(path);
    const QByteArray name = QFile::encodeName(path);
    struct stat info {};
    if (::stat(name.constData(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        return false;
    }
    if ((info.st_mode & 077) == 0) {
        // Nobody else may enter. What the user took from themselves (a folder made
        // unreadable on purpose) is theirs to give back: it is not loosened here.
        return true;
    }
    // Only the owner may change the mode; a folder of someone else is left as it is. The
    // user's own bits stay as they are.
    return info.st_uid == ::geteuid() && ::chmod(name.constData(), info.st_mode & S_IRWXU) == 0;
}
