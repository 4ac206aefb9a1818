// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"

#include "activation/RuleSync.h"
#include "activation/SSHKeyScanner.h"
#include "activation/TerminalLauncher.h"
#include "ai/AIContextManager.h"
#include "model/HomePath.h"

#include <QFileInfo>

namespace {

QString resolvedHome(const QString& home)
{
    return home.isEmpty() ? HomePath::home() : home;
}

} // namespace

ProfileManager::ProfileManager(AIContextManager& aiContext, QObject* parent)
    : ProfileManager(aiContext, Options{}, parent)
{
}

ProfileManager::ProfileManager(AIContextManager& aiContext, Options options, QObject* parent)
    : QObject(parent), m_home(resolvedHome(options.home)), m_runner(options.programs),
      m_shell(m_home, m_runner), m_store(m_home), m_signingStore(m_home),
      m_signing(m_home, options.programs), m_aiContext(aiContext),
      m_restoreAIContext(options.restoreAIContext), m_readGlobalIdentity(options.readGlobalIdentity)
{
    start();
}

void ProfileManager::start()
{
    m_store.removeLeftovers();
    m_shell.tidy();
    if (auto stored = m_store.load(&m_loadError)) {
        m_profiles = std::move(stored->profiles);
        m_activeProfileID = stored->activeProfileID;
        m_loadError.clear();
    } else {
        m_startedFresh = true;
        m_preservedFilePath = m_store.preserveUnreadable();
        setupOnFreshInstall();
    }
    if (m_readGlobalIdentity || m_startedFresh) {
        refreshGlobalConfig();
    }
    if (m_restoreAIContext) {
        restoreAIContext();
    }
}

void ProfileManager::restoreAIContext()
{
    const auto profile = activeProfile();
    if (!profile) {
        return;
    }
    if (profile->aiConfig.isEnabled && profile->aiConfig.isConfigured()) {
        m_shell.ensureAIEnvFile(*profile);
        m_aiContext.applyAIContext(*profile);
    }
}

void ProfileManager::setupOnFreshInstall()
{
    refreshGlobalConfig();
    const bool hasGlobal = !m_globalGitName.isEmpty() && !m_globalGitEmail.isEmpty();
    const QString gitName = hasGlobal ? m_globalGitName : QString();
    const QString gitEmail = hasGlobal ? m_globalGitEmail : QString();
    const QStringList keys = SSHKeyScanner::scan(m_home);

    const auto profileForKey = [&](const QString& key) {
        return GitProfile::create(displayName(key), gitName, gitEmail,
                                  QStringLiteral("~/.ssh/") + key);
    };

    if (keys.size() <= 1) {
        const GitProfile profile = keys.isEmpty() ? GitProfile::create(QStringLiteral("Default"),
                                                                       gitName, gitEmail, QString())
                                                  : profileForKey(keys.first());
        setProfiles({profile});
        setActiveProfileID(profile.id);
        if (hasGlobal) {
            applyGlobally(profile);
        } else if (keys.isEmpty()) {
            setNeedsProfileSetup(true);
        }
        // One key and no global identity: a profile with empty git fields, yet no prompt.
    } else {
        QList<GitProfile> profiles;
        for (const QString& key : keys) {
            profiles.append(profileForKey(key));
        }
        setProfiles(profiles);
        setActiveProfileID(m_profiles.first().id);
        setNeedsProfileSetup(true);
    }
    save();
}

void ProfileManager::setProfiles(const QList<GitProfile>& profiles)
{
    if (m_profiles == profiles) {
        return;
    }
    m_profiles = profiles;
    emit profilesReset();
    listChanged();
}

void ProfileManager::listChanged()
{
    emit profilesChanged();
}

int ProfileManager::indexOf(const QUuid& id) const
{
    for (int row = 0; row < m_profiles.size(); ++row) {
        if (m_profiles.at(row).id == id) {
            return row;
        }
    }
    return -1;
}

