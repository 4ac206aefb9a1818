#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

// The key generation of the profile editor: a new Ed25519 key pair in ~/.ssh made by the real
// ssh-keygen (the interface waits for it), and its public key put on the clipboard.
class SSHKeyGeneration : public QObject {
    Q_OBJECT
    QML_ELEMENT
    // Why the last generation made no key, as one sentence; empty after one that worked.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)

public:
    explicit SSHKeyGeneration(QObject* parent = nullptr);

    QString error() const { return m_error; }

    // The key's file name inside ~/.ssh for what the form holds: as typed, or "id_ed25519".
    Q_INVOKABLE QString keyFileName(const QString& keyFilename) const;

    // Runs ssh-keygen for the form's values. Returns the new key's path "~/.ssh/<file name>"
    // when ssh-keygen exited with status 0, else an empty text (and `error` says why).
    Q_INVOKABLE QString generate(const QString& gitEmail, const QString& keyFilename,
                                 bool usePassphrase, const QString& passphrase);

    // Puts the text of ~/.ssh/<file name>.pub, exactly as stored, on the clipboard. False,
    // and the clipboard untouched, when the file cannot be read.
    Q_INVOKABLE bool copyPublicKeyToClipboard(const QString& fileName) const;

signals:
    void errorChanged();

private:
    QString m_error;
};
