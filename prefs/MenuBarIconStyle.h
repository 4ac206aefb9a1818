#pragma once

#include <QList>
#include <QString>

#include <optional>

// How the application's icon is drawn inside the popover and in the appearance preview.
// The raw value is the text kept in the preferences file.
enum class MenuBarIconStyle { dot, full, text };

namespace MenuBarIconStyles {

// Every style, in the order pickers offer them.
const QList<MenuBarIconStyle>& all();

QString rawValue(MenuBarIconStyle style);
QString displayName(MenuBarIconStyle style);
QString description(MenuBarIconStyle style);

// Exact, case-sensitive: "Dot" is not a style.
std::optional<MenuBarIconStyle> fromRawValue(const QString& raw);

} // namespace MenuBarIconStyles
