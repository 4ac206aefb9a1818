// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/EnumTexts.h"

#include <QObject>
#include <QStringList>

#include <array>

// The closed set of AI providers a profile can carry a key for.
namespace AIProviderKind {
Q_NAMESPACE
enum class AIProvider { OpenAI, Anthropic, Google, AzureOpenAI, Local };
Q_ENUM_NS(AIProvider)
} // namespace AIProviderKind

using AIProvider = AIProviderKind::AIProvider;

// Everything the program knows about one provider, in one place: how it is named and shown,
// which variables carry its settings into the process and the shells, and how its
// credentials are tested.
struct AIProviderFacts {
    // How an address setting goes into the shells' AI environment file.
    enum class AddressExport {
        None,        // not at all
        WhenSet,     // only when the profile names one
        Always,      // always, empty when the profile names none
        WithDefault, // the profile's, or `defaultBase` when it names none
    };
    // The header a credentials test sends the key in.
    enum class KeyHeader { None, Bearer, XApiKey, ApiKey };

    AIProvider value;
    const char* raw;                   // stored in the profile file and shown
    const char* display;               // the same text: the stored value is the name
    const char* symbol;                // shown beside the name in pickers
    std::array<const char*, 3> models; // offered for the provider, its default first
    // The models line of the AI settings page; none: the page does not list the provider.
    const char* catalogueLine;

    // The provider works without a key (a local server).
    bool needsKey;
    // The profile's base URL means something for the provider and is shown for editing, with
    // this example under it when there is one.
    bool showsBaseURL;
    const char* baseURLExample;

    // The variable that carries the key: in the shells' AI environment file, and also in the
    // application's own environment when `keyInProcess`.
    const char* keyVariable;
    bool keyInProcess;
    // The variable that carries the profile's address, and how it reaches the shells; with
    // `addressInProcess`, a non-empty address is also put into the application's environment.
    const char* addressVariable;
    AddressExport addressExport;
    bool addressInProcess;

    // The credentials test: the provider's own API host (none: the profile must name one),
    // whether the profile's base URL replaces it, the path of the model list, where the key
    // goes, and what a success says. `localServer` judges answers as a local server's.
    const char* defaultBase;
    const char* baseOverrideVariable; // points the host elsewhere, for tests of the built programs
    bool baseURLReplacesHost;
    const char* modelsPath;
    KeyHeader keyHeader;
    const char* successMessage;
    bool localServer;
};

struct AIProviders : EnumTexts<AIProviders, AIProvider, AIProviderFacts> {
    using AddressExport = AIProviderFacts::AddressExport;
    using KeyHeader = AIProviderFacts::KeyHeader;

