// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

// Checks JSON text before it is turned into values: nested no deeper than a small limit, and
// no object naming the same key twice (which reader would win is anybody's guess, so the
// file is refused rather than half obeyed). The check builds nothing and uses no recursion,
// so no input can exhaust the stack.
class JsonGuard {
public:
    // Arrays and objects inside each other. A profile file needs five levels
    // (file, list, profile, AI settings, headers); the rest is room for unknown keys.
    static constexpr int maxDepth = 32;

    // True for well-formed JSON within the limits; otherwise false and `error` says why, as
    // a phrase about the text ("it is not valid JSON", "it nests … deeper than …").
    static bool check(const QByteArray& bytes, QString* error = nullptr);
};