void ProfileManager::setActiveProfileID(const std::optional<QUuid>& id)
{
    if (m_activeProfileID == id) {
        return;
    }
    m_activeProfileID = id;
    emit activeProfileIDChanged();
}

QString ProfileManager::activeProfileIDText() const
{
    return m_activeProfileID ? ProfileCodec::uuidText(*m_activeProfileID) : QString();
}

std::optional<GitProfile> ProfileManager::activeProfile() const
{
    if (!m_activeProfileID) {
        return std::nullopt;
    }
    for (const GitProfile& profile : m_profiles) {
        if (profile.id == *m_activeProfileID) {
            return profile;
        }
    }
    return std::nullopt;
}

void ProfileManager::setNeedsProfileSetup(bool needed)
{
    if (m_needsProfileSetup == needed) {
        return;
    }
    m_needsProfileSetup = needed;
    emit needsProfileSetupChanged();
}

void ProfileManager::setGlobalGitName(const QString& name)
{
    if (m_globalGitName == name) {
        return;
    }
    m_globalGitName = name;
    emit globalGitNameChanged();
}

void ProfileManager::setGlobalGitEmail(const QString& email)
{
    if (m_globalGitEmail == email) {
        return;
    }
    m_globalGitEmail = email;
    emit globalGitEmailChanged();
}

bool ProfileManager::save()
{
    const bool saved = m_store.save(StoredData{m_profiles, m_activeProfileID});
    syncAllowedSigners();
    const QString error =
        saved ? QString()
              : QStringLiteral("The profiles could not be saved: %1 could not be written.")
                    .arg(m_store.path());
    if (error != m_saveError) {
        m_saveError = error;
        emit saveErrorChanged();
    }
    return saved;
}

void ProfileManager::syncAllowedSigners() const
{
    // A profile's e-mail or its presence decides its line among the allowed signers.
    const auto signing = m_signingStore.load();
    if (!signing.isEmpty() || QFileInfo::exists(m_signing.allowedSignersPath())) {
        m_signing.refreshAllowedSigners(m_profiles, signing);
        // Pointing git at the allowed signers may append a section after the rules' include.
        RuleSync(m_home).keepIncludeLast();
    }
}

void ProfileManager::refreshGlobalConfig()
{
    // Both reads run at once: each is a shell and a git start, and they do not depend on
    // each other.
    const auto values = m_runner.shellAll({QStringLiteral("git config --global user.name"),
                                           QStringLiteral("git config --global user.email")});
    setGlobalGitName(values.value(0).value_or(QString()));
    setGlobalGitEmail(values.value(1).value_or(QString()));
}

void ProfileManager::applyGlobally(const GitProfile& profile)
{
    const QString git = QStringLiteral("git");
    const QString config = QStringLiteral("config");
    const QString global = QStringLiteral("--global");
    m_runner.run({git, config, global, QStringLiteral("user.name"), profile.gitName});
    m_runner.run({git, config, global, QStringLiteral("user.email"), profile.gitEmail});
    if (!profile.sshKeyPath.isEmpty()) {
        const QString key = HomePath::expandTilde(profile.sshKeyPath);
        m_shell.ensureSSHWrapper();
        // git runs the value through a shell: ordinary paths stand as they are, and a path
        // with a blank or any character a shell acts on is quoted so it stays one path.
        m_runner.run({git, config, global, QStringLiteral("core.sshCommand"),
                      ShellIntegration::sshCommand(m_shell.wrapperPath(), key)});
    }
    // Without a key the previous core.sshCommand stays in force.
    const auto signing = m_signingStore.load();
    const auto own = signing.constFind(profile.id);
    m_signing.apply(own == signing.constEnd() ? std::nullopt
                                              : std::optional<SigningSettings>(*own));
    m_signing.writeAllowedSigners(m_profiles, signing);
    // git appends a [user] section it had to create after the rules' include; move that back.
    RuleSync(m_home).keepIncludeLast();
    m_shell.ensureAIEnvFile(profile);
    m_aiContext.applyAIContext(profile);
    setActiveProfileID(profile.id);
    save();
    refreshGlobalConfig();
}

