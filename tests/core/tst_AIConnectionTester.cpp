// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ai/AIConnectionTester.h"
#include "ai/AIContextManager.h"
#include "support/LocalHttpServer.h"
#include "support/TestHome.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QThread>

#include <memory>

namespace {

constexpr int waitMs = 30000;

// What one completion saw.
struct Outcome {
    int calls = 0;
    bool success = false;
    QString message;
    bool onMainThread = true;
};

using OutcomePtr = std::shared_ptr<Outcome>;

std::pair<OutcomePtr, AIConnectionTester::Completion> recorder()
{
    auto outcome = std::make_shared<Outcome>();
    AIConnectionTester::Completion completion = [outcome](bool success, const QString& message) {
        ++outcome->calls;
        outcome->success = success;
        outcome->message = message;
        outcome->onMainThread = outcome->onMainThread &&
                                QThread::currentThread() == QCoreApplication::instance()->thread();
    };
    return {outcome, completion};
}

AIConfig config(AIProvider provider, const QString& key, const QString& baseURL = {})
{
    AIConfig c;
    c.isEnabled = true;
    c.provider = provider;
    c.apiKey = key;
    c.baseURL = baseURL;
    return c;
}

QString base(const LocalHttpServer& server)
{
    return server.url().toString();
}

QString closedBase()
{
    return QStringLiteral("http://127.0.0.1:%1").arg(LocalHttpServer::closedPort());
}

// Accepts connections and never answers.
class SilentServer {
public:
    SilentServer()
    {
        m_server.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                m_sockets.append(socket);
            }
        });
    }
    QString base() const
    {
        return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
    }

private:
    QTcpServer m_server;
    QList<QTcpSocket*> m_sockets; // children of the server
};

// What Qt itself reports for a GET of `url` that fails in transfer.
QString referenceError(const QString& url)
{
    QNetworkAccessManager network;
    QNetworkReply* reply = network.get(QNetworkRequest(QUrl(url)));
    QSignalSpy finished(reply, &QNetworkReply::finished);
    finished.wait(waitMs);
    const QString message = reply->errorString();
    delete reply;
    return message;
}

} // namespace

