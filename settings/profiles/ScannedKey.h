// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMetaType>
#include <QString>
#include <QtQml/qqmlregistration.h>

// One entry of a key scan: a private key's file name in ~/.ssh and the git name and e-mail
// the user gave for it. Readable from QML as the value type "scannedKey".
struct ScannedKey {
    Q_GADGET
    QML_VALUE_TYPE(scannedKey)
    Q_PROPERTY(QString keyName MEMBER keyName)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString email MEMBER email)

public:
    QString keyName;
    QString name;
    QString email;

    friend bool operator==(const ScannedKey&, const ScannedKey&) = default;
};

Q_DECLARE_METATYPE(ScannedKey)
