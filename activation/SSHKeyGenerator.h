// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

// Makes a new Ed25519 key pair in ~/.ssh with the system's ssh-keygen, and reads back the
// public half. The run is synchronous: the caller waits until ssh-keygen exits.
class SSHKeyGenerator {
public:
    struct Request {
        QString gitEmail;    // the key's comment; a placeholder address when empty
        QString keyFilename; // file name inside ~/.ssh, used as typed; empty: "id_ed25519"
        bool usePassphrase = false;
        QString passphrase; // used only with usePassphrase and when not empty
    };

    enum class Outcome {
        Created,    // ssh-keygen exited with status 0
        Failed,     // it ran and exited otherwise (an existing file is not overwritten)
        NotStarted, // it could not be started
    };

    struct Result {
        Outcome outcome = Outcome::NotStarted;
        QString fileName;   // the key's file name inside ~/.ssh
        QString sshKeyPath; // "~/.ssh/<file name>" when created, empty otherwise
        QString error;      // why ssh-keygen could not be started, or why it failed
    };

    static QString program() { return QStringLiteral("/usr/bin/ssh-keygen"); }
    // The comment of a key made for a profile without an e-mail address.
    static QString placeholderComment() { return QStringLiteral("you@example.com"); }
    static QString defaultFileName() { return QStringLiteral("id_ed25519"); }
    // What a failed start prints on standard output: the sentence with the error's description.
    static QString launchFailure(const QString& error)
    {
        return QCoreApplication::translate("SSHKeyGenerator", "Failed to generate SSH key: %1")
            .arg(error);
    }

    static QString fileName(const Request& request);
    static QString comment(const Request& request);
    // The argument list, in order: -t ed25519 -C <comment> -f <home>/.ssh/<file>, then either
    // -N <passphrase> -P <passphrase> or -N "" (no passphrase).
    static QStringList arguments(const Request& request, const QString& home);

    // Runs the program with the arguments and waits for it. ssh-keygen reads no input, so it
    // never overwrites an existing key: it exits with a non-zero status instead. The folder is
    // not created when it is missing. A failed start prints one line on standard output.
    static Result generate(const Request& request, const QString& home,
                           const QString& executable = program());

    // The text of "~/.ssh/<file name>.pub" exactly as stored (final line end included); none
    // when the file cannot be read or is not UTF-8.
    static std::optional<QString> publicKey(const QString& fileName, const QString& home);
};
