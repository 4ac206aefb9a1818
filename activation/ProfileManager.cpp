// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"

#include "activation/RuleSync.h"
#include "activation/SSHKeyScanner.h"
#include "activation/TerminalLauncher.h"
#include "ai/AIContextManager.h"
#include "model/HomePath.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

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
      m_shell(m_home, m_runner), m_store(m_home), m_lock(m_store.folder()),
      m_lockTimeoutMs(options.lockTimeoutMs), m_signingStore(m_home),
      m_signing(m_home, options.programs), m_aiContext(aiContext),
      m_restoreAIContext(options.restoreAIContext), m_readGlobalIdentity(options.readGlobalIdentity)
{
    start();
}

void ProfileManager::start()
{
    m_store.removeLeftovers();
    m_shell.tidy();
    const auto loadStored = [this] {
        auto stored = m_store.load(&m_loadError, &m_knownBytes);
        if (!stored) {
            return false;
        }
        m_profiles = std::move(stored->profiles);
        m_activeProfileID = stored->activeProfileID;
        m_loadError.clear();
        m_inSync = true;
        return true;
    };
    if (!loadStored()) {
        // Set up afresh, unless another process did so a moment ago: with the file locked it
        // is read once more.
        QString why;
        const bool ran = locked(
            [&] {
                if (!loadStored()) {
                    m_startedFresh = true;
                    m_preservedFilePath = m_store.preserveUnreadable();
                    setupOnFreshInstall();
                }
                return true;
            },
            &why);
        if (!ran) {
            // Another process holds the lock for ever: start with no profiles rather than
            // hang, and save nothing.
            m_startedFresh = true;
            m_setupSaveError = why;
        }
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
    QString why;
    if (!store(m_profiles, m_activeProfileID, &why)) {
        m_setupSaveError = why;
    }
}

void ProfileManager::setProfiles(const QList<GitProfile>& profiles)
{
    if (m_profiles == profiles) {
        return;
    }
    const QList<GitProfile> before = std::exchange(m_profiles, profiles);
    m_inSync = false;
    announceChanges(before);
    emit profilesChanged();
}

namespace {

// Which rows of `longer` are not in `shorter`, when `shorter` is `longer` with some rows left
// out (in order); none otherwise.
std::optional<QList<int>> leftOut(const QList<GitProfile>& longer, const QList<GitProfile>& shorter)
{
    QList<int> rows;
    qsizetype next = 0;
    for (int row = 0; row < longer.size(); ++row) {
        if (next < shorter.size() && longer.at(row) == shorter.at(next)) {
            ++next;
        } else {
            rows << row;
        }
    }
    return next == shorter.size() ? std::optional<QList<int>>(rows) : std::nullopt;
}

} // namespace

void ProfileManager::announceChanges(const QList<GitProfile>& before)
{
    // Rows only added, only taken away, changed in place, or one row moved: each announced
    // for its row. Anything else is a reset.
    const qsizetype oldCount = before.size();
    const qsizetype newCount = m_profiles.size();
    if (newCount > oldCount) {
        if (const auto added = leftOut(m_profiles, before)) {
            // In order, so that every row before an inserted one is already there.
            for (int row : *added) {
                emit profileInserted(row);
            }
            return;
        }
    } else if (newCount < oldCount) {
        if (const auto removed = leftOut(before, m_profiles)) {
            // From the back, so that every announced row is the row it was a moment before.
            for (auto row = removed->crbegin(); row != removed->crend(); ++row) {
                emit profileRemoved(*row);
            }
            return;
        }
    } else {
        qsizetype head = 0;
        while (head < oldCount && before.at(head) == m_profiles.at(head)) {
            ++head;
        }
        qsizetype last = oldCount - 1;
        while (last > head && before.at(last) == m_profiles.at(last)) {
            --last;
        }
        const int first = int(head);
        const int span = int(last - head);
        if (span > 0 && before.mid(first + 1, span) == m_profiles.mid(first, span) &&
            before.at(first) == m_profiles.at(last)) {
            emit profileMoved(first, int(last));
            return;
        }
        if (span > 0 && before.mid(first, span) == m_profiles.mid(first + 1, span) &&
            before.at(last) == m_profiles.at(first)) {
            emit profileMoved(int(last), first);
            return;
        }
        for (int row = first; row <= last; ++row) {
            if (before.at(row) != m_profiles.at(row)) {
                emit profileUpdated(row);
            }
        }
        return;
    }
    emit profilesReset();
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
    m_inSync = false;
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

QString ProfileManager::saveFailure(const QString& reason) const
{
    return tr("the profiles could not be saved to %1 (%2)").arg(m_store.path(), reason);
}

bool ProfileManager::locked(const std::function<bool()>& work, QString* error)
{
    if (m_lockDepth == 0) {
        QString why;
        // A lock file that cannot even be made means the folder cannot be written (read-only,
        // full, not a folder): nobody can save there, so the work goes ahead unlocked and its
        // save fails with the true reason. Only a lock that another process holds too long
        // stops it here.
        if (m_lock.lock(&why, m_lockTimeoutMs) == ProfileLock::Outcome::Busy) {
            if (error) {
                *error = saveFailure(why);
            }
            return false;
        }
    }
    ++m_lockDepth;
    const bool done = work();
    if (--m_lockDepth == 0) {
        m_lock.unlock();
    }
    return done;
}

void ProfileManager::readStoredChanges()
{
    QByteArray bytes;
    const auto stored = m_store.load(nullptr, &bytes);
    if (stored && bytes == m_knownBytes) {
        return; // nobody else wrote it since
    }
    if (stored) {
        setProfiles(stored->profiles);
        setActiveProfileID(stored->activeProfileID);
        m_knownBytes = bytes;
        m_inSync = true;
        return;
    }
    // Gone or unreadable: the list here stands, and the next save writes it. What stands
    // there unreadable is kept aside first.
    m_inSync = false;
    m_knownBytes.clear();
    if (m_store.exists()) {
        m_store.preserveUnreadable();
    }
}

bool ProfileManager::store(const QList<GitProfile>& profiles, const std::optional<QUuid>& active,
                           QString* error)
{
    QString why;
    QByteArray written;
    if (!m_store.save(StoredData{profiles, active}, &why, &written)) {
        if (error) {
            *error = saveFailure(why);
        }
        return false;
    }
    setProfiles(profiles);
    setActiveProfileID(active);
    m_knownBytes = written;
    m_inSync = true;
    // What stands in the file now was written here: nothing is left that could not be read.
    setFileError(QString());
    syncAllowedSigners();
    return true;
}

ProfileManager::FileFollow ProfileManager::followFile()
{
    if (m_lockDepth > 0) {
        // A change of this manager is under way and reads the file itself.
        return FileFollow::Busy;
    }
    // No waiting: a writer that holds the lock is about to save, and that save is noticed
    // again. A lock that cannot be had at all (a read-only folder) does not keep the file
    // from being read: nobody can write there anyway.
    if (m_lock.lock(nullptr, 0) == ProfileLock::Outcome::Busy) {
        return FileFollow::Busy;
    }
    ++m_lockDepth;
    const FileFollow outcome = [this] {
        QString why;
        QByteArray bytes;
        const auto stored = m_store.load(&why, &bytes);
        if (!stored) {
            if (!m_store.exists()) {
                // Removed: the list stands, and the next change writes it again.
                setFileError(QString());
                return FileFollow::Unchanged;
            }
            // Not kept aside and not replaced here: the user may be in the middle of editing
            // it. A change made in the application keeps it aside before it saves.
            setFileError(
                tr("%1; the profiles shown are the last ones that could be read").arg(why));
            return FileFollow::Unreadable;
        }
        setFileError(QString());
        if (bytes == m_knownBytes) {
            return FileFollow::Unchanged; // this manager's own save, or the same bytes again
        }
        setProfiles(stored->profiles);
        setActiveProfileID(stored->activeProfileID);
        m_knownBytes = bytes;
        m_inSync = true;
        emit fileReloaded();
        return FileFollow::Reloaded;
    }();
    if (--m_lockDepth == 0) {
        m_lock.unlock();
    }
    return outcome;
}

void ProfileManager::setFileError(const QString& error)
{
    if (m_fileError != error) {
        m_fileError = error;
        emit fileErrorChanged();
    }
}

bool ProfileManager::change(const Change& edit, QString* error)
{
    return locked(
        [&] {
            // Only the outermost change reads the file: inside it, the list is already fresh.
            if (m_lockDepth == 1) {
                readStoredChanges();
            }
            QList<GitProfile> profiles = m_profiles;
            std::optional<QUuid> active = m_activeProfileID;
            edit(profiles, active);
            if (m_inSync && profiles == m_profiles && active == m_activeProfileID) {
                return true;
            }
            return store(profiles, active, error);
        },
        error);
}

bool ProfileManager::save()
{
    return locked([this] { return store(m_profiles, m_activeProfileID, nullptr); }, nullptr);
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

bool ProfileManager::applyGlobally(const GitProfile& requested, QString* error)
{
    QString failure;
    const auto note = [&failure](const QString& sentence) {
        if (failure.isEmpty()) {
            failure = sentence;
        }
    };
    const auto listed = [this](const QUuid& id) {
        return std::any_of(m_profiles.cbegin(), m_profiles.cend(),
                           [&id](const GitProfile& p) { return p.id == id; });
    };
    const bool done = locked(
        [&] {
            const bool wasListed = listed(requested.id);
            if (m_lockDepth == 1) {
                readStoredChanges();
            }
            if (wasListed && !listed(requested.id)) {
                note(tr("\"%1\" was removed meanwhile; nothing was changed").arg(requested.name));
                return false;
            }
            // What another process saved for this profile meanwhile is what gets applied; two
            // profiles may share an id, so the very one asked for is kept when it is there.
            GitProfile profile = requested;
            if (!m_profiles.contains(requested)) {
                for (const GitProfile& p : m_profiles) {
                    if (p.id == requested.id) {
                        profile = p;
                        break;
                    }
                }
            }
            activate(profile, note);
            QString why;
            if (!change([&profile](QList<GitProfile>&,
                                   std::optional<QUuid>& active) { active = profile.id; },
                        &why)) {
                note(why);
            }
            refreshGlobalConfig();
            return true;
        },
        &failure);
    if (!failure.isEmpty() && error) {
        *error = failure;
    }
    return done && failure.isEmpty();
}

void ProfileManager::activate(const GitProfile& profile,
                              const std::function<void(const QString&)>& note)
{
    const QString git = QStringLiteral("git");
    const QString config = QStringLiteral("config");
    const QString global = QStringLiteral("--global");
    const auto gitSet = [&](const QString& key, const QString& value) {
        if (const auto why = m_runner.attempt({git, config, global, key, value})) {
            note(tr("git did not take the new identity (%1)").arg(*why));
        }
    };
    gitSet(QStringLiteral("user.name"), profile.gitName);
    gitSet(QStringLiteral("user.email"), profile.gitEmail);
    if (!profile.sshKeyPath.isEmpty()) {
        const QString key = HomePath::expandTilde(profile.sshKeyPath);
        QString why;
        if (!m_shell.ensureSSHWrapper(&why)) {
            note(why);
        }
        // git runs the value through a shell: ordinary paths stand as they are, and a path
        // with a blank or any character a shell acts on is quoted so it stays one path.
        gitSet(QStringLiteral("core.sshCommand"),
               ShellIntegration::sshCommand(m_shell.wrapperPath(), key));
    }
    // Without a key the previous core.sshCommand stays in force.
    const auto signing = m_signingStore.load();
    const auto own = signing.constFind(profile.id);
    m_signing.apply(own == signing.constEnd() ? std::nullopt
                                              : std::optional<SigningSettings>(*own));
    m_signing.writeAllowedSigners(m_profiles, signing);
    // git appends a [user] section it had to create after the rules' include; move that back.
    RuleSync(m_home).keepIncludeLast();
    QString why;
    if (!m_shell.ensureAIEnvFile(profile, &why)) {
        note(why);
    }
    m_aiContext.applyAIContext(profile);
}

std::optional<GitProfile> ProfileManager::addProfile(const QString& name, const QString& gitName,
                                                     const QString& gitEmail,
                                                     const QString& sshKeyPath, QString* error)
{
    GitProfile source;
    source.name = name;
    source.gitName = gitName;
    source.gitEmail = gitEmail;
    source.sshKeyPath = sshKeyPath;
    const auto added = addProfiles({source}, error);
    return added ? std::optional<GitProfile>(added->first()) : std::nullopt;
}

std::optional<QList<GitProfile>> ProfileManager::addProfiles(const QList<GitProfile>& sources,
                                                             QString* error)
{
    QList<GitProfile> made;
    made.reserve(sources.size());
    for (const GitProfile& source : sources) {
        made.append(GitProfile::create(displayName(source.name), source.gitName, source.gitEmail,
                                       source.sshKeyPath));
    }
    const bool saved = change(
        [&made](QList<GitProfile>& profiles, std::optional<QUuid>&) { profiles.append(made); },
        error);
    return saved ? std::optional<QList<GitProfile>>(made) : std::nullopt;
}

bool ProfileManager::appendProfile(const GitProfile& profile, QString* error)
{
    return change([&profile](QList<GitProfile>& profiles,
                             std::optional<QUuid>&) { profiles.append(profile); },
                  error);
}

ProfileManager::Update ProfileManager::updateProfile(const GitProfile& profile, QString* error)
{
    return editProfile(
        profile.id, [&profile](GitProfile& stored) { stored = profile; }, error);
}

ProfileManager::Update ProfileManager::editProfile(const QUuid& id,
                                                   const std::function<void(GitProfile&)>& edit,
                                                   QString* error, GitProfile* edited)
{
    bool found = false;
    const bool saved = change(
        [&](QList<GitProfile>& profiles, std::optional<QUuid>&) {
            for (GitProfile& existing : profiles) {
                if (existing.id == id) {
                    edit(existing);
                    if (edited) {
                        *edited = existing;
                    }
                    found = true;
                    return;
                }
            }
        },
        error);
    if (!saved) {
        return Update::Failed;
    }
    if (!found) {
        return Update::Gone;
    }
    // Repositories its rules reach take the edited identity at once.
    RuleSync(m_home).refresh(m_profiles);
    return Update::Saved;
}

ProfileManager::Removal ProfileManager::removeProfile(const GitProfile& profile, bool deleteSSHKey,
                                                      bool forgetActive)
{
    Removal removal;
    removal.saved = change(
        [&profile, forgetActive](QList<GitProfile>& profiles, std::optional<QUuid>& active) {
            profiles.removeIf([&profile](const GitProfile& p) { return p.id == profile.id; });
            if (forgetActive && active == profile.id) {
                active.reset();
            }
        },
        &removal.error);
    if (!removal.saved) {
        // The key files stay with the profile that names them.
        return removal;
    }
    if (deleteSSHKey && profile.hasKey()) {
        const auto outcome = KeyFileRemoval::removeKeyPair(m_home, profile.sshKeyPath);
        removal.removedKeyFiles = outcome.removed;
        removal.refusedKeyFiles = outcome.refused;
    }
    // Its rules and generated git configuration go with it.
    RuleSync(m_home).refresh(m_profiles);
    return removal;
}

bool ProfileManager::moveProfile(int from, int to, QString* error)
{
    const int count = int(m_profiles.size());
    if (from < 0 || from >= count || to < 0 || to >= count) {
        return false;
    }
    const GitProfile moved = m_profiles.at(from);
    return change(
        [&moved, to](QList<GitProfile>& profiles, std::optional<QUuid>&) {
            // Found again: another writer may have changed the list since.
            const qsizetype at = profiles.indexOf(moved);
            if (at >= 0 && to < profiles.size()) {
                profiles.move(at, to);
            }
        },
        error);
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
