// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/InstanceChannel.h"

#include "model/HomePath.h"
#include "model/PrivateFolder.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFile>
#include <QJsonDocument>
#include <QLocalSocket>

#include <sys/socket.h>
#include <sys/stat.h>
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

// A folder of this user that nobody else may enter, list or write.
bool privateToUser(const QString& path)
{
    struct stat info {};
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode) &&
           info.st_uid == ::geteuid() && (info.st_mode & 077) == 0;
}

bool ownedByUs(const QLocalSocket& socket)
{
    const auto uid = InstanceChannel::peerUid(socket.socketDescriptor());
    return uid && *uid == ::geteuid();
}

} // namespace

InstanceChannel::InstanceChannel(QObject* parent) : QObject(parent)
{
    // No socket options: with them Qt binds elsewhere and renames the socket into place,
    // which would silently replace a running instance's socket. The mode is set in listen().
    connect(&m_server, &QLocalServer::newConnection, this, &InstanceChannel::onNewConnection);
}

QString InstanceChannel::socketFolder(bool create)
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.startsWith(u'/') && privateToUser(runtime)) {
        return runtime;
    }
    const QString kivora = HomePath::home() + QStringLiteral("/.kivora");
    const QString folder = kivora + QStringLiteral("/run");
    if (create) {
        PrivateFolder::ensure(kivora);
        PrivateFolder::ensure(folder);
    }
    return privateToUser(folder) ? folder : QString();
}

QString InstanceChannel::socketPath(bool create)
{
    const QString folder = socketFolder(create);
    if (folder.isEmpty()) {
        return {};
    }
    const QByteArray home = HomePath::home().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(home, QCryptographicHash::Sha1).toHex();
    return folder + QStringLiteral("/kivora-") + QString::fromLatin1(hash.left(12));
}

std::optional<uid_t> InstanceChannel::peerUid(qintptr socketDescriptor)
{
    if (socketDescriptor < 0) {
        return std::nullopt;
    }
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (::getsockopt(int(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 ||
        size != sizeof credentials) {
        return std::nullopt;
    }
    return credentials.uid;
}

bool InstanceChannel::listen(QString* error)
{
    const QString path = socketPath(true);
    if (path.isEmpty()) {
        if (error) {
            *error = tr("there is no private folder for the socket: $XDG_RUNTIME_DIR is unset or "
                        "not private, and ~/.kivora/run cannot be made");
        }
        return false;
    }
    const auto bind = [this, &path] {
        // Made 0600 from the start, whatever the umask; the folder is private as well.
        const mode_t mask = ::umask(0177);
        const bool listening = m_server.listen(path);
        ::umask(mask);
        if (listening) {
            ::chmod(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR);
        }
        return listening;
    };
    if (bind()) {
        return true;
    }
    // Something has the name. A running instance of this user answers and keeps it; a socket
    // file without a server behind it (left over from a crash), or one held by a process of
    // another user, is no Kivora of ours: its name is taken over.
    QLocalSocket probe;
    probe.connectToServer(path);
    if (probe.waitForConnected(500) && ownedByUs(probe)) {
        if (error) {
            *error = tr("another instance is running");
        }
        return false;
    }
    probe.abort();
    QLocalServer::removeServer(path);
    if (!bind()) {
        if (error) {
            *error = m_server.errorString();
        }
        return false;
    }
    return true;
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
        return line(failure(tr("not a JSON object"))).chopped(1);
    }
    const QJsonObject request = document.object();
    const QString command = request.value(QStringLiteral("command")).toString();
    const auto handler = m_commands.constFind(command);
    if (handler == m_commands.constEnd()) {
        return line(failure(tr("unknown command: %1").arg(command))).chopped(1);
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
        // Only a process of this very user is listened to, whatever the socket's mode says.
        if (!ownedByUs(*socket)) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            while (socket->canReadLine()) {
                const QByteArray request = socket->readLine().trimmed();
                if (!request.isEmpty()) {
                    socket->write(answer(request) + '\n');
                }
            }
            if (socket->bytesAvailable() > maximumRequestBytes) {
                socket->abort();
            }
        });
    }
}

InstanceChannel::Answer InstanceChannel::ask(const QJsonObject& request, int timeoutMs)
{
    Answer result;
    const QString path = socketPath();
    if (path.isEmpty()) {
        return result;
    }
    QLocalSocket socket;
    socket.connectToServer(path);
    if (!socket.waitForConnected(timeoutMs)) {
        // No socket file, or nobody behind it: no application runs. A server too busy to
        // take the connection in all that time is one that does not answer.
        const auto error = socket.error();
        const bool absent = error == QLocalSocket::ServerNotFoundError ||
                            error == QLocalSocket::ConnectionRefusedError ||
                            error == QLocalSocket::SocketAccessError;
        result.kind = absent ? Answer::Kind::NotRunning : Answer::Kind::NoAnswer;
        return result;
    }
    if (!ownedByUs(socket)) {
        socket.abort();
        result.kind = Answer::Kind::Foreign;
        return result;
    }
    // From here the request may be carried out at any moment: whatever happens next, the
    // caller must not carry it out a second time.
    result.kind = Answer::Kind::NoAnswer;
    const QDeadlineTimer deadline(timeoutMs);
    socket.write(line(request));
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(int(deadline.remainingTime()))) {
            return result;
        }
    }
    while (!socket.canReadLine()) {
        if (socket.state() != QLocalSocket::ConnectedState ||
            !socket.waitForReadyRead(int(deadline.remainingTime()))) {
            return result;
        }
    }
    const QJsonDocument reply = QJsonDocument::fromJson(socket.readLine());
    if (reply.isObject()) {
        result.kind = Answer::Kind::Answered;
        result.reply = reply.object();
    }
    return result;
}

std::optional<QJsonObject> InstanceChannel::send(const QJsonObject& request, int timeoutMs)
{
    Answer answer = ask(request, timeoutMs);
    if (answer.kind != Answer::Kind::Answered) {
        return std::nullopt;
    }
    return answer.reply;
}
