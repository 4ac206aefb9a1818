// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ai/AIConnectionTester.h"
#include "model/GitProfile.h"

#include <QObject>

#include <optional>

// The AI configuration of the active identity, mirrored into this process's environment so
// that every program Kivora starts inherits the provider's key.
class AIContextManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isConfigured READ isConfigured NOTIFY isConfiguredChanged)
    Q_PROPERTY(bool hasCurrentConfig READ hasCurrentConfig NOTIFY currentConfigChanged)
    Q_PROPERTY(AIConfig currentConfig READ currentConfigOrEmpty NOTIFY currentConfigChanged)

public:
    // The application makes one and hands it to whatever applies or tests a configuration.
    explicit AIContextManager(QObject* parent = nullptr);

    const std::optional<AIConfig>& currentConfig() const { return m_currentConfig; }
    bool hasCurrentConfig() const { return m_currentConfig.has_value(); }
    AIConfig currentConfigOrEmpty() const { return m_currentConfig.value_or(AIConfig::empty()); }
    bool isConfigured() const { return m_isConfigured; }

    // Makes the profile's AI settings current when they are enabled and usable; clears
    // otherwise. The keys of the providers not chosen are set to empty strings. Which
    // variables a provider uses is in AIProviders.
    void applyAIContext(const GitProfile& profile);

    // Forgets the configuration and removes the provider variables from the environment.
    void clearAIContext();

    // Checks a configuration against its provider's model list; the verdict goes to
    // `completion` (see AIConnectionTester). None of these change the applied configuration.
    void testConnection(const AIConfig& config, AIConnectionTester::Completion completion);
    void testOpenAI(const AIConfig& config, AIConnectionTester::Completion completion);
    void testAnthropic(const AIConfig& config, AIConnectionTester::Completion completion);
    void testGoogle(const AIConfig& config, AIConnectionTester::Completion completion);
    void testAzure(const AIConfig& config, AIConnectionTester::Completion completion);
    void testLocal(const AIConfig& config, AIConnectionTester::Completion completion);

signals:
    void currentConfigChanged();
    void isConfiguredChanged();

private:
    void setCurrentConfig(std::optional<AIConfig> config);
    void setIsConfigured(bool configured);
    AIConnectionTester& connectionTester();

    std::optional<AIConfig> m_currentConfig;
    bool m_isConfigured = false;
    AIConnectionTester* m_connectionTester = nullptr; // a child, made on first test
};
