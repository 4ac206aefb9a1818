// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/CommandRunner.h"
#include "model/GitProfile.h"

#include <QDateTime>
#include <QFileDevice>
#include <QString>

// The files an activation leaves in ~/.kivora for shells and git: the SSH wrapper that
// core.sshCommand names, the AI environment file, and the hook that sources it from the
// user's shell start-up files.
class ShellIntegration {
public:
    ShellIntegration(const QString& home, const CommandRunner& runner);

    QString folder() const { return m_home + QStringLiteral("/.kivora"); }
    QString wrapperPath() const { return folder() + QStringLiteral("/kivora-ssh.sh"); }
    QString aiEnvPath() const { return folder() + QStringLiteral("/ai-env.sh"); }

    static constexpr QFileDevice::Permissions privateExecutable =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

    // Writes the wrapper (0700), unless a file is already there. False, with the reason in
    // `error`, when it is missing and cannot be written.
    bool ensureSSHWrapper(QString* error = nullptr) const;

    // Puts right what a killed write or a loose umask left: an existing ~/.kivora becomes
    // 0700 again, an existing wrapper loses write access for others, and temporary files of
    // interrupted writes of Kivora's files here and of the start-up files are removed.
    // Creates nothing.
    void tidy() const;

    // Rewrites the AI environment file for the profile, then hooks it into the shells. False,
    // with the reason in `error`, when the file could not be written (the old one stays).
    bool ensureAIEnvFile(const GitProfile& profile, QString* error = nullptr) const;

    // Appends the hook to ~/.zshrc and ~/.bashrc where they exist and do not mention the file.
    void ensureShellIntegration() const;

    static QByteArray wrapperScript();
    static QByteArray aiEnvText(const GitProfile& profile, const QDateTime& now);
    static QByteArray hookText();

    // `text` made safe inside single quotes.
    static QString singleQuoted(QString text);

    // The command git runs for ssh: the wrapper, one blank, the key path. Ordinary paths
    // stand as they are; a path with a blank, a quote, `;`, `$` or any other character a
    // shell would act on is single-quoted (git hands the value to a shell).
    static QString sshCommand(const QString& wrapper, const QString& keyPath);

    // The display name as it may stand in a comment line of the environment file.
    static QString commentText(const QString& text);

private:
    QString m_home;
    const CommandRunner& m_runner;
};
