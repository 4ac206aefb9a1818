#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// The closed set of AI providers a profile can carry a key for. The raw value is the
// exact text stored in the profile file and shown in the interface.
enum class AIProvider { OpenAI, Anthropic, Google, AzureOpenAI, Local };

namespace AIProviders {

// Every provider, in the order pickers offer them.
const QList<AIProvider>& all();

QString rawValue(AIProvider provider);

// Exact, case-sensitive: "openai" is not a provider.
std::optional<AIProvider> fromRawValue(const QString& raw);

// The models offered for a provider, its default first.
const QStringList& models(AIProvider provider);

} // namespace AIProviders
