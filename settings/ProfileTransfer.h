// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"

#include <QObject>
#include <QUrl>

// Export and import of the profile list as a pretty-printed JSON array of profiles.
class ProfileTransfer : public QObject {
    Q_OBJECT

public:
    explicit ProfileTransfer(ProfileManager& manager, QObject* parent = nullptr);

    // Writes the manager's profiles (not the active one) to the file. False on failure,
    // which the interface does not report.
    Q_INVOKABLE bool exportTo(const QUrl& file) const;
    // Reads an array of profiles and adds each one in file order, as new profiles with
    // fresh ids, display names by the manager's rule and no AI settings. A file that cannot
    // be read or decoded imports nothing. Returns how many were added.
    Q_INVOKABLE int importFrom(const QUrl& file) const;

private:
    ProfileManager& m_manager;
};
