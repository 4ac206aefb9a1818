// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppDriver.h"
#include "activation/InstanceChannel.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/stat.h>

// While the tray application runs, the command line's profile changes are carried out by it,
// so that its windows show them at once (its popover's rows, read over the accessibility
// bus); what only reads stays in the command line.
class tst_CliHandOn : public QObject {
    Q_OBJECT

    struct Result {
        int status = -1;
        QString out;
        QString err;
    };

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AppDriver> m_driver;

    // The popover's profile rows, by name, and which one is active.
    QStringList popoverRows(QString* active = nullptr) const
    {
        QStringList names;
        const auto popover = m_driver->openPopover();
        if (!popover) {
            return names;
        }
        for (const AtSpiClient::Node& row :
             m_driver->a11y().findAll(*popover, QStringLiteral("radio button"), QString())) {
            names << m_driver->a11y().name(row);
            if (active && m_driver->a11y().hasState(row, QStringLiteral("checked"))) {
                *active = names.last();
            }
        }
        return names;
    }

    Result kivora(const QStringList& arguments, const QByteArray& input = {}) const
    {
        QProcess process;
        process.setProcessEnvironment(m_driver->environment());
        process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
        process.write(input);
        process.closeWriteChannel();
        process.waitForFinished(60000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    std::optional<StoredData> stored() const
    {
        return ProfileCodec::decodeStore(
            m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    }

    QStringList storedNames() const
    {
        QStringList names;
        const auto data = stored();
        for (const GitProfile& p : data->profiles) {
            names << p.name;
        }
        return names;
    }

    // Whether the application answers on its socket (an unknown command gets an answer too).
    static bool appAnswers()
    {
        return InstanceChannel::ask({{QStringLiteral("command"), QStringLiteral("hello")}}, 2000)
                   .kind == InstanceChannel::Answer::Kind::Answered;
    }

    static QJsonObject askApp(const QStringList& arguments)
    {
        return InstanceChannel::ask(
                   {{QStringLiteral("command"), QStringLiteral("cli")},
                    {QStringLiteral("arguments"), QJsonArray::fromStringList(arguments)}},
                   20000)
            .reply;
    }

private slots:
    void initTestCase()
    {
        const QStringList missing = AppDriver::missingPrograms();
        if (!missing.isEmpty()) {
            QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
        }
        m_home = std::make_unique<TestHome>();
        m_driver = std::make_unique<AppDriver>();
        QString problem;
        QVERIFY2(m_driver->startDesktop(*m_home, &problem), qPrintable(problem));
        // This process asks the application on the socket in the desktop's runtime folder.
        qputenv("XDG_RUNTIME_DIR",
                m_driver->environment().value(QStringLiteral("XDG_RUNTIME_DIR")).toUtf8());
        const GitProfile work = GitProfile::create(QStringLiteral("Work"), QStringLiteral("W"),
                                                   QStringLiteral("w@corp"), QString());
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({{work}, work.id}));

        QVERIFY(m_driver->launch());
        QCOMPARE(popoverRows(), QStringList{QStringLiteral("Work")});
        // Ready once it answers on its socket.
        QTRY_VERIFY_WITH_TIMEOUT(appAnswers(), 20000);
    }

    void cleanupTestCase()
    {
        m_driver.reset();
        m_home.reset();
    }

    void changesGoThroughTheApplication()
    {
        Result r =
            kivora({QStringLiteral("add"), QStringLiteral("home box"), QStringLiteral("--git-name"),
                    QStringLiteral("H"), QStringLiteral("--git-email"), QStringLiteral("h@home")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("Added profile Home Box.\n"));
        QCOMPARE(storedNames(), (QStringList{QStringLiteral("Work"), QStringLiteral("Home Box")}));
        // The running popover lists it at once.
        QTRY_COMPARE_WITH_TIMEOUT(popoverRows(),
                                  (QStringList{QStringLiteral("Work"), QStringLiteral("Home Box")}),
                                  10000);

        // Were the application unaware of "Home Box", its next save would drop it.
        r = kivora({QStringLiteral("remove"), QStringLiteral("work")});
        QCOMPARE(r.status, 0);
        QCOMPARE(storedNames(), QStringList{QStringLiteral("Home Box")});
        QTRY_COMPARE_WITH_TIMEOUT(popoverRows(), QStringList{QStringLiteral("Home Box")}, 10000);

        // The switch is the application's work: this command line finds no git on its PATH,
        // and could not have set the identity itself.
        QProcess process;
        QProcessEnvironment env = m_driver->environment();
        env.insert(QStringLiteral("PATH"), m_home->filePath(QStringLiteral("no-programs")));
        process.setProcessEnvironment(env);
        process.start(qEnvironmentVariable("KIVORA_CLI"),
                      {QStringLiteral("use"), QStringLiteral("home")});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral("h@home"));
        QCOMPARE(stored()->activeProfileID, std::optional<QUuid>(stored()->profiles.first().id));
        // The popover's row says it is the active profile.
        QString active;
        QTRY_VERIFY_WITH_TIMEOUT((popoverRows(&active), active == QLatin1String("Home Box")),
                                 10000);
    }

    void standardInputAndErrorsTravel()
    {
        Result r =
            kivora({QStringLiteral("edit"), QStringLiteral("Home Box"), QStringLiteral("--ai"),
                    QStringLiteral("on"), QStringLiteral("--ai-key-stdin")},
                   "sk-through-the-app\n");
        QCOMPARE(r.status, 0);
        QCOMPARE(stored()->profiles.first().aiConfig.apiKey, QStringLiteral("sk-through-the-app"));

        r = kivora({QStringLiteral("use"), QStringLiteral("nobody")});
        QCOMPARE(r.status, 2);
        QVERIFY(r.err.startsWith(QStringLiteral("kivora: no profile matches \"nobody\"")));

        const QString file = m_home->filePath(QStringLiteral("export.json"));
        QCOMPARE(kivora({QStringLiteral("export"), file}).status, 0);
        // A relative file name is resolved where the command was typed.
        QProcess process;
        process.setProcessEnvironment(m_driver->environment());
        process.setWorkingDirectory(m_home->path());
        process.start(qEnvironmentVariable("KIVORA_CLI"),
                      {QStringLiteral("import"), QStringLiteral("export.json")});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(storedNames(),
                 (QStringList{QStringLiteral("Home Box"), QStringLiteral("Home Box")}));
        QCOMPARE(m_driver->app()->state(), QProcess::Running);
    }

    // A command line that cannot reach the application (another session's runtime folder)
    // writes the file itself; the application's next change builds on it instead of
    // overwriting it with its older list.
    void changesMadeBesideTheApplicationAreKept()
    {
        const QStringList before = storedNames();
        QTemporaryDir elsewhere;
        QVERIFY(QFile::setPermissions(elsewhere.path(), QFileDevice::Permissions(0x7000)));
        QProcess beside;
        QProcessEnvironment env = m_driver->environment();
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), elsewhere.path());
        beside.setProcessEnvironment(env);
        beside.start(qEnvironmentVariable("KIVORA_CLI"),
                     {QStringLiteral("add"), QStringLiteral("beside"), QStringLiteral("--git-name"),
                      QStringLiteral("B"), QStringLiteral("--git-email"), QStringLiteral("b@x")});
        QVERIFY(beside.waitForFinished(60000));
        QCOMPARE(beside.exitCode(), 0);
        const QStringList beside1 = before + QStringList{QStringLiteral("Beside")};
        QCOMPARE(storedNames(), beside1);
        // The application notices the file changed beside it: its popover lists the new
        // profile before the application makes any change of its own.
        QTRY_COMPARE_WITH_TIMEOUT(popoverRows(), beside1, 20000);

        const Result r =
            kivora({QStringLiteral("add"), QStringLiteral("through"), QStringLiteral("--git-name"),
                    QStringLiteral("T"), QStringLiteral("--git-email"), QStringLiteral("t@x")});
        QCOMPARE(r.status, 0);
        const QStringList both = beside1 + QStringList{QStringLiteral("Through")};
        QCOMPARE(storedNames(), both);
    }

