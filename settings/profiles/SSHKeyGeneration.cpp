#include "settings/profiles/SSHKeyGeneration.h"

#include "activation/SSHKeyGenerator.h"
#include "model/HomePath.h"

#include <QClipboard>
#include <QGuiApplication>

SSHKeyGeneration::SSHKeyGeneration(QObject* parent) : QObject(parent) {}

QString SSHKeyGeneration::keyFileName(const QString& keyFilename) const
{
    SSHKeyGenerator::Request request;
    request.keyFilename = keyFilename;
    return SSHKeyGenerator::fileName(request);
}

QString SSHKeyGeneration::generate(const QString& gitEmail, const QString& keyFilename,
                                   bool usePassphrase, const QString& passphrase) const
{
    SSHKeyGenerator::Request request;
    request.gitEmail = gitEmail;
    request.keyFilename = keyFilename;
    request.usePassphrase = usePassphrase;
    request.passphrase = passphrase;
    return SSHKeyGenerator::generate(request, HomePath::home()).sshKeyPath;
}

bool SSHKeyGeneration::copyPublicKeyToClipboard(const QString& fileName) const
{
    const auto text = SSHKeyGenerator::publicKey(fileName, HomePath::home());
    if (!text) {
        return false;
    }
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(*text);
    return true;
}
