#include "settings/profiles/ConnectionTest.h"

#include "ai/AIContextManager.h"
#include "model/AIConfig.h"

#include <QPointer>

ConnectionTest::ConnectionTest(QObject* parent) : QObject(parent) {}

void ConnectionTest::run(bool aiEnabled, const QString& provider, const QString& model,
                         const QString& apiKey, const QString& baseURL)
{
    AIConfig config;
    config.isEnabled = aiEnabled;
    config.provider = AIProviders::fromRawValue(provider).value_or(AIProvider::OpenAI);
    config.model = model;
    config.apiKey = apiKey;
    config.baseURL = baseURL;
    // A verdict that arrives after the editor closed goes nowhere.
    QPointer<ConnectionTest> self(this);
    AIContextManager::shared().testConnection(config, [self](bool success, const QString& message) {
        if (self) {
            emit self->finished(success, message);
        }
    });
}
