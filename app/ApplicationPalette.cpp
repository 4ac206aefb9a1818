// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ApplicationPalette.h"

#include "app/SystemColorScheme.h"
#include "prefs/SettingsManager.h"

#include <QColor>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <utility>

ApplicationPalette::ApplicationPalette(SettingsManager& settings, SystemColorScheme& scheme,
                                       QObject* parent)
    : QObject(parent), m_settings(settings), m_scheme(scheme)
{
    connect(&m_settings, &SettingsManager::appAppearanceChanged, this, &ApplicationPalette::apply);
    connect(&m_scheme, &SystemColorScheme::prefersDarkChanged, this, &ApplicationPalette::apply);
    QCoreApplication::instance()->installEventFilter(this);
    apply();
}

bool ApplicationPalette::darkFor(AppAppearance appearance, bool systemPrefersDark)
{
    return appearance == AppAppearance::dark ||
           (appearance == AppAppearance::system && systemPrefersDark);
}

QPalette ApplicationPalette::palette(bool dark)
{
    const QColor window = dark ? QColor(0x1e, 0x1e, 0x21) : QColor(0xfa, 0xfa, 0xfb);
    const QColor popover = dark ? QColor(0x28, 0x28, 0x2c) : QColor(0xff, 0xff, 0xff);
    const QColor control = dark ? QColor(0x36, 0x36, 0x3b) : QColor(0xec, 0xec, 0xf0);
    const QColor field = dark ? QColor(0x32, 0x32, 0x37) : QColor(0xff, 0xff, 0xff);
    const QColor border = dark ? QColor(0x46, 0x46, 0x4d) : QColor(0xd6, 0xd6, 0xdc);
    const QColor text = dark ? QColor(0xf4, 0xf4, 0xf6) : QColor(0x1d, 0x1d, 0x21);
    const QColor dimText = dark ? QColor(0xa8, 0xa8, 0xad) : QColor(0x74, 0x74, 0x79);
    const QColor accent = dark ? QColor(0x78, 0xae, 0xed) : QColor(0x35, 0x84, 0xe4);

    QPalette p;
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        p.setColor(group, QPalette::Window, window);
        p.setColor(group, QPalette::WindowText, text);
        p.setColor(group, QPalette::Base, field);
        p.setColor(group, QPalette::AlternateBase, control);
        p.setColor(group, QPalette::Text, text);
        p.setColor(group, QPalette::PlaceholderText, dimText);
        p.setColor(group, QPalette::Button, control);
        p.setColor(group, QPalette::ButtonText, text);
        p.setColor(group, QPalette::BrightText, dark ? QColor(0xff, 0x7b, 0x7b) : Qt::white);
        p.setColor(group, QPalette::ToolTipBase, popover);
        p.setColor(group, QPalette::ToolTipText, text);
        p.setColor(group, QPalette::Highlight, accent);
        p.setColor(group, QPalette::HighlightedText, Qt::white);
        p.setColor(group, QPalette::Link, accent);
        p.setColor(group, QPalette::LinkVisited, accent.darker(120));
        p.setColor(group, QPalette::Light, dark ? control.lighter(130) : Qt::white);
        p.setColor(group, QPalette::Midlight, dark ? control.lighter(115) : control);
        p.setColor(group, QPalette::Mid, border);
        p.setColor(group, QPalette::Dark, dark ? QColor(0x16, 0x16, 0x18) : border.darker(130));
        p.setColor(group, QPalette::Shadow, dark ? QColor(0, 0, 0) : QColor(0x80, 0x80, 0x80));
    }
    // Disabled: the same surfaces, dimmed text.
    p.setColor(QPalette::Disabled, QPalette::Base, window);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
          QPalette::PlaceholderText}) {
        p.setColor(QPalette::Disabled, role, dimText);
    }
    p.setColor(QPalette::Disabled, QPalette::Highlight, border);
    p.setColor(QPalette::Disabled, QPalette::HighlightedText, text);
    return p;
}

void ApplicationPalette::apply()
{
    const bool dark = darkFor(m_settings.appearance(), m_scheme.prefersDark());
    if (m_applied && dark == m_dark) {
        return;
    }
    m_applied = true;
    m_dark = dark;
    m_palette = palette(dark);
    QGuiApplication::setPalette(m_palette);
    for (QWindow* window : QGuiApplication::allWindows()) {
        if (window->inherits("QQuickWindow")) {
            applyToWindow(window);
        }
    }
    emit darkChanged();
}

bool ApplicationPalette::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched->inherits("QQuickWindow")) {
        applyToWindow(watched);
    }
    return false;
}

void ApplicationPalette::applyToWindow(QObject* window) const
{
    // The window's palette (a QQuickPalette) is reached through its properties: one colour
    // property per role, for all groups at once, and a "disabled" group of its own.
    auto* quickPalette = window->property("palette").value<QObject*>();
    if (!quickPalette) {
        return;
    }
    static const std::pair<const char*, QPalette::ColorRole> roles[] = {
        {"alternateBase", QPalette::AlternateBase},
        {"base", QPalette::Base},
        {"brightText", QPalette::BrightText},
        {"button", QPalette::Button},
        {"buttonText", QPalette::ButtonText},
        {"dark", QPalette::Dark},
        {"highlight", QPalette::Highlight},
        {"highlightedText", QPalette::HighlightedText},
        {"light", QPalette::Light},
        {"link", QPalette::Link},
        {"linkVisited", QPalette::LinkVisited},
        {"mid", QPalette::Mid},
        {"midlight", QPalette::Midlight},
        {"placeholderText", QPalette::PlaceholderText},
        {"shadow", QPalette::Shadow},
        {"text", QPalette::Text},
        {"toolTipBase", QPalette::ToolTipBase},
        {"toolTipText", QPalette::ToolTipText},
        {"window", QPalette::Window},
        {"windowText", QPalette::WindowText},
    };
    auto* disabled = quickPalette->property("disabled").value<QObject*>();
    for (const auto& [name, role] : roles) {
        quickPalette->setProperty(name, m_palette.color(QPalette::Active, role));
        if (disabled) {
            disabled->setProperty(name, m_palette.color(QPalette::Disabled, role));
        }
    }
}
