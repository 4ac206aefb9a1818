// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/CommitSigning.h"

#include "model/AtomicFile.h"
#include "model/HomePath.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>

namespace {

// The keys a signing profile sets, in git's canonical (lower-case) spelling.
const QStringList& signingKeys()
{
    static const QStringList keys{QStringLiteral("user.signingkey"), QStringLiteral("gpg.format"),
                                  QStringLiteral("commit.gpgsign"), QStringLiteral("tag.gpgsign")};
    return keys;
}

const QString allowedSignersKey = QStringLiteral("gpg.ssh.allowedsignersfile");

bool safePrincipal(const QString& email)
{
    if (email.isEmpty()) {
        return false;
    }
    for (const QChar c : email) {
        // A blank ends the principal, a comma separates patterns, * and ? are wildcards, ! negates
        // and a quote or # would change how the rest of the line is read.
        if (c.unicode() < 0x20 || c.unicode() == 0x7f || c.isSpace() ||
            QStringLiteral(",*?!\"'#\\").contains(c)) {
            return false;
        }
    }
    return true;
}

} // namespace

CommitSigning::CommitSigning(const QString& home, CommandRunner::Programs programs)
    : m_home(home), m_programs(std::move(programs))
{
}

QString CommitSigning::allowedSignersPath() const
{
    return m_home + QStringLiteral("/.kivora/allowed_signers");
}

QString CommitSigning::appliedRecordPath() const
{
    return m_home + QStringLiteral("/.kivora/signing-applied.json");
}

QString CommitSigning::gitSigningKey(const SigningSettings& settings)
{
    if (settings.format == SigningSettings::Format::ssh &&
        !settings.key.startsWith(QStringLiteral("key::"))) {
        return HomePath::expandTilde(settings.key);
    }
    return settings.key;
}

std::optional<QString> CommitSigning::get(const QString& key) const
{
    QProcess git;
    git.setProgram(m_programs.env);
    git.setArguments({QStringLiteral("git"), QStringLiteral("config"), QStringLiteral("--global"),
                      QStringLiteral("--get"), key});
    git.setStandardInputFile(QProcess::nullDevice());
    git.start();
    if (!git.waitForFinished(-1) || git.exitStatus() != QProcess::NormalExit ||
        git.exitCode() != 0) {
        return std::nullopt;
    }
    QString value = QString::fromUtf8(git.readAllStandardOutput());
    if (value.endsWith(u'\n')) {
        value.chop(1);
    }
    return value;
}

bool CommitSigning::setValue(const QString& key, const QString& value) const
{
    QProcess git;
    git.setProgram(m_programs.env);
    git.setArguments(
        {QStringLiteral("git"), QStringLiteral("config"), QStringLiteral("--global"), key, value});
    git.setStandardInputFile(QProcess::nullDevice());
    git.start();
    return git.waitForFinished(-1) && git.exitStatus() == QProcess::NormalExit &&
           git.exitCode() == 0;
}

bool CommitSigning::unset(const QString& key) const
{
    QProcess git;
    git.setProgram(m_programs.env);
    git.setArguments({QStringLiteral("git"), QStringLiteral("config"), QStringLiteral("--global"),
                      QStringLiteral("--unset-all"), key});
    git.setStandardInputFile(QProcess::nullDevice());
    git.start();
    // Status 5 means the key was not there: nothing to remove is success.
    return git.waitForFinished(-1) && git.exitStatus() == QProcess::NormalExit &&
           (git.exitCode() == 0 || git.exitCode() == 5);
}

