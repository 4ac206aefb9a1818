// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"

#include <QAbstractListModel>
#include <QVariantMap>

// The profile manager's profiles as a list for the views, in the manager's order, plus the
// active profile and the commands a row gives: switch to, open a terminal for, delete. It
// follows the manager row by row: an added profile is an inserted row, a removed one a
// removed row, so views keep their other rows (and their hover and focus) as they are.
class ProfileListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool hasActiveProfile READ hasActiveProfile NOTIFY activeProfileChanged)
    Q_PROPERTY(QVariantMap activeProfile READ activeProfile NOTIFY activeProfileChanged)
    // Why the last switch or deletion failed, as one sentence; empty after one that worked.
    // Also why the profile file, changed by someone else, could not be read, until it can.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)

public:
    enum Role {
        ProfileIdRole = Qt::UserRole + 1,
        NameRole,
        GitNameRole,
        GitEmailRole,
        SshKeyPathRole,
        IsActiveRole,
        ProfileRole, // the whole record, a gitProfile
    };
    Q_ENUM(Role)

    explicit ProfileListModel(ProfileManager& manager, QObject* parent = nullptr);

    int count() const;
    bool hasActiveProfile() const;
    // "id", "name", "gitName", "gitEmail" and "sshKeyPath" of the active profile; empty
    // when no profile is active.
    QVariantMap activeProfile() const;
    QString error() const { return m_error; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // The profile at a row; an empty one past the end.
    Q_INVOKABLE GitProfile at(int row) const;

    // Makes the profile active and rewrites the global git identity. False for an unknown id
    // and when git or a file could not be written (then `error` says why).
    Q_INVOKABLE bool activate(const QString& id);
    // Removes every profile with this id, keeps the others in order and saves. The active
    // profile id, the global identity and any key file are left as they are. False when
    // there was none or the profile file could not be written (then `error` says why).
    Q_INVOKABLE bool remove(const QString& id);
    // Opens a terminal window with the profile's identity preset.
    Q_INVOKABLE bool openTerminal(const QString& id);
    // Puts the sentence of an earlier failure away (a view that starts afresh); a profile file
    // that still cannot be read stays said.
    Q_INVOKABLE void clearError() { setError(m_fileError); }

    static QVariantMap describe(const GitProfile& profile);

signals:
    void countChanged();
    void activeProfileChanged();
    void errorChanged();

private:
    std::optional<GitProfile> profile(const QString& id) const;
    void insert(int row);
    void update(int row);
    void removeRow(int row);
    void move(int from, int to);
    void reset();
    void activeChanged();
    void setError(const QString& error);
    void showFileError();

    ProfileManager& m_manager;
    // The rows as the views last heard of them; always the manager's list after a signal.
    QList<GitProfile> m_profiles;
    QString m_error;
    // The manager's file error as shown, to put it away when the file can be read again.
    QString m_fileError;
};
