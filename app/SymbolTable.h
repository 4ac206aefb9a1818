// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

// The one table from the symbol names the views use ("person.fill", "key.fill", …) to icons:
// the freedesktop icon theme's name first, then the SVG drawn for Kivora and packaged with it.
// A symbol whose theme icon would change its shape (a filled disc drawn as a bare tick) names
// no theme icon, so that the packaged drawing is always used.
class SymbolTable {
public:
    struct Entry {
        const char* symbol;
        const char* themeIcon; // freedesktop symbolic icon name; empty: always our own
    };

    // The theme icon name for a symbol; empty for an unknown symbol.
    static QString themeIconName(const QString& symbol);
    // The packaged SVG for a symbol (a resource path); empty for an unknown symbol.
    static QString fallbackPath(const QString& symbol);
    static bool contains(const QString& symbol);
    static QStringList symbols();
};
