// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

// The command line's usage texts. The manual page is generated from the same texts.
class HelpText {
    Q_DECLARE_TR_FUNCTIONS(HelpText)

public:
    static QString overview();
    // Empty for an unknown command.
    static QString forCommand(const QString& command);
    // The command's usage line without "Usage: ", such as "kivora use PROFILE"; empty for an
    // unknown command.
    static QString synopsis(const QString& command);
    static QStringList commands();
};
