// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/ProfileRuleList.h"

#include "activation/RuleStore.h"
#include "activation/RuleSync.h"
#include "model/HomePath.h"

#include <QDir>
#include <QFileInfo>

ProfileRuleList::ProfileRuleList(QObject* parent) : QObject(parent)
{
    const auto changed = [this] {
        if (!m_staged) {
            reload();
        }
        watch();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, changed);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, changed);
}

QString ProfileRuleList::home() const
{
    return m_manager ? m_manager->home() : HomePath::home();
}

void ProfileRuleList::watch()
{
    // The file is replaced on every write, so the folder is watched for its return as well.
    const RuleStore store(home());
    const QString folder = QFileInfo(store.path()).path();
    // Before ~/.kivora exists, the home folder is watched for its creation.
    const QString watched = QFileInfo::exists(folder) ? folder : home();
    if (!m_watcher.directories().contains(watched)) {
        m_watcher.addPath(watched);
    }
    if (!m_watcher.files().contains(store.path()) && QFileInfo::exists(store.path())) {
        m_watcher.addPath(store.path());
    }
}

void ProfileRuleList::setManager(ProfileManager* manager)
{
    if (m_manager == manager) {
        return;
    }
    m_manager = manager;
    emit managerChanged();
    reload();
}

void ProfileRuleList::setProfileId(const QString& id)
{
    if (m_profileId == id) {
        return;
    }
    m_profileId = id;
    emit profileIdChanged();
    reload();
}

void ProfileRuleList::setStaged(bool staged)
{
    if (m_staged == staged) {
        return;
    }
    m_staged = staged;
    emit stagedChanged();
}

void ProfileRuleList::reload()
{
    const QUuid id = QUuid::fromString(m_profileId);
    IdentityRules mine;
    if (const auto stored = RuleStore(home()).load()) {
        for (const IdentityRule& rule : *stored) {
            if (rule.profile == id) {
                mine.append(rule);
            }
        }
    }
    watch();
    if (mine != m_rules) {
        m_rules = mine;
        emit rulesChanged();
    }
}

QVariantList ProfileRuleList::rules() const
{
    const QString homePrefix = home() + u'/';
    QVariantList list;
    for (const IdentityRule& rule : m_rules) {
        QString shown = rule.pattern;
        if (rule.kind == IdentityRule::Kind::Dir && shown.startsWith(homePrefix)) {
            shown = QStringLiteral("~/") + shown.mid(homePrefix.size());
        }
        list.append(QVariantMap{{QStringLiteral("kind"), IdentityRule::kindText(rule.kind)},
                                {QStringLiteral("pattern"), rule.pattern},
                                {QStringLiteral("shown"), shown}});
    }
    return list;
}

QString ProfileRuleList::summary() const
{
    QStringList parts;
    for (const QVariant& rule : rules()) {
        parts << rule.toMap().value(QStringLiteral("shown")).toString();
    }
    return parts.isEmpty() ? QString() : tr("Used in %1").arg(parts.join(QStringLiteral(", ")));
}

void ProfileRuleList::setErrorText(const QString& text)
{
    if (m_errorText == text) {
        return;
    }
    m_errorText = text;
    emit errorTextChanged();
}

bool ProfileRuleList::add(const IdentityRule& rule)
{
    m_rules.removeAll(rule);
    m_rules.append(rule);
    m_added.removeAll(rule);
    m_added.append(rule);
    emit rulesChanged();
    setErrorText({});
    return m_staged || commit();
}

bool ProfileRuleList::addFolder(const QUrl& folder)
{
    return addFolderPath(folder.isLocalFile() ? folder.toLocalFile() : folder.toString());
}

bool ProfileRuleList::addFolderPath(const QString& path)
{
    const QString dir = RuleSync::normalizedDir(path.trimmed(), QDir::homePath());
    if (dir.isEmpty() || !QFileInfo(dir).isAbsolute()) {
        setErrorText(tr("Choose a folder."));
        return false;
    }
    return add({QUuid::fromString(m_profileId), IdentityRule::Kind::Dir, dir});
}

bool ProfileRuleList::addRemote(const QString& pattern)
{
    const QString text = pattern.trimmed();
    if (text.isEmpty() || text.contains(u'\n') || text.contains(u'\r')) {
        setErrorText(tr("Type a remote URL pattern, e.g. git@github.com:acme/**."));
        return false;
    }
    return add({QUuid::fromString(m_profileId), IdentityRule::Kind::Remote, text});
}

void ProfileRuleList::removeAt(int index)
{
    if (index < 0 || index >= m_rules.size()) {
        return;
    }
    m_added.removeAll(m_rules.takeAt(index));
    emit rulesChanged();
    setErrorText({});
    if (!m_staged) {
        commit();
    }
}

bool ProfileRuleList::commit()
{
    const QUuid id = QUuid::fromString(m_profileId);
    const RuleSync sync(home());
    QString error;
    const auto stored = sync.rules(&error);
    if (!stored) {
        setErrorText(error + u'.');
        return false;
    }
    IdentityRules all;
    for (const IdentityRule& rule : *stored) {
        if (rule.profile != id || (m_rules.contains(rule) && !m_added.contains(rule))) {
            all.append(rule);
        }
    }
    for (const IdentityRule& rule : m_rules) {
        if (!all.contains(rule)) {
            all.append(rule);
        }
    }
    if (all == *stored) {
        m_added.clear();
        return true;
    }
    if (!m_manager) {
        setErrorText(tr("The rules could not be saved: no profile list."));
        return false;
    }
    if (!sync.apply(all, m_manager->profiles(), &error)) {
        setErrorText(tr("The rules could not be saved: %1.").arg(error));
        return false;
    }
    m_added.clear();
    setErrorText({});
    return true;
}
