// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Keeps the writers of the profile file out of each other's way: an advisory lock (flock) on
// ~/.git-switcher/profiles.lock, held by a command line or the application from reading the
// file to saving it, so that no writer saves a list that misses what another saved meanwhile.
// The kernel lets go of the lock when its holder exits, killed or not, so a crash never leaves
// the profiles locked. Programs started while it is held do not inherit it.
class ProfileLock {
public:
    // How long lock() waits for another holder before it gives up.
    static constexpr int defaultTimeoutMs = 30000;

    // The lock for the profile file in `folder` (~/.git-switcher).
    explicit ProfileLock(const QString& folder);
    ~ProfileLock();
    ProfileLock(const ProfileLock&) = delete;
    ProfileLock& operator=(const ProfileLock&) = delete;

    QString path() const { return m_path; }

    enum class Outcome {
        Locked,
        Busy,        // another holder kept it past the time
        Unavailable, // the lock file cannot be opened or made: a read-only file system, a
                     // folder that is not one, a lock file that is not a plain file
    };

    // Waits for the lock. Unless it is Locked, `error` says why, as a phrase ("Read-only file
    // system").
    Outcome lock(QString* error = nullptr, int timeoutMs = defaultTimeoutMs);
    void unlock();
    bool isLocked() const { return m_fd >= 0; }

private:
    QString m_path;
    int m_fd = -1;
};
