#include "activation/CommandRunner.h"

#include <QProcess>
#include <QStringDecoder>

std::optional<QString> CommandRunner::shell(const QString& commandLine) const
{
    QProcess process;
    process.setProgram(m_programs.bash);
    process.setArguments({QStringLiteral("-c"), commandLine});
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start();
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