GitProfile ProfileManager::addProfile(const QString& name, const QString& gitName,
                                      const QString& gitEmail, const QString& sshKeyPath)
{
    const GitProfile profile = GitProfile::create(displayName(name), gitName, gitEmail, sshKeyPath);
    appendProfile(profile);
    return profile;
}

void ProfileManager::appendProfile(const GitProfile& profile)
{
    m_profiles.append(profile);
    emit profileInserted(int(m_profiles.size()) - 1);
    listChanged();
    save();
}

bool ProfileManager::updateProfile(const GitProfile& profile)
{
    const int row = indexOf(profile.id);
    if (row < 0) {
        return false;
    }
    if (m_profiles.at(row) != profile) {
        m_profiles[row] = profile;
        emit profileUpdated(row);
        listChanged();
    }
    save();
    // Repositories its rules reach take the edited identity at once.
    RuleSync(m_home).refresh(m_profiles);
    return true;
}

ProfileManager::Removal ProfileManager::removeProfile(const GitProfile& profile, bool deleteSSHKey,
                                                      bool forgetActive)
{
    Removal removal;
    if (deleteSSHKey && profile.hasKey()) {
        const auto outcome = KeyFileRemoval::removeKeyPair(m_home, profile.sshKeyPath);
        removal.removedKeyFiles = outcome.removed;
        removal.refusedKeyFiles = outcome.refused;
    }
    // From the back, so that every announced row is the row it was a moment before.
    bool removed = false;
    for (int row = int(m_profiles.size()) - 1; row >= 0; --row) {
        if (m_profiles.at(row).id == profile.id) {
            m_profiles.removeAt(row);
            emit profileRemoved(row);
            removed = true;
        }
    }
    if (removed) {
        listChanged();
    }
    if (forgetActive && m_activeProfileID == profile.id) {
        setActiveProfileID(std::nullopt);
    }
    save();
    // Its rules and generated git configuration go with it.
    RuleSync(m_home).refresh(m_profiles);
    return removal;
}

bool ProfileManager::moveProfile(int from, int to)
{
    const int count = int(m_profiles.size());
    if (from < 0 || from >= count || to < 0 || to >= count) {
        return false;
    }
    if (from != to) {
        m_profiles.move(from, to);
        emit profileMoved(from, to);
        listChanged();
        save();
    }
    return true;
}

bool ProfileManager::setSigning(const QUuid& id, const std::optional<SigningSettings>& settings,
                                QString* error)
{
    if (!m_signingStore.set(id, settings, error)) {
        return false;
    }
    bool ok = true;
    if (m_activeProfileID == id) {
        ok = m_signing.apply(settings, error);
    }
    // The profile's rule includes carry its signing too.
    const RuleSync rules(m_home);
    rules.refresh(m_profiles);
    ok = m_signing.writeAllowedSigners(m_profiles, m_signingStore.load(), error) && ok;
    // Signing settings git had to put in new sections go before the rules' include.
    rules.keepIncludeLast();
    return ok;
}

void ProfileManager::openTerminal(const GitProfile& profile)
{
    TerminalLauncher(m_home).open(profile);
}

QString ProfileManager::displayName(const QString& name)
{
    QString text = name;
    text.remove(QStringLiteral("id_"));
    QString result;
    result.reserve(text.size());
    bool wordStart = true;
    const QList<uint> codePoints = text.toUcs4();
    for (const uint cp : codePoints) {
        const char32_t c = cp;
        if (QChar::isSpace(c)) {
            wordStart = true;
            result += QString::fromUcs4(&c, 1);
            continue;
        }
        const QString letter = QString::fromUcs4(&c, 1);
        if (wordStart) {
            const char32_t title = QChar::toTitleCase(c);
            result += title == c ? letter.toUpper() : QString::fromUcs4(&title, 1);
        } else {
            result += letter.toLower();
        }
        wordStart = false;
    }
    return result;
}
