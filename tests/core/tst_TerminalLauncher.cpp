// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"
#include "activation/TerminalLauncher.h"
#include "ai/AIContextManager.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <iterator>
#include <utility>

namespace {

// What the window's bash runs after the command line: the user's own shell.
const QString kShellTail = QStringLiteral("; exec \"${SHELL:-/bin/bash}\" -i");
const QString kHomeMark = QStringLiteral("@HOME@");

void writeExecutable(const QString& path, const QByteArray& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(text), text.size());
    file.close();
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

// A stand-in terminal emulator: it writes its working folder and then its arguments, each
// followed by a NUL, to `output` and exits. The file appears whole (written aside, then
// renamed), so a test that sees it can read it at once.
void writeRecorder(const QString& path, const QString& output)
{
    const QByteArray out = output.toUtf8();
    writeExecutable(path, "#!/bin/bash\n"
                          "printf '%s\\0' \"$PWD\" \"$@\" > '" +
                              out + ".part'\n/bin/mv -f '" + out + ".part' '" + out + "'\n");
}

// A stand-in for the user's shell: it writes the identity variables it inherited and its
// own arguments, each followed by a NUL, to `output` and exits.
void writeShellProbe(const QString& path, const QString& output)
{
    const QByteArray out = output.toUtf8();
    writeExecutable(path, "#!/bin/bash\n"
                          "printf '%s\\0' \"$GIT_AUTHOR_NAME\" \"$GIT_AUTHOR_EMAIL\" "
                          "\"$GIT_COMMITTER_NAME\" \"$GIT_COMMITTER_EMAIL\" "
                          "\"${GIT_SSH_COMMAND+set}\" \"${GIT_SSH_COMMAND-}\" \"$@\" > '" +
                              out + ".part'\n/bin/mv -f '" + out + ".part' '" + out + "'\n");
}

QStringList nulSeparated(const QByteArray& bytes)
{
    QList<QByteArray> parts = bytes.split('\0');
    if (!parts.isEmpty() && parts.last().isEmpty()) {
        parts.removeLast();
    }
    QStringList texts;
    for (const QByteArray& part : parts) {
        texts.append(QString::fromUtf8(part));
    }
    return texts;
}

// Waits for a recorder's file; the launched program runs detached, so it may take a moment.
void waitForRecording(const QString& path, QStringList* fields)
{
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(path), 60000);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    *fields = nulSeparated(file.readAll());
}

GitProfile makeProfile(const QString& name, const QString& gitName, const QString& gitEmail,
                       const QString& key)
{
    return GitProfile::create(name, gitName, gitEmail, key);
}

// The emulators in the order they are tried, each with what it needs before the command.
const std::pair<const char*, QStringList> kEmulators[] = {
    {"x-terminal-emulator", {QStringLiteral("-e")}},
    {"gnome-terminal", {QStringLiteral("--")}},
    {"kgx", {QStringLiteral("--")}},
    {"konsole", {QStringLiteral("-e")}},
    {"xfce4-terminal", {QStringLiteral("-x")}},
    {"kitty", {}},
    {"alacritty", {QStringLiteral("-e")}},
    {"wezterm", {QStringLiteral("start"), QStringLiteral("--")}},
    {"foot", {}},
    {"xterm", {QStringLiteral("-e")}},
};

QStringList bashRunning(const QString& text)
{
    return {QStringLiteral("/bin/bash"), QStringLiteral("-O"), QStringLiteral("xpg_echo"),
            QStringLiteral("-c"), text};
}

} // namespace

class tst_TerminalLauncher : public QObject {
    Q_OBJECT

private slots:
    void commandLine_data() { profiles(); }
    void commandLine();
    void recordedArguments_data() { profiles(); }
    void recordedArguments();
    void shellSeesIdentity_data() { profiles(); }
    void shellSeesIdentity();

    void fallbackOrder_data();
    void fallbackOrder();
    void conventionOfEach_data();
    void conventionOfEach();
    void kittyBeforeXterm();
    void missingTerminalProgramIsSkipped_data();
    void missingTerminalProgramIsSkipped();
    void terminalThatCannotStartIsSkipped();
    void terminalByNameOnPath();
    void terminalNamingKnownEmulatorUsesItsConvention();
    void noEmulatorDoesNothing();
    void profileManagerOpensTerminal();
    void waylandOnlyEmulatorIsSkippedWithoutWayland();
    void emulatorThatFailsAtOnceIsPassedOver_data();
    void emulatorThatFailsAtOnceIsPassedOver();
    void emulatorStillRunningHasStarted();

private:
    void profiles();
    // Points PATH at a fresh folder of stand-in programs and returns that folder.
    static QString useBinFolder(TestHome& home);
};

