// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/SecondUser.h"

#include <QFileInfo>

#include <pwd.h>
#include <unistd.h>

namespace {

int runProgram(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit) {
        return -1;
    }
    return process.exitCode();
}

} // namespace

QString SecondUser::unavailableBecause()
{
    if (::geteuid() != 0) {
        return QStringLiteral("needs root to add a second user (useradd) and run as it (setpriv)");
    }
    for (const char* tool : {"/usr/sbin/useradd", "/usr/sbin/userdel", "/usr/bin/setpriv"}) {
        if (!QFileInfo(QString::fromLatin1(tool)).isExecutable()) {
            return QStringLiteral("%1 is not installed").arg(QLatin1String(tool));
        }
    }
    return {};
}

SecondUser::SecondUser()
{
    static int made = 0;
    m_name = QStringLiteral("kvother%1x%2").arg(::getpid()).arg(++made);
    if (runProgram(QStringLiteral("/usr/sbin/useradd"),
                   {QStringLiteral("-M"), QStringLiteral("-d"), QStringLiteral("/nonexistent"),
                    QStringLiteral("-s"), QStringLiteral("/usr/sbin/nologin"), QStringLiteral("-K"),
                    QStringLiteral("MAIL_DIR=/nonexistent"), m_name}) != 0) {
        return;
    }
    const QByteArray name = m_name.toLocal8Bit();
    if (const passwd* entry = ::getpwnam(name.constData())) {
        m_uid = entry->pw_uid;
        m_gid = entry->pw_gid;
    }
}

SecondUser::~SecondUser()
{
    if (isValid()) {
        runProgram(QStringLiteral("/usr/sbin/userdel"), {QStringLiteral("-f"), m_name});
    }
}

QStringList SecondUser::arguments(const QStringList& command) const
{
    // setpriv changes the ids and executes the command itself, so the process started is the
    // command, and ending it ends it.
    return QStringList{
               QStringLiteral("--reuid=%1").arg(m_uid), QStringLiteral("--regid=%1").arg(m_gid),
               QStringLiteral("--clear-groups"),        QStringLiteral("--"),
               QStringLiteral("/usr/bin/env"),          QStringLiteral("-i"),
               QStringLiteral("PATH=/usr/bin:/bin"),    QStringLiteral("HOME=/")} +
           command;
}

std::unique_ptr<QProcess> SecondUser::start(const QStringList& command) const
{
    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    // From the root folder: the test's working folder may be out of this user's reach.
    process->setWorkingDirectory(QStringLiteral("/"));
    process->start(QStringLiteral("/usr/bin/setpriv"), arguments(command));
    return process;
}

int SecondUser::run(const QStringList& command, const QByteArray& input, QByteArray* out,
                    QByteArray* err, int timeoutMs) const
{
    QProcess process;
    process.setWorkingDirectory(QStringLiteral("/"));
    process.start(QStringLiteral("/usr/bin/setpriv"), arguments(command));
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished(-1);
        return -1;
    }
    if (out) {
        *out = process.readAllStandardOutput();
    }
    if (err) {
        *err = process.readAllStandardError();
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}
