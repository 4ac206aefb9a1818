// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>
#include <sys/types.h>

// Another local user, made for one test with useradd and removed with it: the stranger whose
// processes must never be taken for the test user's own. Making one needs root;
// unavailableBecause() says why it cannot be had otherwise.
class SecondUser {
public:
    // Empty when a second user can be made here; otherwise why not (to skip with).
    static QString unavailableBecause();

    SecondUser();
    ~SecondUser();
    SecondUser(const SecondUser&) = delete;
    SecondUser& operator=(const SecondUser&) = delete;

    bool isValid() const { return m_uid != uid_t(-1); }
    QString name() const { return m_name; }
    uid_t uid() const { return m_uid; }

    // Starts `command` as this user, with a plain environment.
    std::unique_ptr<QProcess> start(const QStringList& command) const;
    // Runs `command` as this user and waits for it; its exit status, -1 when it did not end
    // normally within the time.
    int run(const QStringList& command, const QByteArray& input = {}, QByteArray* out = nullptr,
            QByteArray* err = nullptr, int timeoutMs = 60000) const;

private:
    QStringList arguments(const QStringList& command) const;

    QString m_name;
    uid_t m_uid = uid_t(-1);
    gid_t m_gid = gid_t(-1);
};
