// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/TrayIcon.h"

#include "app/AutostartSwitch.h"
#include "app/Logging.h"

#include <QGuiApplication>
#include <QIcon>
#include <QKeySequence>

namespace {

constexpr int retryIntervalMs = 5000;

} // namespace

TrayIcon::TrayIcon(AutostartSwitch& autostart, QObject* parent)
    : QObject(parent), m_autostart(autostart)
{
    m_tray.setIcon(QIcon(QStringLiteral(":/qt/qml/Kivora/assets/kivora-logo.svg")));
    m_tray.setToolTip(QStringLiteral("Kivora"));

    m_menu.addAction(tr("Open Kivora"), this, [this] { emit openRequested(geometry()); });
    m_menu.addAction(tr("Settings…"), this, &TrayIcon::settingsRequested);
    QAction* preferences =
        m_menu.addAction(tr("Preferences…"), this, &TrayIcon::preferencesRequested);
    // Shown as the hint only: the shortcut itself works in Kivora's windows (WindowShortcuts).
    preferences->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    preferences->setShortcutVisibleInContextMenu(true);
    m_menu.addAction(tr("Check for Updates…"), this, &TrayIcon::checkForUpdatesRequested);
    m_menu.addSeparator();
    QAction* startAtLogin = m_menu.addAction(tr("Start at Login"));
    startAtLogin->setCheckable(true);
    startAtLogin->setChecked(m_autostart.enabled());
    connect(startAtLogin, &QAction::triggered, &m_autostart, &AutostartSwitch::setEnabled);
    // The action shows the entry as it is, also when a switch failed or something else
    // changed it.
    connect(&m_autostart, &AutostartSwitch::enabledChanged, startAtLogin,
            [this, startAtLogin] { startAtLogin->setChecked(m_autostart.enabled()); });
    connect(&m_autostart, &AutostartSwitch::failed, this, [this, startAtLogin](const QString& why) {
        startAtLogin->setChecked(m_autostart.enabled());
        m_tray.showMessage(QStringLiteral("Kivora"), why, QSystemTrayIcon::Warning);
    });
    connect(&m_menu, &QMenu::aboutToShow, &m_autostart, &AutostartSwitch::refresh);
    m_menu.addSeparator();
    m_menu.addAction(tr("Quit"), this, &TrayIcon::quitRequested);
    m_tray.setContextMenu(&m_menu);

    connect(&m_tray, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    emit toggleRequested(geometry());
                }
            });

    m_retry.setInterval(retryIntervalMs);
    connect(&m_retry, &QTimer::timeout, this, &TrayIcon::retry);
}

bool TrayIcon::show()
{
    // With no status area, QSystemTrayIcon still reports itself visible: ask the desktop.
    m_available = QSystemTrayIcon::isSystemTrayAvailable();
    if (m_available) {
        m_tray.show();
        m_retry.stop();
    } else {
        qCInfo(lcApp) << "no status area yet; trying again every" << retryIntervalMs << "ms";
        m_retry.start();
    }
    return m_available;
}

void TrayIcon::retry()
{
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        show();
        emit becameAvailable();
    }
}

QRect TrayIcon::geometry() const
{
    const QRect rect = m_tray.geometry();
    return rect.isValid() && !rect.isEmpty() ? rect : QRect();
}
