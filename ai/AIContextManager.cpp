// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ai/AIContextManager.h"

#include <QByteArray>

AIContextManager::AIContextManager(QObject* parent) : QObject(parent) {}

void AIContextManager::applyAIContext(const GitProfile& profile)
{
    const AIConfig& config = profile.aiConfig;
    if (!config.isEnabled || !config.isConfigured()) {
        clearAIContext();
        return;
    }

    setCurrentConfig(config);
    setIsConfigured(true);

    for (AIProvider provider : AIProviders::all()) {
        const AIProviderFacts& facts = AIProviders::facts(provider);
        if (facts.keyInProcess) {
            qputenv(facts.keyVariable,
                    (provider == config.provider ? config.apiKey : QString()).toUtf8());
        }
    }
    // An address is only ever replaced, never removed, so that one the user exported before
    // starting Kivora survives a profile that leaves it empty.
    const AIProviderFacts& chosen = AIProviders::facts(config.provider);
    if (chosen.addressInProcess && !config.baseURL.isEmpty()) {
        qputenv(chosen.addressVariable, config.baseURL.toUtf8());
    }
}

void AIContextManager::clearAIContext()
{
    setCurrentConfig(std::nullopt);
    setIsConfigured(false);
    for (const QString& name : AIProviders::processVariables()) {
        qunsetenv(name.toLatin1().constData());
    }
}

void AIContextManager::setCurrentConfig(std::optional<AIConfig> config)
{
    if (m_currentConfig == config) {
        return;
    }
    m_currentConfig = std::move(config);
    emit currentConfigChanged();
}

void AIContextManager::setIsConfigured(bool configured)
{
    if (m_isConfigured == configured) {
        return;
    }
    m_isConfigured = configured;
    emit isConfiguredChanged();
}

AIConnectionTester& AIContextManager::connectionTester()
{
    if (!m_connectionTester) {
        m_connectionTester = new AIConnectionTester(this);
    }
    return *m_connectionTester;
}

void AIContextManager::testConnection(const AIConfig& config,
                                      AIConnectionTester::Completion completion)
{
    connectionTester().testConnection(config, std::move(completion));
}

void AIContextManager::testOpenAI(const AIConfig& config, AIConnectionTester::Completion completion)
{
    connectionTester().testOpenAI(config, std::move(completion));
}

void AIContextManager::testAnthropic(const AIConfig& config,
                                     AIConnectionTester::Completion completion)
{
    connectionTester().testAnthropic(config, std::move(completion));
}

void AIContextManager::testGoogle(const AIConfig& config, AIConnectionTester::Completion completion)
{
    connectionTester().testGoogle(config, std::move(completion));
}

void AIContextManager::testAzure(const AIConfig& config, AIConnectionTester::Completion completion)
{
    connectionTester().testAzure(config, std::move(completion));
}

void AIContextManager::testLocal(const AIConfig& config, AIConnectionTester::Completion completion)
{
    connectionTester().testLocal(config, std::move(completion));
}
