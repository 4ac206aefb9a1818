// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/CommitGuard.h"

#include "activation/ShellIntegration.h"
#include "model/AtomicFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

namespace {

const QString hooksPathKey = QStringLiteral("core.hooksPath");

struct GitResult {
    int status = -1;
    QString out;
};

GitResult git(const QString& env, const QStringList& arguments, const QString& folder = {})
{
    QProcess process;
    process.setProgram(env);
    process.setArguments(QStringList{QStringLiteral("git")} + arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    if (!folder.isEmpty()) {
        process.setWorkingDirectory(folder);
    }
    process.start();
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    QString out = QString::fromUtf8(process.readAllStandardOutput());
    if (out.endsWith(u'\n')) {
        out.chop(1);
    }
    return {process.exitCode(), out};
}

} // namespace

CommitGuard::CommitGuard(const QString& home, CommandRunner::Programs programs,
                         QString kivoraProgram)
    : m_home(home), m_programs(std::move(programs)), m_kivora(std::move(kivoraProgram))
{
}

const QStringList& CommitGuard::hookNames()
{
    // githooks(5) of the git versions in use, and the ones its commands run besides.
    static const QStringList names{QStringLiteral("applypatch-msg"),
                                   QStringLiteral("pre-applypatch"),
                                   QStringLiteral("post-applypatch"),
                                   QStringLiteral("pre-commit"),
                                   QStringLiteral("pre-merge-commit"),
                                   QStringLiteral("prepare-commit-msg"),
                                   QStringLiteral("commit-msg"),
                                   QStringLiteral("post-commit"),
                                   QStringLiteral("pre-rebase"),
                                   QStringLiteral("post-checkout"),
                                   QStringLiteral("post-merge"),
                                   QStringLiteral("pre-push"),
                                   QStringLiteral("pre-receive"),
                                   QStringLiteral("update"),
                                   QStringLiteral("proc-receive"),
                                   QStringLiteral("post-receive"),
                                   QStringLiteral("post-update"),
                                   QStringLiteral("reference-transaction"),
                                   QStringLiteral("push-to-checkout"),
                                   QStringLiteral("pre-auto-gc"),
                                   QStringLiteral("post-rewrite"),
                                   QStringLiteral("sendemail-validate"),
                                   QStringLiteral("fsmonitor-watchman"),
                                   QStringLiteral("p4-changelist"),
                                   QStringLiteral("p4-prepare-changelist"),
                                   QStringLiteral("p4-post-changelist"),
                                   QStringLiteral("p4-pre-submit"),
                                   QStringLiteral("post-index-change")};
    return names;
}

QByteArray CommitGuard::hookText(const QString& name, const QString& kivoraProgram, bool checks)
{
    // The program path is single-quoted, so a path with blanks or quotes stays one word.
    const QString kivora = u'\'' + ShellIntegration::singleQuoted(kivoraProgram) + u'\'';
    QString text =
        QStringLiteral("#!/bin/sh\n"
                       "# Installed by `kivora guard on`; `kivora guard off` removes it.\n"
                       "# Runs the repository's own %1 hook first and keeps its exit status.\n"
                       "common=$(git rev-parse --git-common-dir 2>/dev/null) || common=\n")
            .arg(name);
    if (!checks) {
        text += QStringLiteral("if [ -n \"$common\" ] && [ -x \"$common/hooks/%1\" ]; then\n"
                               "    exec \"$common/hooks/%1\" \"$@\"\n"
                               "fi\n"
                               "exit 0\n")
                    .arg(name);
    } else {
        text += QStringLiteral("if [ -n \"$common\" ] && [ -x \"$common/hooks/%1\" ]; then\n"
                               "    \"$common/hooks/%1\" \"$@\" || exit $?\n"
                               "fi\n"
                               "# Then the identity about to be recorded must be the one the\n"
                               "# repository's rule gives (without Kivora, nothing is checked).\n"
                               "[ -x %2 ] || exit 0\n"
                               "exec %2 guard check\n")
                    .arg(name, kivora);
    }
    return text.toUtf8();
}

QString CommitGuard::globalHooksPath() const
{
    const GitResult result =
        git(m_programs.env, {QStringLiteral("config"), QStringLiteral("--global"),
                             QStringLiteral("--get"), hooksPathKey});
    return result.status == 0 ? result.out : QString();
}

CommitGuard::State CommitGuard::state() const
{
    const QString path = globalHooksPath();
    if (path.isEmpty()) {
        return State::off;
    }
    return QDir::cleanPath(path) == QDir::cleanPath(hooksFolder()) ? State::on : State::other;
}

bool CommitGuard::enable(QString* error) const
{
    const auto fail = [&](const QString& why) {
        if (error) {
            *error = why;
        }
        return false;
    };
    if (state() == State::other) {
        return fail(QCoreApplication::translate(
                        "CommitGuard",
                        "your global core.hooksPath is %1; Kivora's guard would replace it, so it "
                        "stays off (unset core.hooksPath first, or call kivora guard check from a "
                        "pre-commit hook there).")
                        .arg(globalHooksPath()));
    }
    const QString folder = hooksFolder();
    if (!AtomicFile::makePrivateFolder(folder)) {
        return fail(QCoreApplication::translate("CommitGuard", "could not create %1.").arg(folder));
    }
    const auto executable = AtomicFile::privateFile | QFileDevice::ExeOwner;
    for (const QString& name : hookNames()) {
        const bool checks =
            name == QStringLiteral("pre-commit") || name == QStringLiteral("pre-merge-commit");
        if (!AtomicFile::write(folder + u'/' + name, hookText(name, m_kivora, checks),
                               executable)) {
            return fail(
                QCoreApplication::translate("CommitGuard", "could not write the hooks in %1.")
                    .arg(folder));
        }
    }
    if (state() == State::on) {
        return true;
    }
    const GitResult set = git(m_programs.env, {QStringLiteral("config"), QStringLiteral("--global"),
                                               hooksPathKey, folder});
    if (set.status != 0) {
        return fail(QCoreApplication::translate(
            "CommitGuard", "git could not set core.hooksPath; is ~/.gitconfig writable?"));
    }
    return true;
}

bool CommitGuard::disable(QString* error) const
{
    if (state() == State::on) {
        const GitResult unset =
            git(m_programs.env, {QStringLiteral("config"), QStringLiteral("--global"),
                                 QStringLiteral("--unset"), hooksPathKey});
        if (unset.status != 0) {
            if (error) {
                *error = QCoreApplication::translate(
                    "CommitGuard", "git could not unset core.hooksPath; is ~/.gitconfig writable?");
            }
            return false;
        }
    }
    // Only the hooks written here go; anything else the user put in the folder stays.
    QDir folder(hooksFolder());
    for (const QString& name : hookNames()) {
        folder.remove(name);
    }
    folder.rmdir(folder.path());
    return true;
}

std::optional<QString> CommitGuard::repositoryHooksPath(const QString& folder) const
{
    const GitResult result = git(m_programs.env,
                                 {QStringLiteral("config"), QStringLiteral("--local"),
                                  QStringLiteral("--get"), hooksPathKey},
                                 folder);
    if (result.status != 0 || result.out.isEmpty()) {
        return std::nullopt;
    }
    return result.out;
}
