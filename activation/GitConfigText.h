// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Texts as they are written into a file in git's configuration format, made so that git reads
// back exactly the value that was meant.
class GitConfigText {
public:
    // A value in double quotes: backslash, quote, line end and tab escaped as git reads them.
    // Quoting also keeps leading blanks and "#" or ";" from being read as a comment.
    static QString quotedValue(const QString& value);

    // The inside of `[section "…"]`: backslash and quote escaped. A line end cannot be written
    // there at all; callers refuse such texts first.
    static QString subsection(const QString& text);

    // A folder path as a literal in git's wildcard patterns ("*", "?", "[" and "\" escaped).
    static QString literalPattern(const QString& path);
};
