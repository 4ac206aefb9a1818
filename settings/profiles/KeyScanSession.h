// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "settings/profiles/ScannedKey.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQmlParserStatus>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

class ProfileManager;

// The key scan sheet's walk: the key pairs in ~/.ssh, one step per key asking for the git name
// and e-mail to use with it, forward only, then the completion step. It collects entries and
// creates nothing; the profiles page turns them into profiles.
//
// Made in QML, it reads the home folder of the application's profile manager; a C++ owner
// passes the folder in.
class KeyScanSession : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY stepChanged)
    Q_PROPERTY(QStringList keys READ keys NOTIFY stepChanged)
    Q_PROPERTY(int currentIndex READ currentIndex NOTIFY stepChanged)
    Q_PROPERTY(bool isAsking READ isAsking NOTIFY stepChanged)
    Q_PROPERTY(bool isComplete READ isComplete NOTIFY stepChanged)
    Q_PROPERTY(QString currentKey READ currentKey NOTIFY stepChanged)
    Q_PROPERTY(QString gitName READ gitName WRITE setGitName NOTIFY gitNameChanged)
    Q_PROPERTY(QString gitEmail READ gitEmail WRITE setGitEmail NOTIFY gitEmailChanged)
    // The entries collected so far, each a scannedKey.
    Q_PROPERTY(QVariantList profiles READ profiles NOTIFY profilesChanged)
    Q_PROPERTY(QString createdText READ createdText NOTIFY profilesChanged)

public:
    explicit KeyScanSession(QObject* parent = nullptr);
    // Scans the ~/.ssh of `home`.
    explicit KeyScanSession(const QString& home, QObject* parent = nullptr);

    void classBegin() override;
    void componentComplete() override {}

    // Reads the folder: the private keys that have their ".pub" beside them, in plain
    // ascending order. A folder that cannot be read holds none.
    Q_INVOKABLE void scan();
    // The next key, with empty fields.
    Q_INVOKABLE void nextKey();
    // Keeps the current key with the fields as typed (empty ones too), then the next key.
    Q_INVOKABLE void addCurrentKey();

    bool isScanning() const { return m_isScanning; }
    QStringList keys() const { return m_keys; }
    int currentIndex() const { return m_currentIndex; }
    bool isAsking() const;
    bool isComplete() const;
    QString currentKey() const;
    QString gitName() const { return m_gitName; }
    void setGitName(const QString& name);
    QString gitEmail() const { return m_gitEmail; }
    void setGitEmail(const QString& email);
    QVariantList profiles() const;
    const QList<ScannedKey>& entries() const { return m_entries; }
    // "1 profile created", "0 profiles created", "2 profiles created".
    QString createdText() const;

signals:
    void stepChanged();
    void gitNameChanged();
    void gitEmailChanged();
    void profilesChanged();

private:
    QString m_home;
    QStringList m_keys;
    int m_currentIndex = 0;
    bool m_isScanning = true;
    QString m_gitName;
    QString m_gitEmail;
    QList<ScannedKey> m_entries;
};
