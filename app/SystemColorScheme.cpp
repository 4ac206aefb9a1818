// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SystemColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceNamespace = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

// Starting the portal can take several seconds on a busy machine (it starts its backends
// first); the call is asynchronous, so a long wait costs nothing.
constexpr int readTimeoutMs = 30000;

} // namespace

SystemColorScheme::SystemColorScheme(QObject* parent) : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    // An empty service matches the signal from any sender: subscribing to the well-known
    // name while nobody owns it yet (the portal is started by our own Read below) would
    // miss every later change. The slot takes the whole message: QtDBus cannot match a slot
    // with a QDBusVariant parameter before that type is registered, and then quietly
    // subscribes to nothing.
    const bool subscribed =
        bus.connect(QString(), portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                    this, SLOT(onSettingChanged(QDBusMessage)));
    if (!subscribed) {
        qWarning("kivora: cannot follow the desktop's colour scheme: %s",
                 qPrintable(bus.lastError().message()));
    }
    m_watcher = new QDBusServiceWatcher(portalService, bus,
                                        QDBusServiceWatcher::WatchForRegistration, this);
    connect(m_watcher, &QDBusServiceWatcher::serviceRegistered, this,
            &SystemColorScheme::readValue);
    readValue();
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

void SystemColorScheme::readValue()
{
    // Asynchronous, so that a slow or missing portal never delays the start.
    QDBusMessage call = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface,
                                                       QStringLiteral("Read"));
    call << appearanceNamespace << colorSchemeKey;
    auto* watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, readTimeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QVariant> reply = *finished;
                if (!reply.isError()) {
                    setPrefersDark(isDarkValue(reply.value()));
                }
                finished->deleteLater();
            });
}

void SystemColorScheme::onSettingChanged(const QDBusMessage& message)
{
    // SettingChanged(s namespace, s key, v value)
    const QList<QVariant> arguments = message.arguments();
    if (arguments.size() == 3 && arguments.at(0).toString() == appearanceNamespace &&
        arguments.at(1).toString() == colorSchemeKey) {
        setPrefersDark(isDarkValue(arguments.at(2)));
    }
}

void SystemColorScheme::setPrefersDark(bool dark)
{
    if (m_prefersDark != dark) {
        m_prefersDark = dark;
        emit prefersDarkChanged();
    }
}
