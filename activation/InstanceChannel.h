// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QLocalServer>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <sys/types.h>

// The running application's local socket, through which a second start and the command
// line reach it. One JSON object per line in each direction: a request
// {"command":"<name>", …} is answered by {"ok":true, …} or {"ok":false,"error":"…"}.
//
// It belongs to the user alone: it lives in $XDG_RUNTIME_DIR (or ~/.kivora/run), is made
// 0600 whatever the umask, and both ends check that the process at the other end runs as
// this user (SO_PEERCRED). A socket held by a process of anyone else is never taken for a
// running Kivora: a client does not talk to it, and the application takes its name over.
class InstanceChannel : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<QJsonObject(const QJsonObject& request)>;

    // Requests longer than this are not read: the connection is closed.
    static constexpr qint64 maximumRequestBytes = 16 * 1024 * 1024;

    explicit InstanceChannel(QObject* parent = nullptr);

    // Takes the socket. False when another instance of this user already answers on it, or
    // when no socket can be made (`error` then says why).
    bool listen(QString* error = nullptr);
    // Adds a command; its handler returns the reply's fields besides "ok".
    void addCommand(const QString& command, Handler handler);

    struct Answer {
        enum class Kind {
            NotRunning, // no socket, or nobody listening on it: no application runs
            Foreign,    // a process of another user holds the socket; it was not spoken to
            NoAnswer,   // the application took the request but gave no answer in time
            Answered,
        };
        Kind kind = Kind::NotRunning;
        QJsonObject reply;
    };
    // One request from a client to the running instance.
    static Answer ask(const QJsonObject& request, int timeoutMs);
    // The reply, or nothing when no instance of this user answered within the time.
    static std::optional<QJsonObject> send(const QJsonObject& request, int timeoutMs = 2000);

    // The folder of the socket: $XDG_RUNTIME_DIR when it is a folder of this user that only
    // they may enter (as the XDG base directory rules require of it), else ~/.kivora/run.
    // With `create` that folder is made 0700 (or brought back to 0700) when needed. Empty
    // when there is no such folder.
    static QString socketFolder(bool create = false);
    // The socket: "kivora-<hash of the home folder>" in that folder, so that each home
    // folder (a test's, for one) has its own application.
    static QString socketPath(bool create = false);

    // The user id of the process at the other end of a connected local socket.
    static std::optional<uid_t> peerUid(qintptr socketDescriptor);

    // The reply to one request line, as the channel gives it (without the line end).
    QByteArray answer(const QByteArray& line) const;

private:
    void onNewConnection();

    QLocalServer m_server;
    QHash<QString, Handler> m_commands;
};
