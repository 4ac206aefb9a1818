// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

// The JSON form of profiles: key order, strict reading, equality of the value types.
class tst_ProfileCodec : public QObject {
    Q_OBJECT

private:
    static QByteArray validProfileJson()
    {
        return QByteArrayLiteral(
            R"({"id":"9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B","name":"Work","gitName":"Ada",)"
            R"("gitEmail":"ada@example.com","sshKeyPath":"~/.ssh/id_work","aiConfig":)"
            R"({"isEnabled":true,"provider":"Anthropic","model":"claude","apiKey":"k",)"
            R"("baseURL":"","customHeaders":{"X-A":"1"}}})");
    }

    static std::optional<QList<GitProfile>> decodeOne(const QByteArray& profile)
    {
        return ProfileCodec::decodeProfileArray("[" + profile + "]");
    }

private slots:
    void configuredRule()
    {
        AIConfig local;
        local.provider = AIProvider::Local;
        QVERIFY(local.isConfigured());

        AIConfig openAI;
        QCOMPARE(openAI.provider, AIProvider::OpenAI);
        QVERIFY(!openAI.isConfigured());

        for (AIProvider provider : AIProviders::all()) {
            AIConfig keyed;
            keyed.provider = provider;
            keyed.apiKey = QStringLiteral("k");
            keyed.isEnabled = false;
            QVERIFY(keyed.isConfigured());
        }
    }

    void emptyDefaults()
    {
        const AIConfig config = AIConfig::empty();
        QCOMPARE(config.isEnabled, false);
        QCOMPARE(config.provider, AIProvider::OpenAI);
        QCOMPARE(config.model, QStringLiteral("gpt-4o"));
        QVERIFY(config.apiKey.isEmpty());
        QVERIFY(config.baseURL.isEmpty());
        QVERIFY(config.customHeaders.isEmpty());

        const GitProfile a = GitProfile::empty();
        const GitProfile b = GitProfile::empty();
        QVERIFY(!a.id.isNull());
        QVERIFY(a.id != b.id);
        QCOMPARE(a.aiConfig, AIConfig::empty());
    }

    void providerRawValues()
    {
        const QStringList expected{QStringLiteral("OpenAI"), QStringLiteral("Anthropic"),
                                   QStringLiteral("Google"), QStringLiteral("Azure OpenAI"),
                                   QStringLiteral("Local")};
        QStringList raw;
        for (AIProvider provider : AIProviders::all()) {
            raw << AIProviders::rawValue(provider);
            QCOMPARE(AIProviders::fromRawValue(AIProviders::rawValue(provider)), provider);
        }
        QCOMPARE(raw, expected);
        QVERIFY(!AIProviders::fromRawValue(QStringLiteral("openai")));
        QVERIFY(!AIProviders::fromRawValue(QStringLiteral("Azure")));
    }

    void headersTakePartInEquality()
    {
        GitProfile a = GitProfile::create(QStringLiteral("A"), QStringLiteral("n"),
                                          QStringLiteral("e"), QString());
        GitProfile b = a;
        QCOMPARE(a, b);
        b.aiConfig.customHeaders.insert(QStringLiteral("X-Team"), QStringLiteral("1"));
        QVERIFY(!(a == b));
    }

