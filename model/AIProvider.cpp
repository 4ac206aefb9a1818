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

const QStringList& models(AIProvider provider)
{
    static const QStringList openAI{QStringLiteral("gpt-4o"), QStringLiteral("gpt-4-turbo"),
                                    QStringLiteral("gpt-3.5-turbo")};
    static const QStringList anthropic{QStringLiteral("claude-3-5-sonnet"),
                                       QStringLiteral("claude-3-opus"),
                                       QStringLiteral("claude-3-haiku")};
    static const QStringList google{QStringLiteral("gemini-1.5-pro"),
                                    QStringLiteral("gemini-1.5-flash"),
                                    QStringLiteral("gemini-pro")};
    static const QStringList azure{QStringLiteral("gpt-4"), QStringLiteral("gpt-35-turbo")};
    static const QStringList local{QStringLiteral("llama"), QStringLiteral("mistral"),
                                   QStringLiteral("codellama")};
    switch (provider) {
    case AIProvider::OpenAI:
        return openAI;
    case AIProvider::Anthropic:
        return anthropic;
    case AIProvider::Google:
        return google;
    case AIProvider::AzureOpenAI:
        return azure;
    case AIProvider::Local:
        return local;
    }
    return openAI;
}

} // namespace AIProviders
