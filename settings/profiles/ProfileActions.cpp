#include "settings/profiles/ProfileActions.h"

#include "activation/KeyFileRemoval.h"
#include "activation/ProfileEdits.h"
#include "model/Sentence.h"

#include <QVariantMap>

ProfileActions::ProfileActions(QObject* parent) : QObject(parent) {}

void ProfileActions::setManager(ProfileManager* manager)
{
    if (m_manager == manager) {
        return;
    }
    m_manager = manager;
    emit managerChanged();
}

const GitProfile& ProfileActions::newProfileTemplate()
{
    static const GitProfile profileTemplate = GitProfile::empty();
    return profileTemplate;
}

GitProfile ProfileActions::profileAt(int index) const
{
    if (!m_manager || index < 0 || index >= m_manager->profiles().size()) {
        return GitProfile();
    }
    return m_manager->profiles().at(index);
}

void ProfileActions::setError(const QString& phrase)
{
    const QString error = Sentence::of(phrase);
    if (m_error != error) {
        m_error = error;
        emit errorChanged();
    }
}

bool ProfileActions::activate(const GitProfile& profile)
{
    if (!m_manager) {
        return false;
    }
    QString why;
    const bool applied = m_manager->applyGlobally(profile, &why);
    setError(why);
    return applied;
}

QString ProfileActions::deleteProfile(const GitProfile& profile, bool deleteSSHKey)
{
    if (!m_manager) {
        return {};
    }
    const auto deletion = ProfileEdits::deleteProfile(*m_manager, profile, deleteSSHKey);
    setError(deletion.error);
    return deletion.refused.join(u' ');
}

QString ProfileActions::keySharedWith(const GitProfile& profile) const
{
    if (!m_manager) {
        return {};
    }
    QStringList names =
        KeyFileRemoval::otherUsers(m_manager->profiles(), profile, m_manager->home());
    for (QString& name : names) {
        name = u'"' + name + u'"';
    }
    if (names.size() < 2) {
        return names.value(0);
    }
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

bool ProfileActions::addProfile(const GitProfile& profile)
{
    if (!m_manager) {
        return false;
    }
    QString why;
    const bool saved = ProfileEdits::appendProfile(*m_manager, profile, &why);
    setError(why);
    return saved;
}

bool ProfileActions::updateProfile(const GitProfile& profile)
{
    if (!m_manager) {
        return false;
    }
    QString why;
    const auto outcome = ProfileEdits::replaceProfile(*m_manager, profile, &why);
    setError(why);
    return outcome == ProfileEdits::Replaced::Saved;
}

bool ProfileActions::addScannedKeys(const QVariantList& entries)
{
    if (!m_manager || entries.isEmpty()) {
        return false;
    }
    QList<ProfileEdits::ScannedKey> keys;
    for (const QVariant& entry : entries) {
        const QVariantMap fields = entry.toMap();
        keys.append({fields.value(QStringLiteral("keyName")).toString(),
                     fields.value(QStringLiteral("name")).toString(),
                     fields.value(QStringLiteral("email")).toString()});
    }
    QString why;
    const bool saved = ProfileEdits::addScannedKeys(*m_manager, keys, &why);
    setError(why);
    return saved;
}
