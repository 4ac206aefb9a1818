// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"
#include "settings/profiles/ProfileRuleList.h"
#include "settings/profiles/SigningForm.h"

#include <QObject>
#include <QPointer>
#include <QQmlParserStatus>
#include <QStringList>
#include <QTimer>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

class AIContextManager;
class ProfileManager;

// The profile editor's state and rules: the fields of one profile, whether they can be saved,
// the provider rules of the AI section (its models, which fields it shows), the connection
// test, the key generation with the copy of its public key, and the commit-signing and rule
// sections. The sheet only lays these out and binds to them.
//
// It hands the finished profile on through `saved` and never adds it to the list itself; the
// signing and rule sections are written by save() around that hand-over.
//
// Made in QML, it takes the application's profile manager and AI context from the engine; a
// C++ owner passes them in.
class ProfileEditor : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(GitProfile profile READ profile WRITE setProfile NOTIFY profileChanged)
    Q_PROPERTY(QString title READ title NOTIFY profileChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString gitName READ gitName WRITE setGitName NOTIFY gitNameChanged)
    Q_PROPERTY(QString gitEmail READ gitEmail WRITE setGitEmail NOTIFY gitEmailChanged)
    Q_PROPERTY(QString sshKeyPath READ sshKeyPath WRITE setSshKeyPath NOTIFY sshKeyPathChanged)
    Q_PROPERTY(bool isValid READ isValid NOTIFY validityChanged)
    // The AI section.
    Q_PROPERTY(bool aiEnabled READ aiEnabled WRITE setAiEnabled NOTIFY aiEnabledChanged)
    Q_PROPERTY(AIProvider provider READ provider WRITE setProvider NOTIFY providerChanged)
    Q_PROPERTY(QString providerName READ providerName NOTIFY providerChanged)
    Q_PROPERTY(QVariantList providers READ providers CONSTANT)
    Q_PROPERTY(QStringList providerNames READ providerNames CONSTANT)
    // Each provider's name with the symbol shown beside it.
    Q_PROPERTY(QVariantMap providerSymbols READ providerSymbols CONSTANT)
    Q_PROPERTY(QString model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(QStringList models READ models NOTIFY providerChanged)
    Q_PROPERTY(QString apiKey READ apiKey WRITE setApiKey NOTIFY apiKeyChanged)
    Q_PROPERTY(QString baseURL READ baseURL WRITE setBaseURL NOTIFY baseURLChanged)
    Q_PROPERTY(bool showsAPIKey READ showsAPIKey NOTIFY providerChanged)
    Q_PROPERTY(bool showsBaseURL READ showsBaseURL NOTIFY providerChanged)
    Q_PROPERTY(QString baseURLExample READ baseURLExample NOTIFY providerChanged)
    Q_PROPERTY(bool testingConnection READ testingConnection NOTIFY connectionChanged)
    // The message of the last connection test; null before the first and while one runs.
    Q_PROPERTY(QVariant connectionStatus READ connectionStatus WRITE setConnectionStatus NOTIFY
                   connectionChanged)
    Q_PROPERTY(bool connectionSuccess READ connectionSuccess NOTIFY connectionChanged)
    // The key generation form and the sheets over the editor.
    Q_PROPERTY(QString keyFilename READ keyFilename WRITE setKeyFilename NOTIFY generationChanged)
    Q_PROPERTY(
        bool usePassphrase READ usePassphrase WRITE setUsePassphrase NOTIFY generationChanged)
    Q_PROPERTY(QString passphrase READ passphrase WRITE setPassphrase NOTIFY generationChanged)
    Q_PROPERTY(bool showGenerateKeySheet READ showGenerateKeySheet WRITE setShowGenerateKeySheet
                   NOTIFY showGenerateKeySheetChanged)
    Q_PROPERTY(bool showCopyKeySheet READ showCopyKeySheet WRITE setShowCopyKeySheet NOTIFY
                   showCopyKeySheetChanged)
    // Why the last key generation made no key, as one sentence; empty after one that worked.
    Q_PROPERTY(QString generationError READ generationError NOTIFY generationChanged)
    // The sections that keep their own files. The signing form is there once the editor has
    // its profile manager.
    Q_PROPERTY(SigningForm* signing READ signing CONSTANT)
    Q_PROPERTY(ProfileRuleList* rules READ rules CONSTANT)
    // Why the profile handed to `saved` could not be stored, as one sentence: whoever handles
    // `saved` sets it (empty when the profile was stored), and save() stops there.
    Q_PROPERTY(QString saveError READ saveError WRITE setSaveError NOTIFY saveErrorChanged)

public:
    enum SaveOutcome {
        Saved,
        Invalid,        // a required field is empty
        SigningRefused, // the signing section says why under its fields
        NotWritten,     // the profile was not stored: `saveError` says why
        RulesRefused,   // the rule section says why under its fields
    };
    Q_ENUM(SaveOutcome)

    explicit ProfileEditor(QObject* parent = nullptr);
    ProfileEditor(ProfileManager& manager, AIContextManager& aiContext, QObject* parent = nullptr);
    ~ProfileEditor() override;

    void classBegin() override;
    void componentComplete() override {}

    // The profile edited, or the shared empty template for a new one. Setting it copies its
    // fields into the form.
    GitProfile profile() const { return m_profile; }
    void setProfile(const GitProfile& profile);
    QString title() const;

    QString name() const { return m_name; }
    void setName(const QString& name);
    QString gitName() const { return m_gitName; }
    void setGitName(const QString& gitName);
    QString gitEmail() const { return m_gitEmail; }
    void setGitEmail(const QString& gitEmail);
    QString sshKeyPath() const { return m_sshKeyPath; }
    void setSshKeyPath(const QString& path);
    // The three required fields hold something; nothing is trimmed, so a space counts.
    bool isValid() const;

    bool aiEnabled() const { return m_aiEnabled; }
    void setAiEnabled(bool enabled);
    AIProvider provider() const { return m_provider; }
    // Another provider starts with its first model, and a verdict about the old one goes.
    void setProvider(AIProvider provider);
    QString providerName() const;
    QVariantList providers() const;
    QStringList providerNames() const;
    QVariantMap providerSymbols() const;
    Q_INVOKABLE QString providerSymbol(const QString& providerName) const;
    QString model() const { return m_model; }
    void setModel(const QString& model);
    QStringList models() const;
    QString apiKey() const { return m_apiKey; }
    void setApiKey(const QString& key);
    QString baseURL() const { return m_baseURL; }
    void setBaseURL(const QString& url);
    bool showsAPIKey() const;
    bool showsBaseURL() const;
    QString baseURLExample() const;

    bool testingConnection() const { return m_testingConnection; }
    QVariant connectionStatus() const { return m_connectionStatus; }
    void setConnectionStatus(const QVariant& status);
    bool connectionSuccess() const { return m_connectionSuccess; }
    // Tests the AI fields as they stand against the provider. A configuration that cannot
    // work is answered before this returns; any other verdict arrives later.
    Q_INVOKABLE void testConnection();

    QString keyFilename() const { return m_keyFilename; }
    void setKeyFilename(const QString& name);
    bool usePassphrase() const { return m_usePassphrase; }
    void setUsePassphrase(bool use);
    QString passphrase() const { return m_passphrase; }
    void setPassphrase(const QString& passphrase);
    bool showGenerateKeySheet() const { return m_showGenerateKeySheet; }
    void setShowGenerateKeySheet(bool show);
    bool showCopyKeySheet() const { return m_showCopyKeySheet; }
    void setShowCopyKeySheet(bool show);
    QString generationError() const { return m_generationError; }
    // Runs ssh-keygen for the form's values (the interface waits for it). A new key's path
    // goes into the form, the form is emptied, and half a second later the public key goes
    // onto the clipboard and the confirmation on screen. A run that makes no key keeps what
    // was typed, to be corrected, and `generationError` says why. True when a key was made.
    Q_INVOKABLE bool generateSSHKey();
    // Puts ~/.ssh/<file name>.pub, exactly as stored, on the clipboard. False, and the
    // clipboard untouched, when the file cannot be read.
    Q_INVOKABLE bool copyPublicKeyToClipboard(const QString& fileName) const;

    SigningForm* signing() const { return m_signing; }
    ProfileRuleList* rules() const { return m_rules; }

    // The profile as the fields make it: the edited one (its id kept) with the texts as typed
    // and a new AI configuration, stored even when switched off, without custom headers.
    Q_INVOKABLE GitProfile composedProfile() const;

    // Writes the signing section, hands the profile on (`saved`), then writes the rules. A
    // step that fails stops there; calling save() again goes on from it.
    Q_INVOKABLE SaveOutcome save();
    QString saveError() const { return m_saveError; }
    void setSaveError(const QString& error);

signals:
    void saved(const GitProfile& profile);
    void profileChanged();
    void nameChanged();
    void gitNameChanged();
    void gitEmailChanged();
    void sshKeyPathChanged();
    void validityChanged();
    void aiEnabledChanged();
    void providerChanged();
    void modelChanged();
    void apiKeyChanged();
    void baseURLChanged();
    void connectionChanged();
    void generationChanged();
    void showGenerateKeySheetChanged();
    void showCopyKeySheetChanged();
    void saveErrorChanged();

private:
    // Sets a member and announces it; false when it held the value already.
    template <typename T> bool change(T& member, const T& value, void (ProfileEditor::*changed)())
    {
        if (member == value) {
            return false;
        }
        member = value;
        emit(this->*changed)();
        return true;
    }

    void attach(ProfileManager& manager, AIContextManager& aiContext);
    void loadSections();
    QString home() const;

    QPointer<ProfileManager> m_manager;
    QPointer<AIContextManager> m_aiContext;
    SigningForm* m_signing = nullptr; // made with the profile manager
    ProfileRuleList* m_rules;

    GitProfile m_profile;
    QString m_name;
    QString m_gitName;
    QString m_gitEmail;
    QString m_sshKeyPath;
    bool m_aiEnabled = false;
    AIProvider m_provider = AIProvider::OpenAI;
    QString m_model = QStringLiteral("gpt-4o");
    QString m_apiKey;
    QString m_baseURL;
    bool m_testingConnection = false;
    QVariant m_connectionStatus = QVariant::fromValue(nullptr);
    bool m_connectionSuccess = false;

    QString m_keyFilename;
    bool m_usePassphrase = false;
    QString m_passphrase;
    bool m_showGenerateKeySheet = false;
    bool m_showCopyKeySheet = false;
    QString m_pendingPublicKey;
    QString m_generationError;
    QTimer m_copyTimer;

    bool m_handedOver = false;
    QString m_saveError;
};