    void writesKeysInOrderAndUpperCaseIds()
    {
        GitProfile profile =
            GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada"),
                               QStringLiteral("ada@example.com"), QStringLiteral("~/.ssh/id_work"));
        profile.id = QUuid(QStringLiteral("{9f3c1a2b-4d5e-4f60-8a7b-1c2d3e4f5a6b}"));
        const QByteArray stored = ProfileCodec::encodeStore({{profile}, profile.id});
        const QByteArray expected =
            R"({"profiles":[{"id":"9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B","name":"Work",)"
            R"("gitName":"Ada","gitEmail":"ada@example.com","sshKeyPath":"~/.ssh/id_work",)"
            R"("aiConfig":{"isEnabled":false,"provider":"OpenAI","model":"gpt-4o","apiKey":"",)"
            R"("baseURL":"","customHeaders":{}}}],)"
            R"("activeProfileID":"9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B"})";
        QCOMPARE(stored, expected);
    }

    void noActiveProfileWritesOnlyProfiles()
    {
        const QByteArray stored = ProfileCodec::encodeStore({{GitProfile::empty()}, std::nullopt});
        const QJsonObject object = QJsonDocument::fromJson(stored).object();
        QCOMPARE(object.keys(), QStringList{QStringLiteral("profiles")});
        QCOMPARE(ProfileCodec::encodeStore({}), QByteArrayLiteral(R"({"profiles":[]})"));
    }

    void roundTripsEveryField()
    {
        GitProfile profile = GitProfile::create(
            QStringLiteral("Zoë \"Q\" 'x' $HOME\nline"), QStringLiteral("Ünïcødé 名前"),
            QStringLiteral("a+b@example.org"), QStringLiteral("/abs/path with space"));
        profile.aiConfig.isEnabled = true;
        profile.aiConfig.provider = AIProvider::AzureOpenAI;
        profile.aiConfig.model = QStringLiteral("gpt-4");
        profile.aiConfig.apiKey = QStringLiteral("ab'cd");
        profile.aiConfig.baseURL = QStringLiteral("https://r.openai.azure.com");
        profile.aiConfig.customHeaders = {{QStringLiteral("b"), QStringLiteral("2")},
                                          {QStringLiteral("a"), QStringLiteral("1")}};
        const StoredData data{{profile, GitProfile::empty()}, profile.id};
        QCOMPARE(ProfileCodec::decodeStore(ProfileCodec::encodeStore(data)), data);
        QCOMPARE(ProfileCodec::decodeProfileArray(ProfileCodec::encodeProfileArray(data.profiles)),
                 data.profiles);
    }

    void exportIsPrettyPrinted()
    {
        const QByteArray text = ProfileCodec::encodeProfileArray({GitProfile::empty()});
        QVERIFY(text.startsWith("[\n  {\n    \"id\": "));
        QVERIFY(text.contains("\n    \"aiConfig\": {\n      \"isEnabled\": false,"));
    }

    void readsAValidProfile()
    {
        const auto profiles = decodeOne(validProfileJson());
        QVERIFY(profiles);
        QCOMPARE(profiles->size(), 1);
        const GitProfile& p = profiles->first();
        QCOMPARE(p.idText(), QStringLiteral("9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B"));
        QCOMPARE(p.aiConfig.provider, AIProvider::Anthropic);
        QCOMPARE(p.aiConfig.customHeaders.value(QStringLiteral("X-A")), QStringLiteral("1"));
    }

    void lowerCaseIdsAndExtraKeysAreAccepted()
    {
        QByteArray json = validProfileJson();
        json.replace("9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B",
                     "9f3c1a2b-4d5e-4f60-8a7b-1c2d3e4f5a6b");
        json.replace("\"name\":", "\"color\":\"red\",\"name\":");
        const auto profiles = decodeOne(json);
        QVERIFY(profiles);
        QCOMPARE(profiles->first().idText(),
                 QStringLiteral("9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B"));
    }

    void missingKeyFails_data()
    {
        QTest::addColumn<QByteArray>("key");
        for (const char* key :
             {"id", "name", "gitName", "gitEmail", "sshKeyPath", "aiConfig", "isEnabled",
              "provider", "model", "apiKey", "baseURL", "customHeaders"}) {
            QTest::newRow(key) << QByteArray(key);
        }
    }

    void missingKeyFails()
    {
        QFETCH(QByteArray, key);
        // Parse, drop the key wherever it is, and write back.
        QJsonObject profile = QJsonDocument::fromJson(validProfileJson()).object();
        QJsonObject ai = profile.value(QStringLiteral("aiConfig")).toObject();
        const QString name = QString::fromLatin1(key);
        if (profile.contains(name)) {
            profile.remove(name);
        } else {
            QVERIFY(ai.contains(name));
            ai.remove(name);
            profile.insert(QStringLiteral("aiConfig"), ai);
        }
        QString error;
        QVERIFY(!ProfileCodec::decodeProfileArray(
            "[" + QJsonDocument(profile).toJson(QJsonDocument::Compact) + "]", &error));
        QVERIFY2(error.contains(name), qPrintable(error));
    }

    void wrongTypeFails_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        QTest::newRow("id number") << QByteArray(R"("id":"9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B")")
                                   << QByteArray(R"("id":7)");
        QTest::newRow("id not a uuid")
            << QByteArray(R"("id":"9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B")")
            << QByteArray(R"("id":"{9F3C1A2B-4D5E-4F60-8A7B-1C2D3E4F5A6B}")");
        QTest::newRow("name null")
            << QByteArray(R"("name":"Work")") << QByteArray(R"("name":null)");
        QTest::newRow("gitName number")
            << QByteArray(R"("gitName":"Ada")") << QByteArray(R"("gitName":1)");
        QTest::newRow("gitEmail array")
            << QByteArray(R"("gitEmail":"ada@example.com")") << QByteArray(R"("gitEmail":[])");
        QTest::newRow("sshKeyPath bool") << QByteArray(R"("sshKeyPath":"~/.ssh/id_work")")
                                         << QByteArray(R"("sshKeyPath":false)");
        QTest::newRow("aiConfig string")
            << QByteArray(R"("aiConfig":{)") << QByteArray(R"("aiConfig":"x","old":{)");
        QTest::newRow("isEnabled string")
            << QByteArray(R"("isEnabled":true)") << QByteArray(R"("isEnabled":"true")");
        QTest::newRow("provider wrong case")
            << QByteArray(R"("provider":"Anthropic")") << QByteArray(R"("provider":"openai")");
        QTest::newRow("provider number")
            << QByteArray(R"("provider":"Anthropic")") << QByteArray(R"("provider":0)");
        QTest::newRow("model null")
            << QByteArray(R"("model":"claude")") << QByteArray(R"("model":null)");
        QTest::newRow("apiKey number")
            << QByteArray(R"("apiKey":"k")") << QByteArray(R"("apiKey":1)");
        QTest::newRow("baseURL object")
            << QByteArray(R"("baseURL":"")") << QByteArray(R"("baseURL":{})");
        QTest::newRow("customHeaders array") << QByteArray(R"("customHeaders":{"X-A":"1"})")
                                             << QByteArray(R"("customHeaders":["X-A"])");
        QTest::newRow("header value number") << QByteArray(R"("customHeaders":{"X-A":"1"})")
                                             << QByteArray(R"("customHeaders":{"X-A":1})");
    }

    void wrongTypeFails()
    {
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QByteArray json = validProfileJson();
        QVERIFY(json.contains(from));
        json.replace(from, to);
        QVERIFY(!decodeOne(json));
    }

    void oneBadProfileRejectsTheWholeFile()
    {
        const QByteArray good = validProfileJson();
        QByteArray bad = good;
        bad.replace("\"provider\":\"Anthropic\"", "\"provider\":\"openai\"");
        QVERIFY(!ProfileCodec::decodeStore("{\"profiles\":[" + good + "," + bad + "]}"));
        QVERIFY(ProfileCodec::decodeStore("{\"profiles\":[" + good + "," + good + "]}"));
    }

    void storeShapes()
    {
        QVERIFY(!ProfileCodec::decodeStore("[]"));
        QVERIFY(!ProfileCodec::decodeStore("{}"));
        QVERIFY(!ProfileCodec::decodeStore("{\"profiles\":{}}"));
        QVERIFY(!ProfileCodec::decodeStore("not json"));
        QVERIFY(!ProfileCodec::decodeStore("{\"profiles\":[],\"activeProfileID\":5}"));
        QVERIFY(!ProfileCodec::decodeStore("{\"profiles\":[],\"activeProfileID\":\"nope\"}"));

        const auto empty = ProfileCodec::decodeStore("{\"profiles\":[]}");
        QVERIFY(empty);
        QVERIFY(empty->profiles.isEmpty());
        QVERIFY(!empty->activeProfileID);
    }

    void activeIdNamingNoProfileIsKept()
    {
        const auto data = ProfileCodec::decodeStore(
            "{\"profiles\":[" + validProfileJson() +
            "],\"activeProfileID\":\"00000000-1111-2222-3333-444444444444\"}");
        QVERIFY(data);
        QVERIFY(data->activeProfileID);
        QCOMPARE(ProfileCodec::uuidText(*data->activeProfileID),
                 QStringLiteral("00000000-1111-2222-3333-444444444444"));
    }

    void theStoreFileIsNotAProfileArray()
    {
        const QByteArray store = ProfileCodec::encodeStore({{GitProfile::empty()}, std::nullopt});
        QString error;
        QVERIFY(!ProfileCodec::decodeProfileArray(store, &error));
        QVERIFY(!error.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_ProfileCodec)
#include "tst_ProfileCodec.moc"