    // clang-format off
    static constexpr AIProviderFacts entries[] = {
        {.value = AIProvider::OpenAI, .raw = "OpenAI", .display = "OpenAI", .symbol = "sparkles",
         .models = {"gpt-4o", "gpt-4-turbo", "gpt-3.5-turbo"}, .catalogueLine = "GPT-4, GPT-3.5",
         .needsKey = true, .showsBaseURL = false, .baseURLExample = nullptr,
         .keyVariable = "OPENAI_API_KEY", .keyInProcess = true,
         .addressVariable = "OPENAI_BASE_URL", .addressExport = AddressExport::WhenSet,
         .addressInProcess = false,
         .defaultBase = "https://api.openai.com", .baseOverrideVariable = "KIVORA_OPENAI_API_BASE",
         .baseURLReplacesHost = true, .modelsPath = "/v1/models", .keyHeader = KeyHeader::Bearer,
         .successMessage = QT_TRANSLATE_NOOP("AIProviders", "Connected to OpenAI successfully"), .localServer = false},
        {.value = AIProvider::Anthropic, .raw = "Anthropic", .display = "Anthropic",
         .symbol = "brain.head.profile",
         .models = {"claude-3-5-sonnet", "claude-3-opus", "claude-3-haiku"},
         .catalogueLine = "Claude 3.5, Claude 3",
         .needsKey = true, .showsBaseURL = false, .baseURLExample = nullptr,
         .keyVariable = "ANTHROPIC_API_KEY", .keyInProcess = true,
         .addressVariable = nullptr, .addressExport = AddressExport::None, .addressInProcess = false,
         .defaultBase = "https://api.anthropic.com",
         .baseOverrideVariable = "KIVORA_ANTHROPIC_API_BASE",
         .baseURLReplacesHost = false, .modelsPath = "/v1/models", .keyHeader = KeyHeader::XApiKey,
         .successMessage = QT_TRANSLATE_NOOP("AIProviders", "Connected to Anthropic successfully"), .localServer = false},
        // The key travels as a bearer token, not as a key parameter.
        {.value = AIProvider::Google, .raw = "Google", .display = "Google", .symbol = "g.circle",
         .models = {"gemini-1.5-pro", "gemini-1.5-flash", "gemini-pro"},
         .catalogueLine = "Gemini Pro",
         .needsKey = true, .showsBaseURL = false, .baseURLExample = nullptr,
         .keyVariable = "GOOGLE_AI_API_KEY", .keyInProcess = true,
         .addressVariable = nullptr, .addressExport = AddressExport::None, .addressInProcess = false,
         .defaultBase = "https://generativelanguage.googleapis.com",
         .baseOverrideVariable = "KIVORA_GOOGLE_API_BASE",
         .baseURLReplacesHost = false, .modelsPath = "/v1/models", .keyHeader = KeyHeader::Bearer,
         .successMessage = QT_TRANSLATE_NOOP("AIProviders", "Connected to Google AI successfully"), .localServer = false},
        // The endpoint is the user's own resource: there is no default host, and the shells
        // get the variable even when it is empty. The process gets no variable at all.
        {.value = AIProvider::AzureOpenAI, .raw = "Azure OpenAI", .display = "Azure OpenAI",
         .symbol = "cloud.fill", .models = {"gpt-4", "gpt-35-turbo", nullptr},
         .catalogueLine = "GPT-4, GPT-3.5",
         .needsKey = true, .showsBaseURL = true, .baseURLExample = nullptr,
         .keyVariable = "AZURE_OPENAI_API_KEY", .keyInProcess = false,
         .addressVariable = "AZURE_OPENAI_ENDPOINT", .addressExport = AddressExport::Always,
         .addressInProcess = false,
         .defaultBase = nullptr, .baseOverrideVariable = nullptr,
         .baseURLReplacesHost = true, .modelsPath = "/openai/models?api-version=2024-03-01-preview",
         .keyHeader = KeyHeader::ApiKey,
         .successMessage = QT_TRANSLATE_NOOP("AIProviders", "Connected to Azure OpenAI successfully"), .localServer = false},
        // A local model server needs no key; its address defaults to the usual port. The AI
        // settings page does not list it.
        {.value = AIProvider::Local, .raw = "Local", .display = "Local", .symbol = "desktopcomputer",
         .models = {"llama", "mistral", "codellama"}, .catalogueLine = nullptr,
         .needsKey = false, .showsBaseURL = true, .baseURLExample = QT_TRANSLATE_NOOP("AIProviders", "e.g., http://localhost:11434"),
         .keyVariable = nullptr, .keyInProcess = false,
         .addressVariable = "OLLAMA_BASE_URL", .addressExport = AddressExport::WithDefault,
         .addressInProcess = true,
         .defaultBase = "http://localhost:11434", .baseOverrideVariable = nullptr,
         .baseURLReplacesHost = true, .modelsPath = "/api/tags", .keyHeader = KeyHeader::None,
         .successMessage = QT_TRANSLATE_NOOP("AIProviders", "Connected to local AI server successfully"), .localServer = true},
    };
    // clang-format on

    static constexpr const AIProviderFacts& facts(AIProvider provider)
    {
        for (const AIProviderFacts& e : entries) {
            if (e.value == provider) {
                return e;
            }
        }
        return entries[0];
    }
    static QString symbol(AIProvider provider) { return QString::fromUtf8(facts(provider).symbol); }
    static QStringList models(AIProvider provider);

    // The variables a shell is told to forget when a profile has no AI context: each
    // provider's key, or for a provider without one, its address.
    static QStringList shellVariables();
    // The variables this process sets for an applied configuration, in the order they are
    // removed again.
    static QStringList processVariables();
};
