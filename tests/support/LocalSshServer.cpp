// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/LocalSshServer.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <pwd.h>
#include <unistd.h>

namespace {

bool writeFile(const QString& path, const QByteArray& bytes, bool append = false)
{
    QFile file(path);
    if (!file.open(append ? QIODevice::Append : (QIODevice::WriteOnly | QIODevice::Truncate))) {
        return false;
    }
    return file.write(bytes) == bytes.size();
}

int run(const QString& program, const QStringList& arguments, QByteArray* out = nullptr)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    if (out) {
        *out = process.readAllStandardOutput();
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace

LocalSshServer::LocalSshServer() = default;

LocalSshServer::~LocalSshServer()
{
    if (m_sshd.state() != QProcess::NotRunning) {
        m_sshd.terminate();
        m_sshd.waitForFinished(5000);
    }
}

QString LocalSshServer::user() const
{
    const passwd* entry = ::getpwuid(::getuid());
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
}

QString LocalSshServer::url(const QString& path) const
{
    return QStringLiteral("ssh://%1@127.0.0.1:%2%3").arg(user()).arg(m_port).arg(path);
}

QString LocalSshServer::clientConfigPath() const
{
    return m_dir.filePath(QStringLiteral("client_config"));
}

void LocalSshServer::authorize(const QByteArray& publicKey)
{
    writeFile(m_dir.filePath(QStringLiteral("authorized_keys")), publicKey.trimmed() + '\n', true);
}

QByteArray LocalSshServer::log() const
{
    QFile file(m_dir.filePath(QStringLiteral("sshd.log")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString LocalSshServer::fingerprint(const QString& keyFile)
{
    QByteArray out;
    run(QStringLiteral("ssh-keygen"), {QStringLiteral("-l"), QStringLiteral("-f"), keyFile}, &out);
    // "256 SHA256:… comment (ED25519)"
    return QString::fromUtf8(out).section(u' ', 1, 1);
}

bool LocalSshServer::start()
{
    const QString sshd = QStringLiteral("/usr/sbin/sshd");
    if (!QFile::exists(sshd)) {
        m_error = QStringLiteral("sshd is not installed (openssh-server)");
        return false;
    }
    // sshd refuses to start without its privilege separation folder.
    QDir().mkpath(QStringLiteral("/run/sshd"));
    const QString hostKey = m_dir.filePath(QStringLiteral("host_ed25519"));
    if (run(QStringLiteral("ssh-keygen"),
            {QStringLiteral("-q"), QStringLiteral("-t"), QStringLiteral("ed25519"),
             QStringLiteral("-N"), QString(), QStringLiteral("-f"), hostKey}) != 0) {
        m_error = QStringLiteral("cannot make a host key");
        return false;
    }
    {
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost, 0);
        m_port = probe.serverPort();
    }
    writeFile(m_dir.filePath(QStringLiteral("authorized_keys")), {}, true);
    const QByteArray config =
        "Port " + QByteArray::number(m_port) + "\nListenAddress 127.0.0.1\nHostKey " +
        hostKey.toLocal8Bit() + "\nPidFile " +
        m_dir.filePath(QStringLiteral("sshd.pid")).toLocal8Bit() + "\nAuthorizedKeysFile " +
        m_dir.filePath(QStringLiteral("authorized_keys")).toLocal8Bit() +
        "\nStrictModes no\nPermitRootLogin prohibit-password\nPasswordAuthentication no\n"
        "KbdInteractiveAuthentication no\nUsePAM no\nLogLevel VERBOSE\n";
    const QString configPath = m_dir.filePath(QStringLiteral("sshd_config"));
    writeFile(configPath, config);

    QFile publicHostKey(hostKey + QStringLiteral(".pub"));
    publicHostKey.open(QIODevice::ReadOnly);
    const QString knownHosts = m_dir.filePath(QStringLiteral("known_hosts"));
    writeFile(knownHosts,
              "[127.0.0.1]:" + QByteArray::number(m_port) + ' ' + publicHostKey.readAll());
    writeFile(clientConfigPath(), "Host *\n  UserKnownHostsFile " + knownHosts.toLocal8Bit() +
                                      "\n  StrictHostKeyChecking yes\n  BatchMode yes\n");

    m_sshd.start(sshd, {QStringLiteral("-D"), QStringLiteral("-f"), configPath,
                        QStringLiteral("-E"), m_dir.filePath(QStringLiteral("sshd.log"))});
    if (!m_sshd.waitForStarted()) {
        m_error = QStringLiteral("sshd did not start");
        return false;
    }
    for (int attempt = 0; attempt < 100; ++attempt) {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_port);
        if (socket.waitForConnected(200)) {
            return true;
        }
        if (m_sshd.state() == QProcess::NotRunning) {
            break;
        }
        QThread::msleep(50);
    }
    m_error = QStringLiteral("sshd does not listen: ") + QString::fromUtf8(log());
    return false;
}
