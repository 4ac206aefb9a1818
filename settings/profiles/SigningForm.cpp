// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/SigningForm.h"

#include "activation/SSHKeyScanner.h"
#include "model/HomePath.h"
#include "model/ProfileCodec.h"

#include <QFileInfo>

SigningForm::SigningForm(ProfileManager& manager, QObject* parent)
    : QObject(parent), m_manager(manager)
{
}

void SigningForm::setKey(const QString& key)
{
    if (m_key == key) {
        return;
    }
    m_key = key;
    emit keyChanged();
    emit problemChanged();
}

void SigningForm::setSignCommits(bool on)
{
    if (m_signCommits == on) {
        return;
    }
    m_signCommits = on;
    emit signCommitsChanged();
    emit problemChanged();
}

QString SigningForm::format() const
{
    return m_key.isEmpty() ? QString()
                           : SigningSettings::formatName(SigningSettings::formatOf(m_key));
}

void SigningForm::setError(const QString& error)
{
    if (m_error == error) {
        return;
    }
    m_error = error;
    emit errorChanged();
}

QStringList SigningForm::keyChoices(const QString& sshKeyPath) const
{
    QStringList choices;
    if (!sshKeyPath.isEmpty()) {
        const QString own = sshKeyPath.endsWith(QStringLiteral(".pub"))
                                ? sshKeyPath
                                : sshKeyPath + QStringLiteral(".pub");
        if (QFileInfo(HomePath::expandTilde(own)).isFile()) {
            choices << own;
        }
    }
    const QString home = m_manager.home();
    for (const QString& name : SSHKeyScanner::scan(home)) {
        const QString pub = QStringLiteral("~/.ssh/") + name + QStringLiteral(".pub");
        if (!choices.contains(pub) &&
            HomePath::expandTilde(pub) != HomePath::expandTilde(choices.value(0))) {
            choices << pub;
        }
    }
    return choices;
}

void SigningForm::load(const QString& profileId)
{
    setError({});
    const auto id = ProfileCodec::parseUuid(profileId);
    const auto settings =
        id ? m_manager.signingStore().find(*id) : std::optional<SigningSettings>();
    setKey(settings ? settings->key : QString());
    setSignCommits(settings && settings->signCommits);
}

QString SigningForm::problem() const
{
    if (m_key.isEmpty()) {
        return m_signCommits ? tr("Choose a signing key to sign commits.") : QString();
    }
    if (SigningSettings::formatOf(m_key) == SigningSettings::Format::ssh &&
        m_manager.commitSigning().publicKey(m_key).isEmpty()) {
        return tr("%1 is not a readable SSH public key.").arg(m_key);
    }
    return {};
}

bool SigningForm::save(const QString& profileId)
{
    const auto id = ProfileCodec::parseUuid(profileId);
    if (!id) {
        setError(tr("The profile could not be found."));
        return false;
    }
    if (const QString why = problem(); !why.isEmpty()) {
        setError(why);
        return false;
    }
    const std::optional<SigningSettings> settings =
        m_key.isEmpty() ? std::nullopt
                        : std::optional<SigningSettings>(SigningSettings{
                              m_key, SigningSettings::formatOf(m_key), m_signCommits});
    // Unchanged settings are not written again.
    if (m_manager.signingStore().find(*id) == settings) {
        setError({});
        return true;
    }
    QString error;
    if (!m_manager.setSigning(*id, settings, &error)) {
        setError(error);
        return false;
    }
    setError({});
    return true;
}
