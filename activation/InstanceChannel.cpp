// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/InstanceChannel.h"

#include "model/HomePath.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QLocalSocket>

#include <unistd.h>

namespace {

QByteArray line(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject failure(const QString& error)
{
    return {{QStringLiteral("ok"), false}, {QStringLiteral("error"), error}};
}

} // namespace

InstanceChannel::InstanceChannel(QObject* parent) : QObject(parent)
{
    // No socket options: with them Qt binds elsewhere and renames the socket into place,
    // which would silently replace a running instance's socket. The socket file gets the
    // umask's permissions, and connecting needs write access, which only the user has.
    connect(&m_server, &QLocalServer::newConnection, this, &InstanceChannel::onNewConnection);
}

QString InstanceChannel::serverName()
{
    const QByteArray home = HomePath::home().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(home, QCryptographicHash::Sha1).toHex();
    return QStringLiteral("kivora-%1-%2").arg(getuid()).arg(QString::fromLatin1(hash.left(12)));
}

bool InstanceChannel::listen()
{
    const QString name = serverName();
    if (m_server.listen(name)) {
        return true;
    }
    // A socket file without a server behind it is left over from a crash: take it over.
    QLocalSocket probe;
    probe.connectToServer(name);
    if (probe.waitForConnected(500)) {
        return false;
    }
    QLocalServer::removeServer(name);
    return m_server.listen(name);
}

void InstanceChannel::addCommand(const QString& command, Handler handler)
{
    m_commands.insert(command, std::move(handler));
}

QByteArray InstanceChannel::answer(const QByteArray& requestLine) const
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(requestLine, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        return line(failure(QStringLiteral("not a JSON object"))).chopped(1);
    }
    const QJsonObject request = document.object();
    const QString command = request.value(QStringLiteral("command")).toString();
    const auto handler = m_commands.constFind(command);
    if (handler == m_commands.constEnd()) {
        return line(failure(QStringLiteral("unknown command: ") + command)).chopped(1);
    }
    QJsonObject reply = (*handler)(request);
    if (!reply.contains(QStringLiteral("ok"))) {
        reply.insert(QStringLiteral("ok"), true);
    }
    return line(reply).chopped(1);
}

void InstanceChannel::onNewConnection()
{
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            while (socket->canReadLine()) {
                const QByteArray request = socket->readLine().trimmed();
                if (!request.isEmpty()) {
                    socket->write(answer(request) + '\n');
                }
            }
        });
    }
}

std::optional<QJsonObject> InstanceChannel::send(const QJsonObject& request, int timeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(serverName());
    if (!socket.waitForConnected(timeoutMs)) {
        return std::nullopt;
    }
    socket.write(line(request));
    if (!socket.waitForBytesWritten(timeoutMs)) {
        return std::nullopt;
    }
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(timeoutMs)) {
            return std::nullopt;
        }
    }
    const QJsonDocument reply = QJsonDocument::fromJson(socket.readLine());
    if (!reply.isObject()) {
        return std::nullopt;
    }
    return reply.object();
}
