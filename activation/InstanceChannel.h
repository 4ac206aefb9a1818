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

// The running application's local socket, through which a second start and the command
// line reach it. One JSON object per line in each direction: a request
// {"command":"<name>", …} is answered by {"ok":true, …} or {"ok":false,"error":"…"}.
// The socket is per user (and per home folder), see serverName().
class InstanceChannel : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<QJsonObject(const QJsonObject& request)>;

    explicit InstanceChannel(QObject* parent = nullptr);

    // Takes the socket. False when another instance already answers on it.
    bool listen();
    // Adds a command; its handler returns the reply's fields besides "ok".
    void addCommand(const QString& command, Handler handler);

    // One request from a client to the running instance: the reply, or nothing when no
    // instance answers within the time.
    static std::optional<QJsonObject> send(const QJsonObject& request, int timeoutMs = 2000);

    // The socket name: "kivora-<uid>-<hash of the home folder>".
    static QString serverName();

    // The reply to one request line, as the channel gives it (without the line end).
    QByteArray answer(const QByteArray& line) const;

private:
    void onNewConnection();

    QLocalServer m_server;
    QHash<QString, Handler> m_commands;
};
