// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The built `kivora` (named by $KIVORA_CLI) run as a user runs it, with no display of any kind:
// the command line must not need one.
class CliProcess {
public:
    struct Result {
        int status = -1; // -1 when it crashed or could not start
        QString out;
        QString err;
    };

    static Result run(const QStringList& arguments, const QByteArray& input = {},
                      const QString& folder = {});
};