void tst_TerminalLauncher::profiles()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("gitName");
    QTest::addColumn<QString>("gitEmail");
    QTest::addColumn<QString>("keyPath");  // @HOME@ stands for the test's home folder
    QTest::addColumn<QString>("keyFile");  // created under the home folder when not empty
    QTest::addColumn<QString>("sshValue"); // what GIT_SSH_COMMAND must be; empty: not set
    QTest::addColumn<QString>("expected"); // the command line L

    const QString plainExports =
        QStringLiteral("export GIT_AUTHOR_NAME=\"Jane Doe\"; export "
                       "GIT_AUTHOR_EMAIL=\"jane@work.example\"; export GIT_COMMITTER_NAME=\"Jane "
                       "Doe\"; export GIT_COMMITTER_EMAIL=\"jane@work.example\";");
    const QString plainGreeting =
        QStringLiteral("echo \"\\033[1;32m\u2713 Git profile: Work\\033[0m\"; echo \"  Name:  "
                       "Jane Doe\"; echo \"  Email: jane@work.example\"; echo \"\"");

    const QString tildeSsh = QStringLiteral("@HOME@/.kivora/kivora-ssh.sh @HOME@/.ssh/id_work");
    QTest::newRow("key file exists, tilde path")
        << "Work"
        << "Jane Doe"
        << "jane@work.example"
        << "~/.ssh/id_work"
        << ".ssh/id_work" << tildeSsh
        << plainExports + QStringLiteral(" export GIT_SSH_COMMAND=\"") + tildeSsh +
               QStringLiteral("\"; ") + plainGreeting;

    const QString absoluteSsh = QStringLiteral("@HOME@/.kivora/kivora-ssh.sh @HOME@/keys/id_abs");
    QTest::newRow("key file exists, absolute path")
        << "Work"
        << "Jane Doe"
        << "jane@work.example"
        << "@HOME@/keys/id_abs"
        << "keys/id_abs" << absoluteSsh
        << plainExports + QStringLiteral(" export GIT_SSH_COMMAND=\"") + absoluteSsh +
               QStringLiteral("\"; ") + plainGreeting;

    QTest::newRow("key file missing")
        << "Work"
        << "Jane Doe"
        << "jane@work.example"
        << "~/.ssh/id_gone" << QString() << QString() << plainExports + u' ' + plainGreeting;

    QTest::newRow("no key") << "Work"
                            << "Jane Doe"
                            << "jane@work.example" << QString() << QString() << QString()
                            << plainExports + u' ' + plainGreeting;

    QTest::newRow("double quotes")
        << "Side \"Gig\""
        << "Jo \"JJ\" Smith"
        << "jo\"x@gig.example" << QString() << QString() << QString()
        << QStringLiteral("export GIT_AUTHOR_NAME=\"Jo \\\"JJ\\\" Smith\"; "
                          "export GIT_AUTHOR_EMAIL=\"jo\\\"x@gig.example\"; "
                          "export GIT_COMMITTER_NAME=\"Jo \\\"JJ\\\" Smith\"; "
                          "export GIT_COMMITTER_EMAIL=\"jo\\\"x@gig.example\"; "
                          "echo \"\\033[1;32m\u2713 Git profile: Side "
                          "\\\"Gig\\\"\\033[0m\"; echo \"  Name:  Jo \\\"JJ\\\" "
                          "Smith\"; echo \"  Email: jo\\\"x@gig.example\"; "
                          "echo \"\"");
}

QString tst_TerminalLauncher::useBinFolder(TestHome& home)
{
    const QString bin = home.filePath(QStringLiteral("bin"));
    QDir().mkpath(bin);
    home.setEnv("PATH", bin.toUtf8());
    home.setEnv("TERMINAL", std::nullopt);
    return bin;
}

void tst_TerminalLauncher::commandLine()
{
    QFETCH(QString, name);
    QFETCH(QString, gitName);
    QFETCH(QString, gitEmail);
    QFETCH(QString, keyPath);
    QFETCH(QString, keyFile);
    QFETCH(QString, expected);

    TestHome home;
    if (!keyFile.isEmpty()) {
        home.write(keyFile, "private key\n");
    }
    const GitProfile profile =
        makeProfile(name, gitName, gitEmail, keyPath.replace(kHomeMark, home.path()));

    QCOMPARE(TerminalLauncher::commandLine(profile, home.path()),
             expected.replace(kHomeMark, home.path()));
}

