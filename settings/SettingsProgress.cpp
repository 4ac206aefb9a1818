// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/SettingsProgress.h"

#include <QCoreApplication>

namespace {

struct ProgressInfo {
    SettingsProgress::Progress progress;
    const char* text;
    const char* symbol;
    const char* colorName;
    const char* tooltip;
};

constexpr ProgressInfo progressInfo[] = {
    {SettingsProgress::Configured, QT_TRANSLATE_NOOP("SettingsProgress", "Configured"),
     "checkmark.circle.fill", "green",
     QT_TRANSLATE_NOOP("SettingsProgress", "This feature is fully configured")},
    {SettingsProgress::ComingSoon, QT_TRANSLATE_NOOP("SettingsProgress", "Coming Soon"),
     "clock.fill", "orange",
     QT_TRANSLATE_NOOP("SettingsProgress", "This feature is coming in a future update")},
    {SettingsProgress::NeedsSetup, QT_TRANSLATE_NOOP("SettingsProgress", "Needs Setup"),
     "exclamationmark.triangle.fill", "red",
     QT_TRANSLATE_NOOP("SettingsProgress", "This feature requires some setup")},
};

// One field of a status's row; empty for a number that names no status.
QString field(int progress, const char* ProgressInfo::*member)
{
    for (const ProgressInfo& info : progressInfo) {
        if (info.progress == progress) {
            return QString::fromUtf8(info.*member);
        }
    }
    return {};
}

} // namespace

SettingsProgress::SettingsProgress(QObject* parent) : QObject(parent) {}

QString SettingsProgress::text(int progress)
{
    return QCoreApplication::translate("SettingsProgress",
                                       field(progress, &ProgressInfo::text).toUtf8().constData());
}

QString SettingsProgress::symbol(int progress)
{
    return field(progress, &ProgressInfo::symbol);
}

QString SettingsProgress::colorName(int progress)
{
    return field(progress, &ProgressInfo::colorName);
}

QString SettingsProgress::tooltip(int progress)
{
    return QCoreApplication::translate(
        "SettingsProgress", field(progress, &ProgressInfo::tooltip).toUtf8().constData());
}
