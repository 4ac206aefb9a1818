// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SystemColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

} // namespace

SystemColorScheme::SystemColorScheme(QObject* parent) : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                this, SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    readInitialValue();
}

bool SystemColorScheme::isDarkValue(const QVariant& value)
{
    QVariant v = value;
    while (v.canConvert<QDBusVariant>() && v.metaType() == QMetaType::fromType<QDBusVariant>()) {
        v = qvariant_cast<QDBusVariant>(v).variant();
    }
    bool ok = false;
    const uint scheme = v.toUInt(&ok);
    return ok && scheme == 1;
}

void SystemColorScheme::readInitialValue()
{
    // Asynchronous, so that a slow or missing portal never delays the start.
    QDBusMessage call = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface,
                                                       QStringLiteral("Read"));
    call << appearanceNamespace << colorSchemeKey;
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, 2000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QVariant> reply = *finished;
                if (!reply.isError()) {
                    setPrefersDark(isDarkValue(reply.value()));
                }
                finished->deleteLater();
            });
}

void SystemColorScheme::onSettingChanged(const QString& nameSpace, const QString& key,
                                         const QDBusVariant& value)
{
    if (nameSpace == appearanceNamespace && key == colorSchemeKey) {
        setPrefersDark(isDarkValue(value.variant()));
    }
}

void SystemColorScheme::setPrefersDark(bool dark)
{
    if (m_prefersDark != dark) {
        m_prefersDark = dark;
        emit prefersDarkChanged();
    }
}
