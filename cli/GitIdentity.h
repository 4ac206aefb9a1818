// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// The global git identity, read with one git start instead of a shell and git per value.
// The values are what `git config --global user.name` / `user.email` print, trimmed; empty
// when unset, not UTF-8, or when git cannot be started.
struct GitIdentity {
    QString name;
    QString email;

    static GitIdentity readGlobal();
};
