// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "DesktopSession.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <QUuid>
#include <QtTest>

#include <csignal>
#include <map>
#include <memory>

namespace {

struct ShellProcess {
    int pid = 0;
    std::map<QByteArray, QByteArray> environment;
    // The program name of its parent: the emulator (or the emulator's server).
    QString parentName;
};

QList<QByteArray> nulSeparated(const QByteArray& bytes)
{
    QList<QByteArray> parts = bytes.split('\0');
    if (!parts.isEmpty() && parts.last().isEmpty()) {
        parts.removeLast();
    }
    return parts;
}

QByteArray readProc(int pid, const char* file)
{
    QFile proc(QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(file)));
    return proc.open(QIODevice::ReadOnly) ? proc.readAll() : QByteArray();
}

// The interactive shell a window ended in: the process whose command line is exactly
// "/bin/bash -i" and whose environment carries the marker of this window. What it holds is
// read from the kernel (/proc/PID/environ), as the shell itself received it.
std::optional<ShellProcess> findShell(const QByteArray& marker)
{
    const QStringList pids = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : pids) {
        bool numeric = false;
        const int pid = entry.toInt(&numeric);
        if (!numeric) {
            continue;
        }
        if (nulSeparated(readProc(pid, "cmdline")) != QList<QByteArray>{"/bin/bash", "-i"}) {
            continue;
        }
        ShellProcess shell;
        shell.pid = pid;
        for (const QByteArray& variable : nulSeparated(readProc(pid, "environ"))) {
            const qsizetype equals = variable.indexOf('=');
            if (equals > 0) {
                shell.environment[variable.left(equals)] = variable.mid(equals + 1);
            }
        }
        if (shell.environment[QByteArrayLiteral("KIVORA_TEST_WINDOW")] != marker) {
            continue;
        }
        const QList<QByteArray> stat = readProc(pid, "stat").split(' ');
        // "pid (comm) state ppid …": the command name has no blanks for these programs.
        if (stat.size() > 3) {
            shell.parentName = QString::fromUtf8(readProc(stat.at(3).toInt(), "comm")).trimmed();
        }
        return shell;
    }
    return std::nullopt;
}

} // namespace

// `kivora terminal` with the real terminal emulators of Debian, each on a private X display
// with its own session bus: the shell the window ends in has the profile's identity.
class RealTerminals : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void shellHasTheIdentity_data();
    void shellHasTheIdentity();
    void xtermOpensWhenOnlyFootAndXtermAreThere_data();
    void xtermOpensWhenOnlyFootAndXtermAreThere();

private:
    // Runs `kivora terminal Work` with `extra` over the desktop's environment.
    QProcess* runTerminal(const QProcessEnvironment& extra, const QByteArray& marker);
    void checkIdentity(const ShellProcess& shell);
    void closeWindow(const ShellProcess& shell);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<DesktopSession> m_desktop;
    QString m_cli;
    QString m_keyPath;
    std::unique_ptr<QProcess> m_command;
};

const QString gitName = QStringLiteral("Ann \"Annie\" Lee");
const QString gitEmail = QStringLiteral("ann@window.example");

void RealTerminals::initTestCase()
{
    const DesktopSession::Options options;
    const QStringList missing = DesktopSession::missingPrograms(options);
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    m_cli = qEnvironmentVariable("KIVORA_CLI");
    QVERIFY2(QFile::exists(m_cli), "KIVORA_CLI names no program");

    m_home = std::make_unique<TestHome>();
    m_home->write(QStringLiteral(".ssh/id_window"), "private key\n");
    m_keyPath = m_home->filePath(QStringLiteral(".ssh/id_window"));
    StoredData data;
    data.profiles << GitProfile::create(QStringLiteral("Work"), gitName, gitEmail,
                                        QStringLiteral("~/.ssh/id_window"));
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));

    m_desktop = std::make_unique<DesktopSession>();
    QString problem;
    QVERIFY2(m_desktop->start(*m_home, options, &problem), qPrintable(problem));
}

void RealTerminals::cleanupTestCase()
{
    m_command.reset();
    m_desktop.reset();
    m_home.reset();
}

