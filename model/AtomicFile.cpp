// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

mode_t unixMode(QFileDevice::Permissions permissions)
{
    // Qt's user bits (0x0700 … 0x0001) mirror the Unix mode bits digit for digit.
    mode_t mode = 0;
    const auto bit = [&](QFileDevice::Permission p, mode_t m) {
        if (permissions.testFlag(p)) {
            mode |= m;
        }
    };
    bit(QFileDevice::ReadUser, S_IRUSR);
    bit(QFileDevice::WriteUser, S_IWUSR);
    bit(QFileDevice::ExeUser, S_IXUSR);
    bit(QFileDevice::ReadOwner, S_IRUSR);
    bit(QFileDevice::WriteOwner, S_IWUSR);
    bit(QFileDevice::ExeOwner, S_IXUSR);
    bit(QFileDevice::ReadGroup, S_IRGRP);
    bit(QFileDevice::WriteGroup, S_IWGRP);
    bit(QFileDevice::ExeGroup, S_IXGRP);
    bit(QFileDevice::ReadOther, S_IROTH);
    bit(QFileDevice::WriteOther, S_IWOTH);
    bit(QFileDevice::ExeOther, S_IXOTH);
    return mode;
}

bool writeAll(int fd, const QByteArray& bytes)
{
    const char* data = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, data, size_t(left));
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        data += n;
        left -= n;
    }
    return true;
}

} // namespace

bool AtomicFile::write(const QString& path, const QByteArray& bytes,
                       std::optional<QFileDevice::Permissions> permissions, QString* error)
{
    const auto fail = [error](int code) {
        if (error) {
            *error = QString::fromLocal8Bit(std::strerror(code));
        }
        return false;
    };
    QString target = path;
    const QFileInfo info(path);
    if (info.isSymLink() && info.exists()) {
        target = info.canonicalFilePath();
    }
    const QByteArray targetName = QFile::encodeName(target);

    // The mode the file ends up with: as asked, else the old file's, else the usual default.
    mode_t mode = 0;
    struct stat old {};
    if (permissions) {
        mode = unixMode(*permissions);
    } else if (::stat(targetName.constData(), &old) == 0) {
        mode = old.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }

    // The temporary file sits beside the target, so the final rename never crosses devices.
    QByteArray temporary = targetName + ".kivora-XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) {
        return fail(errno);
    }
    const bool written = ::fchmod(fd, mode) == 0 && writeAll(fd, bytes);
    int code = written ? 0 : errno;
    // A full disk may only show when the data is flushed at close.
    if (::close(fd) != 0 && code == 0) {
        code = errno;
    }
    if (code == 0 && ::rename(temporary.constData(), targetName.constData()) != 0) {
        code = errno;
    }
    if (code != 0) {
        ::unlink(temporary.constData());
        return fail(code);
    }
    return true;
}

bool AtomicFile::makePrivateFolder(const QString& path)
{
    QDir dir(path);
    if (dir.exists()) {
        return true;
    }
    // Create parents first so that only the folders made here are restricted.
    const QString parent = QFileInfo(dir.absolutePath()).path();
    if (!QDir(parent).exists() && !makePrivateFolder(parent)) {
        return false;
    }
    // Made with its final mode, so there is no moment in which others could enter it.
    const auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    return QDir().mkdir(dir.absolutePath(), ownerOnly) || QDir(path).exists();
}
