// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QVariant>

// The desktop's preferred colour scheme, read from the XDG desktop portal
// (org.freedesktop.portal.Settings, org.freedesktop.appearance / color-scheme) and kept up
// to date through the portal's SettingChanged signal. Without a portal it reports light.
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
    void onSettingChanged(const QString& nameSpace, const QString& key, const QDBusVariant& value);

private:
    void readInitialValue();
    void setPrefersDark(bool dark);

    bool m_prefersDark = false;
};
