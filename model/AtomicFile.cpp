#include "model/AtomicFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

bool AtomicFile::write(const QString& path, const QByteArray& bytes,
                       std::optional<QFileDevice::Permissions> permissions)
{
    QString target = path;
    const QFileInfo info(path);
    if (info.isSymLink() && info.exists()) {
        target = info.canonicalFilePath();
    }

    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    if (permissions && !file.setPermissions(*permissions)) {
        file.cancelWriting();
        return false;
    }
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
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
