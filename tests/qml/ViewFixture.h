// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"
#include "app/KivoraApp.h"
#include "support/TestHome.h"

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantList>

#include <memory>

// What the view tests arrange and inspect: a temporary home folder with real git, and the
// application whose objects the views are given (the same one for the whole run, as in the
// program; it is attached to every test file's engine).
class ViewFixture : public QObject {
    Q_OBJECT

public:
    ViewFixture();
    ~ViewFixture() override;

    KivoraApp& app() { return *m_app; }
    ProfileManager& manager() const { return m_app->profileManager(); }

    // Replaces the profiles with `count` new ones named "Profile 1", … (git name "User n",
    // e-mail "user<n>@example.com"), makes the first active when asked, and sets whether
    // profile setup is needed. Saves.
    Q_INVOKABLE void arrange(int count, bool firstActive, bool needsSetup);
    // Two profiles for the transfer test: "id_rsa_Work" with an enabled AI configuration and
    // "work laptop" without one.
    Q_INVOKABLE void arrangeForTransfer();

    Q_INVOKABLE QStringList profileNames() const;
    Q_INVOKABLE QStringList profileIds() const;
    Q_INVOKABLE QStringList profileGitNames() const;
    Q_INVOKABLE int profilesWithAI() const;
    Q_INVOKABLE QString activeProfileID() const;
    // `git config --global user.name` in the temporary home, read by the real git.
    Q_INVOKABLE QString globalGitName() const;
    // Profiles in the profile file on disk.
    Q_INVOKABLE int savedProfileCount() const;
    Q_INVOKABLE QUrl homeFile(const QString& name) const;
    Q_INVOKABLE bool homeFileExists(const QString& name) const;

private:
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<KivoraApp> m_app;
};
