// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The core reports a failure as a phrase ("the profiles could not be saved to … (Read-only file
// system)"): the command line prints it after "kivora: " with a full stop, a window shows it as
// a sentence of its own.
class Sentence {
public:
    // The phrase with a capital first letter and a final full stop.
    static QString of(const QString& phrase);
};
