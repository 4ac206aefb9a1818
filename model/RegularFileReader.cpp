// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/RegularFileReader.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString kindOfMode(mode_t mode)
{
    if (S_ISREG(mode)) {
        return QCoreApplication::translate("RegularFileReader", "a regular file");
    }
    if (S_ISDIR(mode)) {
        return QCoreApplication::translate("RegularFileReader", "a folder");
    }
    if (S_ISFIFO(mode)) {
        return QCoreApplication::translate("RegularFileReader", "a FIFO");
    }
    if (S_ISSOCK(mode)) {
        return QCoreApplication::translate("RegularFileReader", "a socket");
    }
    if (S_ISCHR(mode) || S_ISBLK(mode)) {
        return QCoreApplication::translate("RegularFileReader", "a device");
    }
    return QCoreApplication::translate("RegularFileReader", "not a regular file");
}

QString systemError(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

QString megabytes(qint64 bytes)
{
    return QStringLiteral("%1 MiB").arg(double(bytes) / (1024 * 1024), 0, 'g', 4);
}

} // namespace

QString RegularFileReader::kindOf(const QString& path)
{
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) {
        return QStringLiteral("nothing");
    }
    return kindOfMode(info.st_mode);
}

std::optional<QByteArray> RegularFileReader::fail(Failure failure, const QString& error)
{
    m_failure = failure;
    m_error = error;
    return std::nullopt;
}

std::optional<QByteArray> RegularFileReader::read(const QString& path)
{
    m_failure = Failure::None;
    m_error.clear();
    const QByteArray name = QFile::encodeName(path);

    // Looked at before opening: opening a FIFO waits for a writer, and opening a device may
    // act on it.
    struct stat before {};
    if (::stat(name.constData(), &before) != 0) {
        const int error = errno;
        return error == ENOENT || error == ENOTDIR
                   ? fail(Failure::Missing,
                          QCoreApplication::translate("RegularFileReader", "it does not exist"))
                   : fail(Failure::Unreadable, systemError(error));
    }
    if (!S_ISREG(before.st_mode)) {
        return fail(Failure::NotRegular,
                    QCoreApplication::translate("RegularFileReader", "it is %1, not a regular file")
                        .arg(kindOfMode(before.st_mode)));
    }

    // Opened without blocking and looked at again, in case the file was swapped meanwhile.
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        const int error = errno;
        return error == ENOENT
                   ? fail(Failure::Missing,
                          QCoreApplication::translate("RegularFileReader", "it does not exist"))
                   : fail(Failure::Unreadable, systemError(error));
    }
    struct stat opened {};
    if (::fstat(fd, &opened) != 0 || !S_ISREG(opened.st_mode)) {
        ::close(fd);
        return fail(Failure::NotRegular,
                    QCoreApplication::translate("RegularFileReader", "it is %1, not a regular file")
                        .arg(kindOfMode(opened.st_mode)));
    }
    const QString tooLarge =
        QCoreApplication::translate("RegularFileReader", "it is larger than %1")
            .arg(megabytes(m_limit));
    if (opened.st_size > m_limit) {
        ::close(fd);
        return fail(Failure::TooLarge, tooLarge);
    }

    // Read up to one byte past the limit, so a file that grows while it is read is caught.
    QByteArray bytes;
    bytes.resize(qsizetype(opened.st_size) + 1);
    qsizetype filled = 0;
    for (;;) {
        if (filled == bytes.size()) {
            if (bytes.size() > m_limit) {
                ::close(fd);
                return fail(Failure::TooLarge, tooLarge);
            }
            bytes.resize(std::min<qsizetype>(bytes.size() * 2, qsizetype(m_limit) + 1));
        }
        const ssize_t n = ::read(fd, bytes.data() + filled, size_t(bytes.size() - filled));
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            const int error = errno;
            ::close(fd);
            return fail(Failure::Unreadable, systemError(error));
        }
        if (n == 0) {
            break;
        }
        filled += n;
    }
    ::close(fd);
    if (filled > m_limit) {
        return fail(Failure::TooLarge, tooLarge);
    }
    bytes.truncate(filled);
    return bytes;
}
