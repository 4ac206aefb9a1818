// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

// The profile editor's commit-signing fields: the key and the switch, read from the profile
// manager's signing settings when the editor opens and written back when it saves. The editor
// (ProfileEditor) owns it.
class SigningForm : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A profile editor keeps one for its signing section.")
    Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)
    Q_PROPERTY(bool signCommits READ signCommits WRITE setSignCommits NOTIFY signCommitsChanged)
    Q_PROPERTY(QString format READ format NOTIFY keyChanged)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)

public:
    explicit SigningForm(ProfileManager& manager, QObject* parent = nullptr);
    QString key() const { return m_key; }
    void setKey(const QString& key);
    bool signCommits() const { return m_signCommits; }
    void setSignCommits(bool on);
    // "ssh" or "openpgp" for the key as typed; empty without a key.
    QString format() const;
    // Why the last save failed, or empty.
    QString error() const { return m_error; }

    // The keys offered: the public half of the profile's own SSH key first, then the other
    // public keys in ~/.ssh, in the order of a key scan.
    Q_INVOKABLE QStringList keyChoices(const QString& sshKeyPath) const;

    // Fills the fields from the stored settings of the profile with this id.
    Q_INVOKABLE void load(const QString& profileId);

    // Stores the fields for the profile with this id (no key: the profile does not sign).
    // False, with `error` set, when the key cannot sign or the settings could not be written.
    Q_INVOKABLE bool save(const QString& profileId);

    // Why saving now would be refused; empty when it would not.
    QString problem() const;

signals:
    void keyChanged();
    void signCommitsChanged();
    void errorChanged();
    void problemChanged();

private:
    void setError(const QString& error);

    ProfileManager& m_manager;
    QString m_key;
    bool m_signCommits = false;
    QString m_error;
};
