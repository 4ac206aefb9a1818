// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class Updater;
class WindowRegistry;

// Shows the updater's window ("updater"): at once for a check the user asked for, and after
// a scheduled check only when it found an update.
class UpdaterPresenter : public QObject {
    Q_OBJECT

public:
    UpdaterPresenter(Updater& updater, WindowRegistry& windows, QObject* parent = nullptr);

    // The user's check: starts it and shows its progress.
    void checkForUpdates();

private:
    Updater& m_updater;
    WindowRegistry& m_windows;
};
