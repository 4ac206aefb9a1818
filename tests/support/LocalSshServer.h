// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

// A real sshd on 127.0.0.1 at a free port, with its own host key, configuration, authorized
// keys and log in a temporary folder. It lets the user running the tests log in with the keys
// given to authorize() and logs, at level VERBOSE, which key each login used.
class LocalSshServer {
public:
    LocalSshServer();
    ~LocalSshServer();
    LocalSshServer(const LocalSshServer&) = delete;
    LocalSshServer& operator=(const LocalSshServer&) = delete;

    // Starts the server; false, with the reason in errorText(), when it does not listen.
    bool start();
    QString errorText() const { return m_error; }

    // Lets the public key (the text of a .pub file) log in.
    void authorize(const QByteArray& publicKey);

    quint16 port() const { return m_port; }
    QString user() const;
    // "ssh://user@127.0.0.1:port" + path.
    QString url(const QString& path) const;

    // A client configuration that trusts this server's host key and reads nothing else; point
    // ssh at it with -F (ssh reads the account's own ~/.ssh, not $HOME's, otherwise).
    QString clientConfigPath() const;

    // The server's log so far.
    QByteArray log() const;

    // "SHA256:…" of a public or private key file, as ssh-keygen -l prints it.
    static QString fingerprint(const QString& keyFile);

private:
    QTemporaryDir m_dir;
    QProcess m_sshd;
    quint16 m_port = 0;
    QString m_error;
};
