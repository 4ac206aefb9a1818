// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "prefs/SettingsManager.h"

namespace {

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

} // namespace

SettingsManager::SettingsManager(const QString& settingsPath, QObject* parent)
    : QObject(parent), m_settings(settingsPath, QSettings::NativeFormat)
{
    load();
}

void SettingsManager::load()
{
    // Values read here go straight into the members: loading writes nothing back except
    // the two first-run markers.
    m_iconStyle = MenuBarIconStyles::fromRawValue(
                      m_settings.value(key(menuBarIconStyleKey), QStringLiteral("dot")).toString())
                      .value_or(MenuBarIconStyle::dot);
    m_appearance = AppAppearances::fromRawValue(
                       m_settings.value(key(appAppearanceKey), QStringLiteral("System")).toString())
                       .value_or(AppAppearance::system);
    m_showProfileEmail = loadDisplaySwitch(showProfileEmailKey, showProfileEmailSetKey);
    m_showSSHKey = loadDisplaySwitch(showSSHKeyKey, showSSHKeySetKey);
    m_compactMode = m_settings.value(key(compactModeKey), false).toBool();
}

bool SettingsManager::loadDisplaySwitch(const char* valueKey, const char* markerKey)
{
    const bool stored = m_settings.value(key(valueKey), false).toBool();
    if (m_settings.value(key(markerKey), false).toBool()) {
        return stored;
    }
    // First run: the switch starts on, and only the marker is stored. A user who never
    // touches the switch therefore finds it off on the next launch (the value key is
    // still missing and the marker is now set).
    store(markerKey, true);
    return true;
}

void SettingsManager::store(const char* name, const QVariant& value)
{
    m_settings.setValue(key(name), value);
    m_settings.sync();
}

void SettingsManager::setIconStyle(MenuBarIconStyle style)
{
    const bool changed = style != m_iconStyle;
    m_iconStyle = style;
    store(menuBarIconStyleKey, MenuBarIconStyles::rawValue(style));
    if (changed) {
        emit menuBarIconStyleChanged();
    }
}

void SettingsManager::setAppearance(AppAppearance appearance)
{
    const bool changed = appearance != m_appearance;
    m_appearance = appearance;
    store(appAppearanceKey, AppAppearances::rawValue(appearance));
    if (changed) {
        emit appAppearanceChanged();
    }
}

void SettingsManager::setMenuBarIconStyle(const QString& raw)
{
    if (const auto style = MenuBarIconStyles::fromRawValue(raw)) {
        setIconStyle(*style);
    }
}

void SettingsManager::setAppAppearance(const QString& raw)
{
    if (const auto appearance = AppAppearances::fromRawValue(raw)) {
        setAppearance(*appearance);
    }
}

void SettingsManager::setShowProfileEmail(bool show)
{
    const bool changed = show != m_showProfileEmail;
    m_showProfileEmail = show;
    store(showProfileEmailKey, show);
    if (changed) {
        emit showProfileEmailChanged();
    }
}

void SettingsManager::setShowSSHKey(bool show)
{
    const bool changed = show != m_showSSHKey;
    m_showSSHKey = show;
    store(showSSHKeyKey, show);
    if (changed) {
        emit showSSHKeyChanged();
    }
}

void SettingsManager::setCompactMode(bool compact)
{
    const bool changed = compact != m_compactMode;
    m_compactMode = compact;
    store(compactModeKey, compact);
    if (changed) {
        emit compactModeChanged();
    }
}

void SettingsManager::reset()
{
    setIconStyle(MenuBarIconStyle::dot);
    setAppearance(AppAppearance::system);
    setShowProfileEmail(true);
    setShowSSHKey(true);
    setCompactMode(false);
}

QVariantList SettingsManager::iconStyleChoices() const
{
    return MenuBarIconStyles::choices();
}

QVariantList SettingsManager::appearanceChoices() const
{
    return AppAppearances::choices();
}
