// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"

#include <QObject>
#include <QUrl>

// Export and import of the profile list as a pretty-printed JSON array of profiles.
class ProfileTransfer : public QObject {
    Q_OBJECT
    // Why the last export or import did nothing, as one sentence; empty after one that worked.
    Q_PROPERTY(QString error READ error WRITE setError NOTIFY errorChanged)

public:
    explicit ProfileTransfer(ProfileManager& manager, QObject* parent = nullptr);

    QString error() const { return m_error; }
    void setError(const QString& error);

    // Writes the manager's profiles (not the active one) to the file. False on failure,
    // and `error` says why.
    Q_INVOKABLE bool exportTo(const QUrl& file);
    // Reads an array of profiles and adds each one in file order, as new profiles with
    // fresh ids, display names by the manager's rule and no AI settings, all saved at once.
    // A file that cannot be read or is not such an array imports nothing, and neither does a
    // profile file that cannot be written; `error` then says why. Returns how many were added.
    Q_INVOKABLE int importFrom(const QUrl& file);

signals:
    void errorChanged();

private:
    ProfileManager& m_manager;
    QString m_error;
};
