#include "ai/AIContextManager.h"

#include <QByteArray>

namespace {

void setVariable(const char* name, const QString& value)
{
    qputenv(name, value.toUtf8());
}

} // namespace

AIContextManager::AIContextManager(QObject* parent) : QObject(parent) {}

AIContextManager& AIContextManager::shared()
{
    static AIContextManager instance;
    return instance;
}

void AIContextManager::applyAIContext(const GitProfile& profile)
{
    const AIConfig& config = profile.aiConfig;
    if (!config.isEnabled || !config.isConfigured()) {
        clearAIContext();
        return;
    }

    setCurrentConfig(config);
    setIsConfigured(true);

    const auto keyFor = [&config](AIProvider provider) {
        return config.provider == provider ? config.apiKey : QString();
    };
    setVariable(openAIEnvKey, keyFor(AIProvider::OpenAI));
    setVariable(anthropicEnvKey, keyFor(AIProvider::Anthropic));
    setVariable(googleEnvKey, keyFor(AIProvider::Google));
    // A local server's address is only ever replaced, never removed, so that an address the
    // user exported before starting Kivora survives a profile that leaves it empty.
    if (config.provider == AIProvider::Local && !config.baseURL.isEmpty()) {
        setVariable("OLLAMA_BASE_URL", config.baseURL);
    }
}

void AIContextManager::clearAIContext()
{
    setCurrentConfig(std::nullopt);
    setIsConfigured(false);
    qunsetenv(openAIEnvKey);
    qunsetenv(anthropicEnvKey);
    qunsetenv(googleEnvKey);
    qunsetenv("OLLAMA_BASE_URL");
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
