// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "support/TestHome.h"

#include <QList>

#include <memory>

// A fresh temporary home with a profile manager over it (and the AI context it applies to),
// holding the given profiles, saved. The manager does not put a saved profile's AI settings
// into this process's environment.
class ManagedHome {
public:
    explicit ManagedHome(const QList<GitProfile>& profiles = {});
    ~ManagedHome();

    TestHome& home() { return *m_home; }
    AIContextManager& aiContext() { return *m_aiContext; }
    ProfileManager& manager() { return *m_manager; }

    // A profile with this display name and plain git fields, no key.
    static GitProfile profile(const QString& name);

private:
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_aiContext;
    std::unique_ptr<ProfileManager> m_manager;
};
