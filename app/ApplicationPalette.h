// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "prefs/AppAppearance.h"

#include <QObject>
#include <QPalette>

class SettingsManager;
class SystemColorScheme;

// The application-wide palette, light or dark by the same rule as the theme: "Dark", or
// "System" while the desktop prefers dark. Everything the theme does not draw itself takes
// its colours from here: the tray menu (widgets use the application's QPalette), Qt Quick
// Controls' tooltips and context menus, and Qt's own file dialog. Qt Quick Controls take
// their colours from the window's palette, else from their style's fixed one: every Qt Quick
// window is given this palette when it is shown, and again on every change.
class ApplicationPalette : public QObject {
    Q_OBJECT

public:
    ApplicationPalette(SettingsManager& settings, SystemColorScheme& scheme,
                       QObject* parent = nullptr);

    bool isDark() const { return m_dark; }

    static bool darkFor(AppAppearance appearance, bool systemPrefersDark);
    // The colours follow the theme's surfaces and text (app/Theme.qml).
    static QPalette palette(bool dark);

signals:
    void darkChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();
    void applyToWindow(QObject* window) const;

    SettingsManager& m_settings;
    SystemColorScheme& m_scheme;
    QPalette m_palette;
    bool m_dark = false;
    bool m_applied = false;
};
