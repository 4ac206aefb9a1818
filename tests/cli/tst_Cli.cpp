// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/LocalHttpServer.h"
#include "support/TestHome.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <memory>

// The built `kivora` run as a user runs it, in a temporary home with the real git.
class tst_Cli : public QObject {
    Q_OBJECT

    struct Result {
        int status = -1;
        QString out;
        QString err;
    };

    std::unique_ptr<TestHome> m_home;

    Result kivora(const QStringList& arguments, const QByteArray& input = {}) const
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        // No display of any kind: the command line must not need one.
        env.remove(QStringLiteral("DISPLAY"));
        env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        env.remove(QStringLiteral("QT_QPA_PLATFORM"));
        process.setProcessEnvironment(env);
        process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
        process.write(input);
        process.closeWriteChannel();
        process.waitForFinished(-1);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    void setGlobalIdentity(const QString& name, const QString& email) const
    {
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.name"), name});
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("user.email"), email});
    }

    std::optional<StoredData> stored() const
    {
        return ProfileCodec::decodeStore(
            m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    }

    void writeStore(const QList<GitProfile>& profiles,
                    std::optional<QUuid> active = std::nullopt) const
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({profiles, active}));
    }

    static GitProfile profile(const QString& name, const QString& gitName = QStringLiteral("N"),
                              const QString& email = QStringLiteral("e@x"), const QString& key = {})
    {
        return GitProfile::create(name, gitName, email, key);
    }

    static QJsonDocument json(const QString& text)
    {
        return QJsonDocument::fromJson(text.toUtf8());
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void helpAndVersion()
    {
        Result r = kivora({QStringLiteral("--help")});
        QCOMPARE(r.status, 0);
        for (const char* command :
             {"list", "current", "use", "add", "edit", "remove", "export", "import", "keys"}) {
            QVERIFY2(r.out.contains(QStringLiteral("kivora ") + QLatin1String(command)), command);
        }
        r = kivora({QStringLiteral("--version")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("kivora " KIVORA_VERSION "\n"));
        r = kivora({QStringLiteral("edit"), QStringLiteral("--help")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.out.contains(QStringLiteral("--ai-key-stdin")));
        // Help reads nothing and writes nothing.
        QVERIFY(!m_home->exists(QStringLiteral(".git-switcher/profiles.json")));
    }

    void usageErrors()
    {
        for (const QStringList& args :
             {QStringList{QStringLiteral("frobnicate")},
              QStringList{QStringLiteral("list"), QStringLiteral("--bogus")},
              QStringList{QStringLiteral("use")},
              QStringList{QStringLiteral("keys"), QStringLiteral("extra")},
              QStringList{QStringLiteral("add"), QStringLiteral("X")},
              QStringList{QStringLiteral("help"), QStringLiteral("nope")}}) {
            const Result r = kivora(args);
            QCOMPARE(r.status, 2);
            QVERIFY(r.out.isEmpty());
            QVERIFY2(r.err.startsWith(QStringLiteral("kivora: ")), qPrintable(r.err));
            QCOMPARE(r.err.count(u'\n'), 1);
        }
    }

    void firstCommandSetsUpThenListIsReadOnly()
    {
        setGlobalIdentity(QStringLiteral("Ada"), QStringLiteral("ada@example.com"));
        Result r = kivora({QStringLiteral("list")});
        QCOMPARE(r.status, 0);
        const auto data = stored();
        QVERIFY(data);
        QCOMPARE(data->profiles.size(), 1);
        QCOMPARE(data->profiles.first().name, QStringLiteral("Default"));
        QVERIFY(r.out.startsWith(QStringLiteral("* Default")));
        QVERIFY(r.out.contains(QStringLiteral("Ada <ada@example.com>")));

        const auto before = m_home->snapshot();
        for (const char* command : {"list", "current", "keys", "export"}) {
            QCOMPARE(kivora({QLatin1String(command)}).status, 0);
            QCOMPARE(kivora({QLatin1String(command), QStringLiteral("--json")}).status,
                     QString::fromLatin1(command) == QLatin1String("list") ||
                             QString::fromLatin1(command) == QLatin1String("current")
                         ? 0
                         : 2);
        }
        QCOMPARE(m_home->snapshot(), before);
    }

    void listTwiceWithAIProfileChangesNothing()
    {
        GitProfile p = profile(QStringLiteral("AI"));
        p.aiConfig.isEnabled = true;
        p.aiConfig.apiKey = QStringLiteral("sk-secret");
        writeStore({p}, p.id);
        m_home->write(QStringLiteral(".kivora/ai-env.sh"), "earlier");
        m_home->write(QStringLiteral(".bashrc"), "# nothing\n");
        const auto before = m_home->snapshot();
        QCOMPARE(kivora({QStringLiteral("list")}).status, 0);
        QCOMPARE(kivora({QStringLiteral("list")}).status, 0);
        QCOMPARE(m_home->snapshot(), before);
        // Keys are never printed outside an export.
        QVERIFY(!kivora({QStringLiteral("list"), QStringLiteral("--json")})
                     .out.contains(QStringLiteral("sk-secret")));
        QVERIFY(!kivora({QStringLiteral("current"), QStringLiteral("--json")})
                     .out.contains(QStringLiteral("sk-secret")));
        QVERIFY(kivora({QStringLiteral("export")}).out.contains(QStringLiteral("sk-secret")));
    }

    void listJsonShape()
    {
        GitProfile a = profile(QStringLiteral("Work"), QStringLiteral("Ada"),
                               QStringLiteral("ada@corp"), QStringLiteral("~/.ssh/id_work"));
        a.aiConfig.isEnabled = true;
        a.aiConfig.provider = AIProvider::Local;
        a.aiConfig.model = QStringLiteral("llama");
        const GitProfile b = profile(QStringLiteral("Home"));
        writeStore({a, b}, a.id);
        const Result r = kivora({QStringLiteral("list"), QStringLiteral("--json")});
        QCOMPARE(r.status, 0);
        const QJsonArray array = json(r.out).array();
        QCOMPARE(array.size(), 2);
        const QJsonObject first = array.at(0).toObject();
        QCOMPARE(first.value(QStringLiteral("id")).toString(), a.idText());
        QCOMPARE(first.value(QStringLiteral("name")).toString(), QStringLiteral("Work"));
        QCOMPARE(first.value(QStringLiteral("gitName")).toString(), QStringLiteral("Ada"));
        QCOMPARE(first.value(QStringLiteral("gitEmail")).toString(), QStringLiteral("ada@corp"));
        QCOMPARE(first.value(QStringLiteral("sshKeyPath")).toString(),
                 QStringLiteral("~/.ssh/id_work"));
        QCOMPARE(first.value(QStringLiteral("active")).toBool(), true);
        const QJsonObject ai = first.value(QStringLiteral("ai")).toObject();
        QCOMPARE(ai.value(QStringLiteral("enabled")).toBool(), true);
        QCOMPARE(ai.value(QStringLiteral("provider")).toString(), QStringLiteral("Local"));
        QCOMPARE(ai.value(QStringLiteral("model")).toString(), QStringLiteral("llama"));
        QCOMPARE(ai.value(QStringLiteral("configured")).toBool(), true);
        QCOMPARE(ai.keys().size(), 4);
        QCOMPARE(array.at(1).toObject().value(QStringLiteral("active")).toBool(), false);
        QCOMPARE(array.at(1)
                     .toObject()
                     .value(QStringLiteral("ai"))
                     .toObject()
                     .value(QStringLiteral("configured"))
                     .toBool(),
                 false);
    }

    void currentShowsGlobalIdentity()
    {
        const GitProfile a =
            profile(QStringLiteral("Work"), QStringLiteral("Ada"), QStringLiteral("ada@corp"));
        writeStore({a}, std::nullopt);
        setGlobalIdentity(QStringLiteral("Someone Else"), QStringLiteral("else@x"));
        Result r = kivora({QStringLiteral("current"), QStringLiteral("--json")});
        QCOMPARE(r.status, 0);
        QJsonObject object = json(r.out).object();
        QVERIFY(object.value(QStringLiteral("profile")).isNull());
        QCOMPARE(object.value(QStringLiteral("globalGitName")).toString(),
                 QStringLiteral("Someone Else"));
        QCOMPARE(object.value(QStringLiteral("globalGitEmail")).toString(),
                 QStringLiteral("else@x"));
        QCOMPARE(object.value(QStringLiteral("needsProfileSetup")).toBool(), false);

        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("work")}).status, 0);
        r = kivora({QStringLiteral("current")});
        QVERIFY(r.out.contains(QStringLiteral("Profile:    Work\n")));
        QVERIFY(r.out.contains(QStringLiteral("Git name:   Ada\n")));
        QVERIFY(r.out.contains(QStringLiteral("AI:         Not configured\n")));
        object = json(kivora({QStringLiteral("current"), QStringLiteral("--json")}).out).object();
        QCOMPARE(object.value(QStringLiteral("profile"))
                     .toObject()
                     .value(QStringLiteral("id"))
                     .toString(),
                 a.idText());
    }

    void currentReadsGitAsGitPrintsIt()
    {
        writeStore({profile(QStringLiteral("A"))});
        setGlobalIdentity(QStringLiteral(" first\nsecond \"q\" "), QStringLiteral("one@x"));
        m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("--add"),
                     QStringLiteral("user.email"), QStringLiteral("two@x")});
        // What `git config --global user.name` prints, trimmed, is the truth.
        QProcess git;
        git.start(QStringLiteral("git"), {QStringLiteral("config"), QStringLiteral("--global"),
                                          QStringLiteral("user.email")});
        git.waitForFinished(-1);
        QCOMPARE(git.readAllStandardOutput().trimmed(), QByteArray("two@x"));
        const QJsonObject object =
            json(kivora({QStringLiteral("current"), QStringLiteral("--json")}).out).object();
        QCOMPARE(object.value(QStringLiteral("globalGitName")).toString(),
                 QStringLiteral("first\nsecond \"q\""));
        QCOMPARE(object.value(QStringLiteral("globalGitEmail")).toString(),
                 QStringLiteral("two@x"));

        m_home->git({QStringLiteral("config"), QStringLiteral("--global"),
                     QStringLiteral("--unset-all"), QStringLiteral("user.email")});
        const Result r = kivora({QStringLiteral("current")});
        QVERIFY(r.out.contains(QStringLiteral("Git email:  (not set)\n")));
        QVERIFY(r.out.contains(QStringLiteral("Git name:   first\\nsecond \"q\"\n")));
    }

    void firstRunNeedingSetupReportsIt()
    {
        const Result r = kivora({QStringLiteral("current"), QStringLiteral("--json")});
        QCOMPARE(r.status, 0);
        const QJsonObject object = json(r.out).object();
        QCOMPARE(object.value(QStringLiteral("needsProfileSetup")).toBool(), true);
        QCOMPARE(object.value(QStringLiteral("profile"))
                     .toObject()
                     .value(QStringLiteral("name"))
                     .toString(),
                 QStringLiteral("Default"));
    }

    void useActivatesLikeTheApplication()
    {
        m_home->write(QStringLiteral(".bashrc"), "");
        GitProfile work = profile(QStringLiteral("Work"), QStringLiteral("Ada \"W\" O'Neil"),
                                  QStringLiteral("ada@corp"), QStringLiteral("~/.ssh/id_work"));
        work.aiConfig.isEnabled = true;
        work.aiConfig.provider = AIProvider::Anthropic;
        work.aiConfig.apiKey = QStringLiteral("sk-ant");
        const GitProfile home =
            profile(QStringLiteral("Home"), QStringLiteral("Ada"), QStringLiteral("ada@home"));
        writeStore({work, home});
        Result r = kivora({QStringLiteral("use"), QStringLiteral("Work")});
        QCOMPARE(r.status, 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), work.gitName);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), work.gitEmail);
        QCOMPARE(m_home->gitConfig(QStringLiteral("core.sshCommand")),
                 m_home->filePath(QStringLiteral(".kivora/kivora-ssh.sh")) + u' ' +
                     m_home->filePath(QStringLiteral(".ssh/id_work")));
        QVERIFY(m_home->read(QStringLiteral(".kivora/ai-env.sh"))
                    .startsWith("export ANTHROPIC_API_KEY='sk-ant'\n"));
        QVERIFY(m_home->read(QStringLiteral(".bashrc"))
                    .endsWith("\n\n# Kivora AI Context\nsource ~/.kivora/ai-env.sh\n"));
        QCOMPARE(stored(), std::optional<StoredData>(StoredData{{work, home}, work.id}));

        r = kivora({QStringLiteral("use"), work.idText().toLower()});
        QCOMPARE(r.status, 0);
        r = kivora({QStringLiteral("use"), QStringLiteral("HO")});
        QCOMPARE(r.status, 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral("ada@home"));
        QVERIFY(m_home->read(QStringLiteral(".kivora/ai-env.sh"))
                    .startsWith("# No AI configuration for profile: Home\n"));
        // The key of the previous profile stays in force, as after a click in the popover.
        QVERIFY(m_home->gitConfig(QStringLiteral("core.sshCommand"))
                    .endsWith(QStringLiteral("/.ssh/id_work")));
    }

    void unknownAndAmbiguousProfiles()
    {
        writeStore({profile(QStringLiteral("Work")), profile(QStringLiteral("Web")),
                    profile(QStringLiteral("Home"))});
        const auto before = m_home->snapshot();
        Result r = kivora({QStringLiteral("use"), QStringLiteral("w")});
        QCOMPARE(r.status, 2);
        QVERIFY(r.err.contains(QStringLiteral("\"Work\"")) &&
                r.err.contains(QStringLiteral("\"Web\"")));
        QVERIFY(!r.err.contains(QStringLiteral("\"Home\"")));
        r = kivora({QStringLiteral("use"), QStringLiteral("nobody")});
        QCOMPARE(r.status, 2);
        QVERIFY(r.err.contains(QStringLiteral("\"nobody\"")));
        QVERIFY(r.err.contains(QStringLiteral("\"Home\"")));
        r = kivora({QStringLiteral("remove"), QStringLiteral("")});
        QCOMPARE(r.status, 2);
        QCOMPARE(m_home->snapshot(), before);
    }

    void exactNameBeatsPrefix()
    {
        writeStore({profile(QStringLiteral("Work")), profile(QStringLiteral("Work Laptop"))});
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("Work")}).status, 0);
        QCOMPARE(ProfileCodec::uuidText(*stored()->activeProfileID),
                 stored()->profiles.first().idText());
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("work l")}).status, 0);
        QCOMPARE(ProfileCodec::uuidText(*stored()->activeProfileID),
                 stored()->profiles.last().idText());
    }

    void namesWithSpacesAndQuotes()
    {
        writeStore({});
        const QString name = QStringLiteral("my \"quoted\" 'name'");
        Result r = kivora({QStringLiteral("add"), name, QStringLiteral("--git-name"),
                           QStringLiteral("Dan \"The\" O'Hara"), QStringLiteral("--git-email"),
                           QStringLiteral("dan@x")});
        QCOMPARE(r.status, 0);
        // Capitalised word by word, quotes included.
        const QString display = QStringLiteral("My \"quoted\" 'name'");
        QCOMPARE(stored()->profiles.first().name, display);
        r = kivora({QStringLiteral("use"), display});
        QCOMPARE(r.status, 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")),
                 QStringLiteral("Dan \"The\" O'Hara"));
        QVERIFY(kivora({QStringLiteral("list")}).out.contains(QStringLiteral("* ") + display));
    }

    void addUsesTheDisplayNameRule()
    {
        writeStore({});
        QCOMPARE(kivora({QStringLiteral("add"), QStringLiteral("id_rsa_Work"),
                         QStringLiteral("--git-name"), QStringLiteral("a"),
                         QStringLiteral("--git-email"), QStringLiteral("b"),
                         QStringLiteral("--ssh-key"), QStringLiteral("~/.ssh/id_rsa_Work")})
                     .status,
                 0);
        const GitProfile added = stored()->profiles.first();
        QCOMPARE(added.name, QStringLiteral("Rsa_work"));
        QCOMPARE(added.sshKeyPath, QStringLiteral("~/.ssh/id_rsa_Work"));
        QCOMPARE(added.aiConfig, AIConfig::empty());
        QVERIFY(!stored()->activeProfileID);
    }

    void editChangesFieldsAndAI()
    {
        GitProfile p = profile(QStringLiteral("Work"));
        p.aiConfig.customHeaders.insert(QStringLiteral("X-Team"), QStringLiteral("1"));
        writeStore({p});
        Result r =
            kivora({QStringLiteral("edit"), QStringLiteral("work"), QStringLiteral("--git-email"),
                    QStringLiteral("new@x"), QStringLiteral("--ai"), QStringLiteral("on"),
                    QStringLiteral("--ai-provider"), QStringLiteral("local"),
                    QStringLiteral("--ai-base-url"), QStringLiteral("http://gpu:11434")});
        QCOMPARE(r.status, 0);
        GitProfile edited = stored()->profiles.first();
        QCOMPARE(edited.id, p.id);
        QCOMPARE(edited.gitEmail, QStringLiteral("new@x"));
        QCOMPARE(edited.aiConfig.provider, AIProvider::Local);
        QCOMPARE(edited.aiConfig.model,
                 QStringLiteral("llama")); // a new provider picks its first model
        QCOMPARE(edited.aiConfig.baseURL, QStringLiteral("http://gpu:11434"));
        QVERIFY(edited.aiConfig.isEnabled);
        QVERIFY(edited.aiConfig.customHeaders.isEmpty());

        r = kivora({QStringLiteral("edit"), QStringLiteral("work"), QStringLiteral("--ai-provider"),
                    QStringLiteral("Azure OpenAI"), QStringLiteral("--ai-model"),
                    QStringLiteral("gpt-4"), QStringLiteral("--ai-key-stdin")},
                   "az-key\n");
        QCOMPARE(r.status, 0);
        edited = stored()->profiles.first();
        QCOMPARE(edited.aiConfig.provider, AIProvider::AzureOpenAI);
        QCOMPARE(edited.aiConfig.model, QStringLiteral("gpt-4"));
        QCOMPARE(edited.aiConfig.apiKey, QStringLiteral("az-key"));

        for (const QStringList& bad :
             {QStringList{QStringLiteral("--name"), QString()},
              QStringList{QStringLiteral("--ai"), QStringLiteral("maybe")},
              QStringList{QStringLiteral("--ai-provider"), QStringLiteral("Skynet")}}) {
            const auto before = m_home->snapshot();
            r = kivora(QStringList{QStringLiteral("edit"), QStringLiteral("work")} + bad);
            QCOMPARE(r.status, 2);
            QCOMPARE(m_home->snapshot(), before);
        }
    }

    void emptyKeyFromStandardInput()
    {
        GitProfile p = profile(QStringLiteral("Work"));
        p.aiConfig.isEnabled = true;
        p.aiConfig.apiKey = QStringLiteral("old");
        writeStore({p});
        const Result r = kivora(
            {QStringLiteral("edit"), QStringLiteral("Work"), QStringLiteral("--ai-key-stdin")}, "");
        QCOMPARE(r.status, 0);
        QVERIFY(r.out.contains(QStringLiteral("empty")));
        const GitProfile edited = stored()->profiles.first();
        QCOMPARE(edited.aiConfig.apiKey, QString());
        QVERIFY(!edited.aiConfig.isConfigured());
        QVERIFY(!kivora({QStringLiteral("list"), QStringLiteral("--json")})
                     .out.contains(QStringLiteral("\"configured\": true")));
    }

    void removeWithAndWithoutKeys()
    {
        m_home->write(QStringLiteral(".ssh/id_a"), "a");
        m_home->write(QStringLiteral(".ssh/id_a.pub"), "a");
        m_home->write(QStringLiteral(".ssh/id_b"), "b");
        m_home->write(QStringLiteral(".ssh/id_b.pub"), "b");
        const GitProfile a = profile(QStringLiteral("A"), QStringLiteral("a"),
                                     QStringLiteral("a@x"), QStringLiteral("~/.ssh/id_a"));
        const GitProfile b = profile(QStringLiteral("B"), QStringLiteral("b"),
                                     QStringLiteral("b@x"), QStringLiteral("~/.ssh/id_b"));
        writeStore({a, b}, a.id);
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("A")}).status, 0);
        const QString gitconfig = QString::fromUtf8(m_home->read(QStringLiteral(".gitconfig")));

        QCOMPARE(kivora({QStringLiteral("remove"), QStringLiteral("A")}).status, 0);
        QVERIFY(m_home->exists(QStringLiteral(".ssh/id_a")) &&
                m_home->exists(QStringLiteral(".ssh/id_a.pub")));
        QCOMPARE(stored(), std::optional<StoredData>(StoredData{{b}, std::nullopt}));
        QCOMPARE(QString::fromUtf8(m_home->read(QStringLiteral(".gitconfig"))), gitconfig);

        m_home->write(QStringLiteral(".ssh/id_b.pub"), QByteArray());
        QFile::remove(m_home->filePath(QStringLiteral(".ssh/id_b.pub")));
        const Result r =
            kivora({QStringLiteral("remove"), QStringLiteral("b"), QStringLiteral("--delete-key")});
        QCOMPARE(r.status, 0);
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_b")));
        QVERIFY(stored()->profiles.isEmpty());
        QVERIFY(m_home->exists(QStringLiteral(".ssh/id_a")));
    }

    void exportAndImportDoubleTheList()
    {
        GitProfile a = profile(QStringLiteral("id_work"), QStringLiteral("W"),
                               QStringLiteral("w@x"), QStringLiteral("~/.ssh/id_work"));
        a.aiConfig.isEnabled = true;
        a.aiConfig.apiKey = QStringLiteral("k");
        const GitProfile b =
            profile(QStringLiteral("home box"), QStringLiteral("H"), QStringLiteral("h@x"));
        writeStore({a, b}, a.id);
        const QString file = m_home->filePath(QStringLiteral("export.json"));
        Result r = kivora({QStringLiteral("export"), file});
        QCOMPARE(r.status, 0);
        QCOMPARE(QFileInfo(file).permissions() & 0x0077, QFileDevice::Permissions());
        QCOMPARE(ProfileCodec::decodeProfileArray(m_home->read(QStringLiteral("export.json"))),
                 std::optional<QList<GitProfile>>(QList<GitProfile>{a, b}));
        QCOMPARE(kivora({QStringLiteral("export")}).out.toUtf8(),
                 m_home->read(QStringLiteral("export.json")) + "\n");

        r = kivora({QStringLiteral("import"), file});
        QCOMPARE(r.status, 0);
        const QList<GitProfile> all = stored()->profiles;
        QCOMPARE(all.size(), 4);
        QCOMPARE(all.at(0), a);
        QCOMPARE(all.at(1), b);
        QCOMPARE(all.at(2).name, QStringLiteral("Work"));
        QCOMPARE(all.at(3).name, QStringLiteral("Home Box"));
        QVERIFY(all.at(2).id != a.id && all.at(3).id != b.id);
        QCOMPARE(all.at(2).aiConfig, AIConfig::empty());
        QCOMPARE(all.at(2).sshKeyPath, a.sshKeyPath);
        QCOMPARE(stored()->activeProfileID, std::optional<QUuid>(a.id));
    }

    void importOfSomethingElseChangesNothing()
    {
        writeStore({profile(QStringLiteral("A"))});
        m_home->write(QStringLiteral("store.json"),
                      m_home->read(QStringLiteral(".git-switcher/profiles.json")));
        m_home->write(QStringLiteral("garbage.json"), "{ not json");
        m_home->write(QStringLiteral("partial.json"), "[{\"name\":\"x\"}]");
        const auto before = m_home->snapshot();
        for (const char* file : {"store.json", "garbage.json", "partial.json", "missing.json"}) {
            const Result r =
                kivora({QStringLiteral("import"), m_home->filePath(QLatin1String(file))});
            QCOMPARE(r.status, 1);
            QVERIFY(r.err.startsWith(QStringLiteral("kivora: ")));
            QCOMPARE(m_home->snapshot(), before);
        }
    }

    void keysAreSortedPairs()
    {
        writeStore({});
        for (const char* name : {"id_rsa", "id_rsa.pub", "work.pub", "x.pub.pub", "Zed", "Zed.pub",
                                 "id_ed25519", "id_ed25519.pub"}) {
            m_home->write(QStringLiteral(".ssh/") + QLatin1String(name), "k");
        }
        const Result r = kivora({QStringLiteral("keys")});
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("Zed\nid_ed25519\nid_rsa\n"));
    }

    void bashCompletesCommandsAndProfiles()
    {
        const QString framework = QStringLiteral("/usr/share/bash-completion/bash_completion");
        if (!QFileInfo::exists(framework)) {
            QSKIP("bash-completion is not installed");
        }
        writeStore({profile(QStringLiteral("Work Laptop")), profile(QStringLiteral("Web")),
                    profile(QStringLiteral("Home"))});
        const QString script = QStringLiteral(KIVORA_SOURCE_DIR "/cli/completions/kivora.bash");
        const auto complete = [&](const QString& line) {
            QProcess bash;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert(QStringLiteral("PATH"),
                       QFileInfo(qEnvironmentVariable("KIVORA_CLI")).path() + u':' +
                           env.value(QStringLiteral("PATH")));
            bash.setProcessEnvironment(env);
            // Simulates pressing Tab at the end of `line`.
            bash.start(QStringLiteral("/bin/bash"),
                       {QStringLiteral("-c"),
                        QStringLiteral(
                            "source %1; source %2; COMP_LINE=\"$1\"; COMP_POINT=${#COMP_LINE}; "
                            "read -ra COMP_WORDS <<< \"$1\"; [[ $1 == *' ' ]] && COMP_WORDS+=(''); "
                            "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kivora; printf '%s\\n' "
                            "\"${COMPREPLY[@]}\"")
                            .arg(framework, script),
                        QStringLiteral("bash"), line});
            bash.waitForFinished(-1);
            return QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        };
        QCOMPARE(complete(QStringLiteral("kivora us")), QStringList{QStringLiteral("use")});
        QCOMPARE(complete(QStringLiteral("kivora use W")),
                 (QStringList{QStringLiteral("Work\\ Laptop"), QStringLiteral("Web")}));
        QCOMPARE(complete(QStringLiteral("kivora remove --del")),
                 QStringList{QStringLiteral("--delete-key")});
    }

    void checkUpdatesAgainstAFeed_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<int>("httpStatus");
        QTest::addColumn<int>("exitStatus");
        QTest::addColumn<QString>("expected");
        QTest::newRow("up to date")
            << QByteArray(KIVORA_VERSION) << 200 << 0 << QStringLiteral("is up to date");
        QTest::newRow("newer") << QByteArray("99.1") << 200 << 0
                               << QStringLiteral("Kivora 99.1 is available");
        QTest::newRow("not found") << QByteArray("99.1") << 404 << 1 << QStringLiteral("404");
    }

    void checkUpdatesAgainstAFeed()
    {
        QFETCH(QByteArray, version);
        QFETCH(int, httpStatus);
        QFETCH(int, exitStatus);
        QFETCH(QString, expected);
        LocalHttpServer server;
        server.route(
            "/appcast.xml",
            {httpStatus,
             "<?xml version=\"1.0\"?><rss version=\"2.0\" "
             "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>"
             "<item><title>Kivora</title><sparkle:version>" +
                 version +
                 "</sparkle:version>"
                 "<link>https://example.org/download</link></item></channel></rss>",
             "application/rss+xml"});
        m_home->setEnv("KIVORA_UPDATE_FEED_URL",
                       server.url(QStringLiteral("/appcast.xml")).toEncoded());
        // The feed is served by this process, so its event loop runs while kivora waits.
        QProcess process;
        process.start(qEnvironmentVariable("KIVORA_CLI"), {QStringLiteral("check-updates")});
        QTRY_VERIFY_WITH_TIMEOUT(process.state() == QProcess::NotRunning, 30000);
        QCOMPARE(process.exitCode(), exitStatus);
        const QString output =
            QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
        QVERIFY2(output.contains(expected), qPrintable(output));
        QCOMPARE(server.requests().size(), 1);
    }

    void terminalOpensTheChosenEmulator()
    {
        const GitProfile p =
            profile(QStringLiteral("Work"), QStringLiteral("Ada \"W\""), QStringLiteral("w@corp"));
        writeStore({p});
        const QString recorder = m_home->filePath(QStringLiteral("bin/record-terminal"));
        m_home->write(QStringLiteral("bin/record-terminal"),
                      "#!/bin/bash\nprintf '%s\\0' \"$@\" > \"$HOME/recorded\"\n");
        QFile::setPermissions(recorder, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                            QFileDevice::ExeOwner);
        m_home->setEnv("TERMINAL", recorder.toLocal8Bit());
        const auto before = m_home->read(QStringLiteral(".gitconfig"));
        Result r = kivora({QStringLiteral("terminal"), QStringLiteral("work")});
        QCOMPARE(r.status, 0);
        QTRY_VERIFY(m_home->exists(QStringLiteral("recorded")));
        QTRY_VERIFY(m_home->read(QStringLiteral("recorded")).contains("exec"));
        const QList<QByteArray> recorded = m_home->read(QStringLiteral("recorded")).split('\0');
        QCOMPARE(recorded.value(0), QByteArray("-e"));
        QCOMPARE(recorded.value(1), QByteArray("/bin/bash"));
        QVERIFY(recorded.contains(QByteArray("-c")));
        QVERIFY(m_home->read(QStringLiteral("recorded"))
                    .contains("export GIT_AUTHOR_NAME=\"Ada \\\"W\\\"\";"));
        QCOMPARE(m_home->read(QStringLiteral(".gitconfig")), before);

        // Nothing to start: a clear failure.
        m_home->setEnv("TERMINAL", std::nullopt);
        QDir().mkpath(m_home->filePath(QStringLiteral("empty")));
        m_home->setEnv("PATH", m_home->filePath(QStringLiteral("empty")).toLocal8Bit());
        r = kivora({QStringLiteral("terminal"), QStringLiteral("work")});
        QCOMPARE(r.status, 1);
        QVERIFY(r.err.contains(QStringLiteral("TERMINAL")));
    }

    void testAIReportsTheVerdict()
    {
        LocalHttpServer server;
        server.route("/api/tags", {200, "{}"});
        server.route("/v1/models", {401, "{}"});
        GitProfile local = profile(QStringLiteral("Local"));
        local.aiConfig.provider = AIProvider::Local;
        local.aiConfig.baseURL = server.url().toString();
        GitProfile openAI = profile(QStringLiteral("Cloud"));
        openAI.aiConfig.apiKey = QStringLiteral("sk-wrong");
        const GitProfile none = profile(QStringLiteral("Nothing"));
        writeStore({local, openAI, none});
        m_home->setEnv("KIVORA_OPENAI_API_BASE", server.url().toEncoded());

        const auto run = [&](const QString& name) {
            QProcess process;
            process.start(qEnvironmentVariable("KIVORA_CLI"), {QStringLiteral("test-ai"), name});
            // The provider is served by this process: its event loop runs while kivora waits.
            [&] { QTRY_VERIFY_WITH_TIMEOUT(process.state() == QProcess::NotRunning, 30000); }();
            return Result{process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                          QString::fromUtf8(process.readAllStandardError())};
        };
        Result r = run(QStringLiteral("local"));
        QCOMPARE(r.status, 0);
        QCOMPARE(r.out, QStringLiteral("Connected to local AI server successfully\n"));
        r = run(QStringLiteral("cloud"));
        QCOMPARE(r.status, 1);
        QCOMPARE(r.err, QStringLiteral("kivora: Invalid API key.\n"));
        QCOMPARE(server.requests().last().headers.value("authorization"),
                 QByteArray("Bearer sk-wrong"));
        const qsizetype sent = server.requests().size();
        r = run(QStringLiteral("nothing"));
        QCOMPARE(r.status, 1);
        QCOMPARE(r.err, QStringLiteral("kivora: API key not configured.\n"));
        QCOMPARE(server.requests().size(), sent);
    }

    void unreadableFileIsKeptAndReported()
    {
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), "{\"profiles\": [oops");
        const Result r = kivora({QStringLiteral("list")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.err.contains(QStringLiteral("profiles.json.unreadable-")));
        QVERIFY(stored());
        QDir folder(m_home->filePath(QStringLiteral(".git-switcher")));
        const QStringList kept = folder.entryList({QStringLiteral("profiles.json.unreadable-*")});
        QCOMPARE(kept.size(), 1);
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/") + kept.first()),
                 QByteArray("{\"profiles\": [oops"));
    }
};

QTEST_GUILESS_MAIN(tst_Cli)
#include "tst_Cli.moc"
