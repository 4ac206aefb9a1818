// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLoggingCategory>

// The application's diagnostic categories. Quiet by default beyond warnings; turn one on
// with QT_LOGGING_RULES, e.g. "kivora.symbols.debug=true".
Q_DECLARE_LOGGING_CATEGORY(lcApp)     // start-up, tray and windows
Q_DECLARE_LOGGING_CATEGORY(lcQml)     // loading the views
Q_DECLARE_LOGGING_CATEGORY(lcSymbols) // where each symbol image comes from
