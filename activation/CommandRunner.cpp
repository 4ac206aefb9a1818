// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/CommandRunner.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringDecoder>

#include <memory>
#include <vector>

namespace {

void startShell(QProcess& process, const QString& bash, const QString& commandLine)
{
    process.setProgram(bash);
    process.setArguments({QStringLiteral("-c"), commandLine});
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start();
}

std::optional<QString> shellResult(QProcess& process)
{
    if (!process.waitForFinished(-1)) {
        return std::nullopt;
    }
    const QByteArray bytes = process.readAllStandardOutput();
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError()) {
        return std::nullopt;
    }
    text = text.trimmed();
    if (text.isEmpty()) {
        return std::nullopt;
    }
    return text;
}

} // namespace

std::optional<QString> CommandRunner::shell(const QString& commandLine) const
{
    QProcess process;
    startShell(process, m_programs.bash, commandLine);
    return shellResult(process);
}

QList<std::optional<QString>> CommandRunner::shellAll(const QStringList& commandLines) const
{
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QString& commandLine : commandLines) {
        processes.push_back(std::make_unique<QProcess>());
        startShell(*processes.back(), m_programs.bash, commandLine);
    }
    QList<std::optional<QString>> results;
    for (auto& process : processes) {
        results << shellResult(*process);
    }
    return results;
}

void CommandRunner::run(const QStringList& arguments) const
{
    execute(m_programs.env, arguments);
}

int CommandRunner::execute(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.start();
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit) {
        return -1;
    }
    return process.exitCode();
}

std::optional<QString> CommandRunner::attempt(const QStringList& arguments) const
{
    QProcess process;
    process.setProgram(m_programs.env);
    process.setArguments(arguments);
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.start();
    if (!process.waitForFinished(-1)) {
        return QCoreApplication::translate("CommandRunner", "%1 could not be started")
            .arg(arguments.value(0));
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return std::nullopt;
    }
    const QString complaint = QString::fromUtf8(process.readAllStandardError()).trimmed();
    QString line = complaint.section(u'\n', 0, 0).trimmed();
    for (const QLatin1String prefix : {QLatin1String("error: "), QLatin1String("fatal: ")}) {
        if (line.startsWith(prefix)) {
            line = line.mid(prefix.size());
        }
    }
    if (line.isEmpty()) {
        return process.exitStatus() == QProcess::NormalExit
                   ? QCoreApplication::translate("CommandRunner", "%1 exited with status %2")
                         .arg(arguments.value(0))
                         .arg(process.exitCode())
                   : QCoreApplication::translate("CommandRunner", "%1 crashed")
                         .arg(arguments.value(0));
    }
    return line;
}
