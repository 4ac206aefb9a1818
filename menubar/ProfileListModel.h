#pragma once

#include "activation/ProfileManager.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

// The profile manager's profiles as a list for the views, in the manager's order, plus the
// active profile and the commands a row gives: switch to, open a terminal for, delete.
class ProfileListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ProfileManager* manager READ manager WRITE setManager NOTIFY managerChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool hasActiveProfile READ hasActiveProfile NOTIFY activeProfileChanged)
    Q_PROPERTY(QVariantMap activeProfile READ activeProfile NOTIFY activeProfileChanged)
    // Why the last switch or deletion failed, as one sentence; empty after one that worked.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)

public:
    enum Role {
        ProfileIdRole = Qt::UserRole + 1,
        NameRole,
        GitNameRole,
        GitEmailRole,
        SshKeyPathRole,
        IsActiveRole,
    };
    Q_ENUM(Role)

    explicit ProfileListModel(QObject* parent = nullptr);

    ProfileManager* manager() const { return m_manager; }
    void setManager(ProfileManager* manager);

    int count() const;
    bool hasActiveProfile() const;
    // "id", "name", "gitName", "gitEmail" and "sshKeyPath" of the active profile; empty
    // when no profile is active.
    QVariantMap activeProfile() const;
    QString error() const { return m_error; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // Makes the profile active and rewrites the global git identity. False for an unknown id
    // and when git or a file could not be written (then `error` says why).
    Q_INVOKABLE bool activate(const QString& id);
    // Removes every profile with this id, keeps the others in order and saves. The active
    // profile id, the global identity and any key file are left as they are. False when
    // there was none or the profile file could not be written (then `error` says why).
    Q_INVOKABLE bool remove(const QString& id);
    // Opens a terminal window with the profile's identity preset.
    Q_INVOKABLE bool openTerminal(const QString& id);

    static QVariantMap describe(const GitProfile& profile);

signals:
    void managerChanged();
    void countChanged();
    void activeProfileChanged();
    void errorChanged();

private:
    std::optional<GitProfile> profile(const QString& id) const;
    void reload();
    void activeChanged();
    void setError(const QString& error);

    QPointer<ProfileManager> m_manager;
    QList<GitProfile> m_profiles;
    QString m_error;
};
