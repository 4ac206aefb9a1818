#include "prefs/MenuBarIconStyle.h"

namespace MenuBarIconStyles {

const QList<MenuBarIconStyle>& all()
{
    static const QList<MenuBarIconStyle> styles{MenuBarIconStyle::dot, MenuBarIconStyle::full,
                                                MenuBarIconStyle::text};
    return styles;
}

QString rawValue(MenuBarIconStyle style)
{
    switch (style) {
    case MenuBarIconStyle::dot:
        return QStringLiteral("dot");
    case MenuBarIconStyle::full:
        return QStringLiteral("full");
    case MenuBarIconStyle::text:
        return QStringLiteral("text");
    }
    return {};
}

QString displayName(MenuBarIconStyle style)
{
    switch (style) {
    case MenuBarIconStyle::dot:
        return QStringLiteral("Dot");
    case MenuBarIconStyle::full:
        return QStringLiteral("Full Logo");
    case MenuBarIconStyle::text:
        return QStringLiteral("Text");
    }
    return {};
}

QString description(MenuBarIconStyle style)
{
    switch (style) {
    case MenuBarIconStyle::dot:
        return QStringLiteral("A simple colored dot in the menu bar");
    case MenuBarIconStyle::full:
        return QStringLiteral("Full Kivora logo icon in the menu bar");
    case MenuBarIconStyle::text:
        return QStringLiteral("Text 'K' displayed in the menu bar");
    }
    return {};
}

std::optional<MenuBarIconStyle> fromRawValue(const QString& raw)
{
    for (MenuBarIconStyle style : all()) {
        if (rawValue(style) == raw) {
            return style;
        }
    }
    return std::nullopt;
}

} // namespace MenuBarIconStyles
