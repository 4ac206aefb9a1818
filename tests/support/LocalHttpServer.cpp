// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/LocalHttpServer.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <stdexcept>

LocalHttpServer::LocalHttpServer(QObject* parent) : QObject(parent)
{
    if (!m_server.listen(QHostAddress::LocalHost, 0)) {
        throw std::runtime_error("cannot listen on 127.0.0.1");
    }
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

QUrl LocalHttpServer::url(const QString& path) const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(port()).arg(path));
}

quint16 LocalHttpServer::closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    const quint16 port = probe.serverPort();
    probe.close();
    return port;
}

void LocalHttpServer::serve(QTcpSocket* socket)
{
    QByteArray buffer = socket->property("buffer").toByteArray() + socket->readAll();
    const qsizetype end = buffer.indexOf("\r\n\r\n");
    if (end < 0) {
        socket->setProperty("buffer", buffer);
        return;
    }
    const QList<QByteArray> lines = buffer.left(end).split('\n');
    Request request;
    const QList<QByteArray> first = lines.value(0).trimmed().split(' ');
    request.method = first.value(0);
    request.target = first.value(1);
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const qsizetype colon = lines[i].indexOf(':');
        if (colon > 0) {
            request.headers.insert(lines[i].left(colon).trimmed().toLower(),
                                   lines[i].mid(colon + 1).trimmed());
        }
    }
    m_requests.append(request);

    const QByteArray path = request.target.split('?').value(0);
    const Reply reply = m_routes.value(path, m_fallback);
    QByteArray response = "HTTP/1.1 " + QByteArray::number(reply.status) + " Status\r\n";
    response += "Content-Type: " + reply.contentType + "\r\n";
    response += "Content-Length: " + QByteArray::number(reply.body.size()) + "\r\n";
    response += "Connection: close\r\n\r\n";
    response += reply.body;
    socket->write(response);
    socket->disconnectFromHost();
}
