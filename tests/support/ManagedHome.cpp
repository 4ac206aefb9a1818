// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/ManagedHome.h"

ManagedHome::ManagedHome(const QList<GitProfile>& profiles)
    : m_home(std::make_unique<TestHome>()), m_aiContext(std::make_unique<AIContextManager>())
{
    ProfileManager::Options options;
    options.restoreAIContext = false;
    m_manager = std::make_unique<ProfileManager>(*m_aiContext, options);
    m_manager->setProfiles(profiles);
    m_manager->save();
}

ManagedHome::~ManagedHome()
{
    m_manager.reset();
    m_aiContext.reset();
    m_home.reset();
}

GitProfile ManagedHome::profile(const QString& name)
{
    return GitProfile::create(name, name + QStringLiteral(" Git"),
                              name.toLower() + QStringLiteral("@example.com"), QString());
}
