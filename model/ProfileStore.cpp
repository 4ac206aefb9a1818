// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileStore.h"

#include "model/AtomicFile.h"
#include "model/LeftoverTemporaryFiles.h"
#include "model/PrivateFolder.h"
#include "model/RegularFileReader.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

ProfileStore::ProfileStore(const QString& home)
{
    const QString folder = home + QStringLiteral("/.git-switcher");
    PrivateFolder::ensure(folder);
    m_path = folder + QStringLiteral("/profiles.json");
}

std::optional<StoredData> ProfileStore::load(QString* error, QByteArray* read) const
{
    RegularFileReader reader;
    const auto bytes = reader.read(m_path);
    if (!bytes) {
        if (error) {
            *error =
                reader.failure() == RegularFileReader::Failure::Missing
                    ? QCoreApplication::translate("ProfileStore", "%1 does not exist").arg(m_path)
                    : QCoreApplication::translate("ProfileStore", "%1 cannot be read: %2")
                          .arg(m_path, reader.error());
        }
        return std::nullopt;
    }
    if (read) {
        *read = *bytes;
    }
    QString why;
    auto data = ProfileCodec::decodeStore(*bytes, &why);
    if (!data && error) {
        *error = QCoreApplication::translate("ProfileStore", "%1 cannot be read as profiles: %2")
                     .arg(m_path, why);
    }
    return data;
}

QString ProfileStore::folder() const
{
    return QFileInfo(m_path).path();
}

bool ProfileStore::save(const StoredData& data, QString* error, QByteArray* written) const
{
    const QByteArray bytes = ProfileCodec::encodeStore(data);
    if (!AtomicFile::write(m_path, bytes, AtomicFile::privateFile, error)) {
        return false;
    }
    if (written) {
        *written = bytes;
    }
    return true;
}

bool ProfileStore::exists() const
{
    const QFileInfo info(m_path);
    return info.exists() || info.isSymLink();
}

void ProfileStore::removeLeftovers() const
{
    const QFileInfo file(m_path);
    LeftoverTemporaryFiles::remove(file.path(), {file.fileName()});
}

QString ProfileStore::preserveUnreadable() const
{
    const QFileInfo info(m_path);
    if (!info.exists() && !info.isSymLink()) {
        return {};
    }
    const QString stamp =
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    QString copy = m_path + QStringLiteral(".unreadable-") + stamp;
    for (int n = 2; QFileInfo(copy).exists() || QFileInfo(copy).isSymLink(); ++n) {
        copy = m_path + QStringLiteral(".unreadable-%1-%2").arg(stamp).arg(n);
    }
    // A readable regular file within the size limit is copied, so a link into a dotfiles
    // folder stays where it is. Anything else (no permission, too large to hold in memory,
    // a FIFO or device that must not be opened, a folder, a dangling link) is moved aside
    // whole instead: the user keeps it, and the new file can take its place.
    RegularFileReader reader;
    if (const auto bytes = reader.read(m_path)) {
        return AtomicFile::write(copy, *bytes, AtomicFile::privateFile) ? copy : QString();
    }
    return ::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(copy).constData()) == 0
               ? copy
               : QString();
}
