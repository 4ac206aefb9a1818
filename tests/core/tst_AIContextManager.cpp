// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ai/AIContextManager.h"
#include "support/TestHome.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The AI settings of the active profile mirrored into this process's environment.
class tst_AIContextManager : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home; // also saves and restores the variables touched here

    static GitProfile profile(AIProvider provider, const QString& key, const QString& base = {},
                              bool enabled = true)
    {
        GitProfile p = GitProfile::empty();
        p.aiConfig.isEnabled = enabled;
        p.aiConfig.provider = provider;
        p.aiConfig.apiKey = key;
        p.aiConfig.baseURL = base;
        return p;
    }

    static bool isSet(const char* name) { return qEnvironmentVariableIsSet(name); }
    static QString value(const char* name) { return qEnvironmentVariable(name); }

private slots:
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void openAIKey()
    {
        AIContextManager ai;
        QSignalSpy configured(&ai, &AIContextManager::isConfiguredChanged);
        QSignalSpy current(&ai, &AIContextManager::currentConfigChanged);
        const GitProfile p = profile(AIProvider::OpenAI, QStringLiteral("k"));
        ai.applyAIContext(p);
        QCOMPARE(value("OPENAI_API_KEY"), QStringLiteral("k"));
        QVERIFY(isSet("ANTHROPIC_API_KEY"));
        QVERIFY(value("ANTHROPIC_API_KEY").isEmpty());
        QVERIFY(isSet("GOOGLE_AI_API_KEY"));
        QVERIFY(value("GOOGLE_AI_API_KEY").isEmpty());
        QVERIFY(ai.isConfigured());
        QCOMPARE(ai.currentConfig(), std::optional<AIConfig>(p.aiConfig));
        QCOMPARE(configured.count(), 1);
        QCOMPARE(current.count(), 1);
    }

    void eachProviderSetsOnlyItsKey()
    {
        AIContextManager ai;
        ai.applyAIContext(profile(AIProvider::Anthropic, QStringLiteral("a")));
        QCOMPARE(value("ANTHROPIC_API_KEY"), QStringLiteral("a"));
        QCOMPARE(value("OPENAI_API_KEY"), QString());
        ai.applyAIContext(profile(AIProvider::Google, QStringLiteral("g")));
        QCOMPARE(value("GOOGLE_AI_API_KEY"), QStringLiteral("g"));
        QCOMPARE(value("ANTHROPIC_API_KEY"), QString());
    }

    void azureLeavesAllThreeEmpty()
    {
        AIContextManager ai;
        ai.applyAIContext(
            profile(AIProvider::AzureOpenAI, QStringLiteral("z"), QStringLiteral("https://e")));
        QVERIFY(ai.isConfigured());
        for (const char* name : {"OPENAI_API_KEY", "ANTHROPIC_API_KEY", "GOOGLE_AI_API_KEY"}) {
            QVERIFY(isSet(name));
            QVERIFY(value(name).isEmpty());
        }
        QVERIFY(!isSet("AZURE_OPENAI_API_KEY"));
    }

    void localWithoutBaseKeepsOllamaAddress()
    {
        qputenv("OLLAMA_BASE_URL", "http://earlier:1");
        AIContextManager ai;
        ai.applyAIContext(profile(AIProvider::Local, QString()));
        QVERIFY(ai.isConfigured());
        for (const char* name : {"OPENAI_API_KEY", "ANTHROPIC_API_KEY", "GOOGLE_AI_API_KEY"}) {
            QVERIFY(isSet(name));
            QVERIFY(value(name).isEmpty());
        }
        QCOMPARE(value("OLLAMA_BASE_URL"), QStringLiteral("http://earlier:1"));
    }

    void localWithBaseSetsOllamaAddress()
    {
        AIContextManager ai;
        ai.applyAIContext(
            profile(AIProvider::Local, QString(), QStringLiteral("http://gpu:11434")));
        QCOMPARE(value("OLLAMA_BASE_URL"), QStringLiteral("http://gpu:11434"));
    }

    void enabledWithoutKeyClears_data()
    {
        QTest::addColumn<int>("provider");
        QTest::newRow("openai") << int(AIProvider::OpenAI);
        QTest::newRow("anthropic") << int(AIProvider::Anthropic);
        QTest::newRow("google") << int(AIProvider::Google);
        QTest::newRow("azure") << int(AIProvider::AzureOpenAI);
    }

    void enabledWithoutKeyClears()
    {
        QFETCH(int, provider);
        AIContextManager ai;
        ai.applyAIContext(profile(AIProvider::Local, QString(), QStringLiteral("http://x")));
        QVERIFY(ai.hasCurrentConfig());
        ai.applyAIContext(profile(AIProvider(provider), QString()));
        QVERIFY(!ai.hasCurrentConfig());
        QVERIFY(!ai.isConfigured());
        for (const char* name :
             {"OPENAI_API_KEY", "ANTHROPIC_API_KEY", "GOOGLE_AI_API_KEY", "OLLAMA_BASE_URL"}) {
            QVERIFY2(!isSet(name), name);
        }
    }

    void disabledClearsWhateverItsKey()
    {
        AIContextManager ai;
        ai.applyAIContext(profile(AIProvider::OpenAI, QStringLiteral("k")));
        ai.applyAIContext(profile(AIProvider::OpenAI, QStringLiteral("k"), QString(), false));
        QVERIFY(!ai.isConfigured());
        QVERIFY(!ai.hasCurrentConfig());
        QVERIFY(!isSet("OPENAI_API_KEY"));
    }

    void clearOnFreshInstanceRemovesInheritedVariables()
    {
        for (const char* name :
             {"OPENAI_API_KEY", "ANTHROPIC_API_KEY", "GOOGLE_AI_API_KEY", "OLLAMA_BASE_URL"}) {
            qputenv(name, "from parent");
        }
        AIContextManager ai;
        ai.clearAIContext();
        for (const char* name :
             {"OPENAI_API_KEY", "ANTHROPIC_API_KEY", "GOOGLE_AI_API_KEY", "OLLAMA_BASE_URL"}) {
            QVERIFY2(!isSet(name), name);
        }
    }

    void childProcessesInheritTheKey()
    {
        AIContextManager ai;
        ai.applyAIContext(profile(AIProvider::OpenAI, QStringLiteral("child-sees-this")));
        QProcess bash;
        bash.start(QStringLiteral("/bin/bash"),
                   {QStringLiteral("-c"), QStringLiteral("printf %s \"$OPENAI_API_KEY\"")});
        bash.waitForFinished(-1);
        QCOMPARE(bash.readAllStandardOutput(), QByteArray("child-sees-this"));
    }
};

QTEST_GUILESS_MAIN(tst_AIContextManager)
#include "tst_AIContextManager.moc"
