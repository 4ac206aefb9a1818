// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/KeyFileRemoval.h"

#include "model/HomePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// ssh's own files in ~/.ssh: never a key of a profile, whatever a profile file says.
bool isSshOwnFile(const QString& fileName)
{
    static const QStringList own{
        QStringLiteral("config"),          QStringLiteral("known_hosts"),
        QStringLiteral("known_hosts.old"), QStringLiteral("known_hosts2"),
        QStringLiteral("authorized_keys"), QStringLiteral("authorized_keys2"),
        QStringLiteral("environment"),     QStringLiteral("rc"),
    };
    return own.contains(fileName);
}

// `path` with "~" expanded against `home` (or a "~user" against that user's home), made
// absolute.
QString expanded(const QString& home, const QString& path)
{
    QString full = path;
    if (full == QLatin1String("~") || full.startsWith(QLatin1String("~/"))) {
        full = home + full.mid(1);
    } else if (full.startsWith(u'~')) {
        full = HomePath::expandTilde(full);
    }
    return QFileInfo(full).absoluteFilePath();
}

bool exists(const QString& path)
{
    struct stat info {};
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0;
}

// The resolved file (links and ".." gone), or empty when it cannot be resolved.
QString resolved(const QString& path)
{
    return QFileInfo(path).canonicalFilePath();
}

} // namespace

QString KeyFileRemoval::refusal(const QString& home, const QString& path, const QString& shownAs)
{
    const QString sshFolder = resolved(home + QStringLiteral("/.ssh"));
    const QString target = resolved(path);
    if (target.isEmpty()) {
        return QCoreApplication::translate("KeyFileRemoval",
                                           "%1 leads to no file, so nothing was deleted there.")
            .arg(shownAs);
    }
    if (sshFolder.isEmpty() || !target.startsWith(sshFolder + u'/')) {
        return QCoreApplication::translate("KeyFileRemoval",
                                           "%1 is not inside ~/.ssh, so it was not deleted.")
            .arg(shownAs);
    }
    struct stat info {};
    if (::stat(QFile::encodeName(target).constData(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return QCoreApplication::translate("KeyFileRemoval",
                                           "%1 is not a regular file, so it was not deleted.")
            .arg(shownAs);
    }
    if (isSshOwnFile(QFileInfo(target).fileName())) {
        return QCoreApplication::translate(
                   "KeyFileRemoval",
                   "%1 is one of ssh's own files, not a key, so it was not deleted.")
            .arg(shownAs);
    }
    return {};
}

KeyFileRemoval::Outcome KeyFileRemoval::removeKeyPair(const QString& home,
                                                      const QString& sshKeyPath)
{
    Outcome outcome;
    if (sshKeyPath.isEmpty()) {
        return outcome;
    }
    const QString key = expanded(home, sshKeyPath);
    // Each file on its own: a refused or missing private key does not keep its .pub.
    for (const QString& file : {key, key + QStringLiteral(".pub")}) {
        if (!exists(file)) {
            outcome.missing << file;
            continue;
        }
        const QString why = refusal(home, file, file);
        if (!why.isEmpty()) {
            outcome.refused << why;
            continue;
        }
        const QString target = resolved(file);
        if (::unlink(QFile::encodeName(target).constData()) == 0) {
            outcome.removed << target;
        } else {
            outcome.refused << QCoreApplication::translate("KeyFileRemoval",
                                                           "%1 could not be deleted: %2.")
                                   .arg(file, QString::fromLocal8Bit(std::strerror(errno)));
        }
    }
    return outcome;
}

QStringList KeyFileRemoval::otherUsers(const QList<GitProfile>& profiles, const GitProfile& profile,
                                       const QString& home)
{
    QStringList names;
    if (profile.sshKeyPath.isEmpty()) {
        return names;
    }
    const auto sameFile = [&home](const QString& keyPath) {
        const QString path = expanded(home, keyPath);
        const QString target = resolved(path);
        return target.isEmpty() ? QDir::cleanPath(path) : target;
    };
    const QString mine = sameFile(profile.sshKeyPath);
    for (const GitProfile& other : profiles) {
        if (other.id != profile.id && !other.sshKeyPath.isEmpty() &&
            sameFile(other.sshKeyPath) == mine && !names.contains(other.name)) {
            names << other.name;
        }
    }
    return names;
}
