// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

// The pages of the settings window, in declaration order, with their titles, symbols and
// sidebar sections, and the sidebar's rules for favourites and search.
class SettingsTab : public QObject {
    Q_OBJECT

public:
    enum Tab { Profiles, AI, SSH, Appearance, Hooks, Notifications, Sync, About, Updates };
    Q_ENUM(Tab)

    explicit SettingsTab(QObject* parent = nullptr);

    // Every tab in declaration order.
    Q_INVOKABLE static QVariantList allTabs();
    Q_INVOKABLE static QString title(int tab);
    Q_INVOKABLE static QString icon(int tab);
    Q_INVOKABLE static QString section(int tab);

    // "General", "Advanced", "Account": the sections' keys.
    Q_INVOKABLE static QStringList sections();
    // A section's title as the sidebar shows it.
    Q_INVOKABLE static QString sectionTitle(const QString& section);
    // The tabs of a section in the sidebar's fixed order.
    Q_INVOKABLE static QVariantList tabsIn(const QString& section);

    // Favourites as the sidebar lists them: ascending by title.
    Q_INVOKABLE static QVariantList sortedByTitle(const QVariantList& tabs);
    // Lists of tabs are plain lists of numbers, as QML arrays hold them.
    // The favourites with the tab added, or removed when it is already there.
    Q_INVOKABLE static QVariantList toggled(const QVariantList& favorites, int tab);

    // Whether a row stays fully opaque for the search text: always for an empty text,
    // otherwise when the title contains the text, ignoring case in the user's locale.
    Q_INVOKABLE static bool matchesSearch(int tab, const QString& searchText);
};
