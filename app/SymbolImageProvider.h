// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QImage>
#include <QQuickImageProvider>
#include <QString>

// Serves "image://symbol/<colour>/<symbol>": the symbol's icon (see SymbolTable) tinted in
// the colour, given as hexadecimal digits without '#' (RRGGBB or AARRGGBB), so that icons
// follow the palette and dark mode.
class SymbolImageProvider : public QQuickImageProvider {
public:
    SymbolImageProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

    // The icon of a symbol at a size in one colour; a transparent image for an unknown one.
    static QImage render(const QString& symbol, const QColor& color, const QSize& size);
};
