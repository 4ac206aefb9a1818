// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/WindowRegistry.h"

WindowRegistry::WindowRegistry(QObject* parent) : QObject(parent) {}

void WindowRegistry::add(const QString& id, Factory factory)
{
    m_factories.insert(id, std::move(factory));
}

bool WindowRegistry::open(const QString& id)
{
    QPointer<QWindow>& window = m_windows[id];
    if (!window) {
        const auto factory = m_factories.constFind(id);
        if (factory != m_factories.constEnd()) {
            window = (*factory)();
        }
    }
    if (window) {
        window->show();
        if (window->windowStates() & Qt::WindowMinimized) {
            window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
        }
        window->raise();
        window->requestActivate();
    }
    // Announced even without a window, so that a view without one (a test) can follow it.
    emit opened(id);
    return window != nullptr;
}

bool WindowRegistry::isOpen(const QString& id) const
{
    const QWindow* w = window(id);
    return w && w->isVisible();
}

QWindow* WindowRegistry::window(const QString& id) const
{
    return m_windows.value(id);
}
