// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/ProfileEditor.h"
#include "support/LocalHttpServer.h"
#include "support/ManagedHome.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

// The profile editor's backend without its sheet: the fields, the provider rules, the
// connection test against a server on 127.0.0.1, the key generation with the real
// ssh-keygen, and saving with its sections, in a temporary home.
class tst_ProfileEditor : public QObject {
    Q_OBJECT

    std::unique_ptr<ManagedHome> m_managed;
    TestHome* m_home = nullptr;
    ProfileManager* m_manager = nullptr;

    std::unique_ptr<ProfileEditor> editorFor(const GitProfile& profile)
    {
        auto editor = std::make_unique<ProfileEditor>(*m_manager, m_managed->aiContext());
        editor->setProfile(profile);
        return editor;
    }

    GitProfile work() const { return m_manager->profiles().first(); }

private slots:
    void init()
    {
        GitProfile profile = GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada"),
                                                QStringLiteral("ada@work.example"),
                                                QStringLiteral("~/.ssh/id_work"));
        profile.aiConfig.isEnabled = true;
        profile.aiConfig.provider = AIProvider::Google;
        profile.aiConfig.model = QStringLiteral("gemini-pro");
        profile.aiConfig.apiKey = QStringLiteral("g-key");
        profile.aiConfig.customHeaders.insert(QStringLiteral("X-Team"), QStringLiteral("core"));
        m_managed = std::make_unique<ManagedHome>(QList<GitProfile>{profile});
        m_home = &m_managed->home();
        m_manager = &m_managed->manager();
    }

    void cleanup() { m_managed.reset(); }

    void copiesTheProfileAsStored()
    {
        const auto editor = editorFor(work());
        QCOMPARE(editor->title(), QStringLiteral("Edit Profile"));
        QCOMPARE(editor->name(), QStringLiteral("Work"));
        QCOMPARE(editor->gitEmail(), QStringLiteral("ada@work.example"));
        QCOMPARE(editor->sshKeyPath(), QStringLiteral("~/.ssh/id_work"));
        QVERIFY(editor->aiEnabled());
        QCOMPARE(editor->provider(), AIProvider::Google);
        // Not the provider's first model: the stored one.
        QCOMPARE(editor->model(), QStringLiteral("gemini-pro"));
        QCOMPARE(editor->apiKey(), QStringLiteral("g-key"));
        QCOMPARE(editor->connectionStatus(), QVariant::fromValue(nullptr));
    }

    void aProfileWithoutANameIsNew()
    {
        QCOMPARE(editorFor(GitProfile::empty())->title(), QStringLiteral("New Profile"));
    }

    void requiredFieldsCountSpaces()
    {
        const auto editor = editorFor(GitProfile::empty());
        QSignalSpy validity(editor.get(), &ProfileEditor::validityChanged);
        QVERIFY(!editor->isValid());
        editor->setName(QStringLiteral(" "));
        editor->setGitName(QStringLiteral(" "));
        QVERIFY(!editor->isValid());
        editor->setGitEmail(QStringLiteral(" "));
        QVERIFY(editor->isValid());
        QCOMPARE(validity.size(), 3);
        QCOMPARE(editor->composedProfile().gitEmail, QStringLiteral(" "));
        QCOMPARE(editor->save(), ProfileEditor::Saved);
        editor->setGitName(QString());
        QCOMPARE(editor->save(), ProfileEditor::Invalid);
    }

    void providerRules_data()
    {
        QTest::addColumn<AIProvider>("provider");
        QTest::addColumn<bool>("showsKey");
        QTest::addColumn<bool>("showsBaseURL");
        QTest::addColumn<QString>("example");
        QTest::addColumn<QString>("firstModel");
        QTest::addColumn<QString>("symbol");
        QTest::newRow("OpenAI") << AIProvider::OpenAI << true << false << QString()
                                << QStringLiteral("gpt-4o") << QStringLiteral("sparkles");
        QTest::newRow("Anthropic")
            << AIProvider::Anthropic << true << false << QString()
            << QStringLiteral("claude-3-5-sonnet") << QStringLiteral("brain.head.profile");
        QTest::newRow("Google") << AIProvider::Google << true << false << QString()
                                << QStringLiteral("gemini-1.5-pro") << QStringLiteral("g.circle");
        QTest::newRow("Azure OpenAI") << AIProvider::AzureOpenAI << true << true << QString()
                                      << QStringLiteral("gpt-4") << QStringLiteral("cloud.fill");
        QTest::newRow("Local") << AIProvider::Local << false << true
                               << QStringLiteral("e.g., http://localhost:11434")
                               << QStringLiteral("llama") << QStringLiteral("desktopcomputer");
    }

    void providerRules()
    {
        QFETCH(AIProvider, provider);
        QFETCH(bool, showsKey);
        QFETCH(bool, showsBaseURL);
        QFETCH(QString, example);
        QFETCH(QString, firstModel);
        QFETCH(QString, symbol);
        const auto editor = editorFor(work());
        editor->setModel(QStringLiteral("typed by hand"));
        editor->setProvider(provider);
        QCOMPARE(editor->providerName(), QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(editor->showsAPIKey(), showsKey);
        QCOMPARE(editor->showsBaseURL(), showsBaseURL);
        QCOMPARE(editor->baseURLExample(), example);
        QCOMPARE(editor->models().value(0), firstModel);
        QCOMPARE(editor->providerSymbol(editor->providerName()), symbol);
        // Another provider starts with its own first model.
        QCOMPARE(editor->model(),
                 provider == AIProvider::Google ? QStringLiteral("typed by hand") : firstModel);
    }

    void pickerOrderIsTheProviderOrder()
    {
        const auto editor = editorFor(work());
        QCOMPARE(editor->providerNames(),
                 QStringList({QStringLiteral("OpenAI"), QStringLiteral("Anthropic"),
                              QStringLiteral("Google"), QStringLiteral("Azure OpenAI"),
                              QStringLiteral("Local")}));
        QCOMPARE(editor->providers().value(4).value<AIProvider>(), AIProvider::Local);
    }

    void switchingProviderClearsTheVerdict()
    {
        const auto editor = editorFor(work());
        editor->setProvider(AIProvider::Anthropic);
        editor->setApiKey(QString());
        editor->testConnection();
        // Decided before the request would go out.
        QCOMPARE(editor->connectionStatus().toString(), QStringLiteral("API key not configured"));
        QVERIFY(!editor->testingConnection());
        QSignalSpy changed(editor.get(), &ProfileEditor::connectionChanged);
        editor->setProvider(AIProvider::Local);
        QCOMPARE(editor->connectionStatus(), QVariant::fromValue(nullptr));
        QVERIFY(!editor->connectionSuccess());
        QVERIFY(!changed.isEmpty());
        QCOMPARE(editor->model(), QStringLiteral("llama"));
    }

    void localServerAnswers()
    {
        LocalHttpServer server;
        server.route("/api/tags", {200, "{}"});
        const auto editor = editorFor(work());
        editor->setProvider(AIProvider::Local);
        editor->setBaseURL(server.url().toString(QUrl::StripTrailingSlash));
        editor->testConnection();
        QVERIFY(editor->testingConnection());
        QTRY_VERIFY_WITH_TIMEOUT(!editor->testingConnection(), 20000);
        QVERIFY(editor->connectionSuccess());
        QCOMPARE(editor->connectionStatus().toString(),
                 QStringLiteral("Connected to local AI server successfully"));
        QCOMPARE(server.requests().size(), 1);
        QCOMPARE(server.requests().first().target, QByteArray("/api/tags"));
    }

    void composedProfileKeepsTheIdAndDropsHeaders()
    {
        const auto editor = editorFor(work());
        editor->setAiEnabled(false);
        editor->setName(QStringLiteral("Renamed"));
        const GitProfile composed = editor->composedProfile();
        QCOMPARE(composed.id, work().id);
        QCOMPARE(composed.name, QStringLiteral("Renamed"));
        QVERIFY(composed.aiConfig.customHeaders.isEmpty());
        // Switched off, the AI fields are kept.
        QVERIFY(!composed.aiConfig.isEnabled);
        QCOMPARE(composed.aiConfig.apiKey, QStringLiteral("g-key"));
    }

    void saveHandsOverThenWritesTheRules()
    {
        const auto editor = editorFor(work());
        QSignalSpy saved(editor.get(), &ProfileEditor::saved);
        connect(editor.get(), &ProfileEditor::saved, m_manager,
                [this](const GitProfile& p) { m_manager->updateProfile(p); });
        QVERIFY(editor->rules()->addRemote(QStringLiteral("git@github.com:acme/**")));
        // Staged: nothing is written before Save.
        QVERIFY(!m_home->exists(QStringLiteral(".kivora/rules.json")));
        editor->setGitEmail(QStringLiteral("ada@acme.example"));
        QCOMPARE(editor->save(), ProfileEditor::Saved);
        QCOMPARE(saved.size(), 1);
        QCOMPARE(work().gitEmail, QStringLiteral("ada@acme.example"));
        const QJsonObject rules =
            QJsonDocument::fromJson(m_home->read(QStringLiteral(".kivora/rules.json"))).object();
        QCOMPARE(rules.value(QStringLiteral("rules")).toArray().size(), 1);
        QVERIFY(editor->saveError().isEmpty());
    }

    void signingThatCannotBeStoredStopsTheSave()
    {
        const auto editor = editorFor(work());
        QSignalSpy saved(editor.get(), &ProfileEditor::saved);
        editor->signing()->setKey(QStringLiteral("~/.ssh/missing.pub"));
        QCOMPARE(editor->save(), ProfileEditor::SigningRefused);
        QCOMPARE(saved.size(), 0);
        QVERIFY(!editor->signing()->error().isEmpty());
    }

    void aProfileFileThatCannotBeWrittenIsSaid()
    {
        const auto editor = editorFor(work());
        // As the profiles page does: the sentence of a failed save goes back to the editor.
        ProfileEditor* target = editor.get();
        connect(target, &ProfileEditor::saved, m_manager, [this, target](const GitProfile& p) {
            QString why;
            const bool stored = m_manager->updateProfile(p, &why) == ProfileManager::Update::Saved;
            target->setSaveError(stored ? QString() : why);
        });
        QVERIFY(QDir(m_home->filePath(QStringLiteral(".git-switcher"))).removeRecursively());
        m_home->write(QStringLiteral(".git-switcher"), "not a folder");
        QCOMPARE(editor->save(), ProfileEditor::NotWritten);
        QVERIFY2(editor->saveError().contains(QStringLiteral("could not be saved")),
                 qPrintable(editor->saveError()));
        // Once the file can be written again, Save goes on from where it stopped.
        QVERIFY(QFile::remove(m_home->filePath(QStringLiteral(".git-switcher"))));
        QVERIFY(QDir().mkpath(m_home->filePath(QStringLiteral(".git-switcher"))));
        QCOMPARE(editor->save(), ProfileEditor::Saved);
        QVERIFY(editor->saveError().isEmpty());
        QVERIFY(m_home->exists(QStringLiteral(".git-switcher/profiles.json")));
    }

    void generatedKeyIsFilledInCopiedAndConfirmed()
    {
        QDir().mkpath(m_home->filePath(QStringLiteral(".ssh")));
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));
        const auto editor = editorFor(work());
        editor->setKeyFilename(QStringLiteral("fresh"));
        editor->setUsePassphrase(true);
        editor->generateSSHKey();
        QCOMPARE(editor->sshKeyPath(), QStringLiteral("~/.ssh/fresh"));
        QVERIFY(m_home->exists(QStringLiteral(".ssh/fresh.pub")));
        // The form is emptied after every attempt.
        QCOMPARE(editor->keyFilename(), QString());
        QVERIFY(!editor->usePassphrase());
        // Half a second later: the public key on the clipboard and the confirmation.
        QVERIFY(!editor->showCopyKeySheet());
        QTRY_VERIFY_WITH_TIMEOUT(editor->showCopyKeySheet(), 10000);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString::fromUtf8(m_home->read(QStringLiteral(".ssh/fresh.pub"))));
    }

    void anExistingKeyIsLeftAlone()
    {
        m_home->write(QStringLiteral(".ssh/taken"), "private\n");
        const auto editor = editorFor(work());
        editor->setKeyFilename(QStringLiteral("taken"));
        editor->generateSSHKey();
        QCOMPARE(editor->sshKeyPath(), QStringLiteral("~/.ssh/id_work"));
        QCOMPARE(m_home->read(QStringLiteral(".ssh/taken")), QByteArray("private\n"));
        QTest::qWait(900);
        QVERIFY(!editor->showCopyKeySheet());
    }
};

QTEST_MAIN(tst_ProfileEditor)
#include "tst_ProfileEditor.moc"
