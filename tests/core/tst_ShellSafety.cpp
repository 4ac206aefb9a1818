// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"
#include "activation/ShellIntegration.h"
#include "activation/ShellQuote.h"
#include "activation/TerminalLauncher.h"
#include "ai/AIContextManager.h"
#include "model/LeftoverTemporaryFiles.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <memory>
#include <sys/stat.h>
#include <utime.h>

namespace {

mode_t modeOf(const QString& path)
{
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0) {
        return 0;
    }
    return info.st_mode & 07777;
}

void makeOld(const QString& path)
{
    const time_t past = ::time(nullptr) - 3600;
    const utimbuf times{past, past};
    QVERIFY(::utime(QFile::encodeName(path).constData(), &times) == 0);
}

// Sets the umask for the life of the object.
class Umask {
public:
    explicit Umask(mode_t mask) : m_old(::umask(mask)) {}
    ~Umask() { ::umask(m_old); }

private:
    mode_t m_old;
};

} // namespace

// Fields typed by the user or read from an imported file never run as shell code: not in the
// AI environment file every shell sources, not in the ssh command git runs, not in the
// terminal's command line. And the files git and the shells run stay the user's own.
class tst_ShellSafety : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AIContextManager> m_ai;
    CommandRunner m_runner;

    std::unique_ptr<ProfileManager> makeManager()
    {
        ProfileManager::Options options;
        return std::make_unique<ProfileManager>(*m_ai.get(), options);
    }

    QString pwned(const QString& name = QStringLiteral("pwned")) const
    {
        return m_home->filePath(name);
    }

    // Runs bash with the test's home; returns standard output.
    QByteArray bash(const QString& script, const QProcessEnvironment& extra = {}) const
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const QString& key : extra.keys()) {
            env.insert(key, extra.value(key));
        }
        process.setProcessEnvironment(env);
        process.setWorkingDirectory(m_home->path());
        process.start(QStringLiteral("/bin/bash"), {QStringLiteral("-c"), script});
        process.waitForFinished(-1);
        return process.readAllStandardOutput();
    }

    // A stand-in ssh first on PATH: it writes its arguments, one a line, to `record`.
    QProcessEnvironment fakeSsh(const QString& record) const
    {
        m_home->write(QStringLiteral("bin/ssh"),
                      "#!/bin/bash\nprintf '%s\\n' \"$@\" > '" + record.toUtf8() + "'\n");
        QFile::setPermissions(m_home->filePath(QStringLiteral("bin/ssh")),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                  QFileDevice::ExeOwner);
        QProcessEnvironment env;
        env.insert(QStringLiteral("PATH"),
                   m_home->filePath(QStringLiteral("bin")) + u':' + qEnvironmentVariable("PATH"));
        return env;
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_ai = std::make_unique<AIContextManager>();
    }
    void cleanup()
    {
        m_ai.reset();
        m_home.reset();
    }

    // ai-env.sh ------------------------------------------------------------------------

    void controlCharactersNeverLeaveTheComment_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("aiEnabled");
        QTest::newRow("line feed") << QStringLiteral("Work\ntouch @P") << false;
        QTest::newRow("carriage return") << QStringLiteral("Work\rtouch @P\r") << false;
        QTest::newRow("cr lf, configured") << QStringLiteral("Work\r\ntouch @P") << true;
        QTest::newRow("nul") << QString(QStringLiteral("Work") + QChar(0) +
                                        QStringLiteral("\ntouch @P"))
                             << true;
        QTest::newRow("vertical tab and form feed")
            << QStringLiteral("Work\v\ftouch @P\n") << false;
        QTest::newRow("every C0 character") << [] {
            QString text = QStringLiteral("W");
            for (char16_t c = 0; c < 0x20; ++c) {
                text += QChar(c);
            }
            return text + QStringLiteral("\ntouch @P\x7f");
        }() << true;
    }

    void controlCharactersNeverLeaveTheComment()
    {
        QFETCH(QString, name);
        QFETCH(bool, aiEnabled);
        name.replace(QStringLiteral("@P"), pwned());
        GitProfile profile =
            GitProfile::create(name, QStringLiteral("Ada"), QStringLiteral("ada@x"), QString());
        profile.aiConfig.isEnabled = aiEnabled;
        profile.aiConfig.provider = AIProvider::OpenAI;
        profile.aiConfig.apiKey = QStringLiteral("sk-1");
        ShellIntegration(m_home->path(), m_runner).ensureAIEnvFile(profile);

        const QByteArray text = m_home->read(QStringLiteral(".kivora/ai-env.sh"));
        // Exactly the lines of the form, every other one a comment or an export/unset.
        const QList<QByteArray> lines = text.split('\n');
        QCOMPARE(lines.size(), aiEnabled ? 4 : 3);
        QCOMPARE(lines.last(), QByteArray());
        for (char c = 0; c < 0x20; ++c) {
            if (c != '\n') {
                QVERIFY2(!text.contains(c), qPrintable(QStringLiteral("byte %1").arg(int(c))));
            }
        }
        QVERIFY(!text.contains('\x7f'));
        // The name is still recognisable, with blanks where the control characters were.
        QVERIFY(text.contains("for profile: W"));

        // Sourced by a real bash, nothing runs.
        bash(QStringLiteral("source ~/.kivora/ai-env.sh"));
        QVERIFY(!QFileInfo::exists(pwned()));
    }

    void ordinaryNamesKeepTheirBytes()
    {
        const GitProfile profile =
            GitProfile::create(QStringLiteral("Wörk \"x\" $(y) 'z' \\"), QStringLiteral("A"),
                               QStringLiteral("a@x"), QString());
        QCOMPARE(ShellIntegration::aiEnvText(profile, QDateTime::currentDateTimeUtc()),
                 QByteArray("# No AI configuration for profile: Wörk \"x\" $(y) 'z' \\\n"
                            "unset OPENAI_API_KEY ANTHROPIC_API_KEY GOOGLE_AI_API_KEY "
                            "AZURE_OPENAI_API_KEY OLLAMA_BASE_URL 2>/dev/null\n"));
    }

    // core.sshCommand ------------------------------------------------------------------

    void plainPathsAreNotQuoted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("word");
        QTest::newRow("home key") << "/home/ada/.ssh/id_work"
                                  << "/home/ada/.ssh/id_work";
        QTest::newRow("every plain character") << "/a-Z_0.9/~+@%:,=x"
                                               << "/a-Z_0.9/~+@%:,=x";
        QTest::newRow("tilde first") << "~ada/k"
                                     << "'~ada/k'";
        QTest::newRow("blank") << "/keys/my key"
                               << "'/keys/my key'";
        QTest::newRow("command") << "/x; touch /tmp/p;"
                                 << "'/x; touch /tmp/p;'";
        QTest::newRow("single quote") << "/k/it's"
                                      << "'/k/it'\\''s'";
        QTest::newRow("dollar") << "/k/$(id)"
                                << "'/k/$(id)'";
        QTest::newRow("line end") << "/k/a\nb"
                                  << "'/k/a\nb'";
        QTest::newRow("empty") << ""
                               << "''";
    }

    void plainPathsAreNotQuoted()
    {
        QFETCH(QString, text);
        QFETCH(QString, word);
        QCOMPARE(ShellQuote::word(text), word);
    }

    void keyPathNeverRunsAndStaysOnePath_data()
    {
        QTest::addColumn<QString>("keyName"); // under the home folder
        QTest::newRow("semicolon") << "x; touch @P;";
        QTest::newRow("command substitution") << "k$(touch @P)";
        QTest::newRow("backticks") << "k`touch @P`";
        QTest::newRow("blank") << "my key";
        QTest::newRow("quote") << "it's \"mine\"";
        QTest::newRow("pipe and ampersand") << "k | touch @P & x";
    }

    void keyPathNeverRunsAndStaysOnePath()
    {
        QFETCH(QString, keyName);
        keyName.replace(QStringLiteral("@P"), pwned());
        const QString key = m_home->path() + QStringLiteral("/keys/") + keyName;
        const auto manager = makeManager();
        manager->applyGlobally(GitProfile::create(QStringLiteral("K"), QStringLiteral("k"),
                                                  QStringLiteral("k@x"), key));

        // Real git runs core.sshCommand for a fetch over ssh; the stand-in ssh records what
        // the wrapper hands it.
        const QString record = m_home->filePath(QStringLiteral("ssh-args"));
        const QProcessEnvironment env = fakeSsh(record);
        bash(QStringLiteral("git ls-remote ssh://git@127.0.0.1/repo.git"), env);
        QVERIFY(!QFileInfo::exists(pwned()));
        QFile file(record);
        QVERIFY2(file.open(QIODevice::ReadOnly), "git did not run the ssh command");
        const QStringList args = QString::fromUtf8(file.readAll()).split(u'\n');
        QVERIFY(args.size() >= 3);
        QCOMPARE(args.at(0), QStringLiteral("-i"));
        QCOMPARE(args.at(1), key);
    }

    void homeWithABlankWorks()
    {
        // A home folder whose path has a blank: the wrapper path itself needs quoting.
        const QString spaced = m_home->filePath(QStringLiteral("Ada Lovelace"));
        QDir().mkpath(spaced);
        ProfileManager::Options options;
        options.home = spaced;
        ProfileManager manager(*m_ai.get(), options);
        manager.applyGlobally(GitProfile::create(QStringLiteral("K"), QStringLiteral("k"),
                                                 QStringLiteral("k@x"),
                                                 QStringLiteral("~/.ssh/id_work")));
        const QString value = m_home->gitConfig(QStringLiteral("core.sshCommand"));
        QCOMPARE(value, u'\'' + spaced + QStringLiteral("/.kivora/kivora-ssh.sh' ") +
                            m_home->path() + QStringLiteral("/.ssh/id_work"));
        const QString record = m_home->filePath(QStringLiteral("ssh-args"));
        bash(QStringLiteral("git ls-remote ssh://git@127.0.0.1/repo.git"), fakeSsh(record));
        QCOMPARE(m_home->read(QStringLiteral("ssh-args")).split('\n').value(1),
                 (m_home->path() + QStringLiteral("/.ssh/id_work")).toUtf8());
    }

    // The terminal's command line -----------------------------------------------------

    void terminalFieldsStayText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("gitName");
        QTest::addColumn<QString>("gitEmail");
        QTest::newRow("command substitution") << "W $(touch @P)"
                                              << "Ada $(touch @P)"
                                              << "a$(touch @P)@x";
        QTest::newRow("backticks") << "W `touch @P`"
                                   << "`touch @P`"
                                   << "a@x`touch @P`";
        QTest::newRow("variables") << "$HOME"
                                   << "${PATH}"
                                   << "$USER@x";
        QTest::newRow("trailing backslash") << "W\\"
                                            << "Ada\\"
                                            << "a@x\\";
        QTest::newRow("backslash and quote") << "\\\"; touch @P; \""
                                             << "Ada\\\"; touch @P; echo \""
                                             << "a\\n@x";
    }

    void terminalFieldsStayText()
    {
        QFETCH(QString, name);
        QFETCH(QString, gitName);
        QFETCH(QString, gitEmail);
        for (QString* field : {&name, &gitName, &gitEmail}) {
            field->replace(QStringLiteral("@P"), pwned());
        }
        const GitProfile profile = GitProfile::create(name, gitName, gitEmail, QString());
        const QStringList invocation = TerminalLauncher::bashInvocation(
            TerminalLauncher::commandLine(profile, m_home->path()) +
            QStringLiteral("; printf '%s\\0' \"$GIT_AUTHOR_NAME\" \"$GIT_AUTHOR_EMAIL\" "
                           "\"$GIT_COMMITTER_NAME\" \"$GIT_COMMITTER_EMAIL\""));
        QProcess window;
        window.setWorkingDirectory(m_home->path());
        window.start(invocation.first(), invocation.mid(1));
        QVERIFY(window.waitForFinished(-1));
        QCOMPARE(window.exitCode(), 0);
        QVERIFY(!QFileInfo::exists(pwned()));

        const QByteArray output = window.readAllStandardOutput();
        const qsizetype end = output.lastIndexOf("\n\n") + 2;
        // The greeting shows each field as it is.
        const QString escape(QChar(0x1b));
        QCOMPARE(QString::fromUtf8(output.left(end)),
                 escape + QStringLiteral("[1;32m\u2713 Git profile: ") + name + escape +
                     QStringLiteral("[0m\n  Name:  ") + gitName + QStringLiteral("\n  Email: ") +
                     gitEmail + QStringLiteral("\n\n"));
        // And the shell holds them exactly.
        QList<QByteArray> values = output.mid(end).split('\0');
        values.removeLast();
        QCOMPARE(values, (QList<QByteArray>{gitName.toUtf8(), gitEmail.toUtf8(), gitName.toUtf8(),
                                            gitEmail.toUtf8()}));
    }

    void terminalSshCommandKeepsAPathWithABlank()
    {
        const QString key =
            m_home->filePath(QStringLiteral("my keys/id $(touch ") + pwned() + QStringLiteral(")"));
        m_home->write(QStringLiteral("my keys/id $(touch ") + pwned() + u')', "key");
        ShellIntegration(m_home->path(), m_runner).ensureSSHWrapper();
        const GitProfile profile = GitProfile::create(QStringLiteral("W"), QStringLiteral("A"),
                                                      QStringLiteral("a@x"), key);
        const QStringList invocation = TerminalLauncher::bashInvocation(
            TerminalLauncher::commandLine(profile, m_home->path()) +
            QStringLiteral("; git ls-remote ssh://git@127.0.0.1/repo.git"));
        const QString record = m_home->filePath(QStringLiteral("ssh-args"));
        const QProcessEnvironment extra = fakeSsh(record);
        QProcess window;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("PATH"), extra.value(QStringLiteral("PATH")));
        window.setProcessEnvironment(env);
        window.start(invocation.first(), invocation.mid(1));
        QVERIFY(window.waitForFinished(-1));
        QVERIFY(!QFileInfo::exists(pwned()));
        QCOMPARE(m_home->read(QStringLiteral("ssh-args")).split('\n').value(1), key.toUtf8());
    }

    void startupFileThatIsAFifoIsSkipped()
    {
        const QString fifo = m_home->filePath(QStringLiteral(".bashrc"));
        QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
        m_home->write(QStringLiteral(".zshrc"), "# mine\n");
        // Would wait for a writer for ever if the FIFO were opened.
        ShellIntegration(m_home->path(), m_runner).ensureAIEnvFile(GitProfile::empty());
        struct stat info {};
        QVERIFY(::lstat(QFile::encodeName(fifo).constData(), &info) == 0 && S_ISFIFO(info.st_mode));
        QCOMPARE(m_home->read(QStringLiteral(".zshrc")),
                 QByteArray("# mine\n") + ShellIntegration::hookText());
    }

    // Permissions ----------------------------------------------------------------------

    void wrapperIsPrivateWhateverTheUmask()
    {
        const Umask open(0);
        ShellIntegration shell(m_home->path(), m_runner);
        shell.ensureSSHWrapper();
        QCOMPARE(modeOf(shell.wrapperPath()), mode_t(0700));
        QCOMPARE(modeOf(shell.folder()), mode_t(0700));
        shell.ensureAIEnvFile(GitProfile::empty());
        QCOMPARE(modeOf(shell.aiEnvPath()), mode_t(0600));
    }

    void existingFoldersAreTightened()
    {
        QDir().mkpath(m_home->filePath(QStringLiteral(".kivora")));
        QDir().mkpath(m_home->filePath(QStringLiteral(".git-switcher")));
        ::chmod(QFile::encodeName(m_home->filePath(QStringLiteral(".kivora"))).constData(), 0755);
        ::chmod(QFile::encodeName(m_home->filePath(QStringLiteral(".git-switcher"))).constData(),
                0777);
        m_home->write(QStringLiteral(".kivora/kivora-ssh.sh"), "#!/bin/bash\nexec ssh \"$@\"");
        ::chmod(QFile::encodeName(m_home->filePath(QStringLiteral(".kivora/kivora-ssh.sh")))
                    .constData(),
                0777);
        const auto manager = makeManager(); // a start is enough
        QCOMPARE(modeOf(m_home->filePath(QStringLiteral(".kivora"))), mode_t(0700));
        QCOMPARE(modeOf(m_home->filePath(QStringLiteral(".git-switcher"))), mode_t(0700));
        // The wrapper keeps its bytes and stays executable; only others lose write access.
        QCOMPARE(modeOf(m_home->filePath(QStringLiteral(".kivora/kivora-ssh.sh"))), mode_t(0755));
        QCOMPARE(m_home->read(QStringLiteral(".kivora/kivora-ssh.sh")),
                 QByteArray("#!/bin/bash\nexec ssh \"$@\""));
    }

    void leftoversOfAKilledWriteAreRemovedAtStart()
    {
        const QStringList leftovers{QStringLiteral(".git-switcher/profiles.json.kivora-a1B2c3"),
                                    QStringLiteral(".kivora/ai-env.sh.kivora-ZZZZZZ"),
                                    QStringLiteral(".kivora/kivora-ssh.sh.kivora-000000"),
                                    QStringLiteral(".bashrc.kivora-xY9xY9")};
        const QStringList kept{
            QStringLiteral(".git-switcher/profiles.json.kivora-young1"), // maybe being written
            QStringLiteral(".git-switcher/profiles.json.backup"),
            QStringLiteral(".git-switcher/profiles.json.kivora-toolong7"),
            QStringLiteral(".git-switcher/notes.kivora-abcdef"),
            QStringLiteral(".kivora/mine.txt"),
            QStringLiteral(".profile.kivora-abcdef"),
        };
        for (const QString& file : leftovers + kept) {
            m_home->write(file, "half");
            if (!file.contains(QLatin1String("young"))) {
                makeOld(m_home->filePath(file));
            }
        }
        // A link with a leftover's name is not a file of ours.
        QFile::link(m_home->filePath(QStringLiteral(".kivora/mine.txt")),
                    m_home->filePath(QStringLiteral(".kivora/ai-env.sh.kivora-link00")));
        const auto manager = makeManager();
        for (const QString& file : leftovers) {
            QVERIFY2(!m_home->exists(file), qPrintable(file));
        }
        for (const QString& file : kept) {
            QVERIFY2(m_home->exists(file), qPrintable(file));
        }
        QVERIFY(QFileInfo(m_home->filePath(QStringLiteral(".kivora/ai-env.sh.kivora-link00")))
                    .isSymLink());
    }

    void leftoverNames()
    {
        const QString target = QStringLiteral("profiles.json");
        QVERIFY(LeftoverTemporaryFiles::isTemporaryFor(
            QStringLiteral("profiles.json.kivora-Ab3dE6"), target));
        QVERIFY(!LeftoverTemporaryFiles::isTemporaryFor(
            QStringLiteral("profiles.json.kivora-Ab3dE"), target));
        QVERIFY(!LeftoverTemporaryFiles::isTemporaryFor(
            QStringLiteral("profiles.json.kivora-Ab3-E6"), target));
        QVERIFY(!LeftoverTemporaryFiles::isTemporaryFor(QStringLiteral("profiles.json"), target));
    }
};

QTEST_GUILESS_MAIN(tst_ShellSafety)
#include "tst_ShellSafety.moc"
