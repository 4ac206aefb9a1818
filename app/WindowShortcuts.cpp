// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/WindowShortcuts.h"

#include "app/WindowRegistry.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

WindowShortcuts::WindowShortcuts(WindowRegistry& windows, QObject* parent)
    : QObject(parent), m_windows(windows)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool WindowShortcuts::eventFilter(QObject* watched, QEvent* event)
{
    // Key events reach the window before any item in it: catching them there makes the
    // shortcut independent of which control has the focus.
    if (event->type() != QEvent::KeyPress || !watched->isWindowType()) {
        return false;
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers modifiers =
        key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (key->key() == Qt::Key_Comma && modifiers == Qt::ControlModifier) {
        m_windows.open(QStringLiteral("preferences"));
        return true;
    }
    return false;
}
