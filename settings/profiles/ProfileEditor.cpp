// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/ProfileEditor.h"

#include "activation/ProfileManager.h"
#include "activation/SSHKeyGenerator.h"
#include "ai/AIContextManager.h"
#include "app/KivoraApp.h"
#include "model/HomePath.h"
#include "model/Sentence.h"
#include "settings/profiles/ProfileRuleList.h"
#include "settings/profiles/SigningForm.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQmlEngine>

namespace {

// How long after a key is made its public half goes onto the clipboard.
constexpr int copyDelayMs = 500;

} // namespace

ProfileEditor::ProfileEditor(QObject* parent) : QObject(parent), m_rules(new ProfileRuleList(this))
{
    // The rule section collects its changes until save().
    m_rules->setStaged(true);
    m_copyTimer.setSingleShot(true);
    m_copyTimer.setInterval(copyDelayMs);
    connect(&m_copyTimer, &QTimer::timeout, this, [this] {
        if (copyPublicKeyToClipboard(m_pendingPublicKey)) {
            setShowCopyKeySheet(true);
        }
    });
}

ProfileEditor::ProfileEditor(ProfileManager& manager, AIContextManager& aiContext, QObject* parent)
    : ProfileEditor(parent)
{
    attach(manager, aiContext);
}

ProfileEditor::~ProfileEditor() = default;

void ProfileEditor::classBegin()
{
    KivoraApp& app = KivoraApp::from(qmlEngine(this));
    attach(app.profileManager(), app.aiContext());
}

void ProfileEditor::attach(ProfileManager& manager, AIContextManager& aiContext)
{
    m_manager = &manager;
    m_aiContext = &aiContext;
    m_signing = new SigningForm(manager, this);
    m_rules->setManager(&manager);
    loadSections();
}

void ProfileEditor::setProfile(const GitProfile& profile)
{
    m_profile = profile;
    const AIConfig& config = profile.aiConfig;
    // Copied as stored: the stored model stays even when it is not its provider's first.
    m_name = profile.name;
    m_gitName = profile.gitName;
    m_gitEmail = profile.gitEmail;
    m_sshKeyPath = profile.sshKeyPath;
    m_aiEnabled = config.isEnabled;
    m_provider = config.provider;
    m_model = config.model;
    m_apiKey = config.apiKey;
    m_baseURL = config.baseURL;
    m_handedOver = false;
    for (const auto signal : {&ProfileEditor::profileChanged, &ProfileEditor::nameChanged,
                              &ProfileEditor::gitNameChanged, &ProfileEditor::gitEmailChanged,
                              &ProfileEditor::sshKeyPathChanged, &ProfileEditor::validityChanged,
                              &ProfileEditor::aiEnabledChanged, &ProfileEditor::providerChanged,
                              &ProfileEditor::modelChanged, &ProfileEditor::apiKeyChanged,
                              &ProfileEditor::baseURLChanged}) {
        emit(this->*signal)();
    }
    loadSections();
}

void ProfileEditor::loadSections()
{
    if (!m_manager) {
        return;
    }
    const QString id = m_profile.id.isNull() ? QString() : m_profile.idText();
    m_signing->load(id);
    m_rules->setProfileId(id);
}

QString ProfileEditor::title() const
{
    return m_profile.name.isEmpty() ? tr("New Profile") : tr("Edit Profile");
}

void ProfileEditor::setName(const QString& name)
{
    if (change(m_name, name, &ProfileEditor::nameChanged)) {
        emit validityChanged();
    }
}

void ProfileEditor::setGitName(const QString& gitName)
{
    if (change(m_gitName, gitName, &ProfileEditor::gitNameChanged)) {
        emit validityChanged();
    }
}

void ProfileEditor::setGitEmail(const QString& gitEmail)
{
    if (change(m_gitEmail, gitEmail, &ProfileEditor::gitEmailChanged)) {
        emit validityChanged();
    }
}

void ProfileEditor::setSshKeyPath(const QString& path)
{
    change(m_sshKeyPath, path, &ProfileEditor::sshKeyPathChanged);
}

bool ProfileEditor::isValid() const
{
    return !m_name.isEmpty() && !m_gitName.isEmpty() && !m_gitEmail.isEmpty();
}

void ProfileEditor::setAiEnabled(bool enabled)
{
    change(m_aiEnabled, enabled, &ProfileEditor::aiEnabledChanged);
}

void ProfileEditor::setProvider(AIProvider provider)
{
    if (!change(m_provider, provider, &ProfileEditor::providerChanged)) {
        return;
    }
    setModel(AIProviders::models(provider).value(0));
    // A verdict speaks of the provider it tested.
    setConnectionStatus(QVariant::fromValue(nullptr));
}

QString ProfileEditor::providerName() const
{
    return AIProviders::rawValue(m_provider);
}

QVariantList ProfileEditor::providers() const
{
    QVariantList list;
    for (AIProvider provider : AIProviders::all()) {
        list << QVariant::fromValue(provider);
    }
    return list;
}

QStringList ProfileEditor::providerNames() const
{
    QStringList names;
    for (AIProvider provider : AIProviders::all()) {
        names << AIProviders::rawValue(provider);
    }
    return names;
}

QVariantMap ProfileEditor::providerSymbols() const
{
    QVariantMap symbols;
    for (AIProvider provider : AIProviders::all()) {
        symbols.insert(AIProviders::rawValue(provider), AIProviders::symbol(provider));
    }
    return symbols;
}