bool CommitSigning::apply(const std::optional<SigningSettings>& settings, QString* error) const
{
    QHash<QString, QString> wanted;
    if (settings && settings->signs()) {
        wanted.insert(signingKeys().at(0), gitSigningKey(*settings));
        wanted.insert(signingKeys().at(1), SigningSettings::formatName(settings->format));
        wanted.insert(signingKeys().at(2), QStringLiteral("true"));
        wanted.insert(signingKeys().at(3), QStringLiteral("true"));
    }

    // The record: for each key Kivora set, what it wrote and what was there before.
    QJsonObject record;
    {
        QFile file(appliedRecordPath());
        if (QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly)) {
            record = QJsonDocument::fromJson(file.read(1024 * 1024)).object();
        }
    }

    bool ok = true;
    QJsonObject next;
    for (const QString& key : signingKeys()) {
        const QJsonObject entry = record.value(key).toObject();
        const bool ours = entry.contains(u"set");
        const std::optional<QString> current = get(key);
        const bool stillOurs = ours && current == entry.value(u"set").toString();
        if (wanted.contains(key)) {
            // Remember what the user had, unless the value there is one Kivora wrote itself.
            QJsonObject kept{{QStringLiteral("set"), wanted.value(key)}};
            if (stillOurs) {
                kept.insert(QStringLiteral("before"), entry.value(u"before"));
            } else if (current) {
                kept.insert(QStringLiteral("before"), *current);
            }
            if (current != wanted.value(key)) {
                ok = setValue(key, wanted.value(key)) && ok;
            }
            next.insert(key, kept);
        } else if (stillOurs) {
            const QJsonValue before = entry.value(u"before");
            ok = (before.isString() ? setValue(key, before.toString()) : unset(key)) && ok;
        }
        // A key that no longer holds what Kivora wrote was changed by hand: it stays as it is.
    }

    const QString recordPath = appliedRecordPath();
    if (next.isEmpty()) {
        if (QFileInfo::exists(recordPath) && !QFile::remove(recordPath)) {
            ok = false;
        }
    } else if (!AtomicFile::makePrivateFolder(QFileInfo(recordPath).path()) ||
               !AtomicFile::write(recordPath, QJsonDocument(next).toJson(QJsonDocument::Indented),
                                  AtomicFile::privateFile)) {
        ok = false;
    }
    if (!ok && error) {
        *error = QCoreApplication::translate(
            "CommitSigning", "Could not change commit signing in the global git configuration.");
    }
    return ok;
}

QString CommitSigning::publicKey(const QString& key) const
{
    static const QRegularExpression keyType(QStringLiteral("^[A-Za-z0-9@._-]+$"));
    static const QRegularExpression base64(QStringLiteral("^[A-Za-z0-9+/]+=*$"));
    QString text;
    if (key.startsWith(QStringLiteral("key::"))) {
        text = key.mid(5);
    } else {
        QString path = HomePath::expandTilde(key);
        if (!path.endsWith(QStringLiteral(".pub"))) {
            path += QStringLiteral(".pub");
        }
        QFile file(path);
        // Public keys are a line long; a FIFO or device is never opened.
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
            return {};
        }
        text = QString::fromUtf8(file.read(64 * 1024));
    }
    const QStringList fields = text.trimmed().split(QRegularExpression(QStringLiteral("\\s+")));
    if (fields.size() < 2 || !keyType.match(fields.at(0)).hasMatch() ||
        !base64.match(fields.at(1)).hasMatch()) {
        return {};
    }
    return fields.at(0) + u' ' + fields.at(1);
}

QByteArray CommitSigning::allowedSignersText(const QList<GitProfile>& profiles,
                                             const QHash<QUuid, SigningSettings>& signing) const
{
    QByteArray text;
    for (const GitProfile& profile : profiles) {
        const auto it = signing.constFind(profile.id);
        if (it == signing.constEnd() || it->format != SigningSettings::Format::ssh ||
            it->key.isEmpty() || !safePrincipal(profile.gitEmail)) {
            continue;
        }
        const QString key = publicKey(it->key);
        if (key.isEmpty()) {
            continue;
        }
        const QByteArray line =
            (profile.gitEmail + QStringLiteral(" namespaces=\"git\" ") + key + u'\n').toUtf8();
        if (!text.contains(line)) {
            text += line;
        }
    }
    return text;
}

bool CommitSigning::writeAllowedSigners(const QList<GitProfile>& profiles,
                                        const QHash<QUuid, SigningSettings>& signing,
                                        QString* error) const
{
    const QByteArray text = allowedSignersText(profiles, signing);
    const QString path = allowedSignersPath();
    const std::optional<QString> configured = get(allowedSignersKey);
    const bool pointsElsewhere = configured && !configured->isEmpty() && *configured != path;
    if (text.isEmpty() && !QFileInfo::exists(path)) {
        return true; // nobody signs with SSH yet: nothing to keep
    }
    bool ok = AtomicFile::makePrivateFolder(QFileInfo(path).path()) &&
              AtomicFile::write(path, text, AtomicFile::privateFile);
    if (ok && !pointsElsewhere && configured != path) {
        ok = setValue(allowedSignersKey, path);
    }
    if (!ok && error) {
        *error = QCoreApplication::translate("CommitSigning",
                                             "Could not write the allowed signers file %1.")
                     .arg(path);
    }
    return ok;
}

bool CommitSigning::refreshAllowedSigners(const QList<GitProfile>& profiles,
                                          const QHash<QUuid, SigningSettings>& signing,
                                          QString* error) const
{
    const QString path = allowedSignersPath();
    const QByteArray text = allowedSignersText(profiles, signing);
    QFile file(path);
    if (!QFileInfo(path).isFile()) {
        if (text.isEmpty()) {
            return true;
        }
    } else if (file.open(QIODevice::ReadOnly) && file.read(text.size() + 1) == text) {
        return true;
    }
    return writeAllowedSigners(profiles, signing, error);
}
