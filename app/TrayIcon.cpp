#include "app/TrayIcon.h"

#include <QAction>
#include <QGuiApplication>
#include <QIcon>
#include <QKeySequence>

namespace {

constexpr int retryIntervalMs = 5000;

} // namespace

TrayIcon::TrayIcon(QObject* parent) : QObject(parent)
{
    m_tray.setIcon(QIcon(QStringLiteral(":/qt/qml/Kivora/assets/kivora-logo.svg")));
    m_tray.setToolTip(QStringLiteral("Kivora"));

    m_menu.addAction(QStringLiteral("Open Kivora"), this,
                     [this] { emit openRequested(geometry()); });
    m_menu.addAction(QStringLiteral("Settings…"), this, &TrayIcon::settingsRequested);
    QAction* preferences =
        m_menu.addAction(QStringLiteral("Preferences…"), this, &TrayIcon::preferencesRequested);
    // Shown as the hint only: the shortcut itself works in Kivora's windows (WindowShortcuts).
    preferences->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    preferences->setShortcutVisibleInContextMenu(true);
    m_menu.addAction(QStringLiteral("Check for Updates…"), this,
                     &TrayIcon::checkForUpdatesRequested);
    m_menu.addSeparator();
    m_menu.addAction(QStringLiteral("Quit"), this, &TrayIcon::quitRequested);
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
