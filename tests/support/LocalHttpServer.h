// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QTcpServer>
#include <QUrl>

// A small HTTP/1.1 server on 127.0.0.1 for tests: answers each path with a fixed status and
// body, and records every request it receives. It runs in the test's own event loop.
class LocalHttpServer : public QObject {
    Q_OBJECT

public:
    struct Reply {
        int status = 200;
        QByteArray body;
        QByteArray contentType = "application/json";
    };

    struct Request {
        QByteArray method;
        QByteArray target;                    // path and query, exactly as sent
        QMap<QByteArray, QByteArray> headers; // names in lower case
    };

    explicit LocalHttpServer(QObject* parent = nullptr);

    // Paths without a route answer `fallback`.
    void route(const QByteArray& path, Reply reply) { m_routes.insert(path, std::move(reply)); }
    void setFallback(Reply reply) { m_fallback = std::move(reply); }

    quint16 port() const { return m_server.serverPort(); }
    QUrl url(const QString& path = QString()) const;
    const QList<Request>& requests() const { return m_requests; }

    // A port on 127.0.0.1 where nothing listens.
    static quint16 closedPort();

private:
    void serve(class QTcpSocket* socket);

    QTcpServer m_server;
    QMap<QByteArray, Reply> m_routes;
    Reply m_fallback{404, "not found", "text/plain"};
    QList<Request> m_requests;
};
