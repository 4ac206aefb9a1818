#pragma once

#include "activation/CommandRunner.h"
#include "model/GitProfile.h"

#include <QDateTime>
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

    // Writes the wrapper and makes it executable, unless a file is already there.
    void ensureSSHWrapper() const;

    // Rewrites the AI environment file for the profile, then hooks it into the shells.
    void ensureAIEnvFile(const GitProfile& profile) const;

    // Appends the hook to ~/.zshrc and ~/.bashrc where they exist and do not mention the file.
    void ensureShellIntegration() const;

    static QByteArray wrapperScript();
    static QByteArray aiEnvText(const GitProfile& profile, const QDateTime& now);
    static QByteArray hookText();

    // `text` made safe inside single quotes.
    static QString singleQuoted(QString text);

private:
    QString m_home;
    const CommandRunner& m_runner;
};
