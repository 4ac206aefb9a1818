#include "prefs/AppAppearance.h"

namespace AppAppearances {

const QList<AppAppearance>& all()
{
    static const QList<AppAppearance> appearances{AppAppearance::system, AppAppearance::light,
                                                  AppAppearance::dark};
    return appearances;
}

QString rawValue(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::system:
        return QStringLiteral("System");
    case AppAppearance::light:
        return QStringLiteral("Light");
    case AppAppearance::dark:
        return QStringLiteral("Dark");
    }
    return {};
}

QString displayName(AppAppearance appearance)
{
    return rawValue(appearance);
}

QString description(AppAppearance appearance)
{
    switch (appearance) {
    case AppAppearance::system:
        return QStringLiteral("Adapts to your system's light or dark mode");
    case AppAppearance::light:
        return QStringLiteral("Always uses light appearance");
    case AppAppearance::dark:
        return QStringLiteral("Always uses dark appearance");
    }
    return {};
}

std::optional<AppAppearance> fromRawValue(const QString& raw)
{
    for (AppAppearance appearance : all()) {
        if (rawValue(appearance) == raw) {
            return appearance;
        }
    }
    return std::nullopt;
}

} // namespace AppAppearances
