// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdaterPresenter.h"

#include "app/WindowRegistry.h"
#include "updates/Updater.h"

namespace {

const QString updaterWindow = QStringLiteral("updater");

} // namespace

UpdaterPresenter::UpdaterPresenter(Updater& updater, WindowRegistry& windows, QObject* parent)
    : QObject(parent), m_updater(updater), m_windows(windows)
{
    // A check the user starts anywhere (tray menu, preferences, the Updates page) shows
    // its progress.
    const auto showUserCheck = [this] {
        if (m_updater.state() == Updater::State::Checking && m_updater.lastCheckUserInitiated()) {
            m_windows.open(updaterWindow);
        }
    };
    connect(&m_updater, &Updater::stateChanged, this, showUserCheck);
    connect(&m_updater, &Updater::lastCheckUserInitiatedChanged, this, showUserCheck);
    connect(&m_updater, &Updater::checkFinished, this, [this](bool userInitiated) {
        if (userInitiated || m_updater.state() == Updater::State::UpdateFound) {
            m_windows.open(updaterWindow);
        }
    });
}

void UpdaterPresenter::checkForUpdates()
{
    m_updater.checkForUpdates();
    m_windows.open(updaterWindow);
}