void tst_TerminalLauncher::recordedArguments()
{
    QFETCH(QString, name);
    QFETCH(QString, gitName);
    QFETCH(QString, gitEmail);
    QFETCH(QString, keyPath);
    QFETCH(QString, keyFile);
    QFETCH(QString, expected);

    TestHome home;
    useBinFolder(home);
    if (!keyFile.isEmpty()) {
        home.write(keyFile, "private key\n");
    }
    const QString recorder = home.filePath(QStringLiteral("tools/record-term"));
    const QString recording = home.filePath(QStringLiteral("recording"));
    writeRecorder(recorder, recording);
    home.setEnv("TERMINAL", recorder.toUtf8());

    const GitProfile profile =
        makeProfile(name, gitName, gitEmail, keyPath.replace(kHomeMark, home.path()));
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, recorder);

    QStringList fields;
    waitForRecording(recording, &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(!fields.isEmpty());
    // The window starts in the home folder.
    QCOMPARE(fields.takeFirst(), home.path());
    const QStringList arguments =
        QStringList{QStringLiteral("-e")} +
        bashRunning(expected.replace(kHomeMark, home.path()) + kShellTail);
    QCOMPARE(fields, arguments);
    QCOMPARE(launch->arguments, arguments);
}

void tst_TerminalLauncher::shellSeesIdentity()
{
    QFETCH(QString, name);
    QFETCH(QString, gitName);
    QFETCH(QString, gitEmail);
    QFETCH(QString, keyPath);
    QFETCH(QString, keyFile);
    QFETCH(QString, sshValue);

    TestHome home;
    useBinFolder(home);
    if (!keyFile.isEmpty()) {
        home.write(keyFile, "private key\n");
    }
    const QString recorder = home.filePath(QStringLiteral("tools/record-term"));
    const QString recording = home.filePath(QStringLiteral("recording"));
    writeRecorder(recorder, recording);
    home.setEnv("TERMINAL", recorder.toUtf8());
    const QString probe = home.filePath(QStringLiteral("tools/probe-shell"));
    const QString seen = home.filePath(QStringLiteral("seen"));
    writeShellProbe(probe, seen);

    const GitProfile profile =
        makeProfile(name, gitName, gitEmail, keyPath.replace(kHomeMark, home.path()));
    QVERIFY(TerminalLauncher(home.path()).open(profile).has_value());
    QStringList fields;
    waitForRecording(recording, &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    // Working folder, "-e", then the program the window runs and its arguments.
    QVERIFY(fields.size() > 3);
    QCOMPARE(fields.at(1), QStringLiteral("-e"));

    // Run what the window would run, with the probe as the user's shell.
    QProcess window;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("SHELL"), probe);
    window.setProcessEnvironment(environment);
    window.setStandardInputFile(QProcess::nullDevice());
    window.start(fields.at(2), fields.mid(3));
    QVERIFY(window.waitForFinished(-1));
    QCOMPARE(window.exitStatus(), QProcess::NormalExit);
    QCOMPARE(window.exitCode(), 0);

    // The greeting: the first line bold green (ESC [1;32m … ESC [0m) with a check mark.
    const QString escape(QChar(0x1b));
    const QString greeting = escape + QStringLiteral("[1;32m\u2713 Git profile: ") + name + escape +
                             QStringLiteral("[0m\n  Name:  ") + gitName +
                             QStringLiteral("\n  Email: ") + gitEmail + QStringLiteral("\n\n");
    QCOMPARE(QString::fromUtf8(window.readAllStandardOutput()), greeting);

    QFile file(seen);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList variables = nulSeparated(file.readAll());
    const QString ssh = sshValue.replace(kHomeMark, home.path());
    const QStringList expected = {gitName,
                                  gitEmail,
                                  gitName,
                                  gitEmail,
                                  ssh.isEmpty() ? QString() : QStringLiteral("set"),
                                  ssh,
                                  QStringLiteral("-i")};
    QCOMPARE(variables, expected);
}

void tst_TerminalLauncher::fallbackOrder_data()
{
    QTest::addColumn<int>("first");
    for (int i = 0; i < int(std::size(kEmulators)); ++i) {
        QTest::newRow(kEmulators[i].first) << i;
    }
}

