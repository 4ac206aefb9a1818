// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Reads a whole file that a user or another program may have replaced with something hostile.
// Only a regular file (a link to one is fine) of at most `limit` bytes is read; a FIFO, a
// device, a socket or a folder is refused before it is opened, so a read can never block,
// and nothing larger than the limit is ever held in memory.
class RegularFileReader {
public:
    // Profile files and imported exports are at most this size. A profile takes well under
    // a kilobyte, so 16 MiB holds tens of thousands of them.
    static constexpr qint64 defaultLimit = 16 * 1024 * 1024;

    enum class Failure {
        None,
        Missing,    // nothing at the path (or a link to nothing)
        NotRegular, // a FIFO, device, socket or folder
        TooLarge,   // more than the limit
        Unreadable, // no permission, or an error while reading
    };

    explicit RegularFileReader(qint64 limit = defaultLimit) : m_limit(limit) {}

    // The file's bytes, or nothing; then failure() and error() say why. error() is a phrase
    // such as "it is a FIFO, not a regular file" that fits after the file's name.
    std::optional<QByteArray> read(const QString& path);

    Failure failure() const { return m_failure; }
    QString error() const { return m_error; }

    // What kind of file is at `path` (following links), or "nothing" when there is none.
    static QString kindOf(const QString& path);

private:
    std::optional<QByteArray> fail(Failure failure, const QString& error);

    qint64 m_limit;
    Failure m_failure = Failure::None;
    QString m_error;
};
