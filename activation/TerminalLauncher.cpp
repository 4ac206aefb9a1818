// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/TerminalLauncher.h"

#include "activation/DetachedStart.h"
#include "activation/ShellIntegration.h"
#include "activation/ShellQuote.h"
#include "model/HomePath.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// x made safe inside double quotes. An ordinary value only has its double quotes escaped;
// a $, ` or \ is escaped as well, so a name such as "$(touch x)" or one ending in a
// backslash stays text instead of running or swallowing the closing quote.
QString escapedQuotes(const QString& text)
{
    return ShellQuote::insideDoubleQuotes(text);
}

// The executable a program name or path stands for, or an empty text when there is none.
QString resolveProgram(const QString& program)
{
    if (program.contains(u'/')) {
        const QFileInfo info(program);
        return info.isFile() && info.isExecutable() ? info.absoluteFilePath() : QString();
    }
    return QStandardPaths::findExecutable(program);
}

// How long a started emulator is watched for an immediate failure.
constexpr std::chrono::milliseconds startWatch{1500};

} // namespace

TerminalLauncher::TerminalLauncher(const QString& home)
    : m_home(home.isEmpty() ? HomePath::home() : home)
{
}

QString TerminalLauncher::commandLine(const GitProfile& profile, const QString& home)
{
    const QString n = escapedQuotes(profile.gitName);
    const QString m = escapedQuotes(profile.gitEmail);
    // The greeting's echo turns backslash sequences into characters (xpg_echo), so there a
    // backslash of a field is doubled first and shows as itself. Fields without one read
    // exactly as in the exports.
    const auto shown = [](const QString& text) {
        return escapedQuotes(QString(text).replace(u'\\', QStringLiteral("\\\\")));
    };
    const QString key = HomePath::expandTilde(profile.sshKeyPath);

    QString exports = QStringLiteral("export GIT_AUTHOR_NAME=\"") + n +
                      QStringLiteral("\"; export GIT_AUTHOR_EMAIL=\"") + m +
                      QStringLiteral("\"; export GIT_COMMITTER_NAME=\"") + n +
                      QStringLiteral("\"; export GIT_COMMITTER_EMAIL=\"") + m +
                      QStringLiteral("\";");
    // A key whose file has gone would make every ssh call of git fail, so it is left out.
    // The value is the one core.sshCommand gets (git hands it to a shell, so an unusual path
    // is quoted there), then escaped for the double quotes it stands in. Ordinary paths pass
    // through both unchanged.
    if (!profile.sshKeyPath.isEmpty() && QFileInfo::exists(key)) {
        const QString command =
            ShellIntegration::sshCommand(home + QStringLiteral("/.kivora/kivora-ssh.sh"), key);
        exports += QStringLiteral(" export GIT_SSH_COMMAND=\"") + escapedQuotes(command) +
                   QStringLiteral("\";");
    }

    // "\\033" is the four characters \033: echo turns them into the escape character, which
    // makes the first line bold and green. U+2713 is a check mark. The lines are escaped whole,
    // translation included, so no text of theirs can end the quotes they stand in.
    const auto say = [&shown](const char* line, const QString& value) {
        return shown(QCoreApplication::translate("TerminalLauncher", line).arg(value));
    };
    const QString greeting =
        QStringLiteral("echo \"\\033[1;32m\u2713 ") +
        say(QT_TRANSLATE_NOOP("TerminalLauncher", "Git profile: %1"), profile.name) +
        QStringLiteral("\\033[0m\"; echo \"") +
        //: Keep the values of the two lines in one column.
        say(QT_TRANSLATE_NOOP("TerminalLauncher", "  Name:  %1"), profile.gitName) +
        QStringLiteral("\"; echo \"") +
        //: Keep the values of the two lines in one column.
        say(QT_TRANSLATE_NOOP("TerminalLauncher", "  Email: %1"), profile.gitEmail) +
        QStringLiteral("\"; echo \"\"");

    return exports + u' ' + greeting;
}

QString TerminalLauncher::shellCommand(const GitProfile& profile, const QString& home)
{
    return commandLine(profile, home) + QStringLiteral("; exec \"${SHELL:-/bin/bash}\" -i");
}

QStringList TerminalLauncher::bashInvocation(const QString& shellCommand)
{
    // bash's echo leaves backslash sequences alone unless xpg_echo is on; the option lasts
    // only until exec hands the window to the user's shell.
    return {QStringLiteral("/bin/bash"), QStringLiteral("-O"), QStringLiteral("xpg_echo"),
            QStringLiteral("-c"), shellCommand};
}

QStringList TerminalLauncher::candidates()
{
    return {QStringLiteral("x-terminal-emulator"),
            QStringLiteral("gnome-terminal"),
            QStringLiteral("kgx"),
            QStringLiteral("konsole"),
            QStringLiteral("xfce4-terminal"),
            QStringLiteral("kitty"),
            QStringLiteral("alacritty"),
            QStringLiteral("wezterm"),
            QStringLiteral("foot"),
            QStringLiteral("xterm")};
}

QStringList TerminalLauncher::emulatorArguments(const QString& emulator, const QStringList& command)
{
    const QString name = QFileInfo(emulator).fileName();
    if (name == QLatin1String("gnome-terminal") || name == QLatin1String("kgx")) {
        return QStringList{QStringLiteral("--")} + command;
    }
    if (name == QLatin1String("wezterm")) {
        return QStringList{QStringLiteral("start"), QStringLiteral("--")} + command;
    }
    if (name == QLatin1String("kitty") || name == QLatin1String("foot")) {
        return command;
    }
    // xfce4-terminal's -e takes the whole command as one string to split; -x takes the rest
    // of the arguments as they are.
    if (name == QLatin1String("xfce4-terminal")) {
        return QStringList{QStringLiteral("-x")} + command;
    }
    return QStringList{QStringLiteral("-e")} + command;
}

std::optional<TerminalLauncher::Launch> TerminalLauncher::open(const GitProfile& profile) const
{
    const QStringList command = bashInvocation(shellCommand(profile, m_home));

    QStringList names;
    const QString preferred = qEnvironmentVariable("TERMINAL");
    if (!preferred.isEmpty()) {
        names.append(preferred);
    }
    names += candidates();

    // Without a Wayland display an emulator that only speaks Wayland cannot open a window
    // (on an X11 session it would exit at once); it is not even tried.
    const bool waylandSession = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");

    QStringList tried;
    for (const QString& name : names) {
        const QString program = resolveProgram(name);
        if (program.isEmpty() || tried.contains(program)) {
            continue;
        }
        tried.append(program);

        if (needsWayland(program) && !waylandSession) {
            continue;
        }

        // The emulator's own chatter is nobody's business; the window is what counts. One
        // that cannot open a window says so by exiting at once, and the next one is tried.
        const QStringList arguments = emulatorArguments(program, command);
        const DetachedStart::Result started = DetachedStart::run(
            program, arguments, QFileInfo(m_home).isDir() ? m_home : QString(), startWatch);
        if (started.started()) {
            return Launch{program, arguments};
        }
    }
    return std::nullopt;
}

bool TerminalLauncher::needsWayland(const QString& emulator)
{
    const QString name = QFileInfo(emulator).fileName();
    return name == QLatin1String("foot") || name == QLatin1String("footclient");
}