QString ProfileEditor::providerSymbol(const QString& providerName) const
{
    const auto provider = AIProviders::fromRawValue(providerName);
    return provider ? AIProviders::symbol(*provider) : QString();
}

void ProfileEditor::setModel(const QString& model)
{
    change(m_model, model, &ProfileEditor::modelChanged);
}

QStringList ProfileEditor::models() const
{
    return AIProviders::models(m_provider);
}

void ProfileEditor::setApiKey(const QString& key)
{
    change(m_apiKey, key, &ProfileEditor::apiKeyChanged);
}

void ProfileEditor::setBaseURL(const QString& url)
{
    change(m_baseURL, url, &ProfileEditor::baseURLChanged);
}

bool ProfileEditor::showsAPIKey() const
{
    return AIProviders::facts(m_provider).needsKey;
}

bool ProfileEditor::showsBaseURL() const
{
    return AIProviders::facts(m_provider).showsBaseURL;
}

QString ProfileEditor::baseURLExample() const
{
    const char* example = AIProviders::facts(m_provider).baseURLExample;
    return example ? QCoreApplication::translate("AIProviders", example) : QString();
}

void ProfileEditor::setConnectionStatus(const QVariant& status)
{
    // Anything but a text means "no verdict".
    const bool verdict = status.typeId() == QMetaType::QString;
    m_connectionStatus = verdict ? status : QVariant::fromValue(nullptr);
    if (!verdict) {
        m_connectionSuccess = false;
    }
    emit connectionChanged();
}

void ProfileEditor::testConnection()
{
    m_testingConnection = true;
    setConnectionStatus(QVariant::fromValue(nullptr));
    // A verdict that arrives after the editor closed goes nowhere.
    QPointer<ProfileEditor> self(this);
    const auto deliver = [self](bool success, const QString& message) {
        if (self) {
            self->m_testingConnection = false;
            self->m_connectionSuccess = success;
            self->m_connectionStatus = message;
            emit self->connectionChanged();
        }
    };
    if (!m_aiContext) {
        deliver(false, tr("The connection cannot be tested here."));
        return;
    }
    m_aiContext->testConnection(composedProfile().aiConfig, deliver);
}

void ProfileEditor::setKeyFilename(const QString& name)
{
    change(m_keyFilename, name, &ProfileEditor::generationChanged);
}

void ProfileEditor::setUsePassphrase(bool use)
{
    change(m_usePassphrase, use, &ProfileEditor::generationChanged);
}

void ProfileEditor::setPassphrase(const QString& passphrase)
{
    change(m_passphrase, passphrase, &ProfileEditor::generationChanged);
}

void ProfileEditor::setShowGenerateKeySheet(bool show)
{
    change(m_showGenerateKeySheet, show, &ProfileEditor::showGenerateKeySheetChanged);
}

void ProfileEditor::setShowCopyKeySheet(bool show)
{
    change(m_showCopyKeySheet, show, &ProfileEditor::showCopyKeySheetChanged);
}

QString ProfileEditor::home() const
{
    return m_manager ? m_manager->home() : HomePath::home();
}

bool ProfileEditor::generateSSHKey()
{
    SSHKeyGenerator::Request request;
    request.gitEmail = m_gitEmail;
    request.keyFilename = m_keyFilename;
    request.usePassphrase = m_usePassphrase;
    request.passphrase = m_passphrase;
    const SSHKeyGenerator::Result result = SSHKeyGenerator::generate(request, home());
    if (result.outcome != SSHKeyGenerator::Outcome::Created) {
        m_generationError = Sentence::of(tr("the key could not be generated: ") + result.error);
        emit generationChanged();
        return false;
    }
    setSshKeyPath(result.sshKeyPath);
    m_pendingPublicKey = result.fileName;
    m_copyTimer.start();
    m_keyFilename.clear();
    m_usePassphrase = false;
    m_passphrase.clear();
    m_generationError.clear();
    emit generationChanged();
    return true;
}

bool ProfileEditor::copyPublicKeyToClipboard(const QString& fileName) const
{
    const auto text = SSHKeyGenerator::publicKey(fileName, home());
    if (!text) {
        return false;
    }
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(*text);
    return true;
}

GitProfile ProfileEditor::composedProfile() const
{
    GitProfile composed = m_profile;
    composed.name = m_name;
    composed.gitName = m_gitName;
    composed.gitEmail = m_gitEmail;
    composed.sshKeyPath = m_sshKeyPath;
    AIConfig config;
    config.isEnabled = m_aiEnabled;
    config.provider = m_provider;
    config.model = m_model;
    config.apiKey = m_apiKey;
    config.baseURL = m_baseURL;
    composed.aiConfig = config;
    return composed;
}

ProfileEditor::SaveOutcome ProfileEditor::save()
{
    if (!isValid()) {
        return Invalid;
    }
    const QString id = m_profile.idText();
    if (!m_handedOver) {
        // Signing that cannot be stored keeps the sheet open before anything is saved.
        if (m_signing && !m_signing->save(id)) {
            return SigningRefused;
        }
        // The profile goes first, so that its rules find it in the list. Whoever stores it
        // says here when it could not.
        setSaveError({});
        emit saved(composedProfile());
        if (!m_saveError.isEmpty()) {
            return NotWritten;
        }
        m_handedOver = true;
    }
    return m_rules->commit() ? Saved : RulesRefused;
}

void ProfileEditor::setSaveError(const QString& error)
{
    change(m_saveError, error, &ProfileEditor::saveErrorChanged);
}
