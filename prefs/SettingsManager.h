// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "prefs/AppAppearance.h"
#include "prefs/MenuBarIconStyle.h"

#include <QObject>
#include <QSettings>
#include <QString>
#include <QVariantList>

// The interface preferences: icon style, colour appearance and what the popover shows.
// Every change is written to the preferences file at once; there is no save step.
//
// The appearance is only published here: the core has no display, so the application's
// theme watches `appAppearance` and applies it.
class SettingsManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString menuBarIconStyle READ menuBarIconStyle WRITE setMenuBarIconStyle NOTIFY
                   menuBarIconStyleChanged)
    Q_PROPERTY(
        QString appAppearance READ appAppearance WRITE setAppAppearance NOTIFY appAppearanceChanged)
    Q_PROPERTY(bool showProfileEmail READ showProfileEmail WRITE setShowProfileEmail NOTIFY
                   showProfileEmailChanged)
    Q_PROPERTY(bool showSSHKey READ showSSHKey WRITE setShowSSHKey NOTIFY showSSHKeyChanged)
    Q_PROPERTY(bool compactMode READ compactMode WRITE setCompactMode NOTIFY compactModeChanged)

public:
    // Keys in the preferences file.
    static inline const char* const menuBarIconStyleKey = "menuBarIconStyle";
    static inline const char* const appAppearanceKey = "appAppearance";
    static inline const char* const showProfileEmailKey = "showProfileEmail";
    static inline const char* const showSSHKeyKey = "showSSHKey";
    static inline const char* const compactModeKey = "compactMode";
    // First-run markers: once set, a missing display switch reads as off.
    static inline const char* const showProfileEmailSetKey = "showProfileEmailSet";
    static inline const char* const showSSHKeySetKey = "showSSHKeySet";

    // Loads the preferences kept in the file at `settingsPath` (created when first written).
    // The application makes one, over PreferencesFile::path().
    explicit SettingsManager(const QString& settingsPath, QObject* parent = nullptr);

    QString filePath() const { return m_settings.fileName(); }

    MenuBarIconStyle iconStyle() const { return m_iconStyle; }
    void setIconStyle(MenuBarIconStyle style);
    AppAppearance appearance() const { return m_appearance; }
    void setAppearance(AppAppearance appearance);

    // The same two preferences as raw values, for views. An unknown text is ignored.
    QString menuBarIconStyle() const { return MenuBarIconStyles::rawValue(m_iconStyle); }
    void setMenuBarIconStyle(const QString& raw);
    QString appAppearance() const { return AppAppearances::rawValue(m_appearance); }
    void setAppAppearance(const QString& raw);

    bool showProfileEmail() const { return m_showProfileEmail; }
    void setShowProfileEmail(bool show);
    bool showSSHKey() const { return m_showSSHKey; }
    void setShowSSHKey(bool show);
    bool compactMode() const { return m_compactMode; }
    void setCompactMode(bool compact);

    // Every preference back to its factory value, each one stored. The first-run markers
    // stay as they are.
    Q_INVOKABLE void reset();

    // The choices of the two pickers, in order: maps with "rawValue", "displayName" and
    // "description".
    Q_INVOKABLE QVariantList iconStyleChoices() const;
    Q_INVOKABLE QVariantList appearanceChoices() const;

signals:
    void menuBarIconStyleChanged();
    void appAppearanceChanged();
    void showProfileEmailChanged();
    void showSSHKeyChanged();
    void compactModeChanged();

private:
    void load();
    bool loadDisplaySwitch(const char* key, const char* markerKey);
    void store(const char* key, const QVariant& value);

    QSettings m_settings;
    MenuBarIconStyle m_iconStyle = MenuBarIconStyle::dot;
    AppAppearance m_appearance = AppAppearance::system;
    bool m_showProfileEmail = false;
    bool m_showSSHKey = false;
    bool m_compactMode = false;
};
