#include "settings/profiles/SSHKeyGeneration.h"

#include "activation/SSHKeyGenerator.h"
#include "model/HomePath.h"
#include "model/Sentence.h"

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
                                   bool usePassphrase, const QString& passphrase)
{
    SSHKeyGenerator::Request request;
    request.gitEmail = gitEmail;
    request.keyFilename = keyFilename;
    request.usePassphrase = usePassphrase;
    request.passphrase = passphrase;
    const auto result = SSHKeyGenerator::generate(request, HomePath::home());
    const QString error =
        result.outcome == SSHKeyGenerator::Outcome::Created
            ? QString()
            : Sentence::of(QStringLiteral("the key could not be generated: ") + result.error);
    if (m_error != error) {
        m_error = error;
        emit errorChanged();
    }
    return result.sshKeyPath;
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
