// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/SSHKeyGenerator.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringDecoder>

#include <cstdio>

QString SSHKeyGenerator::fileName(const Request& request)
{
    return request.keyFilename.isEmpty() ? defaultFileName() : request.keyFilename;
}

QString SSHKeyGenerator::comment(const Request& request)
{
    return request.gitEmail.isEmpty() ? placeholderComment() : request.gitEmail;
}

QStringList SSHKeyGenerator::arguments(const Request& request, const QString& home)
{
    const QString keyPath = home + QStringLiteral("/.ssh/") + fileName(request);
    QStringList arguments{QStringLiteral("-t"), QStringLiteral("ed25519"), QStringLiteral("-C"),
                          comment(request),     QStringLiteral("-f"),      keyPath};
    if (request.usePassphrase && !request.passphrase.isEmpty()) {
        // The same passphrase as the new and as the old one.
        arguments << QStringLiteral("-N") << request.passphrase << QStringLiteral("-P")
                  << request.passphrase;
    } else {
        arguments << QStringLiteral("-N") << QString();
    }
    return arguments;
}

SSHKeyGenerator::Result SSHKeyGenerator::generate(const Request& request, const QString& home,
                                                  const QString& executable)
{
    Result result;
    result.fileName = fileName(request);

    QProcess process;
    // Standard output goes where ours goes; standard error is collected for the reason of a
    // failure.
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    // No input: asked whether to overwrite an existing file, ssh-keygen reads "no".
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(executable, arguments(request, home));
    if (!process.waitForStarted(-1)) {
        result.outcome = Outcome::NotStarted;
        result.error = process.errorString();
        const QByteArray line = (launchFailure(result.error) + u'\n').toUtf8();
        std::fputs(line.constData(), stdout);
        std::fflush(stdout);
        return result;
    }
    process.waitForFinished(-1);
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        result.outcome = Outcome::Created;
        result.sshKeyPath = QStringLiteral("~/.ssh/") + result.fileName;
    } else {
        result.outcome = Outcome::Failed;
        const QString key = home + QStringLiteral("/.ssh/") + result.fileName;
        if (QFileInfo::exists(key)) {
            result.error =
                QCoreApplication::translate("SSHKeyGenerator", "%1 already exists").arg(key);
        } else {
            // ssh-keygen's last line says what went wrong ("Saving key … failed: …").
            const QStringList lines =
                QString::fromUtf8(process.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
            result.error = lines.isEmpty()
                               ? QCoreApplication::translate("SSHKeyGenerator",
                                                             "ssh-keygen exited with status %1")
                                     .arg(process.exitCode())
                               : lines.last().trimmed();
        }
    }
    return result;
}

std::optional<QString> SSHKeyGenerator::publicKey(const QString& fileName, const QString& home)
{
    QFile file(home + QStringLiteral("/.ssh/") + fileName + QStringLiteral(".pub"));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError()) {
        return std::nullopt;
    }
    return text;
}
