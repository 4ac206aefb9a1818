// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Quoting for the few places where a path or a name ends up in text a shell reads.
class ShellQuote {
public:
    // True when every character of `text` is one that no POSIX shell treats specially in a
    // command's word: letters and digits of ASCII and _ . / ~ + @ % : , = -, with no ~ first.
    static bool isPlain(const QString& text);

    // `text` as one shell word. A plain text (see isPlain) is returned unchanged, so ordinary
    // paths read exactly as they are; anything else is put in single quotes, each ' in it
    // written as '\''. An empty text becomes ''.
    static QString word(const QString& text);

    // `text` made safe inside double quotes: \, ", $ and ` each get a backslash in front.
    static QString insideDoubleQuotes(const QString& text);
};
