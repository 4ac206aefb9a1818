#include "settings/SettingsProgress.h"

SettingsProgress::SettingsProgress(QObject* parent) : QObject(parent) {}

SettingsProgress* SettingsProgress::create(QQmlEngine*, QJSEngine*)
{
    return new SettingsProgress(nullptr);
}

QString SettingsProgress::text(int progress)
{
    switch (progress) {
    case Configured:
        return QStringLiteral("Configured");
    case ComingSoon:
        return QStringLiteral("Coming Soon");
    case NeedsSetup:
        return QStringLiteral("Needs Setup");
    default:
        return {};
    }
}

QString SettingsProgress::symbol(int progress)
{
    switch (progress) {
    case Configured:
        return QStringLiteral("checkmark.circle.fill");
    case ComingSoon:
        return QStringLiteral("clock.fill");
    case NeedsSetup:
        return QStringLiteral("exclamationmark.triangle.fill");
    default:
        return {};
    }
}

QString SettingsProgress::colorName(int progress)
{
    switch (progress) {
    case Configured:
        return QStringLiteral("green");
    case ComingSoon:
        return QStringLiteral("orange");
    case NeedsSetup:
        return QStringLiteral("red");
    default:
        return {};
    }
}

QString SettingsProgress::tooltip(int progress)
{
    switch (progress) {
    case Configured:
        return QStringLiteral("This feature is fully configured");
    case ComingSoon:
        return QStringLiteral("This feature is coming in a future update");
    case NeedsSetup:
        return QStringLiteral("This feature requires some setup");
    default:
        return {};
    }
}
