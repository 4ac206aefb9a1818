// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Logging.h"

Q_LOGGING_CATEGORY(lcApp, "kivora.app", QtWarningMsg)
Q_LOGGING_CATEGORY(lcQml, "kivora.qml", QtWarningMsg)
Q_LOGGING_CATEGORY(lcSymbols, "kivora.symbols", QtWarningMsg)
