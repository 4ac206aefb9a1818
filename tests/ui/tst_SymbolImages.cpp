// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SymbolImageProvider.h"
#include "app/SymbolTable.h"

#include <QIcon>
#include <QPainter>
#include <QtTest>

// Symbols keep their shape: a filled disc with a tick is drawn as a disc even where the icon
// theme has an icon under the name the table would otherwise use (a bare tick).
class tst_SymbolImages : public QObject {
    Q_OBJECT

    // How many pixels of the image are mostly opaque.
    static int covered(const QImage& image)
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
            }
        }
        return count;
    }

private slots:
    void initTestCase()
    {
        // As the application does when the desktop names no icon theme.
        QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    }

    void filledMarksAreDiscs_data()
    {
        QTest::addColumn<QString>("symbol");
        QTest::newRow("checkmark.circle.fill") << QStringLiteral("checkmark.circle.fill");
        QTest::newRow("xmark.circle.fill") << QStringLiteral("xmark.circle.fill");
    }

    void filledMarksAreDiscs()
    {
        QFETCH(QString, symbol);
        const QSize size(48, 48);
        const QImage image = SymbolImageProvider::render(symbol, Qt::black, size);
        // The disc's rim, straight above the centre, is ink; so is most of its area (a disc
        // covers about 78 % of its square, less the cut-out mark).
        QVERIFY(qAlpha(image.pixel(size.width() / 2, 5)) > 128);
        QVERIFY2(covered(image) > size.width() * size.height() * 2 / 5,
                 qPrintable(QString::number(covered(image))));
    }

    void theThemesTickIsNotUsedForTheDisc()
    {
        if (!QIcon::hasThemeIcon(QStringLiteral("emblem-ok-symbolic"))) {
            QSKIP("the icon theme has no emblem-ok-symbolic here");
        }
        const QSize size(48, 48);
        QImage tick(size, QImage::Format_ARGB32_Premultiplied);
        tick.fill(Qt::transparent);
        {
            QPainter painter(&tick);
            QIcon::fromTheme(QStringLiteral("emblem-ok-symbolic")).paint(&painter, tick.rect());
        }
        const QImage disc =
            SymbolImageProvider::render(QStringLiteral("checkmark.circle.fill"), Qt::black, size);
        // The theme's icon is a bare tick: far less ink than the disc.
        QVERIFY(covered(disc) > 2 * covered(tick));
        QVERIFY(SymbolTable::themeIconName(QStringLiteral("checkmark.circle.fill")).isEmpty());
    }

    void everySymbolDrawsSomething()
    {
        for (const QString& symbol : SymbolTable::symbols()) {
            QVERIFY2(covered(SymbolImageProvider::render(symbol, Qt::black, QSize(32, 32))) > 0,
                     qPrintable(symbol));
        }
    }
};

QTEST_MAIN(tst_SymbolImages)
#include "tst_SymbolImages.moc"
