#include "menubar/ProfileListModel.h"

#include "model/Sentence.h"

ProfileListModel::ProfileListModel(QObject* parent) : QAbstractListModel(parent) {}

void ProfileListModel::setManager(ProfileManager* manager)
{
    if (m_manager == manager) {
        return;
    }
    if (m_manager) {
        m_manager->disconnect(this);
    }
    m_manager = manager;
    if (m_manager) {
        connect(m_manager, &ProfileManager::profilesChanged, this, &ProfileListModel::reload);
        connect(m_manager, &ProfileManager::activeProfileIDChanged, this,
                &ProfileListModel::activeChanged);
    }
    reload();
    emit managerChanged();
}

int ProfileListModel::count() const
{
    return int(m_profiles.size());
}

bool ProfileListModel::hasActiveProfile() const
{
    return m_manager && m_manager->activeProfile().has_value();
}

QVariantMap ProfileListModel::activeProfile() const
{
    if (!m_manager) {
        return {};
    }
    const auto active = m_manager->activeProfile();
    return active ? describe(*active) : QVariantMap();
}

QVariantMap ProfileListModel::describe(const GitProfile& profile)
{
    return {
        {QStringLiteral("id"), profile.idText()},
        {QStringLiteral("name"), profile.name},
        {QStringLiteral("gitName"), profile.gitName},
        {QStringLiteral("gitEmail"), profile.gitEmail},
        {QStringLiteral("sshKeyPath"), profile.sshKeyPath},
    };
}

int ProfileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ProfileListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_profiles.size()) {
        return {};
    }
    const GitProfile& profile = m_profiles.at(index.row());
    switch (role) {
    case ProfileIdRole:
        return profile.idText();
    case Qt::DisplayRole:
    case NameRole:
        return profile.name;
    case GitNameRole:
        return profile.gitName;
    case GitEmailRole:
        return profile.gitEmail;
    case SshKeyPathRole:
        return profile.sshKeyPath;
    case IsActiveRole:
        return m_manager && m_manager->activeProfileID() == profile.id;
    default:
        return {};
    }
}

QHash<int, QByteArray> ProfileListModel::roleNames() const
{
    return {
        {ProfileIdRole, "profileId"},   {NameRole, "name"},
        {GitNameRole, "gitName"},       {GitEmailRole, "gitEmail"},
        {SshKeyPathRole, "sshKeyPath"}, {IsActiveRole, "isActive"},
    };
}

std::optional<GitProfile> ProfileListModel::profile(const QString& id) const
{
    if (!m_manager) {
        return std::nullopt;
    }
    for (const GitProfile& candidate : m_manager->profiles()) {
        if (candidate.idText() == id) {
            return candidate;
        }
    }
    return std::nullopt;
}

bool ProfileListModel::activate(const QString& id)
{
    const auto chosen = profile(id);
    if (!chosen) {
        return false;
    }
    QString why;
    const bool applied = m_manager->applyGlobally(*chosen, &why);
    setError(applied ? QString() : Sentence::of(why));
    return applied;
}

bool ProfileListModel::remove(const QString& id)
{
    if (!m_manager || !profile(id)) {
        return false;
    }
    QString why;
    const bool saved = m_manager->change(
        [&id](QList<GitProfile>& profiles, std::optional<QUuid>&) {
            profiles.removeIf([&id](const GitProfile& p) { return p.idText() == id; });
        },
        &why);
    setError(saved ? QString() : Sentence::of(why));
    return saved;
}

void ProfileListModel::setError(const QString& error)
{
    if (m_error != error) {
        m_error = error;
        emit errorChanged();
    }
}

bool ProfileListModel::openTerminal(const QString& id)
{
    const auto chosen = profile(id);
    if (!chosen) {
        return false;
    }
    m_manager->openTerminal(*chosen);
    return true;
}

void ProfileListModel::reload()
{
    const qsizetype before = m_profiles.size();
    beginResetModel();
    m_profiles = m_manager ? m_manager->profiles() : QList<GitProfile>();
    endResetModel();
    if (before != m_profiles.size()) {
        emit countChanged();
    }
    emit activeProfileChanged();
}

void ProfileListModel::activeChanged()
{
    if (!m_profiles.isEmpty()) {
        emit dataChanged(index(0), index(int(m_profiles.size()) - 1), {IsActiveRole});
    }
    emit activeProfileChanged();
}
