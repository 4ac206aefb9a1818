// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SystemFont.h"

#include <QEvent>
#include <QGuiApplication>

SystemFont::SystemFont(QObject* parent) : QObject(parent)
{
    qGuiApp->installEventFilter(this);
}

QFont SystemFont::font() const
{
    return QGuiApplication::font();
}

bool SystemFont::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationFontChange) {
        emit fontChanged();
    }
    return QObject::eventFilter(watched, event);
}
