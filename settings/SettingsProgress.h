// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

// The feature status a page header can show as a badge: its text, symbol, colour and tooltip.
class SettingsProgress : public QObject {
    Q_OBJECT

public:
    enum Progress { Configured, ComingSoon, NeedsSetup };
    Q_ENUM(Progress)

    explicit SettingsProgress(QObject* parent = nullptr);

    // The badge text, which is also the raw value.
    Q_INVOKABLE static QString text(int progress);
    Q_INVOKABLE static QString symbol(int progress);
    // The palette colour of the badge: "green", "orange" or "red".
    Q_INVOKABLE static QString colorName(int progress);
    Q_INVOKABLE static QString tooltip(int progress);
};
