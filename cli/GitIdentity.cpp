// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/GitIdentity.h"

#include <QProcess>
#include <QStringDecoder>

namespace {

QString decoded(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? QString() : text.trimmed();
}

} // namespace

GitIdentity GitIdentity::readGlobal()
{
    QProcess git;
    git.setStandardInputFile(QProcess::nullDevice());
    git.start(QStringLiteral("/usr/bin/env"),
              {QStringLiteral("git"), QStringLiteral("config"), QStringLiteral("--global"),
               QStringLiteral("--null"), QStringLiteral("--get-regexp"),
               QStringLiteral("^user\\.(name|email)$")});
    GitIdentity identity;
    if (!git.waitForFinished(-1) || git.exitStatus() != QProcess::NormalExit) {
        return identity;
    }
    // Each entry is "key\nvalue\0"; a key set more than once counts with its last value, as
    // `git config --get` has it.
    for (const QByteArray& entry : git.readAllStandardOutput().split('\0')) {
        const qsizetype lineEnd = entry.indexOf('\n');
        if (lineEnd < 0) {
            continue;
        }
        const QByteArray key = entry.left(lineEnd).toLower();
        const QString value = decoded(entry.mid(lineEnd + 1));
        if (key == "user.name") {
            identity.name = value;
        } else if (key == "user.email") {
            identity.email = value;
        }
    }
    return identity;
}
