#pragma once

#include <QList>
#include <QString>

#include <optional>

// The application's colour appearance. `system` follows the desktop's light or dark scheme.
// The raw value is both the text kept in the preferences file and the name shown.
enum class AppAppearance { system, light, dark };

namespace AppAppearances {

// Every appearance, in the order pickers offer them.
const QList<AppAppearance>& all();

QString rawValue(AppAppearance appearance);
QString displayName(AppAppearance appearance);
QString description(AppAppearance appearance);

// Exact, case-sensitive: "dark" is not an appearance.
std::optional<AppAppearance> fromRawValue(const QString& raw);

} // namespace AppAppearances
