// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileLock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString reason(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

} // namespace

ProfileLock::ProfileLock(const QString& folder) : m_path(folder + QStringLiteral("/profiles.lock"))
{
}

ProfileLock::~ProfileLock()
{
    unlock();
}

ProfileLock::Outcome ProfileLock::lock(QString* error, int timeoutMs)
{
    if (m_fd >= 0) {
        return Outcome::Locked;
    }
    const QByteArray name = QFile::encodeName(m_path);
    // Close-on-exec: git and the other programs an activation starts must not keep the lock
    // after this process lets go of it. No following of links and no blocking open: the file
    // is only ever a plain empty file made here.
    const int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    int fd = ::open(name.constData(), O_RDWR | O_CREAT | flags, S_IRUSR | S_IWUSR);
    if (fd < 0 && (errno == EROFS || errno == EACCES)) {
        // An existing lock file can be locked through a read-only descriptor as well; the
        // save itself then tells whether the folder can be written.
        fd = ::open(name.constData(), O_RDONLY | flags);
    }
    if (fd < 0) {
        if (error) {
            *error = reason(errno);
        }
        return Outcome::Unavailable;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        if (error) {
            *error =
                QCoreApplication::translate("ProfileLock", "%1 is not a regular file").arg(m_path);
        }
        return Outcome::Unavailable;
    }

    // Polled rather than blocking, so that a holder that hangs costs a sentence, not a hung
    // command. The pauses grow from 1 ms: a save takes a few milliseconds.
    QElapsedTimer waited;
    waited.start();
    int pauseMs = 1;
    while (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const int code = errno;
        if (code == EINTR) {
            continue;
        }
        if (code != EWOULDBLOCK || waited.elapsed() >= timeoutMs) {
            ::close(fd);
            if (error) {
                const int seconds = (timeoutMs + 999) / 1000;
                *error = code == EWOULDBLOCK
                             ? QCoreApplication::translate(
                                   "ProfileLock",
                                   "another Kivora process kept them locked for %n second(s)",
                                   nullptr, seconds)
                             : reason(code);
            }
            return code == EWOULDBLOCK ? Outcome::Busy : Outcome::Unavailable;
        }
        QThread::msleep(pauseMs);
        pauseMs = std::min(pauseMs * 2, 50);
    }
    m_fd = fd;
    return Outcome::Locked;
}

void ProfileLock::unlock()
{
    if (m_fd >= 0) {
        // Closing the only descriptor releases the lock.
        ::close(m_fd);
        m_fd = -1;
    }
}
