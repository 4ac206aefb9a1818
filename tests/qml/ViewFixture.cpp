// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ViewFixture.h"

#include "model/ProfileCodec.h"

#include <QFile>

ViewFixture::ViewFixture() : m_home(std::make_unique<TestHome>())
{
    KivoraApp::Options options;
    options.home = m_home->path();
    m_app = std::make_unique<KivoraApp>(options);
}

ViewFixture::~ViewFixture()
{
    m_app.reset();
    m_home.reset();
}

void ViewFixture::arrange(int count, bool firstActive, bool needsSetup)
{
    QList<GitProfile> profiles;
    for (int i = 1; i <= count; ++i) {
        profiles << GitProfile::create(QStringLiteral("Profile %1").arg(i),
                                       QStringLiteral("User %1").arg(i),
                                       QStringLiteral("user%1@example.com").arg(i), QString());
    }
    manager().setProfiles(profiles);
    manager().setActiveProfileID(firstActive && !profiles.isEmpty()
                                     ? std::optional<QUuid>(profiles.first().id)
                                     : std::nullopt);
    manager().setNeedsProfileSetup(needsSetup);
    manager().save();
}

void ViewFixture::arrangeForTransfer()
{
    GitProfile work = GitProfile::create(QStringLiteral("id_rsa_Work"), QStringLiteral("Ada"),
                                         QStringLiteral("ada@work.example"),
                                         QStringLiteral("~/.ssh/id_rsa_Work"));
    work.aiConfig.isEnabled = true;
    work.aiConfig.provider = AIProvider::Anthropic;
    work.aiConfig.apiKey = QStringLiteral("sk-test");
    const GitProfile laptop =
        GitProfile::create(QStringLiteral("work laptop"), QStringLiteral("Ada L"),
                           QStringLiteral("ada@home.example"), QString());
    manager().setProfiles({work, laptop});
    manager().setActiveProfileID(std::nullopt);
    manager().save();
}

QStringList ViewFixture::profileNames() const
{
    QStringList names;
    for (const GitProfile& profile : manager().profiles()) {
        names << profile.name;
    }
    return names;
}

QStringList ViewFixture::profileIds() const
{
    QStringList ids;
    for (const GitProfile& profile : manager().profiles()) {
        ids << profile.idText();
    }
    return ids;
}

QStringList ViewFixture::profileGitNames() const
{
    QStringList names;
    for (const GitProfile& profile : manager().profiles()) {
        names << profile.gitName;
    }
    return names;
}

int ViewFixture::profilesWithAI() const
{
    int count = 0;
    for (const GitProfile& profile : manager().profiles()) {
        if (!(profile.aiConfig == AIConfig::empty())) {
            ++count;
        }
    }
    return count;
}

QString ViewFixture::activeProfileID() const
{
    return manager().activeProfileIDText();
}

QString ViewFixture::globalGitName() const
{
    return m_home->gitConfig(QStringLiteral("user.name"));
}

int ViewFixture::savedProfileCount() const
{
    const auto stored =
        ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    return stored ? int(stored->profiles.size()) : -1;
}

QUrl ViewFixture::homeFile(const QString& name) const
{
    return QUrl::fromLocalFile(m_home->filePath(name));
}

bool ViewFixture::homeFileExists(const QString& name) const
{
    return m_home->exists(name);
}
