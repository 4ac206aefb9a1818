// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ai/AIConnectionTester.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

#include <utility>

namespace {

using Verdict = std::pair<bool, QString>;

QString resolveBase(const std::optional<QString>& given, const char* variable, const char* fallback)
{
    if (given) {
        return *given;
    }
    if (variable) {
        const QString fromEnvironment = qEnvironmentVariable(variable);
        if (!fromEnvironment.isEmpty()) {
            return fromEnvironment;
        }
    }
    return QString::fromLatin1(fallback);
}

void deliver(AIConnectionTester::Completion& completion, bool success, const QString& message)
{
    // Taken out before the call, so that no path can call it a second time.
    if (AIConnectionTester::Completion once = std::exchange(completion, nullptr)) {
        once(success, message);
    }
}

// Qt turns an HTTP error status into a reply error as well, and a redirection without a
// target into an "unknown protocol" error. These errors only restate the status of an answer
// that did arrive; any other error means the transfer itself failed.
bool restatesStatus(const QNetworkReply& reply, int status)
{
    const QNetworkReply::NetworkError error = reply.error();
    if (error >= QNetworkReply::ContentAccessDenied &&
        error <= QNetworkReply::UnknownContentError) {
        return true; // 4xx
    }
    if (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError) {
        return true; // 5xx
    }
    if (error == QNetworkReply::ProtocolInvalidOperationError) {
        return true; // 400, 418
    }
    if (error == QNetworkReply::ProtocolUnknownError) {
        return status >= 300 && status <= 399 && !reply.hasRawHeader("Location");
    }
    return error == QNetworkReply::ProxyAuthenticationRequiredError && status == 407;
}

// The address a request is made for. Qt removes dot segments from a request's path and, in
// doing so, one slash of a path that begins with two: "//v1/models" would go out as
// "/v1/models". Such a path gets a leading "/." segment, which is what Qt removes instead,
// so the path goes out exactly as composed.
QUrl requestUrl(const QString& address)
{
    QUrl url(address, QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    const QString path = url.path(QUrl::FullyEncoded);
    if ((scheme == u"http" || scheme == u"https") && path.startsWith(u"//")) {
        url.setPath(QStringLiteral("/.") + path, QUrl::StrictMode);
    }
    return url;
}

QString transferErrorMessage(const QNetworkReply& reply)
{
    // Nothing here ever aborts a test, so a cancelled transfer is one that ran out of time;
    // Qt describes that as "Operation canceled", which would mislead.
    switch (reply.error()) {
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
        return AIConnectionTester::timedOutMessage();
    default:
        return reply.errorString();
    }
}

// The verdict on a finished reply, or none when there is nothing to judge: a reply that
// carries neither an HTTP status nor an error (a `file:` address that could be read).
std::optional<Verdict> judge(const QNetworkReply& reply, const AIProviderFacts& facts)
{
    const QVariant statusAttribute = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const int status = statusAttribute.isValid() ? statusAttribute.toInt() : 0;
    const QNetworkReply::NetworkError error = reply.error();
    if (error != QNetworkReply::NoError &&
        (!statusAttribute.isValid() || !restatesStatus(reply, status))) {
        return Verdict{false, transferErrorMessage(reply)};
    }
    if (!statusAttribute.isValid()) {
        return std::nullopt;
    }
    if (status == 200) {
        return Verdict{true, QCoreApplication::translate("AIProviders", facts.successMessage)};
    }
    if (facts.localServer) {
        return Verdict{false, AIConnectionTester::localFailureMessage()};
    }
    if (status == 401) {
        return Verdict{false, AIConnectionTester::invalidKeyMessage()};
    }
    return Verdict{false, AIConnectionTester::tr("Error: %1").arg(status)};
}

} // namespace

AIConnectionTester::AIConnectionTester(QObject* parent) : AIConnectionTester(Options{}, parent) {}

AIConnectionTester::AIConnectionTester(Options options, QObject* parent)
    : QObject(parent), m_network(options.network), m_transferTimeout(options.transferTimeout)
{
    const QList<std::pair<AIProvider, std::optional<QString>>> given{
        {AIProvider::OpenAI, options.openAIBase},
        {AIProvider::Anthropic, options.anthropicBase},
        {AIProvider::Google, options.googleBase},
        {AIProvider::Local, options.localBase}};
    for (const auto& [provider, base] : given) {
        const AIProviderFacts& facts = AIProviders::facts(provider);
        m_bases.insert(provider, resolveBase(base, facts.baseOverrideVariable, facts.defaultBase));
    }
}

AIConnectionTester::~AIConnectionTester() = default;

bool AIConnectionTester::isValidAddress(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() && !url.scheme().isEmpty() && !url.host().isEmpty();
}

QNetworkAccessManager& AIConnectionTester::network()
{
    if (!m_network) {
        // Our own manager: its default time-out is the one the local request relies on.
        m_network = new QNetworkAccessManager(this);
        m_network->setTransferTimeout(static_cast<int>(m_transferTimeout.count()));
    }
    return *m_network;
}

void AIConnectionTester::testConnection(const AIConfig& config, Completion completion)
{
    if (!config.isConfigured()) {
        deliver(completion, false, notConfiguredMessage());
        return;
    }
    test(config.provider, config, std::move(completion));
}

void AIConnectionTester::testOpenAI(const AIConfig& config, Completion completion)
{
    test(AIProvider::OpenAI, config, std::move(completion));
}

void AIConnectionTester::testAnthropic(const AIConfig& config, Completion completion)
{
    test(AIProvider::Anthropic, config, std::move(completion));
}

void AIConnectionTester::testGoogle(const AIConfig& config, Completion completion)
{
    test(AIProvider::Google, config, std::move(completion));
}

void AIConnectionTester::testAzure(const AIConfig& config, Completion completion)
{
    test(AIProvider::AzureOpenAI, config, std::move(completion));
}

void AIConnectionTester::testLocal(const AIConfig& config, Completion completion)
{
    test(AIProvider::Local, config, std::move(completion));
}

void AIConnectionTester::test(AIProvider provider, const AIConfig& config, Completion completion)
{
    const AIProviderFacts& facts = AIProviders::facts(provider);
    // A base URL is used exactly as typed: one ending in "/" gives "//v1/models".
    const QString base = facts.baseURLReplacesHost && !config.baseURL.isEmpty()
                             ? config.baseURL
                             : this->base(provider);
    if (base.isEmpty() && !facts.defaultBase) {
        // A provider with no host of its own (Azure OpenAI) needs the profile's endpoint.
        deliver(completion, false, azureEndpointMissingMessage());
        return;
    }
    const QString address = base + QString::fromUtf8(facts.modelsPath);
    if (!isValidAddress(address)) {
        deliver(completion, false, invalidUrlMessage());
        return;
    }
    QNetworkRequest request(requestUrl(address));
    if (!facts.localServer) {
        // A local server gets the bare address: no headers of ours and the manager's default
        // time-out.
        request.setTransferTimeout(static_cast<int>(m_transferTimeout.count()));
        // The key travels in a header: a redirect to another host must not carry it along.
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                             QNetworkRequest::SameOriginRedirectPolicy);
    }
    const QByteArray key = config.apiKey.toUtf8();
    switch (facts.keyHeader) {
    case AIProviderFacts::KeyHeader::Bearer:
        request.setRawHeader("Authorization", "Bearer " + key);
        break;
    case AIProviderFacts::KeyHeader::XApiKey:
        request.setRawHeader("x-api-key", key);
        request.setRawHeader("anthropic-version", "2023-06-01");
        break;
    case AIProviderFacts::KeyHeader::ApiKey:
        request.setRawHeader("api-key", key);
        break;
    case AIProviderFacts::KeyHeader::None:
        break;
    }
    watch(network().get(request), facts, std::move(completion));
}

void AIConnectionTester::watch(QNetworkReply* reply, const AIProviderFacts& facts,
                               Completion completion)
{
    // `finished` is emitted on the manager's thread, so the verdict is judged and delivered
    // there. The body is never read.
    connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
    connect(reply, &QNetworkReply::finished, this,
            [reply, &facts, completion = std::move(completion)]() mutable {
                if (const auto verdict = judge(*reply, facts)) {
                    deliver(completion, verdict->first, verdict->second);
                }
            });
}
