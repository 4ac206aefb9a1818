#pragma once

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

// The key scan sheet's reading of ~/.ssh: the private keys that have their ".pub" beside them,
// in plain ascending order. An unreadable or missing folder gives none.
class SSHKeyScan : public QObject {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SSHKeyScan(QObject* parent = nullptr);

    Q_INVOKABLE QStringList scanKeys() const;
};