// The provider connection tests, against a real HTTP server on 127.0.0.1.
class tst_AIConnectionTester : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<LocalHttpServer> m_server;
    std::unique_ptr<QNetworkAccessManager> m_network;
    std::unique_ptr<AIConnectionTester> m_tester;

    // A tester whose provider hosts and local default all point at m_server.
    AIConnectionTester::Options pointedOptions() const
    {
        AIConnectionTester::Options options;
        options.network = m_network.get();
        options.openAIBase = base(*m_server);
        options.anthropicBase = base(*m_server);
        options.googleBase = base(*m_server);
        options.localBase = base(*m_server);
        return options;
    }

    void answer(const QByteArray& path, int status) { m_server->route(path, {status, "{}"}); }

    // Spins the event loop until the completion has been called.
    static bool arrived(const OutcomePtr& outcome)
    {
        return QTest::qWaitFor([&outcome] { return outcome->calls > 0; }, waitMs);
    }

    // Sends one real test through the same manager and waits for it; a request the earlier
    // call had sent would have reached the server by then.
    bool settle()
    {
        answer("/settle/api/tags", 200);
        auto [outcome, completion] = recorder();
        m_tester->testLocal(
            config(AIProvider::Local, {}, base(*m_server) + QStringLiteral("/settle")), completion);
        return arrived(outcome) &&
               outcome->message == QStringLiteral("Connected to local AI server successfully");
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        for (const char* variable :
             {AIConnectionTester::openAIBaseVariable, AIConnectionTester::anthropicBaseVariable,
              AIConnectionTester::googleBaseVariable}) {
            m_home->setEnv(variable, std::nullopt);
        }
        m_server = std::make_unique<LocalHttpServer>();
        m_network = std::make_unique<QNetworkAccessManager>();
        m_tester = std::make_unique<AIConnectionTester>(pointedOptions());
    }

    void cleanup()
    {
        m_tester.reset();
        m_network.reset();
        m_server.reset();
        m_home.reset();
    }

    void cloudProviders_data()
    {
        QTest::addColumn<int>("provider");
        QTest::addColumn<QString>("baseURL");
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("success");
        QTest::addColumn<QString>("message");

        struct Row {
            AIProvider provider;
            const char* name;
            const char* success;
        };
        const Row rows[] = {
            {AIProvider::OpenAI, "OpenAI", "Connected to OpenAI successfully"},
            {AIProvider::Anthropic, "Anthropic", "Connected to Anthropic successfully"},
            {AIProvider::Google, "Google", "Connected to Google AI successfully"},
            {AIProvider::AzureOpenAI, "Azure", "Connected to Azure OpenAI successfully"},
        };
        for (const Row& row : rows) {
            // Azure has no public host: its endpoint is the configuration's base URL.
            const QString baseURL =
                row.provider == AIProvider::AzureOpenAI ? QStringLiteral("<server>") : QString();
            const auto add = [&](int status, bool success, const QString& message) {
                QTest::addRow("%s %d", row.name, status)
                    << int(row.provider) << baseURL << status << success << message;
            };
            add(200, true, QString::fromLatin1(row.success));
            add(401, false, QStringLiteral("Invalid API key"));
            add(500, false, QStringLiteral("Error: 500"));
        }
        const auto addOpenAI = [](const char* name, int status, const QString& message) {
            QTest::addRow("%s", name)
                << int(AIProvider::OpenAI) << QString() << status << false << message;
        };
        // Only 200 counts as success, and every other status is reported by its number.
        addOpenAI("OpenAI 201", 201, QStringLiteral("Error: 201"));
        addOpenAI("OpenAI 400", 400, QStringLiteral("Error: 400"));
        addOpenAI("OpenAI 403", 403, QStringLiteral("Error: 403"));
        addOpenAI("OpenAI 404", 404, QStringLiteral("Error: 404"));
        addOpenAI("OpenAI 429", 429, QStringLiteral("Error: 429"));
        addOpenAI("OpenAI 503", 503, QStringLiteral("Error: 503"));
        addOpenAI("OpenAI 407", 407, QStringLiteral("Error: 407"));
        // A redirection without a target is an answer as well.
        addOpenAI("OpenAI 302", 302, QStringLiteral("Error: 302"));
        addOpenAI("OpenAI 204", 204, QStringLiteral("Error: 204"));
        addOpenAI("OpenAI 418", 418, QStringLiteral("Error: 418"));
        // The user's own OpenAI-compatible server.
        QTest::addRow("OpenAI base URL 200")
            << int(AIProvider::OpenAI) << QStringLiteral("<server>") << 200 << true
            << QStringLiteral("Connected to OpenAI successfully");
    }

    void cloudProviders()
    {
        QFETCH(int, provider);
        QFETCH(QString, baseURL);
        QFETCH(int, status);
        QFETCH(bool, success);
        QFETCH(QString, message);

        const auto chosen = AIProvider(provider);
        const QByteArray path = chosen == AIProvider::AzureOpenAI ? "/openai/models" : "/v1/models";
        answer(path, status);
        if (baseURL == u"<server>") {
            baseURL = base(*m_server);
        }
        // With a base URL of its own, OpenAI must not go to its default host.
        AIConnectionTester::Options elsewhere = pointedOptions();
        elsewhere.openAIBase = closedBase();
        AIConnectionTester unpointed(elsewhere);
        AIConnectionTester* tester = baseURL.isEmpty() ? m_tester.get() : &unpointed;

        auto [outcome, completion] = recorder();
        tester->testConnection(config(chosen, QStringLiteral("k"), baseURL), completion);
        QCOMPARE(outcome->calls, 0);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->success, success);
        QCOMPARE(outcome->message, message);
        QVERIFY(outcome->onMainThread);

        QCOMPARE(m_server->requests().size(), 1);
        const LocalHttpServer::Request& request = m_server->requests().first();
        QCOMPARE(request.method, QByteArray("GET"));
        const auto& headers = request.headers;
        switch (chosen) {
        case AIProvider::OpenAI:
        case AIProvider::Google:
            QCOMPARE(request.target, QByteArray("/v1/models"));
            QCOMPARE(headers.value("authorization"), QByteArray("Bearer k"));
            QVERIFY(!headers.contains("x-api-key"));
            QVERIFY(!headers.contains("api-key"));
            break;
        case AIProvider::Anthropic:
            QCOMPARE(request.target, QByteArray("/v1/models"));
            QCOMPARE(headers.value("x-api-key"), QByteArray("k"));
            QCOMPARE(headers.value("anthropic-version"), QByteArray("2023-06-01"));
            QVERIFY(!headers.contains("authorization"));
            break;
        case AIProvider::AzureOpenAI:
            QCOMPARE(request.target, QByteArray("/openai/models?api-version=2024-03-01-preview"));
            QCOMPARE(headers.value("api-key"), QByteArray("k"));
            QVERIFY(!headers.contains("authorization"));
            break;
        case AIProvider::Local:
            QFAIL("not a cloud provider");
        }
        // Nothing more arrives later.
        QCoreApplication::processEvents();
        QCOMPARE(outcome->calls, 1);
    }

    void unreachable_data()
    {
        QTest::addColumn<int>("provider");
        QTest::addColumn<QString>("path");
        QTest::newRow("OpenAI") << int(AIProvider::OpenAI) << QStringLiteral("/v1/models");
        QTest::newRow("Anthropic") << int(AIProvider::Anthropic) << QStringLiteral("/v1/models");
        QTest::newRow("Google") << int(AIProvider::Google) << QStringLiteral("/v1/models");
        QTest::newRow("Azure") << int(AIProvider::AzureOpenAI)
                               << QStringLiteral("/openai/models?api-version=2024-03-01-preview");
        QTest::newRow("Local") << int(AIProvider::Local) << QStringLiteral("/api/tags");
    }

    void unreachable()
    {
        QFETCH(int, provider);
        QFETCH(QString, path);
        const QString closed = closedBase();
        AIConnectionTester::Options options;
        options.network = m_network.get();
        options.openAIBase = closed;
        options.anthropicBase = closed;
        options.googleBase = closed;
        options.localBase = closed;
        AIConnectionTester tester(options);
        const auto chosen = AIProvider(provider);
        const QString baseURL = chosen == AIProvider::AzureOpenAI ? closed : QString();

        auto [outcome, completion] = recorder();
        tester.testConnection(config(chosen, QStringLiteral("k"), baseURL), completion);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->success, false);
        // The transfer's own description of what went wrong.
        QCOMPARE(outcome->message, referenceError(closed + path));
        QVERIFY(!outcome->message.isEmpty());
        QVERIFY(outcome->onMainThread);
    }

    void localServer_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("success");
        QTest::addColumn<QString>("message");
        QTest::newRow("200") << 200 << true
                             << QStringLiteral("Connected to local AI server successfully");
        // A local server that refuses is not judged as a wrong key.
        QTest::newRow("401") << 401 << false << QStringLiteral("Could not connect to local server");
        QTest::newRow("404") << 404 << false << QStringLiteral("Could not connect to local server");
        QTest::newRow("500") << 500 << false << QStringLiteral("Could not connect to local server");
    }

    void localServer()
    {
        QFETCH(int, status);
        QFETCH(bool, success);
        QFETCH(QString, message);
        answer("/api/tags", status);

        AIConnectionTester::Options options;
        options.network = m_network.get();
        options.localBase = closedBase(); // a base URL of its own replaces the default
        AIConnectionTester tester(options);
        auto [outcome, completion] = recorder();
        tester.testConnection(config(AIProvider::Local, QStringLiteral("k"), base(*m_server)),
                              completion);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->success, success);
        QCOMPARE(outcome->message, message);
        QVERIFY(outcome->onMainThread);

        QCOMPARE(m_server->requests().size(), 1);
        const LocalHttpServer::Request& request = m_server->requests().first();
        QCOMPARE(request.method, QByteArray("GET"));
        QCOMPARE(request.target, QByteArray("/api/tags"));
        // The bare address: not even the key the configuration holds is sent.
        for (const char* name : {"authorization", "x-api-key", "api-key", "anthropic-version"}) {
            QVERIFY2(!request.headers.contains(name), name);
        }
    }

    void localDefaultBase()
    {
        // Without a testing hook, a local server is looked for on port 11434 of this machine.
        QCOMPARE(QString::fromLatin1(AIConnectionTester::defaultLocalBase),
                 QStringLiteral("http://localhost:11434"));
        const AIConnectionTester plain;
        QCOMPARE(plain.localBase(), QStringLiteral("http://localhost:11434"));

        // The pointed default receives an empty configuration's request.
        answer("/api/tags", 200);
        auto [outcome, completion] = recorder();
        m_tester->testConnection(config(AIProvider::Local, {}, {}), completion);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->success, true);
        QCOMPARE(outcome->message, QStringLiteral("Connected to local AI server successfully"));
        QCOMPARE(m_server->requests().size(), 1);
        QCOMPARE(m_server->requests().first().target, QByteArray("/api/tags"));
    }

    void publicHosts()
    {
        const AIConnectionTester plain;
        QCOMPARE(plain.openAIBase(), QStringLiteral("https://api.openai.com"));
        QCOMPARE(plain.anthropicBase(), QStringLiteral("https://api.anthropic.com"));
        QCOMPARE(plain.googleBase(), QStringLiteral("https://generativelanguage.googleapis.com"));
    }

    void environmentPointsHosts()
    {
        m_home->setEnv(AIConnectionTester::openAIBaseVariable, QByteArray("http://127.0.0.1:1"));
        m_home->setEnv(AIConnectionTester::anthropicBaseVariable, QByteArray("http://127.0.0.1:2"));
        m_home->setEnv(AIConnectionTester::googleBaseVariable, QByteArray(""));
        const AIConnectionTester fromEnvironment;
        QCOMPARE(fromEnvironment.openAIBase(), QStringLiteral("http://127.0.0.1:1"));
        QCOMPARE(fromEnvironment.anthropicBase(), QStringLiteral("http://127.0.0.1:2"));
        // Empty counts as unset.
        QCOMPARE(fromEnvironment.googleBase(),
                 QStringLiteral("https://generativelanguage.googleapis.com"));

        // An explicit option wins over the environment.
        AIConnectionTester::Options options;
        options.openAIBase = QStringLiteral("http://127.0.0.1:3");
        const AIConnectionTester explicitOptions(options);
        QCOMPARE(explicitOptions.openAIBase(), QStringLiteral("http://127.0.0.1:3"));
        QCOMPARE(explicitOptions.anthropicBase(), QStringLiteral("http://127.0.0.1:2"));
    }

    void decidedBeforeSending_data()
    {
        QTest::addColumn<int>("provider");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("baseURL");
        QTest::addColumn<QString>("message");

        const QString notConfigured = QStringLiteral("API key not configured");
        const QString invalid = QStringLiteral("Invalid URL");
        const QString k = QStringLiteral("k");
        QTest::newRow("OpenAI without key")
            << int(AIProvider::OpenAI) << QString() << QString() << notConfigured;
        QTest::newRow("Anthropic without key")
            << int(AIProvider::Anthropic) << QString() << QString() << notConfigured;
        QTest::newRow("Google without key")
            << int(AIProvider::Google) << QString() << QString() << notConfigured;
        QTest::newRow("Azure without key or endpoint")
            << int(AIProvider::AzureOpenAI) << QString() << QString() << notConfigured;
        QTest::newRow("Azure with endpoint, without key")
            << int(AIProvider::AzureOpenAI) << QString() << QStringLiteral("<server>")
            << notConfigured;
        QTest::newRow("Azure with key, without endpoint")
            << int(AIProvider::AzureOpenAI) << k << QString()
            << QStringLiteral("Azure endpoint not configured");
        QTest::newRow("OpenAI base URL with a space")
            << int(AIProvider::OpenAI) << k << QStringLiteral("http://127.0.0.1 /x") << invalid;
        QTest::newRow("OpenAI base URL without scheme")
            << int(AIProvider::OpenAI) << k << QStringLiteral("127.0.0.1") << invalid;
        QTest::newRow("Azure endpoint with a space")
            << int(AIProvider::AzureOpenAI) << k << QStringLiteral("https://my resource")
            << invalid;
        QTest::newRow("Azure endpoint of spaces")
            << int(AIProvider::AzureOpenAI) << k << QStringLiteral("   ") << invalid;
        QTest::newRow("Local base URL with a space")
            << int(AIProvider::Local) << QString() << QStringLiteral("http://localhost:11434 ")
            << invalid;
        QTest::newRow("Local base URL without scheme")
            << int(AIProvider::Local) << QString() << QStringLiteral("localhost:11434") << invalid;
        QTest::newRow("Local base URL without host")
            << int(AIProvider::Local) << QString() << QStringLiteral("http://") << invalid;
    }

    void decidedBeforeSending()
    {
        QFETCH(int, provider);
        QFETCH(QString, key);
        QFETCH(QString, baseURL);
        QFETCH(QString, message);
        if (baseURL == u"<server>") {
            baseURL = base(*m_server);
        }
        m_server->setFallback({200, "{}"});
        QSignalSpy replies(m_network.get(), &QNetworkAccessManager::finished);

        auto [outcome, completion] = recorder();
        m_tester->testConnection(config(AIProvider(provider), key, baseURL), completion);
        // Delivered before the call returned, on the caller's thread.
        QCOMPARE(outcome->calls, 1);
        QCOMPARE(outcome->success, false);
        QCOMPARE(outcome->message, message);
        QVERIFY(outcome->onMainThread);

        QVERIFY(settle());
        QCOMPARE(replies.size(), 1); // the settling request's only
        QCOMPARE(m_server->requests().size(), 1);
        QCOMPARE(m_server->requests().first().target, QByteArray("/settle/api/tags"));
        QCOMPARE(outcome->calls, 1);
    }

    void providerTestsCheckTheirOwnInput()
    {
        // The per-provider entries do not look at the key; the Azure one still needs its
        // endpoint, and every one refuses an address it cannot parse.
        auto [azure, azureDone] = recorder();
        m_tester->testAzure(config(AIProvider::AzureOpenAI, {}, {}), azureDone);
        QCOMPARE(azure->calls, 1);
        QCOMPARE(azure->message, QStringLiteral("Azure endpoint not configured"));

        auto [openAI, openAIDone] = recorder();
        m_tester->testOpenAI(config(AIProvider::OpenAI, {}, QStringLiteral("http://a b")),
                             openAIDone);
        QCOMPARE(openAI->calls, 1);
        QCOMPARE(openAI->message, QStringLiteral("Invalid URL"));

        // The entry dispatches on the configuration's provider only.
        answer("/v1/models", 200);
        auto [google, googleDone] = recorder();
        m_tester->testGoogle(config(AIProvider::Google, QStringLiteral("g")), googleDone);
        QVERIFY(arrived(google));
        QCOMPARE(google->message, QStringLiteral("Connected to Google AI successfully"));
        const auto& headers = m_server->requests().first().headers;
        QCOMPARE(headers.value("authorization"), QByteArray("Bearer g"));
        // A bearer header, not a key parameter.
        QCOMPARE(m_server->requests().first().target, QByteArray("/v1/models"));
    }

    void addressesAreNotNormalised_data()
    {
        QTest::addColumn<int>("provider");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("OpenAI base ending in a slash")
            << int(AIProvider::OpenAI) << QStringLiteral("/") << QByteArray("//v1/models");
        QTest::newRow("OpenAI base ending in two slashes")
            << int(AIProvider::OpenAI) << QStringLiteral("//") << QByteArray("///v1/models");
        QTest::newRow("OpenAI base with a path")
            << int(AIProvider::OpenAI) << QStringLiteral("/proxy/")
            << QByteArray("/proxy//v1/models");
        QTest::newRow("Azure endpoint ending in a slash")
            << int(AIProvider::AzureOpenAI) << QStringLiteral("/")
            << QByteArray("//openai/models?api-version=2024-03-01-preview");
        QTest::newRow("Local base ending in a slash")
            << int(AIProvider::Local) << QStringLiteral("/") << QByteArray("//api/tags");
    }

    void addressesAreNotNormalised()
    {
        QFETCH(int, provider);
        QFETCH(QString, suffix);
        QFETCH(QByteArray, target);
        m_server->setFallback({200, "{}"});
        auto [outcome, completion] = recorder();
        m_tester->testConnection(
            config(AIProvider(provider), QStringLiteral("k"), base(*m_server) + suffix),
            completion);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->success, true);
        QCOMPARE(m_server->requests().size(), 1);
        QCOMPARE(m_server->requests().first().target, target);
    }

    void anthropicAndGoogleIgnoreBaseURL_data()
    {
        QTest::addColumn<int>("provider");
        QTest::addColumn<QString>("success");
        QTest::newRow("Anthropic")
            << int(AIProvider::Anthropic) << QStringLiteral("Connected to Anthropic successfully");
        QTest::newRow("Google") << int(AIProvider::Google)
                                << QStringLiteral("Connected to Google AI successfully");
    }

    void anthropicAndGoogleIgnoreBaseURL()
    {
        QFETCH(int, provider);
        QFETCH(QString, success);
        LocalHttpServer elsewhere;
        elsewhere.setFallback({200, "{}"});
        answer("/v1/models", 200);

        auto [outcome, completion] = recorder();
        m_tester->testConnection(config(AIProvider(provider), QStringLiteral("k"), base(elsewhere)),
                                 completion);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->message, success);
        QCOMPARE(m_server->requests().size(), 1);
        QVERIFY(elsewhere.requests().isEmpty());
    }

    void severalAtOnce()
    {
        // One server per test, each with its own answer, all sent before any is answered.
        LocalHttpServer openAI, anthropic, google, azure, local;
        openAI.route("/v1/models", {200, "{}"});
        anthropic.route("/v1/models", {401, "{}"});
        google.route("/v1/models", {500, "{}"});
        azure.route("/openai/models", {200, "{}"});
        local.route("/api/tags", {401, "{}"});

        AIConnectionTester::Options options;
        options.network = m_network.get();
        options.openAIBase = base(openAI);
        options.anthropicBase = base(anthropic);
        options.googleBase = base(google);
        AIConnectionTester tester(options);

        struct Case {
            AIConfig config;
            bool success;
            QString message;
            OutcomePtr outcome;
        };
        QList<Case> cases{
            {config(AIProvider::OpenAI, QStringLiteral("a")),
             true,
             QStringLiteral("Connected to OpenAI successfully"),
             {}},
            {config(AIProvider::Anthropic, QStringLiteral("b")),
             false,
             QStringLiteral("Invalid API key"),
             {}},
            {config(AIProvider::Google, QStringLiteral("c")),
             false,
             QStringLiteral("Error: 500"),
             {}},
            {config(AIProvider::AzureOpenAI, QStringLiteral("d"), base(azure)),
             true,
             QStringLiteral("Connected to Azure OpenAI successfully"),
             {}},
            {config(AIProvider::Local, {}, base(local)),
             false,
             QStringLiteral("Could not connect to local server"),
             {}},
            {config(AIProvider::OpenAI, QStringLiteral("a")),
             true,
             QStringLiteral("Connected to OpenAI successfully"),
             {}},
        };
        for (Case& c : cases) {
            auto [outcome, completion] = recorder();
            c.outcome = outcome;
            tester.testConnection(c.config, completion);
        }
        for (const Case& c : cases) {
            QCOMPARE(c.outcome->calls, 0);
        }
        for (const Case& c : cases) {
            QVERIFY(arrived(c.outcome));
        }
        QCoreApplication::processEvents();
        for (const Case& c : cases) {
            QCOMPARE(c.outcome->calls, 1);
            QCOMPARE(c.outcome->success, c.success);
            QCOMPARE(c.outcome->message, c.message);
            QVERIFY(c.outcome->onMainThread);
        }
        QCOMPARE(openAI.requests().size(), 2);
        QCOMPARE(anthropic.requests().size(), 1);
        QCOMPARE(google.requests().size(), 1);
        QCOMPARE(azure.requests().size(), 1);
        QCOMPARE(local.requests().size(), 1);
    }

    void transferThatRunsOutOfTime_data()
    {
        QTest::addColumn<int>("provider");
        QTest::newRow("OpenAI") << int(AIProvider::OpenAI);
        QTest::newRow("Azure") << int(AIProvider::AzureOpenAI);
        // The local request has no time-out of its own: the manager's default applies.
        QTest::newRow("Local") << int(AIProvider::Local);
    }

    void transferThatRunsOutOfTime()
    {
        QFETCH(int, provider);
        SilentServer silent;
        AIConnectionTester::Options options; // the tester makes its own manager
        options.openAIBase = silent.base();
        options.localBase = silent.base();
        options.transferTimeout = std::chrono::milliseconds(300);
        AIConnectionTester tester(options);
        const auto chosen = AIProvider(provider);
        const QString baseURL = chosen == AIProvider::AzureOpenAI ? silent.base() : QString();

        auto [outcome, completion] = recorder();
        tester.testConnection(config(chosen, QStringLiteral("k"), baseURL), completion);
        QVERIFY(arrived(outcome));
        QCOMPARE(outcome->success, false);
        QCOMPARE(outcome->message, QStringLiteral("The request timed out."));
        QVERIFY(outcome->onMainThread);
    }

    void answerWithoutHttpStatusIsNotJudged()
    {
        // A local "server" given as a file address: the file is read, but there is no HTTP
        // status to judge, so the completion stays silent.
        m_home->write(QStringLiteral("served/api/tags"), "{}");
        const QString address =
            QStringLiteral("file://localhost") + m_home->filePath(QStringLiteral("served"));
        QVERIFY(AIConnectionTester::isValidAddress(address + QStringLiteral("/api/tags")));

        QSignalSpy replies(m_network.get(), &QNetworkAccessManager::finished);
        auto [outcome, completion] = recorder();
        m_tester->testConnection(config(AIProvider::Local, {}, address), completion);
        QTRY_COMPARE_WITH_TIMEOUT(replies.size(), 1, waitMs);
        QCoreApplication::processEvents();
        QCOMPARE(outcome->calls, 0);
    }

    void contextManagerEntries()
    {
        // The application's entry points, with the public hosts pointed at the test server
        // the way a test of the built program does it.
        m_home->setEnv(AIConnectionTester::openAIBaseVariable, base(*m_server).toUtf8());
        m_home->setEnv(AIConnectionTester::anthropicBaseVariable, base(*m_server).toUtf8());
        m_home->setEnv(AIConnectionTester::googleBaseVariable, base(*m_server).toUtf8());
        answer("/v1/models", 200);
        answer("/openai/models", 401);
        answer("/api/tags", 200);
        AIContextManager ai;

        auto [none, noneDone] = recorder();
        ai.testConnection(config(AIProvider::Anthropic, {}), noneDone);
        QCOMPARE(none->calls, 1);
        QCOMPARE(none->message, QStringLiteral("API key not configured"));

        auto [viaEntry, viaEntryDone] = recorder();
        ai.testConnection(config(AIProvider::OpenAI, QStringLiteral("k")), viaEntryDone);
        auto [openAI, openAIDone] = recorder();
        ai.testOpenAI(config(AIProvider::OpenAI, QStringLiteral("k")), openAIDone);
        auto [anthropic, anthropicDone] = recorder();
        ai.testAnthropic(config(AIProvider::Anthropic, QStringLiteral("k")), anthropicDone);
        auto [google, googleDone] = recorder();
        ai.testGoogle(config(AIProvider::Google, QStringLiteral("k")), googleDone);
        auto [azure, azureDone] = recorder();
        ai.testAzure(config(AIProvider::AzureOpenAI, QStringLiteral("k"), base(*m_server)),
                     azureDone);
        auto [local, localDone] = recorder();
        ai.testLocal(config(AIProvider::Local, {}, base(*m_server)), localDone);

        for (const OutcomePtr& o : {viaEntry, openAI, anthropic, google, azure, local}) {
            QVERIFY(arrived(o));
            QVERIFY(o->onMainThread);
        }
        QCOMPARE(viaEntry->message, QStringLiteral("Connected to OpenAI successfully"));
        QCOMPARE(openAI->message, QStringLiteral("Connected to OpenAI successfully"));
        QCOMPARE(anthropic->message, QStringLiteral("Connected to Anthropic successfully"));
        QCOMPARE(google->message, QStringLiteral("Connected to Google AI successfully"));
        QCOMPARE(azure->message, QStringLiteral("Invalid API key"));
        QCOMPARE(local->message, QStringLiteral("Connected to local AI server successfully"));
        QCOMPARE(m_server->requests().size(), 6);
        // A test leaves the applied configuration alone.
        QVERIFY(!ai.hasCurrentConfig());
        QVERIFY(!ai.isConfigured());
    }
};

QTEST_GUILESS_MAIN(tst_AIConnectionTester)
#include "tst_AIConnectionTester.moc"
