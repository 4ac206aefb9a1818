// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Orders release versions the way people read them.
//
// A version is cut into parts: runs of digits are numbers, runs of letters are words, and
// anything else ('.', '-', '_', '+', spaces) only separates parts. One leading "v" or "V"
// before a digit is ignored ("v1.2" is "1.2"). Parts are compared left to right:
//   - two numbers by value, of any length ("1.10" > "1.9", "1.01" == "1.1");
//   - two words alphabetically, ignoring case ("1.0alpha" < "1.0beta" < "1.0rc");
//   - a number is newer than a word in the same place ("1.0.1" > "1.0b1");
//   - a missing part counts as the number 0 ("1.2" == "1.2.0", "1.2" < "1.2.1"), and a
//     version that ends where the other goes on with a word is the newer one, as the word
//     marks a pre-release ("1.0" > "1.0b1", "1.0" > "1.0-rc2").
class VersionComparator {
public:
    // Negative when `a` is older than `b`, zero when they are the same release, positive
    // when `a` is newer.
    static int compare(const QString& a, const QString& b);

    static bool isNewer(const QString& candidate, const QString& current)
    {
        return compare(candidate, current) > 0;
    }
};
