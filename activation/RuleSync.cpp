// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/RuleSync.h"

#include "activation/CommandRunner.h"
#include "activation/CommitSigning.h"
#include "activation/GitConfigText.h"
#include "activation/GlobalGitConfig.h"
#include "activation/RuleStore.h"
#include "activation/ShellIntegration.h"
#include "activation/SigningStore.h"
#include "model/AtomicFile.h"
#include "model/HomePath.h"
#include "model/ProfileCodec.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

RuleSync::RuleSync(const QString& home) : m_home(home) {}

QString RuleSync::profileFile(const QUuid& profile) const
{
    return folder() + QStringLiteral("/profile-%1.gitconfig").arg(ProfileCodec::uuidText(profile));
}

QString RuleSync::ruleFile(qsizetype position) const
{
    return folder() + QStringLiteral("/rule-%1.gitconfig").arg(position);
}

std::optional<IdentityRules> RuleSync::rules(QString* error) const
{
    return RuleStore(m_home).load(error);
}

QString RuleSync::normalizedDir(const QString& text, const QString& base)
{
    if (text.isEmpty() || text.contains(u'\n') || text.contains(u'\r')) {
        return {};
    }
    const QString expanded = HomePath::expandTilde(text);
    QString path = QDir::cleanPath(QDir(base).absoluteFilePath(expanded));
    while (path.size() > 1 && path.endsWith(u'/')) {
        path.chop(1);
    }
    return path;
}

QString RuleSync::sshCommand(const GitProfile& profile) const
{
    if (profile.sshKeyPath.isEmpty()) {
        return {};
    }
    const QString wrapper = ShellIntegration(m_home, CommandRunner()).wrapperPath();
    // Quoted as the global core.sshCommand is, then ssh may offer no key but this one.
    return ShellIntegration::sshCommand(wrapper, HomePath::expandTilde(profile.sshKeyPath)) +
           QStringLiteral(" -o IdentitiesOnly=yes");
}

QByteArray RuleSync::profileText(const GitProfile& profile, const QString& sshCommand,
                                 const std::optional<SigningSettings>& signing)
{
    QString text = QStringLiteral("# Written by Kivora for the profile \"%1\"; it is replaced "
                                  "when the profile changes.\n")
                       .arg(QString(profile.name).replace(u'\n', u' '));
    text += QStringLiteral("[user]\n\tname = %1\n\temail = %2\n")
                .arg(GitConfigText::quotedValue(profile.gitName),
                     GitConfigText::quotedValue(profile.gitEmail));
    if (!sshCommand.isEmpty()) {
        text += QStringLiteral("[core]\n\tsshCommand = %1\n")
                    .arg(GitConfigText::quotedValue(sshCommand));
    }
    if (signing && signing->signs()) {
        text += QStringLiteral("[user]\n\tsigningKey = %1\n[gpg]\n\tformat = %2\n")
                    .arg(GitConfigText::quotedValue(CommitSigning::gitSigningKey(*signing)),
                         SigningSettings::formatName(signing->format));
    }
    const QString sign =
        signing && signing->signs() ? QStringLiteral("true") : QStringLiteral("false");
    text += QStringLiteral("[commit]\n\tgpgSign = %1\n[tag]\n\tgpgSign = %1\n").arg(sign);
    return text.toUtf8();
}

QByteArray RuleSync::rulesText(const IdentityRules& rules) const
{
    QString text = QStringLiteral(
        "# Written by Kivora from ~/.kivora/rules.json; changes here are replaced.\n"
        "# Where several blocks match, git applies them in order, so the later one wins.\n");
    const auto block = [&](const QString& condition, qsizetype position) {
        text += QStringLiteral("[includeIf \"%1\"]\n\tpath = %2\n")
                    .arg(GitConfigText::subsection(condition),
                         GitConfigText::quotedValue(ruleFile(position)));
    };
    for (qsizetype i = 0; i < rules.size(); ++i) {
        const IdentityRule& rule = rules[i];
        if (rule.kind == IdentityRule::Kind::Remote) {
            block(QStringLiteral("hasconfig:remote.*.url:") + rule.pattern, i + 1);
            continue;
        }
        // The trailing "/" makes git match everything under the folder. git compares the
        // pattern with the repository's git folder as found and with its real path, but not
        // the pattern's own real path: a folder reached through a link gets both spellings.
        block(QStringLiteral("gitdir:") + GitConfigText::literalPattern(rule.pattern) + u'/',
              i + 1);
        const QString real = QFileInfo(rule.pattern).canonicalFilePath();
        if (!real.isEmpty() && real != rule.pattern) {
            block(QStringLiteral("gitdir:") + GitConfigText::literalPattern(real) + u'/', i + 1);
        }
    }
    return text.toUtf8();
}

