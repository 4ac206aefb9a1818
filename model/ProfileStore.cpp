#include "model/ProfileStore.h"

#include "model/AtomicFile.h"

#include <QDateTime>
#include <QFile>

ProfileStore::ProfileStore(const QString& home)
{
    const QString folder = home + QStringLiteral("/.git-switcher");
    AtomicFile::makePrivateFolder(folder);
    m_path = folder + QStringLiteral("/profiles.json");
}

std::optional<StoredData> ProfileStore::load(QString* error) const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error) {
            *error = file.exists()
                         ? QStringLiteral("%1 cannot be read: %2").arg(m_path, file.errorString())
                         : QStringLiteral("%1 does not exist").arg(m_path);
        }
        return std::nullopt;
    }
    QString why;
    auto data = ProfileCodec::decodeStore(file.readAll(), &why);
    if (!data && error) {
        *error = QStringLiteral("%1 cannot be read as profiles: %2").arg(m_path, why);
    }
    return data;
}

bool ProfileStore::save(const StoredData& data) const
{
    return AtomicFile::write(m_path, ProfileCodec::encodeStore(data), AtomicFile::privateFile);
}

QString ProfileStore::preserveUnreadable() const
{
    QFile file(m_path);
    if (!file.exists()) {
        return {};
    }
    const QString stamp =
        QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    QString copy = m_path + QStringLiteral(".unreadable-") + stamp;
    for (int n = 2; QFile::exists(copy); ++n) {
        copy = m_path + QStringLiteral(".unreadable-%1-%2").arg(stamp).arg(n);
    }
    if (!file.open(QIODevice::ReadOnly)) {
        // Unreadable for us too: move it aside instead of copying.
        return QFile::rename(m_path, copy) ? copy : QString();
    }
    return AtomicFile::write(copy, file.readAll(), AtomicFile::privateFile) ? copy : QString();
}
