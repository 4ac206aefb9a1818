// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/EnumTexts.h"

// How the application's icon is drawn inside the popover and in the appearance preview.
// The raw value is the text kept in the preferences file.
enum class MenuBarIconStyle { dot, full, text };

struct MenuBarIconStyles
    : EnumTexts<MenuBarIconStyles, MenuBarIconStyle, EnumText<MenuBarIconStyle>> {
    static constexpr EnumText<MenuBarIconStyle> entries[] = {
        {MenuBarIconStyle::dot, "dot", QT_TRANSLATE_NOOP("EnumTexts", "Dot"),
         QT_TRANSLATE_NOOP("EnumTexts", "A simple colored dot in the menu bar")},
        {MenuBarIconStyle::full, "full", QT_TRANSLATE_NOOP("EnumTexts", "Full Logo"),
         QT_TRANSLATE_NOOP("EnumTexts", "Full Kivora logo icon in the menu bar")},
        {MenuBarIconStyle::text, "text", QT_TRANSLATE_NOOP("EnumTexts", "Text"),
         QT_TRANSLATE_NOOP("EnumTexts", "Text 'K' displayed in the menu bar")},
    };
};
