// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AIConfig.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;

// Checks that an AI provider accepts a configuration: one GET of the provider's model list,
// judged by the HTTP status alone, and a one-line verdict handed to a completion.
//
// Verdicts that need no request ("API key not configured", "Azure endpoint not configured",
// "Invalid URL") are delivered before the call returns. Every other verdict is delivered from
// the reply's `finished` signal, on the thread of the network manager (the interface thread
// in the application). Each completion is called at most once; several tests may run at once.
class AIConnectionTester : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(bool success, const QString& message)>;

    // The providers' public API hosts (AIProviders holds every provider's facts).
    static constexpr const char* defaultOpenAIBase =
        AIProviders::facts(AIProvider::OpenAI).defaultBase;
    static constexpr const char* defaultAnthropicBase =
        AIProviders::facts(AIProvider::Anthropic).defaultBase;
    static constexpr const char* defaultGoogleBase =
        AIProviders::facts(AIProvider::Google).defaultBase;
    // Where a local model server listens when the configuration names no address.
    static constexpr const char* defaultLocalBase =
        AIProviders::facts(AIProvider::Local).defaultBase;

    // Environment variables that point the public hosts elsewhere. They exist so that tests
    // of the built programs can answer in place of a provider; they are not a user setting.
    static constexpr const char* openAIBaseVariable =
        AIProviders::facts(AIProvider::OpenAI).baseOverrideVariable;
    static constexpr const char* anthropicBaseVariable =
        AIProviders::facts(AIProvider::Anthropic).baseOverrideVariable;
    static constexpr const char* googleBaseVariable =
        AIProviders::facts(AIProvider::Google).baseOverrideVariable;

    static constexpr std::chrono::milliseconds defaultTransferTimeout{60000};

    struct Options {
        // The manager that sends the requests; null: the tester makes its own, on the thread
        // that creates the tester.
        QNetworkAccessManager* network = nullptr;
        // Base addresses used instead of the public hosts. Unset: the environment variable
        // above when it is set and not empty, else the public host. Set: used as given.
        std::optional<QString> openAIBase;
        std::optional<QString> anthropicBase;
        std::optional<QString> googleBase;
        // The local server's address when the configuration leaves it empty.
        std::optional<QString> localBase;
        // How long a cloud request may go without any data before it fails. The manager the
        // tester makes for itself takes the same value as its default, which is what the
        // local request uses.
        std::chrono::milliseconds transferTimeout = defaultTransferTimeout;
    };

    // Texts of the verdicts.
    static QString notConfiguredMessage() { return tr("API key not configured"); }
    static QString azureEndpointMissingMessage() { return tr("Azure endpoint not configured"); }
    static QString invalidUrlMessage() { return tr("Invalid URL"); }
    static QString invalidKeyMessage() { return tr("Invalid API key"); }
    static QString localFailureMessage() { return tr("Could not connect to local server"); }
    // What a transfer that ran out of time reports.
    static QString timedOutMessage() { return tr("The request timed out."); }

    explicit AIConnectionTester(QObject* parent = nullptr);
    explicit AIConnectionTester(Options options, QObject* parent = nullptr);
    ~AIConnectionTester() override;

    // The base addresses in use.
    QString openAIBase() const { return base(AIProvider::OpenAI); }
    QString anthropicBase() const { return base(AIProvider::Anthropic); }
    QString googleBase() const { return base(AIProvider::Google); }
    QString localBase() const { return base(AIProvider::Local); }
    // A provider's own host, or empty for one that has none (Azure OpenAI).
    QString base(AIProvider provider) const { return m_bases.value(provider); }

    // "API key not configured" for a configuration that is not usable, otherwise the test of
    // its provider.
    void testConnection(const AIConfig& config, Completion completion);

    // One provider's request for the configuration's key and address, whatever provider the
    // configuration names.
    void test(AIProvider provider, const AIConfig& config, Completion completion);
    void testOpenAI(const AIConfig& config, Completion completion);
    void testAnthropic(const AIConfig& config, Completion completion);
    void testGoogle(const AIConfig& config, Completion completion);
    void testAzure(const AIConfig& config, Completion completion);
    void testLocal(const AIConfig& config, Completion completion);

    // Whether `text` is an address a test can be sent to: it parses strictly and has both a
    // scheme and a host. "http://localhost:11434 /api/tags" and "localhost:11434/api/tags"
    // are not.
    static bool isValidAddress(const QString& text);

private:
    void watch(QNetworkReply* reply, const AIProviderFacts& facts, Completion completion);

    QNetworkAccessManager& network();

    // The caller's manager, or one of our own made on first use.
    QPointer<QNetworkAccessManager> m_network;
    QHash<AIProvider, QString> m_bases;
    std::chrono::milliseconds m_transferTimeout;
};
