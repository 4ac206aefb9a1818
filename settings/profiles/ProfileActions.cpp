// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/ProfileActions.h"

#include "model/Sentence.h"
#include "settings/profiles/ScannedKey.h"

ProfileActions::ProfileActions(ProfileManager& manager, QObject* parent)
    : QObject(parent), m_manager(manager)
{
    connect(&m_manager, &ProfileManager::fileErrorChanged, this, &ProfileActions::showFileError);
    showFileError();
}

void ProfileActions::showFileError()
{
    const QString phrase = m_manager.fileError();
    const QString sentence = phrase.isEmpty() ? QString() : Sentence::of(phrase);
    if (!sentence.isEmpty()) {
        setError(phrase);
    } else if (m_error == m_fileError) {
        setError(QString());
    }
    m_fileError = sentence;
}

void ProfileActions::setError(const QString& phrase)
{
    const QString error = Sentence::of(phrase);
    if (m_error != error) {
        m_error = error;
        emit errorChanged();
    }
}

const GitProfile& ProfileActions::newProfileTemplate()
{
    static const GitProfile profileTemplate = GitProfile::empty();
    return profileTemplate;
}

GitProfile ProfileActions::profileAt(int index) const
{
    return index >= 0 && index < m_manager.profiles().size() ? m_manager.profiles().at(index)
                                                             : GitProfile();
}

bool ProfileActions::activate(const GitProfile& profile)
{
    QString why;
    const bool applied = m_manager.applyGlobally(profile, &why);
    setError(why);
    return applied;
}

QString ProfileActions::deleteProfile(const GitProfile& profile, bool deleteSSHKey)
{
    const auto removal = m_manager.removeProfile(profile, deleteSSHKey);
    setError(removal.error);
    return removal.refusedKeyFiles.join(u' ');
}

QString ProfileActions::keySharedWith(const GitProfile& profile) const
{
    QStringList names = KeyFileRemoval::otherUsers(m_manager.profiles(), profile, m_manager.home());
    for (QString& name : names) {
        name = u'"' + name + u'"';
    }
    if (names.size() < 2) {
        return names.value(0);
    }
    const QString last = names.takeLast();
    //: Joins names: "A, B" and "C".
    return tr("%1 and %2").arg(names.join(QStringLiteral(", ")), last);
}

bool ProfileActions::addProfile(const GitProfile& profile)
{
    QString why;
    const bool saved = m_manager.appendProfile(profile, &why);
    setError(why);
    return saved;
}

bool ProfileActions::updateProfile(const GitProfile& profile)
{
    QString why;
    const auto outcome = m_manager.updateProfile(profile, &why);
    setError(why);
    return outcome == ProfileManager::Update::Saved;
}

bool ProfileActions::addScannedKeys(const QVariantList& entries)
{
    if (entries.isEmpty()) {
        return false;
    }
    QList<GitProfile> sources;
    for (const QVariant& entry : entries) {
        const auto key = entry.value<ScannedKey>();
        GitProfile source;
        source.name = key.keyName;
        source.gitName = key.name;
        source.gitEmail = key.email;
        source.sshKeyPath = QStringLiteral("~/.ssh/") + key.keyName;
        sources.append(source);
    }
    QString why;
    const bool saved = m_manager.addProfiles(sources, &why).has_value();
    setError(why);
    return saved;
}