    // The socket takes only what changes profiles: a listing or an export (API keys and all)
    // is never handed out through it, even when asked for directly.
    void readingCommandsAreNotTaken()
    {
        const QString file = m_home->filePath(QStringLiteral("through-the-socket.json"));
        for (const QStringList& arguments :
             {QStringList{QStringLiteral("list")}, QStringList{QStringLiteral("export"), file},
              QStringList{QStringLiteral("current"), QStringLiteral("--json")}}) {
            const QJsonObject reply = askApp(arguments);
            QCOMPARE(reply.value(QStringLiteral("ok")).toBool(true), false);
            QVERIFY(!reply.contains(QStringLiteral("out")));
        }
        QVERIFY(!QFileInfo::exists(file));

        // The socket is the user's alone, in a folder only they may enter.
        const QString socket = InstanceChannel::socketPath();
        struct stat info {};
        QVERIFY2(::stat(QFile::encodeName(socket).constData(), &info) == 0, qPrintable(socket));
        QVERIFY(S_ISSOCK(info.st_mode));
        QCOMPARE(info.st_mode & 07777, mode_t(0600));
        QVERIFY(!socket.startsWith(QLatin1String("/tmp/kivora")));
    }

    // The user edits the profile file by hand while the application runs: the popover follows
    // it, and says so while what was saved cannot be read.
    void aFileEditedByHandIsFollowed()
    {
        auto data = stored();
        QVERIFY(data);
        data->profiles << GitProfile::create(QStringLiteral("By Hand"), QStringLiteral("H"),
                                             QStringLiteral("h@x"), QString());
        const QString file = QStringLiteral(".git-switcher/profiles.json");
        const QByteArray good = ProfileCodec::encodeStore(*data);
        m_home->write(file, good);
        QTRY_VERIFY_WITH_TIMEOUT(popoverRows().contains(QLatin1String("By Hand")), 20000);

        const QStringList rows = popoverRows();
        m_home->write(file, "{\"profiles\":[");
        // What the popover's shown error sentence says.
        const auto alert = [this]() -> QString {
            const auto popover = m_driver->openPopover();
            if (!popover) {
                return {};
            }
            QStringList shown;
            for (const AtSpiClient::Node& node :
                 m_driver->a11y().findAll(*popover, QStringLiteral("alert message"), QString())) {
                if (m_driver->a11y().hasState(node, QStringLiteral("showing"))) {
                    shown << m_driver->a11y().name(node);
                }
            }
            return shown.join(QLatin1Char('\n'));
        };
        QTRY_VERIFY_WITH_TIMEOUT(alert().contains(QLatin1String("cannot be read as profiles")),
                                 20000);
        QCOMPARE(popoverRows(), rows);
        QCOMPARE(m_home->read(file), QByteArray("{\"profiles\":["));
        const auto popover = m_driver->openPopover();
        QVERIFY(popover);
        QVERIFY(m_driver->saveScreenshot(*popover, QStringLiteral("popover-file-unreadable.png")));

        m_home->write(file, good);
        QTRY_VERIFY_WITH_TIMEOUT(!alert().contains(QLatin1String("cannot be read")), 20000);
        QCOMPARE(popoverRows(), rows);
    }
};

QTEST_GUILESS_MAIN(tst_CliHandOn)
#include "tst_CliHandOn.moc"
