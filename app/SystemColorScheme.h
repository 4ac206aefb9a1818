// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariant>

class QDBusServiceWatcher;

// The desktop's preferred colour scheme, read from the XDG desktop portal
// (org.freedesktop.portal.Settings, org.freedesktop.appearance / color-scheme) and kept up
// to date through the portal's SettingChanged signal. Without a portal it reports light.
//
// The portal is usually started on demand by the first call to it, often this one: the
// change signal is therefore taken from whoever sends it on the portal's path (the well-known
// name has no owner yet when we subscribe), and the value is read again each time the portal
// (re)appears on the bus.
class SystemColorScheme : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool prefersDark READ prefersDark NOTIFY prefersDarkChanged)

public:
    explicit SystemColorScheme(QObject* parent = nullptr);

    bool prefersDark() const { return m_prefersDark; }

    // The portal's value: 1 prefers dark, 2 prefers light, 0 (or anything else) no
    // preference. Nested D-Bus variants are unwrapped first.
    static bool isDarkValue(const QVariant& value);

signals:
    void prefersDarkChanged();

private slots:
    void onSettingChanged(const QDBusMessage& message);

private:
    void readValue();
    void setPrefersDark(bool dark);

    QDBusServiceWatcher* m_watcher = nullptr;
    bool m_prefersDark = false;
};