QProcess* RealTerminals::runTerminal(const QProcessEnvironment& extra, const QByteArray& marker)
{
    QProcessEnvironment env = m_desktop->environment();
    env.insert(QStringLiteral("SHELL"), QStringLiteral("/bin/bash"));
    env.insert(QStringLiteral("KIVORA_TEST_WINDOW"), QString::fromLatin1(marker));
    env.remove(QStringLiteral("TERMINAL"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    for (const QString& name : extra.keys()) {
        env.insert(name, extra.value(name));
    }
    m_command = std::make_unique<QProcess>();
    m_command->setProcessEnvironment(env);
    m_command->start(m_cli, {QStringLiteral("terminal"), QStringLiteral("Work")});
    m_command->waitForFinished(120000);
    return m_command.get();
}

void RealTerminals::checkIdentity(const ShellProcess& shell)
{
    const auto value = [&](const char* name) {
        const auto found = shell.environment.find(QByteArray(name));
        return found == shell.environment.end() ? QString() : QString::fromUtf8(found->second);
    };
    QCOMPARE(value("GIT_AUTHOR_NAME"), gitName);
    QCOMPARE(value("GIT_AUTHOR_EMAIL"), gitEmail);
    QCOMPARE(value("GIT_COMMITTER_NAME"), gitName);
    QCOMPARE(value("GIT_COMMITTER_EMAIL"), gitEmail);
    QCOMPARE(value("GIT_SSH_COMMAND"),
             m_home->filePath(QStringLiteral(".kivora/kivora-ssh.sh")) + u' ' + m_keyPath);
}

void RealTerminals::closeWindow(const ShellProcess& shell)
{
    // Hanging up the shell closes the window (and ends a terminal server's tab).
    ::kill(shell.pid, SIGHUP);
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(QStringLiteral("/proc/%1/cmdline").arg(shell.pid)) ||
                                 readProc(shell.pid, "cmdline").isEmpty(),
                             30000);
}

void RealTerminals::shellHasTheIdentity_data()
{
    QTest::addColumn<QString>("emulator");
    for (const char* name :
         {"xterm", "xfce4-terminal", "gnome-terminal", "konsole", "kitty", "alacritty"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void RealTerminals::shellHasTheIdentity()
{
    QFETCH(QString, emulator);
    const QString program = QStandardPaths::findExecutable(emulator);
    if (program.isEmpty()) {
        QSKIP(qPrintable(emulator + QStringLiteral(" is not installed")));
    }
    const QByteArray marker = QUuid::createUuid().toByteArray(QUuid::Id128);
    QProcessEnvironment extra;
    extra.insert(QStringLiteral("TERMINAL"), emulator);
    QProcess* command = runTerminal(extra, marker);
    QCOMPARE(command->exitCode(), 0);
    QCOMPARE(QString::fromUtf8(command->readAllStandardOutput()).trimmed(),
             QStringLiteral("Opened %1 for Work.").arg(emulator));

    std::optional<ShellProcess> shell;
    QElapsedTimer waited;
    waited.start();
    while (!shell && waited.elapsed() < 120000) {
        shell = findShell(marker);
        if (!shell) {
            QThread::msleep(300);
        }
    }
    QVERIFY2(shell, qPrintable(emulator + QStringLiteral(" opened no shell")));
    checkIdentity(*shell);
    closeWindow(*shell);
}

void RealTerminals::xtermOpensWhenOnlyFootAndXtermAreThere_data()
{
    QTest::addColumn<QString>("terminal");
    QTest::addColumn<QString>("waylandDisplay");
    // foot is not tried without a Wayland display, even when TERMINAL names it.
    QTest::newRow("X11 session") << QString() << QString();
    QTest::newRow("TERMINAL=foot") << QStringLiteral("foot") << QString();
    // With a Wayland display that is not there, foot starts and fails at once: it did not
    // open a window, so xterm is tried next.
    QTest::newRow("unreachable Wayland display")
        << QString() << QStringLiteral("wayland-kivora-test-none");
}

void RealTerminals::xtermOpensWhenOnlyFootAndXtermAreThere()
{
    QFETCH(QString, terminal);
    QFETCH(QString, waylandDisplay);
    for (const char* name : {"foot", "xterm"}) {
        if (QStandardPaths::findExecutable(QLatin1String(name)).isEmpty()) {
            QSKIP(qPrintable(QLatin1String(name) + QStringLiteral(" is not installed")));
        }
    }
    const QString bin = m_home->filePath(QStringLiteral("only-foot-and-xterm"));
    QDir().mkpath(bin);
    for (const char* name : {"foot", "xterm"}) {
        QFile::link(QStandardPaths::findExecutable(QLatin1String(name)),
                    bin + u'/' + QLatin1String(name));
    }

    const QByteArray marker = QUuid::createUuid().toByteArray(QUuid::Id128);
    QProcessEnvironment extra;
    extra.insert(QStringLiteral("PATH"), bin);
    if (!terminal.isEmpty()) {
        extra.insert(QStringLiteral("TERMINAL"), terminal);
    }
    if (!waylandDisplay.isEmpty()) {
        extra.insert(QStringLiteral("WAYLAND_DISPLAY"), waylandDisplay);
    }
    QProcess* command = runTerminal(extra, marker);
    QCOMPARE(command->exitCode(), 0);
    QCOMPARE(QString::fromUtf8(command->readAllStandardOutput()).trimmed(),
             QStringLiteral("Opened xterm for Work."));

    std::optional<ShellProcess> shell;
    QElapsedTimer waited;
    waited.start();
    while (!shell && waited.elapsed() < 120000) {
        shell = findShell(marker);
        if (!shell) {
            QThread::msleep(300);
        }
    }
    QVERIFY2(shell, "xterm opened no shell");
    QCOMPARE(shell->parentName, QStringLiteral("xterm"));
    checkIdentity(*shell);
    closeWindow(*shell);
}

QTEST_GUILESS_MAIN(RealTerminals)

#include "tst_RealTerminals.moc"
