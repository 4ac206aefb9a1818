// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/TerminalLauncher.h"
#include "support/TestHome.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace {

// An X server of its own, on a display number the server picks itself. It is stopped when
// this object goes, and by the kernel should the test process die first.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const QString& program)
    {
        m_process.setProgram(program);
        // -displayfd 1: take the first free display and write its number to standard output.
        // -noreset: a reset when the last client leaves could refuse the next one.
        m_process.setArguments({QStringLiteral("-displayfd"), QStringLiteral("1"),
                                QStringLiteral("-screen"), QStringLiteral("0"),
                                QStringLiteral("1024x768x24"), QStringLiteral("-nolisten"),
                                QStringLiteral("tcp"), QStringLiteral("-noreset")});
        m_process.setStandardInputFile(QProcess::nullDevice());
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
        m_process.start();
    }

    ~VirtualDisplay()
    {
        if (m_process.state() == QProcess::NotRunning) {
            return;
        }
        m_process.terminate();
        if (!m_process.waitForFinished(30000)) {
            m_process.kill();
            m_process.waitForFinished(-1);
        }
    }

    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    // ":N" once the server listens; empty when it did not come up.
    QString waitForDisplay()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(60000)) {
                return {};
            }
        }
        const QByteArray number = m_process.readLine().trimmed();
        return number.isEmpty() ? QString() : u':' + QString::fromLatin1(number);
    }

private:
    QProcess m_process;
};

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

} // namespace

class tst_TerminalWindow : public QObject {
    Q_OBJECT

private slots:
    void shellInXtermHasIdentity();
};

// A real xterm window on a virtual display: the user's shell, started at the end of the
// window's command, inherits the profile's identity.
void tst_TerminalWindow::shellInXtermHasIdentity()
{
    const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
    if (xvfb.isEmpty()) {
        QSKIP("Xvfb is not installed (Debian package xvfb)");
    }
    if (QStandardPaths::findExecutable(QStringLiteral("xterm")).isEmpty()) {
        QSKIP("xterm is not installed (Debian package xterm)");
    }

    TestHome home;
    VirtualDisplay display(xvfb);
    const QString displayName = display.waitForDisplay();
    QVERIFY2(!displayName.isEmpty(), "Xvfb did not report a display");

    // The user's shell is a probe that writes what it inherited, then exits (closing xterm).
    const QString seen = home.filePath(QStringLiteral("seen"));
    const QString probe = home.filePath(QStringLiteral("probe-shell"));
    home.write(QStringLiteral("probe-shell"),
               "#!/bin/bash\n"
               "printf '%s\\0' \"$GIT_AUTHOR_NAME\" \"$GIT_AUTHOR_EMAIL\" "
               "\"$GIT_COMMITTER_NAME\" \"$GIT_COMMITTER_EMAIL\" \"$GIT_SSH_COMMAND\" \"$@\" > '" +
                   seen.toUtf8() + ".part'\n/bin/mv -f '" + seen.toUtf8() + ".part' '" +
                   seen.toUtf8() + "'\n");
    // xterm keeps SHELL only for a program that everyone may run and that /etc/shells or its
    // validShells resource lists; otherwise it puts the login shell there.
    QVERIFY(QFile::setPermissions(probe, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                             QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                             QFile::ExeOther));
    home.write(QStringLiteral("xterm-resources"), "*validShells: " + probe.toUtf8() + '\n');

    home.setEnv("DISPLAY", displayName.toUtf8());
    home.setEnv("WAYLAND_DISPLAY", std::nullopt);
    home.setEnv("TERMINAL", "xterm");
    home.setEnv("SHELL", probe.toUtf8());
    home.setEnv("XENVIRONMENT", home.filePath(QStringLiteral("xterm-resources")).toUtf8());
    home.write(QStringLiteral(".ssh/id_window"), "private key\n");

    const QString gitName = QStringLiteral("Ann \"Annie\" Lee");
    const QString gitEmail = QStringLiteral("ann@window.example");
    const GitProfile profile = GitProfile::create(QStringLiteral("Window \"E2E\""), gitName,
                                                  gitEmail, QStringLiteral("~/.ssh/id_window"));
    const auto launch = TerminalLauncher(home.path()).open(profile);
    QVERIFY(launch.has_value());
    QCOMPARE(launch->program, QStandardPaths::findExecutable(QStringLiteral("xterm")));
    QVERIFY(!launch->arguments.isEmpty());
    QCOMPARE(launch->arguments.first(), QStringLiteral("-e"));

    QTRY_VERIFY_WITH_TIMEOUT(home.exists(QStringLiteral("seen")), 120000);
    QFile file(seen);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList expected = {gitName,
                                  gitEmail,
                                  gitName,
                                  gitEmail,
                                  home.path() + QStringLiteral("/.kivora/kivora-ssh.sh ") +
                                      home.path() + QStringLiteral("/.ssh/id_window"),
                                  QStringLiteral("-i")};
    QCOMPARE(nulSeparated(file.readAll()), expected);
}

QTEST_GUILESS_MAIN(tst_TerminalWindow)
#include "tst_TerminalWindow.moc"
