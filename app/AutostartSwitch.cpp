// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AutostartSwitch.h"

#include "prefs/Autostart.h"

AutostartSwitch::AutostartSwitch(QObject* parent)
    : QObject(parent), m_enabled(Autostart::isEnabled())
{
}

void AutostartSwitch::setEnabled(bool enabled)
{
    if (Autostart::setEnabled(enabled)) {
        setErrorMessage(QString());
    } else {
        setErrorMessage((enabled
                             ? tr("Could not turn on start at login: %1 could not be written.")
                             : tr("Could not turn off start at login: %1 could not be removed."))
                            .arg(Autostart::path()));
        emit failed(m_errorMessage);
    }
    refresh();
}

void AutostartSwitch::refresh()
{
    const bool enabled = Autostart::isEnabled();
    if (enabled != m_enabled) {
        m_enabled = enabled;
        emit enabledChanged();
    }
}

void AutostartSwitch::setErrorMessage(const QString& message)
{
    if (message != m_errorMessage) {
        m_errorMessage = message;
        emit errorMessageChanged();
    }
}
