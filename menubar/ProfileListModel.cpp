// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "menubar/ProfileListModel.h"

#include "model/Sentence.h"

ProfileListModel::ProfileListModel(ProfileManager& manager, QObject* parent)
    : QAbstractListModel(parent), m_manager(manager), m_profiles(manager.profiles())
{
    connect(&m_manager, &ProfileManager::profileInserted, this, &ProfileListModel::insert);
    connect(&m_manager, &ProfileManager::profileUpdated, this, &ProfileListModel::update);
    connect(&m_manager, &ProfileManager::profileRemoved, this, &ProfileListModel::removeRow);
    connect(&m_manager, &ProfileManager::profileMoved, this, &ProfileListModel::move);
    connect(&m_manager, &ProfileManager::profilesReset, this, &ProfileListModel::reset);
    connect(&m_manager, &ProfileManager::activeProfileIDChanged, this,
            &ProfileListModel::activeChanged);
    connect(&m_manager, &ProfileManager::fileErrorChanged, this, &ProfileListModel::showFileError);
    showFileError();
}

int ProfileListModel::count() const
{
    return int(m_profiles.size());
}

bool ProfileListModel::hasActiveProfile() const
{
    return m_manager.activeProfile().has_value();
}

QVariantMap ProfileListModel::activeProfile() const
{
    const auto active = m_manager.activeProfile();
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
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
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
        return m_manager.activeProfileID() == profile.id;
    case ProfileRole:
        return QVariant::fromValue(profile);
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
        {ProfileRole, "profile"},
    };
}

GitProfile ProfileListModel::at(int row) const
{
    return row >= 0 && row < m_profiles.size() ? m_profiles.at(row) : GitProfile();
}

std::optional<GitProfile> ProfileListModel::profile(const QString& id) const
{
    for (const GitProfile& candidate : m_profiles) {
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
    const bool applied = m_manager.applyGlobally(*chosen, &why);
    setError(applied ? QString() : Sentence::of(why));
    return applied;
}

bool ProfileListModel::remove(const QString& id)
{
    const auto chosen = profile(id);
    if (!chosen) {
        return false;
    }
    // The popover's delete: the profile only; even the active id stays as it is.
    const auto removal = m_manager.removeProfile(*chosen, /*deleteSSHKey*/ false,
                                                 /*forgetActive*/ false);
    setError(removal.saved ? QString() : Sentence::of(removal.error));
    return removal.saved;
}

void ProfileListModel::setError(const QString& error)
{
    if (m_error != error) {
        m_error = error;
        emit errorChanged();
    }
}

void ProfileListModel::showFileError()
{
    const QString phrase = m_manager.fileError();
    const QString sentence = phrase.isEmpty() ? QString() : Sentence::of(phrase);
    if (!sentence.isEmpty()) {
        setError(sentence);
    } else if (m_error == m_fileError) {
        setError(QString());
    }
    m_fileError = sentence;
}

bool ProfileListModel::openTerminal(const QString& id)
{
    const auto chosen = profile(id);
    if (!chosen) {
        return false;
    }
    m_manager.openTerminal(*chosen);
    return true;
}

void ProfileListModel::insert(int row)
{
    beginInsertRows({}, row, row);
    m_profiles.insert(row, m_manager.profiles().at(row));
    endInsertRows();
    emit countChanged();
    // The active id may name the profile that just came (or came back).
    emit activeProfileChanged();
}

void ProfileListModel::update(int row)
{
    m_profiles[row] = m_manager.profiles().at(row);
    emit dataChanged(index(row), index(row));
    if (m_manager.activeProfileID() == m_profiles.at(row).id) {
        emit activeProfileChanged();
    }
}

void ProfileListModel::removeRow(int row)
{
    beginRemoveRows({}, row, row);
    m_profiles.removeAt(row);
    endRemoveRows();
    emit countChanged();
    // The active id may name the profile that just went.
    emit activeProfileChanged();
}

void ProfileListModel::move(int from, int to)
{
    // Qt counts the destination before the move: one further down when moving down.
    beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
    m_profiles.move(from, to);
    endMoveRows();
}

void ProfileListModel::reset()
{
    const qsizetype before = m_profiles.size();
    beginResetModel();
    m_profiles = m_manager.profiles();
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
