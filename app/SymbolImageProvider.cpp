// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SymbolImageProvider.h"

#include "app/Logging.h"
#include "app/SymbolTable.h"

#include <QIcon>
#include <QPainter>

namespace {

void knockOutLight(QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = QColor::fromRgba(qUnpremultiply(line[x]));
            const int alpha = pixel.alpha() * (255 - qGray(pixel.rgb())) / 255;
            line[x] = qPremultiply(qRgba(0, 0, 0, alpha));
        }
    }
}

} // namespace

SymbolImageProvider::SymbolImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage SymbolImageProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const qsizetype slash = id.indexOf(QLatin1Char('/'));
    const QColor color(QLatin1Char('#') + id.left(slash));
    const QString symbol = id.mid(slash + 1);
    const QSize target =
        requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : QSize(16, 16);
    const QImage image = render(symbol, color.isValid() ? color : QColor(Qt::black), target);
    if (size) {
        *size = image.size();
    }
    return image;
}

QImage SymbolImageProvider::render(const QString& symbol, const QColor& color, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);

    QIcon icon;
    bool packaged = false;
    const QString themeName = SymbolTable::themeIconName(symbol);
    if (!themeName.isEmpty() && QIcon::hasThemeIcon(themeName)) {
        icon = QIcon::fromTheme(themeName);
    } else if (SymbolTable::contains(symbol)) {
        icon = QIcon(SymbolTable::fallbackPath(symbol));
        packaged = true;
    }
    if (icon.isNull()) {
        qCWarning(lcSymbols) << "no icon for the symbol" << symbol;
        return image;
    }
    qCDebug(lcSymbols) << symbol << "drawn from"
                       << (packaged ? "Kivora's own drawing" : "the theme")
                       << (packaged ? SymbolTable::fallbackPath(symbol) : themeName);

    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        icon.paint(&painter, QRect(QPoint(0, 0), size));
    }
    if (packaged) {
        // Our own symbols are black ink with white cut-outs: light parts become holes.
        knockOutLight(image);
    }
    // Keep the icon's shape and coverage, take the colour from the palette.
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}
