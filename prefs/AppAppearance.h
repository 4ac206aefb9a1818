// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/EnumTexts.h"

// The application's colour appearance. `system` follows the desktop's light or dark scheme.
// The raw value is both the text kept in the preferences file and the name shown.
enum class AppAppearance { system, light, dark };

struct AppAppearances : EnumTexts<AppAppearances, AppAppearance, EnumText<AppAppearance>> {
    static constexpr EnumText<AppAppearance> entries[] = {
        {AppAppearance::system, "System", QT_TRANSLATE_NOOP("EnumTexts", "System"),
         QT_TRANSLATE_NOOP("EnumTexts", "Adapts to your system's light or dark mode")},
        {AppAppearance::light, "Light", QT_TRANSLATE_NOOP("EnumTexts", "Light"),
         QT_TRANSLATE_NOOP("EnumTexts", "Always uses light appearance")},
        {AppAppearance::dark, "Dark", QT_TRANSLATE_NOOP("EnumTexts", "Dark"),
         QT_TRANSLATE_NOOP("EnumTexts", "Always uses dark appearance")},
    };
};
