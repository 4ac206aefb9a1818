// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/SettingsTab.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace {

struct TabInfo {
    SettingsTab::Tab tab;
    const char* title;
    const char* icon;
    const char* section;
};

constexpr TabInfo tabInfo[] = {
    {SettingsTab::Profiles, QT_TRANSLATE_NOOP("SettingsTab", "Profiles"), "person.2.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "General")},
    {SettingsTab::AI, QT_TRANSLATE_NOOP("SettingsTab", "AI"), "sparkles",
     QT_TRANSLATE_NOOP("SettingsTab", "Advanced")},
    {SettingsTab::SSH, QT_TRANSLATE_NOOP("SettingsTab", "SSH"), "key.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "Advanced")},
    {SettingsTab::Appearance, QT_TRANSLATE_NOOP("SettingsTab", "Appearance"), "paintbrush.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "General")},
    {SettingsTab::Hooks, QT_TRANSLATE_NOOP("SettingsTab", "Hooks"), "terminal.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "Advanced")},
    {SettingsTab::Notifications, QT_TRANSLATE_NOOP("SettingsTab", "Notifications"), "bell.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "General")},
    {SettingsTab::Sync, QT_TRANSLATE_NOOP("SettingsTab", "Sync"), "arrow.triangle.2.circlepath",
     QT_TRANSLATE_NOOP("SettingsTab", "Advanced")},
    {SettingsTab::About, QT_TRANSLATE_NOOP("SettingsTab", "About"), "info.circle.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "Account")},
    {SettingsTab::Updates, QT_TRANSLATE_NOOP("SettingsTab", "Updates"), "arrow.down.circle.fill",
     QT_TRANSLATE_NOOP("SettingsTab", "General")},
};

const TabInfo* info(int tab)
{
    for (const TabInfo& entry : tabInfo) {
        if (entry.tab == tab) {
            return &entry;
        }
    }
    return nullptr;
}

} // namespace

SettingsTab::SettingsTab(QObject* parent) : QObject(parent) {}

QVariantList SettingsTab::allTabs()
{
    QVariantList tabs;
    for (const TabInfo& entry : tabInfo) {
        tabs << int(entry.tab);
    }
    return tabs;
}

QString SettingsTab::title(int tab)
{
    const TabInfo* entry = info(tab);
    return entry ? QCoreApplication::translate("SettingsTab", entry->title) : QString();
}

QString SettingsTab::icon(int tab)
{
    const TabInfo* entry = info(tab);
    return entry ? QString::fromLatin1(entry->icon) : QString();
}

QString SettingsTab::section(int tab)
{
    const TabInfo* entry = info(tab);
    return entry ? QString::fromLatin1(entry->section) : QString();
}

QString SettingsTab::sectionTitle(const QString& section)
{
    return QCoreApplication::translate("SettingsTab", section.toUtf8().constData());
}

QStringList SettingsTab::sections()
{
    return {QStringLiteral("General"), QStringLiteral("Advanced"), QStringLiteral("Account")};
}

QVariantList SettingsTab::tabsIn(const QString& section)
{
    // Fixed orders, not alphabetical and not the declaration order.
    QList<Tab> tabs;
    if (section == QLatin1String("General")) {
        tabs = {Profiles, Appearance, Notifications, Updates};
    } else if (section == QLatin1String("Advanced")) {
        tabs = {AI, SSH, Hooks, Sync};
    } else if (section == QLatin1String("Account")) {
        tabs = {About};
    }
    QVariantList result;
    for (Tab tab : tabs) {
        result << int(tab);
    }
    return result;
}

QVariantList SettingsTab::sortedByTitle(const QVariantList& tabs)
{
    QVariantList sorted = tabs;
    std::sort(sorted.begin(), sorted.end(), [](const QVariant& a, const QVariant& b) {
        return title(a.toInt()) < title(b.toInt());
    });
    return sorted;
}

QVariantList SettingsTab::toggled(const QVariantList& favorites, int tab)
{
    QVariantList result;
    bool removed = false;
    for (const QVariant& favorite : favorites) {
        if (favorite.toInt() == tab) {
            removed = true;
        } else {
            result << favorite.toInt();
        }
    }
    if (!removed) {
        result << tab;
    }
    return result;
}

bool SettingsTab::matchesSearch(int tab, const QString& searchText)
{
    if (searchText.isEmpty()) {
        return true;
    }
    const QLocale locale;
    return locale.toLower(title(tab)).contains(locale.toLower(searchText));
}