bool RuleSync::apply(IdentityRules rules, const QList<GitProfile>& profiles, QString* error) const
{
    const auto fail = [error](const QString& sentence) {
        if (error) {
            *error = sentence;
        }
        return false;
    };
    QHash<QUuid, GitProfile> byId;
    for (const GitProfile& profile : profiles) {
        if (!byId.contains(profile.id)) {
            byId.insert(profile.id, profile);
        }
    }
    rules.removeIf([&](const IdentityRule& rule) { return !byId.contains(rule.profile); });
    RuleStore store(m_home);
    if (!store.save(rules)) {
        return fail(QCoreApplication::translate("RuleSync", "cannot write %1").arg(store.path()));
    }

    QSet<QString> wanted;
    const auto signing = SigningStore(m_home).load();
    if (!rules.isEmpty()) {
        if (!AtomicFile::makePrivateFolder(folder())) {
            return fail(QCoreApplication::translate("RuleSync", "cannot create %1").arg(folder()));
        }
        QSet<QUuid> written;
        for (qsizetype i = 0; i < rules.size(); ++i) {
            const GitProfile& profile = byId.value(rules[i].profile);
            const QString include = profileFile(profile.id);
            if (!written.contains(profile.id)) {
                written.insert(profile.id);
                if (profile.hasKey()) {
                    ShellIntegration(m_home, CommandRunner()).ensureSSHWrapper();
                }
                const auto own = signing.constFind(profile.id);
                const auto profileSigning =
                    own == signing.constEnd() ? std::nullopt : std::optional<SigningSettings>(*own);
                if (!AtomicFile::write(include,
                                       profileText(profile, sshCommand(profile), profileSigning),
                                       AtomicFile::privateFile)) {
                    return fail(
                        QCoreApplication::translate("RuleSync", "cannot write %1").arg(include));
                }
                wanted.insert(include);
            }
            const QString ruleText =
                QStringLiteral("[include]\n\tpath = %1\n[kivora]\n\trule = %2\n")
                    .arg(GitConfigText::quotedValue(include))
                    .arg(i + 1);
            if (!AtomicFile::write(ruleFile(i + 1), ruleText.toUtf8(), AtomicFile::privateFile)) {
                return fail(QCoreApplication::translate("RuleSync", "cannot write %1")
                                .arg(ruleFile(i + 1)));
            }
            wanted.insert(ruleFile(i + 1));
        }
        if (!AtomicFile::write(rulesFile(), rulesText(rules), AtomicFile::privateFile)) {
            return fail(
                QCoreApplication::translate("RuleSync", "cannot write %1").arg(rulesFile()));
        }
        wanted.insert(rulesFile());
    }

    // Files of rules and profiles that are gone.
    const QDir dir(folder());
    for (const QString& name : dir.entryList({QStringLiteral("*.gitconfig")}, QDir::Files)) {
        const QString file = dir.filePath(name);
        if (!wanted.contains(file)) {
            QFile::remove(file);
        }
    }

    GlobalGitConfig global(m_home);
    const bool included =
        rules.isEmpty() ? global.removeInclude(rulesFile()) : global.keepIncludeLast(rulesFile());
    if (!included) {
        return fail(QCoreApplication::translate("RuleSync", "cannot write %1").arg(global.path()));
    }
    return true;
}

bool RuleSync::refresh(const QList<GitProfile>& profiles, QString* error) const
{
    const auto stored = rules(error);
    if (!stored) {
        return false;
    }
    if (stored->isEmpty() && !QFileInfo::exists(folder())) {
        return true;
    }
    return apply(*stored, profiles, error);
}

bool RuleSync::keepIncludeLast() const
{
    if (!QFileInfo::exists(rulesFile())) {
        return true;
    }
    return GlobalGitConfig(m_home).keepIncludeLast(rulesFile());
}

std::optional<GitProfile> RuleSync::profileForRemote(const QString& url, const IdentityRules& rules,
                                                     const QList<GitProfile>& profiles) const
{
    if (rules.isEmpty() || !QFileInfo::exists(rulesFile())) {
        return std::nullopt;
    }
    // An empty folder that git does not take for part of a repository, so that only this URL
    // counts as a remote.
    QTemporaryDir outside;
    if (!outside.isValid()) {
        return std::nullopt;
    }
    QProcess git;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("GIT_CEILING_DIRECTORIES"), QFileInfo(outside.path()).path());
    env.remove(QStringLiteral("GIT_DIR"));
    git.setProcessEnvironment(env);
    git.setWorkingDirectory(outside.path());
    git.setStandardInputFile(QProcess::nullDevice());
    git.start(QStringLiteral("/usr/bin/env"),
              {QStringLiteral("git"), QStringLiteral("-c"),
               QStringLiteral("include.path=") + rulesFile(), QStringLiteral("-c"),
               QStringLiteral("remote.origin.url=") + url, QStringLiteral("config"),
               QStringLiteral("--get"), QStringLiteral("kivora.rule")});
    if (!git.waitForFinished(-1) || git.exitStatus() != QProcess::NormalExit ||
        git.exitCode() != 0) {
        return std::nullopt;
    }
    bool ok = false;
    const qsizetype position = git.readAllStandardOutput().trimmed().toLongLong(&ok);
    if (!ok || position < 1 || position > rules.size() ||
        rules[position - 1].kind != IdentityRule::Kind::Remote) {
        return std::nullopt;
    }
    for (const GitProfile& profile : profiles) {
        if (profile.id == rules[position - 1].profile) {
            return profile;
        }
    }
    return std::nullopt;
}