// With the emulators from `first` on present, the one at `first` is chosen.
void tst_TerminalLauncher::fallbackOrder()
{
    QFETCH(int, first);

    TestHome home;
    const QString bin = useBinFolder(home);
    // foot is tried only on a Wayland display.
    home.setEnv("WAYLAND_DISPLAY", "wayland-kivora-test");
    for (int i = first; i < int(std::size(kEmulators)); ++i) {
        const QString name = QLatin1String(kEmulators[i].first);
        writeRecorder(bin + u'/' + name, home.filePath(QStringLiteral("rec-") + name));
    }

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    const QString chosen = QLatin1String(kEmulators[first].first);
    QCOMPARE(launch->program, bin + u'/' + chosen);

    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-") + chosen), &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(!fields.isEmpty());
    fields.removeFirst();
    QCOMPARE(fields,
             kEmulators[first].second +
                 bashRunning(TerminalLauncher::commandLine(profile, home.path()) + kShellTail));
    // Only one window is opened.
    for (int i = first + 1; i < int(std::size(kEmulators)); ++i) {
        QVERIFY(!home.exists(QStringLiteral("rec-") + QLatin1String(kEmulators[i].first)));
    }
}

void tst_TerminalLauncher::conventionOfEach_data()
{
    QTest::addColumn<QString>("emulator");
    QTest::addColumn<QStringList>("prefix");
    for (const auto& [name, prefix] : kEmulators) {
        QTest::newRow(name) << QString::fromLatin1(name) << prefix;
    }
}

