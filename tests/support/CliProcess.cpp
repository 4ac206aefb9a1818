// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/CliProcess.h"

#include <QProcess>
#include <QProcessEnvironment>

CliProcess::Result CliProcess::run(const QStringList& arguments, const QByteArray& input,
                                   const QString& folder)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    process.setProcessEnvironment(env);
    if (!folder.isEmpty()) {
        process.setWorkingDirectory(folder);
    }
    process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
