// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/GlobalGitConfig.h"

#include "activation/GitConfigText.h"
#include "model/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>

GlobalGitConfig::GlobalGitConfig(const QString& home) : m_home(home) {}

QString GlobalGitConfig::path() const
{
    if (const QString chosen = qEnvironmentVariable("GIT_CONFIG_GLOBAL"); !chosen.isEmpty()) {
        return chosen;
    }
    const QString dotFile = m_home + QStringLiteral("/.gitconfig");
    QString xdg = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (xdg.isEmpty()) {
        xdg = m_home + QStringLiteral("/.config");
    }
    const QString xdgFile = xdg + QStringLiteral("/git/config");
    // QFileInfo::exists follows links: a dangling ~/.gitconfig is not read by git either.
    if (!QFileInfo::exists(dotFile) && QFileInfo::exists(xdgFile)) {
        return xdgFile;
    }
    return dotFile;
}

QByteArray GlobalGitConfig::marker()
{
    return QByteArrayLiteral(
        "# Kivora identity rules. Kivora keeps this include last so its rules win.");
}

QByteArray GlobalGitConfig::includeBlock(const QString& target)
{
    return marker() + "\n[include]\n\tpath = " + GitConfigText::quotedValue(target).toUtf8() + "\n";
}

QByteArray GlobalGitConfig::withoutInclude(const QByteArray& text, const QString& target,
                                           bool* found)
{
    const QByteArray pathLine = "\tpath = " + GitConfigText::quotedValue(target).toUtf8();
    QList<QByteArray> lines = text.split('\n');
    *found = false;
    for (qsizetype i = 0; i + 2 < lines.size(); ++i) {
        if (lines[i] != marker() || lines[i + 1] != "[include]" || lines[i + 2] != pathLine) {
            continue;
        }
        *found = true;
        // A key git itself added under this [include] header stays under a header of its own.
        const QByteArray next = i + 3 < lines.size() ? lines[i + 3].trimmed() : QByteArray();
        const bool keyFollows = !next.isEmpty() && !next.startsWith('[') && !next.startsWith('#') &&
                                !next.startsWith(';');
        if (keyFollows) {
            lines.remove(i + 2);
            lines.remove(i);
        } else {
            lines.remove(i, 3);
        }
        break;
    }
    return lines.join('\n');
}

QByteArray GlobalGitConfig::withIncludeLast(const QByteArray& text, const QString& target)
{
    bool found = false;
    QByteArray rest = withoutInclude(text, target, &found);
    if (!rest.isEmpty() && !rest.endsWith('\n')) {
        rest += '\n';
    }
    return rest + includeBlock(target);
}

QByteArray GlobalGitConfig::read() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool GlobalGitConfig::hasInclude(const QString& target) const
{
    bool found = false;
    withoutInclude(read(), target, &found);
    return found;
}

bool GlobalGitConfig::keepIncludeLast(const QString& target) const
{
    const QByteArray text = read();
    const QByteArray wanted = withIncludeLast(text, target);
    if (wanted == text) {
        return true;
    }
    const QString file = path();
    if (!QDir().mkpath(QFileInfo(file).absolutePath())) {
        return false;
    }
    return AtomicFile::write(file, wanted);
}

bool GlobalGitConfig::removeInclude(const QString& target) const
{
    const QByteArray text = read();
    bool found = false;
    const QByteArray rest = withoutInclude(text, target, &found);
    return !found || AtomicFile::write(path(), rest);
}