// Each emulator alone on PATH is used, with its own way of taking a command.
void tst_TerminalLauncher::conventionOfEach()
{
    QFETCH(QString, emulator);
    QFETCH(QStringList, prefix);

    TestHome home;
    const QString bin = useBinFolder(home);
    home.setEnv("WAYLAND_DISPLAY", "wayland-kivora-test");
    const QString recording = home.filePath(QStringLiteral("recording"));
    writeRecorder(bin + u'/' + emulator, recording);

    const GitProfile profile = makeProfile(QStringLiteral("Side \"Gig\""), QStringLiteral("Jo"),
                                           QStringLiteral("jo@gig.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + u'/' + emulator);

    QStringList fields;
    waitForRecording(recording, &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(!fields.isEmpty());
    fields.removeFirst();
    const QString text =
        QStringLiteral("export GIT_AUTHOR_NAME=\"Jo\"; export GIT_AUTHOR_EMAIL=\"jo@gig.example\"; "
                       "export GIT_COMMITTER_NAME=\"Jo\"; export "
                       "GIT_COMMITTER_EMAIL=\"jo@gig.example\"; echo \"\\033[1;32m\u2713 Git "
                       "profile: Side \\\"Gig\\\"\\033[0m\"; echo \"  Name:  Jo\"; echo \"  Email: "
                       "jo@gig.example\"; echo \"\"; exec \"${SHELL:-/bin/bash}\" -i");
    QCOMPARE(fields, prefix + bashRunning(text));
}

void tst_TerminalLauncher::kittyBeforeXterm()
{
    TestHome home;
    const QString bin = useBinFolder(home);
    writeRecorder(bin + QStringLiteral("/xterm"), home.filePath(QStringLiteral("rec-xterm")));
    writeRecorder(bin + QStringLiteral("/kitty"), home.filePath(QStringLiteral("rec-kitty")));

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/kitty"));

    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-kitty")), &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(!fields.isEmpty());
    fields.removeFirst();
    // kitty takes the program and its arguments as they are.
    QCOMPARE(fields.first(), QStringLiteral("/bin/bash"));
    QCOMPARE(fields, bashRunning(TerminalLauncher::commandLine(profile, home.path()) + kShellTail));
    QVERIFY(!home.exists(QStringLiteral("rec-xterm")));
}

void tst_TerminalLauncher::missingTerminalProgramIsSkipped_data()
{
    QTest::addColumn<QString>("terminal");
    QTest::newRow("name not on PATH") << "no-such-terminal";
    QTest::newRow("path that does not exist") << "@HOME@/nowhere/term";
    QTest::newRow("file that is not executable") << "@HOME@/plain-file";
    QTest::newRow("empty") << "";
}

void tst_TerminalLauncher::missingTerminalProgramIsSkipped()
{
    QFETCH(QString, terminal);

    TestHome home;
    const QString bin = useBinFolder(home);
    home.write(QStringLiteral("plain-file"), "#!/bin/bash\nexit 0\n");
    writeRecorder(bin + QStringLiteral("/kitty"), home.filePath(QStringLiteral("rec-kitty")));
    writeRecorder(bin + QStringLiteral("/xterm"), home.filePath(QStringLiteral("rec-xterm")));
    home.setEnv("TERMINAL", terminal.replace(kHomeMark, home.path()).toUtf8());

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/kitty"));
    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-kitty")), &fields);
}

// A program that is there but cannot be started (its interpreter is missing) is passed over.
void tst_TerminalLauncher::terminalThatCannotStartIsSkipped()
{
    TestHome home;
    const QString bin = useBinFolder(home);
    const QString broken = home.filePath(QStringLiteral("tools/broken-term"));
    writeExecutable(broken, "#!/nonexistent/interpreter\n");
    writeRecorder(bin + QStringLiteral("/xterm"), home.filePath(QStringLiteral("rec-xterm")));
    home.setEnv("TERMINAL", broken.toUtf8());

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/xterm"));
    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-xterm")), &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(fields.size() > 1);
    QCOMPARE(fields.at(1), QStringLiteral("-e"));
}

// TERMINAL may name a program on PATH; it comes before every other emulator.
void tst_TerminalLauncher::terminalByNameOnPath()
{
    TestHome home;
    const QString bin = useBinFolder(home);
    writeRecorder(bin + QStringLiteral("/my-term"), home.filePath(QStringLiteral("rec-my-term")));
    writeRecorder(bin + QStringLiteral("/x-terminal-emulator"),
                  home.filePath(QStringLiteral("rec-x")));
    home.setEnv("TERMINAL", "my-term");

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/my-term"));

    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-my-term")), &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(!fields.isEmpty());
    fields.removeFirst();
    QCOMPARE(fields,
             QStringList{QStringLiteral("-e")} +
                 bashRunning(TerminalLauncher::commandLine(profile, home.path()) + kShellTail));
    QVERIFY(!home.exists(QStringLiteral("rec-x")));
}

// TERMINAL naming one of the known emulators passes the command the way that emulator wants.
void tst_TerminalLauncher::terminalNamingKnownEmulatorUsesItsConvention()
{
    TestHome home;
    const QString bin = useBinFolder(home);
    writeRecorder(bin + QStringLiteral("/foot"), home.filePath(QStringLiteral("rec-foot")));
    writeRecorder(bin + QStringLiteral("/x-terminal-emulator"),
                  home.filePath(QStringLiteral("rec-x")));
    home.setEnv("TERMINAL", "foot");
    home.setEnv("WAYLAND_DISPLAY", "wayland-kivora-test");

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/foot"));

    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-foot")), &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    QVERIFY(!fields.isEmpty());
    fields.removeFirst();
    QCOMPARE(fields, bashRunning(TerminalLauncher::commandLine(profile, home.path()) + kShellTail));
    QVERIFY(!home.exists(QStringLiteral("rec-x")));
}

void tst_TerminalLauncher::noEmulatorDoesNothing()
{
    TestHome home;
    useBinFolder(home);
    home.write(QStringLiteral(".ssh/id_work"), "private key\n");
    const auto before = home.snapshot();

    const GitProfile profile =
        makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                    QStringLiteral("jane@work.example"), QStringLiteral("~/.ssh/id_work"));
    QVERIFY(!TerminalLauncher(home.path()).open(profile).has_value());
    QVERIFY(home.snapshot() == before);
    QVERIFY(QDir(home.filePath(QStringLiteral("bin"))).isEmpty());
}

void tst_TerminalLauncher::profileManagerOpensTerminal()
{
    TestHome home;
    const QString managerHome = home.filePath(QStringLiteral("kivora-home"));
    QDir().mkpath(managerHome);
    home.write(QStringLiteral(".ssh/id_work"), "private key\n");

    ProfileManager::Options options;
    options.home = managerHome;
    options.restoreAIContext = false;
    AIContextManager ai;
    ProfileManager manager(ai, options);

    useBinFolder(home);
    const QString recorder = home.filePath(QStringLiteral("tools/record-term"));
    const QString recording = home.filePath(QStringLiteral("recording"));
    writeRecorder(recorder, recording);
    home.setEnv("TERMINAL", recorder.toUtf8());

    const GitProfile profile =
        makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                    QStringLiteral("jane@work.example"), QStringLiteral("~/.ssh/id_work"));
    manager.openTerminal(profile);

    QStringList fields;
    waitForRecording(recording, &fields);
    if (QTest::currentTestFailed()) {
        return;
    }
    // The window starts in the manager's home folder, and the wrapper is the one there.
    const QString text =
        QStringLiteral("export GIT_AUTHOR_NAME=\"Jane Doe\"; export "
                       "GIT_AUTHOR_EMAIL=\"jane@work.example\"; export GIT_COMMITTER_NAME=\"Jane "
                       "Doe\"; export GIT_COMMITTER_EMAIL=\"jane@work.example\"; export "
                       "GIT_SSH_COMMAND=\"") +
        managerHome + QStringLiteral("/.kivora/kivora-ssh.sh ") + home.path() +
        QStringLiteral("/.ssh/id_work\"; echo \"\\033[1;32m\u2713 Git profile: Work\\033[0m\"; "
                       "echo \"  Name:  Jane Doe\"; echo \"  Email: jane@work.example\"; "
                       "echo \"\"; exec \"${SHELL:-/bin/bash}\" -i");
    const QStringList expected = QStringList{managerHome, QStringLiteral("-e")} + bashRunning(text);
    QCOMPARE(fields, expected);
}

// On an X11 session foot cannot open a window: it is passed over, even when TERMINAL or
// x-terminal-emulator names it, and the next emulator opens.
void tst_TerminalLauncher::waylandOnlyEmulatorIsSkippedWithoutWayland()
{
    TestHome home;
    const QString bin = useBinFolder(home);
    home.setEnv("WAYLAND_DISPLAY", std::nullopt);
    writeRecorder(bin + QStringLiteral("/foot"), home.filePath(QStringLiteral("rec-foot")));
    writeRecorder(bin + QStringLiteral("/xterm"), home.filePath(QStringLiteral("rec-xterm")));
    home.setEnv("TERMINAL", "foot");

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/xterm"));
    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-xterm")), &fields);
    QVERIFY(!home.exists(QStringLiteral("rec-foot")));
}

void tst_TerminalLauncher::emulatorThatFailsAtOnceIsPassedOver_data()
{
    QTest::addColumn<QByteArray>("failure");
    QTest::newRow("exit status 1") << QByteArray("echo 'cannot open display' >&2\nexit 1");
    QTest::newRow("killed by a signal") << QByteArray("kill -SEGV $$");
}

// An emulator that exits at once with an error (it could not reach its display) did not
// open a window: the next one is tried.
void tst_TerminalLauncher::emulatorThatFailsAtOnceIsPassedOver()
{
    QFETCH(QByteArray, failure);

    TestHome home;
    const QString bin = useBinFolder(home);
    const QString tried = home.filePath(QStringLiteral("tried-kitty"));
    writeExecutable(bin + QStringLiteral("/kitty"),
                    "#!/bin/bash\n: > '" + tried.toUtf8() + "'\n" + failure + "\n");
    writeRecorder(bin + QStringLiteral("/xterm"), home.filePath(QStringLiteral("rec-xterm")));

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/xterm"));
    QVERIFY(home.exists(QStringLiteral("tried-kitty")));
    QStringList fields;
    waitForRecording(home.filePath(QStringLiteral("rec-xterm")), &fields);
}

// An emulator still running when the watch ends opened its window; it is left running,
// detached, and nothing else is started.
void tst_TerminalLauncher::emulatorStillRunningHasStarted()
{
    TestHome home;
    const QString bin = useBinFolder(home);
    const QString marker = home.filePath(QStringLiteral("kitty-running"));
    const QString done = home.filePath(QStringLiteral("kitty-done"));
    writeExecutable(bin + QStringLiteral("/kitty"), "#!/bin/bash\n: > '" + marker.toUtf8() +
                                                        "'\n/bin/sleep 3\n: > '" + done.toUtf8() +
                                                        "'\n");
    writeRecorder(bin + QStringLiteral("/xterm"), home.filePath(QStringLiteral("rec-xterm")));

    const GitProfile profile = makeProfile(QStringLiteral("Work"), QStringLiteral("Jane Doe"),
                                           QStringLiteral("jane@work.example"), QString());
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, bin + QStringLiteral("/kitty"));
    QVERIFY(home.exists(QStringLiteral("kitty-running")));
    // It goes on after the launcher has returned.
    QTRY_VERIFY_WITH_TIMEOUT(home.exists(QStringLiteral("kitty-done")), 60000);
    QVERIFY(!home.exists(QStringLiteral("rec-xterm")));
}

QTEST_GUILESS_MAIN(tst_TerminalLauncher)
#include "tst_TerminalLauncher.moc"
