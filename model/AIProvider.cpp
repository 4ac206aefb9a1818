#include "model/AIProvider.h"

namespace AIProviders {

const QList<AIProvider>& all()
{
    static const QList<AIProvider> providers{AIProvider::OpenAI, AIProvider::Anthropic,
                                             AIProvider::Google, AIProvider::AzureOpenAI,
                                             AIProvider::Local};
    return providers;
}

QString rawValue(AIProvider provider)
{
    switch (provider) {
    case AIProvider::OpenAI:
        return QStringLiteral("OpenAI");
    case AIProvider::Anthropic:
        return QStringLiteral("Anthropic");
    case AIProvider::Google:
        return QStringLiteral("Google");
    case AIProvider::AzureOpenAI:
        return QStringLiteral("Azure OpenAI");
    case AIProvider::Local:
        return QStringLiteral("Local");
    }
    return {};
}

std::optional<AIProvider> fromRawValue(const QString& raw)
{
    for (AIProvider provider : all()) {
        if (rawValue(provider) == raw) {
            return provider;
        }
    }
    return std::nullopt;
}

} // namespace AIProviders
