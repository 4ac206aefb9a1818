// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/SettingsProgress.h"

namespace {

struct ProgressInfo {
    SettingsProgress::Progress progress;
    const char* text;
    const char* symbol;
    const char* colorName;
    const char* tooltip;
};

constexpr ProgressInfo progressInfo[] = {
    {SettingsProgress::Configured, "Configured", "checkmark.circle.fill", "green",
     "This feature is fully configured"},
    {SettingsProgress::ComingSoon, "Coming Soon", "clock.fill", "orange",
     "This feature is coming in a future update"},
    {SettingsProgress::NeedsSetup, "Needs Setup", "exclamationmark.triangle.fill", "red",
     "This feature requires some setup"},
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
    return field(progress, &ProgressInfo::text);
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
    return field(progress, &ProgressInfo::tooltip);
}
