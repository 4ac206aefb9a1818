// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/GuardCommand.h"

#include "activation/CommitGuard.h"
#include "activation/RuleSync.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <optional>

namespace {

struct Ident {
    QString name;
    QString email;

    bool operator==(const Ident& other) const
    {
        return name == other.name && email.compare(other.email, Qt::CaseInsensitive) == 0;
    }
    QString text() const { return QStringLiteral("%1 <%2>").arg(name, email); }
};

// What git prints for `git var GIT_AUTHOR_IDENT`: "Name <email> 1700000000 +0100".
std::optional<Ident> parseIdent(const QString& line)
{
    const qsizetype open = line.lastIndexOf(QStringLiteral(" <"));
    const qsizetype close = line.lastIndexOf(u'>');
    if (open < 0 || close < open) {
        return std::nullopt;
    }
    return Ident{line.left(open), line.mid(open + 2, close - open - 2)};
}

// Runs git in the current folder with the environment the hook was given (so GIT_AUTHOR_*,
// GIT_COMMITTER_* and `git -c` settings count); its output without the final line end.
std::optional<QString> git(const QString& env, const QStringList& arguments)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(env, QStringList{QStringLiteral("git")} + arguments);
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        return std::nullopt;
    }
    QString out = QString::fromUtf8(process.readAllStandardOutput());
    if (out.endsWith(u'\n')) {
        out.chop(1);
    }
    return out;
}

} // namespace

GuardCommand::GuardCommand(QString home, CommandRunner::Programs programs, Profiles profiles,
                           QTextStream& out, QTextStream& err, QString kivoraProgram)
    : m_home(std::move(home)), m_programs(std::move(programs)), m_profiles(std::move(profiles)),
      m_out(out), m_err(err), m_kivora(std::move(kivoraProgram))
{
}

int GuardCommand::fail(const QString& sentence)
{
    m_err << "kivora: " << sentence << "\n";
    m_err.flush();
    return 1;
}

int GuardCommand::on()
{
    CommitGuard guard(m_home, m_programs, m_kivora);
    const bool wasOn = guard.state() == CommitGuard::State::on;
    QString error;
    if (!guard.enable(&error)) {
        return fail(error);
    }
    m_out << (wasOn ? tr("The guard was already on: commits in a folder or repository with a rule "
                         "must carry the rule's identity.")
                    : tr("The guard is on: commits in a folder or repository with a rule must "
                         "carry the rule's identity."))
          << "\n";
    return 0;
}

int GuardCommand::off()
{
    CommitGuard guard(m_home, m_programs, m_kivora);
    if (guard.state() == CommitGuard::State::other) {
        m_out << tr("The guard is off; core.hooksPath is yours (%1) and stays.")
                     .arg(guard.globalHooksPath())
              << "\n";
        return 0;
    }
    QString error;
    if (!guard.disable(&error)) {
        return fail(error);
    }
    m_out << tr("The guard is off.") << "\n";
    return 0;
}

int GuardCommand::status(const QString& folder)
{
    CommitGuard guard(m_home, m_programs, m_kivora);
    switch (guard.state()) {
    case CommitGuard::State::on:
        m_out << tr("The guard is on (core.hooksPath is %1).").arg(guard.hooksFolder()) << "\n";
        break;
    case CommitGuard::State::off:
        m_out << tr("The guard is off.") << "\n";
        break;
    case CommitGuard::State::other:
        m_out << tr("The guard is off: core.hooksPath names a folder of yours (%1).")
                     .arg(guard.globalHooksPath())
              << "\n";
        break;
    }
    if (folder.isEmpty()) {
        return 0;
    }
    if (!QFileInfo(folder).isDir()) {
        return fail(tr("%1 is not a folder.").arg(folder));
    }
    if (const auto own = guard.repositoryHooksPath(folder)) {
        m_out << tr("%1 runs its own hooks from %2 (core.hooksPath of the repository), so the "
                    "guard does not check it.")
                     .arg(QDir(folder).absolutePath(), *own)
              << "\n";
        return 1;
    }
    m_out << tr("%1 is checked while the guard is on.").arg(QDir(folder).absolutePath()) << "\n";
    return 0;
}

int GuardCommand::check()
{
    // Which rule git applied here, if any: the rule files set kivora.rule to their position.
    const auto position = git(m_programs.env, {QStringLiteral("config"), QStringLiteral("--get"),
                                               QStringLiteral("kivora.rule")});
    if (!position) {
        return 0; // no rule governs this repository: nothing is checked
    }
    RuleSync sync(m_home);
    const auto rules = sync.rules();
    bool ok = false;
    const qsizetype index = position->toLongLong(&ok) - 1;
    if (!rules || !ok || index < 0 || index >= rules->size()) {
        return 0;
    }
    const IdentityRule& rule = rules->at(index);
    std::optional<GitProfile> expected;
    for (const GitProfile& profile : m_profiles()) {
        if (profile.id == rule.profile) {
            expected = profile;
            break;
        }
    }
    if (!expected) {
        return 0;
    }
    const auto author =
        git(m_programs.env, {QStringLiteral("var"), QStringLiteral("GIT_AUTHOR_IDENT")});
    const auto committer =
        git(m_programs.env, {QStringLiteral("var"), QStringLiteral("GIT_COMMITTER_IDENT")});
    const Ident wanted{expected->gitName.trimmed(), expected->gitEmail.trimmed()};
    const auto authorIdent = author ? parseIdent(*author) : std::nullopt;
    const auto committerIdent = committer ? parseIdent(*committer) : std::nullopt;
    if (authorIdent && committerIdent && *authorIdent == wanted && *committerIdent == wanted) {
        return 0;
    }
    const QString ruleText =
        QStringLiteral("%1 %2").arg(IdentityRule::kindText(rule.kind), rule.pattern);
    const QString none = tr("(none)");
    //: The identities line up after "author:" and "committer:".
    m_err << "kivora: "
          << tr("this commit is refused: the rule \"%1\" gives this repository the identity of "
                "%2, %3, but git would record\n"
                "  author:    %4\n"
                "  committer: %5\n"
                "See which identity git uses here, and why: kivora which\n"
                "Commit anyway with: git commit --no-verify")
                 .arg(ruleText, expected->name, wanted.text(),
                      authorIdent ? authorIdent->text() : none,
                      committerIdent ? committerIdent->text() : none)
          << "\n";
    m_err.flush();
    return 1;
}
