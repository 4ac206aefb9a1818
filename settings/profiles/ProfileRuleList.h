// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/IdentityRule.h"
#include "activation/ProfileManager.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

// One profile's rules for the windows: the folders and remote patterns in whose repositories
// git uses the profile. Read from the rule file, and read again whenever it changes (the
// command line writes it too). With `staged`, as in the profile editor, adding and removing
// only change this list until commit() writes it.
class ProfileRuleList : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ProfileManager* manager READ manager WRITE setManager NOTIFY managerChanged)
    Q_PROPERTY(QString profileId READ profileId WRITE setProfileId NOTIFY profileIdChanged)
    Q_PROPERTY(bool staged READ staged WRITE setStaged NOTIFY stagedChanged)
    // [{kind: "dir"|"remote", pattern, shown}], in rule order; `shown` writes the home as ~.
    Q_PROPERTY(QVariantList rules READ rules NOTIFY rulesChanged)
    Q_PROPERTY(QString summary READ summary NOTIFY rulesChanged)
    // Why the last change was refused or could not be saved; empty after one that worked.
    Q_PROPERTY(QString errorText READ errorText NOTIFY errorTextChanged)

public:
    explicit ProfileRuleList(QObject* parent = nullptr);

    ProfileManager* manager() const { return m_manager; }
    void setManager(ProfileManager* manager);
    QString profileId() const { return m_profileId; }
    void setProfileId(const QString& id);
    bool staged() const { return m_staged; }
    void setStaged(bool staged);
    QVariantList rules() const;
    QString summary() const;
    QString errorText() const { return m_errorText; }

    // A folder from the desktop's folder chooser (a file: URL) or a typed path.
    Q_INVOKABLE bool addFolder(const QUrl& folder);
    Q_INVOKABLE bool addFolderPath(const QString& path);
    Q_INVOKABLE bool addRemote(const QString& pattern);
    Q_INVOKABLE void removeAt(int index);
    // Writes this profile's rules: the ones kept stay where they were among all rules, the
    // ones added (also again after a removal) go to the end, as `kivora rule add` puts them.
    // The profile must be in the manager's list by then.
    Q_INVOKABLE bool commit();
    Q_INVOKABLE void reload();

signals:
    void managerChanged();
    void profileIdChanged();
    void stagedChanged();
    void rulesChanged();
    void errorTextChanged();

private:
    bool add(const IdentityRule& rule);
    void setErrorText(const QString& text);
    QString home() const;
    void watch();

    QPointer<ProfileManager> m_manager;
    QString m_profileId;
    bool m_staged = false;
    IdentityRules m_rules;
    // Added since the last commit: they go to the end of all rules, where they win.
    IdentityRules m_added;
    QString m_errorText;
    QFileSystemWatcher m_watcher;
};
