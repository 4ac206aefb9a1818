// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/LocalSshServer.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <memory>

// `kivora rule`, `kivora which` and `kivora clone` run as a user runs them, with the real git
// (and, for the push, a real sshd and ssh-agent) in a temporary home.
class tst_CliRules : public QObject {
    Q_OBJECT

    struct Result {
        int status = -1;
        QString out;
        QString err;
    };

    std::unique_ptr<TestHome> m_home;
    QProcessEnvironment m_env;

    Result kivora(const QStringList& arguments, const QString& dir = {}) const
    {
        QProcess process;
        process.setProcessEnvironment(m_env);
        process.setWorkingDirectory(dir.isEmpty() ? m_home->path() : dir);
        process.start(qEnvironmentVariable("KIVORA_CLI"), arguments);
        process.closeWriteChannel();
        process.waitForFinished(-1);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QString git(const QString& dir, const QStringList& arguments, int* status = nullptr) const
    {
        QProcess process;
        process.setProcessEnvironment(m_env);
        process.setWorkingDirectory(dir);
        process.start(QStringLiteral("git"), arguments);
        process.waitForFinished(-1);
        if (status) {
            *status = process.exitCode();
        } else if (process.exitCode() != 0) {
            qWarning().noquote() << "git" << arguments << process.readAllStandardError();
        }
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }

    QString newRepository(const QString& relative) const
    {
        const QString dir = m_home->filePath(relative);
        QDir().mkpath(dir);
        git(dir, {QStringLiteral("init"), QStringLiteral("-q")});
        return dir;
    }

    QString author(const QString& dir) const
    {
        const QString line = git(dir, {QStringLiteral("var"), QStringLiteral("GIT_AUTHOR_IDENT")});
        return line.left(line.lastIndexOf(u'>') + 1);
    }

    QJsonObject which(const QString& dir) const
    {
        const Result r = kivora({QStringLiteral("which"), QStringLiteral("--json")}, dir);
        if (r.status != 0) {
            qWarning().noquote() << r.err;
        }
        return QJsonDocument::fromJson(r.out.toUtf8()).object();
    }

    QString profileId(const QString& name) const
    {
        const Result r = kivora({QStringLiteral("list"), QStringLiteral("--json")});
        for (const QJsonValue& p : QJsonDocument::fromJson(r.out.toUtf8()).array()) {
            if (p[QStringLiteral("name")].toString() == name) {
                return p[QStringLiteral("id")].toString();
            }
        }
        return {};
    }

    void makeKey(const QString& relative) const
    {
        QDir().mkpath(QFileInfo(m_home->filePath(relative)).path());
        QProcess::execute(QStringLiteral("ssh-keygen"),
                          {QStringLiteral("-q"), QStringLiteral("-t"), QStringLiteral("ed25519"),
                           QStringLiteral("-N"), QString(), QStringLiteral("-f"),
                           m_home->filePath(relative)});
    }

private slots:
    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_env = QProcessEnvironment::systemEnvironment();
        m_env.remove(QStringLiteral("DISPLAY"));
        m_env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        m_env.remove(QStringLiteral("SSH_AUTH_SOCK"));
        QCOMPARE(kivora({QStringLiteral("add"), QStringLiteral("work"),
                         QStringLiteral("--git-name"), QStringLiteral("Ada Work"),
                         QStringLiteral("--git-email"), QStringLiteral("ada@corp.example"),
                         QStringLiteral("--ssh-key"), QStringLiteral("~/.ssh/id_work")})
                     .status,
                 0);
        QCOMPARE(kivora({QStringLiteral("add"), QStringLiteral("personal"),
                         QStringLiteral("--git-name"), QStringLiteral("Ada Home"),
                         QStringLiteral("--git-email"), QStringLiteral("ada@home.example")})
                     .status,
                 0);
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("personal")}).status, 0);
    }

    void cleanup() { m_home.reset(); }

    void addListAndRemove()
    {
        Result r = kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                           QStringLiteral("--dir"), QStringLiteral("~/work")});
        QCOMPARE(r.status, 0);
        r = kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("pers"),
                    QStringLiteral("--remote"), QStringLiteral("git@github.com:ada/**")});
        QCOMPARE(r.status, 0);
        r = kivora({QStringLiteral("rule"), QStringLiteral("list"), QStringLiteral("--json")});
        QCOMPARE(r.status, 0);
        const QJsonArray rules = QJsonDocument::fromJson(r.out.toUtf8()).array();
        QCOMPARE(rules.size(), 2);
        QCOMPARE(
            rules[0].toObject(),
            (QJsonObject{{QStringLiteral("profile"), profileId(QStringLiteral("Work"))},
                         {QStringLiteral("name"), QStringLiteral("Work")},
                         {QStringLiteral("kind"), QStringLiteral("dir")},
                         {QStringLiteral("pattern"), m_home->filePath(QStringLiteral("work"))}}));
        QCOMPARE(
            rules[1].toObject(),
            (QJsonObject{{QStringLiteral("profile"), profileId(QStringLiteral("Personal"))},
                         {QStringLiteral("name"), QStringLiteral("Personal")},
                         {QStringLiteral("kind"), QStringLiteral("remote")},
                         {QStringLiteral("pattern"), QStringLiteral("git@github.com:ada/**")}}));
        r = kivora({QStringLiteral("rule"), QStringLiteral("list")});
        QVERIFY(r.out.contains(m_home->filePath(QStringLiteral("work"))));

        r = kivora({QStringLiteral("rule"), QStringLiteral("remove"), QStringLiteral("work"),
                    QStringLiteral("--dir"), m_home->filePath(QStringLiteral("work/"))});
        QCOMPARE(r.status, 0);
        r = kivora({QStringLiteral("rule"), QStringLiteral("remove"), QStringLiteral("work"),
                    QStringLiteral("--dir"), QStringLiteral("~/work")});
        QCOMPARE(r.status, 1);
        QVERIFY(!r.err.isEmpty());
        r = kivora({QStringLiteral("rule"), QStringLiteral("list"), QStringLiteral("--json")});
        QCOMPARE(QJsonDocument::fromJson(r.out.toUtf8()).array().size(), 1);
    }

    void exportAndImportByIdOrName()
    {
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                         QStringLiteral("--dir"), QStringLiteral("~/work")})
                     .status,
                 0);
        QCOMPARE(
            kivora({QStringLiteral("rule"), QStringLiteral("export"), QStringLiteral("rules.json")})
                .status,
            0);
        const QJsonArray exported =
            QJsonDocument::fromJson(m_home->read(QStringLiteral("rules.json"))).array();
        QCOMPARE(exported.size(), 1);
        QCOMPARE(QFileInfo(m_home->filePath(QStringLiteral("rules.json"))).permissions() & 0x0077,
                 QFileDevice::Permissions());

        // The same rule file on a machine where the profiles have other ids: by name.
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("remove"), QStringLiteral("work"),
                         QStringLiteral("--dir"), QStringLiteral("~/work")})
                     .status,
                 0);
        QJsonObject other = exported[0].toObject();
        other.insert(QStringLiteral("profile"), QUuid::createUuid().toString(QUuid::WithoutBraces));
        QJsonObject unknown = other;
        unknown.insert(QStringLiteral("name"), QStringLiteral("Nobody"));
        m_home->write(QStringLiteral("moved.json"),
                      QJsonDocument(QJsonArray{other, unknown}).toJson());
        const Result r = kivora(
            {QStringLiteral("rule"), QStringLiteral("import"), QStringLiteral("moved.json")});
        QCOMPARE(r.status, 1);
        QVERIFY(r.out.contains(QStringLiteral("Imported 1 rule.")));
        QVERIFY(!r.err.isEmpty());
        const QString ruled = newRepository(QStringLiteral("work/app"));
        QCOMPARE(author(ruled), QStringLiteral("Ada Work <ada@corp.example>"));
        // The profile export is unchanged by rules.
        QVERIFY(!kivora({QStringLiteral("export")}).out.contains(QStringLiteral("\"rules\"")));
    }

    void usageErrors()
    {
        const QList<QStringList> wrong{
            {QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("nobody"),
             QStringLiteral("--dir"), QStringLiteral("/tmp")},
            {QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work")},
            {QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
             QStringLiteral("--dir"), QStringLiteral("/a"), QStringLiteral("--remote"),
             QStringLiteral("x")},
            {QStringLiteral("rule"), QStringLiteral("frobnicate")},
            {QStringLiteral("rule")},
            {QStringLiteral("which"), QStringLiteral("a"), QStringLiteral("b")},
            {QStringLiteral("clone")},
        };
        for (const QStringList& args : wrong) {
            const Result r = kivora(args);
            QVERIFY2(r.status == 2, qPrintable(args.join(u' ')));
            QVERIFY(r.err.startsWith(QStringLiteral("kivora: ")));
            QVERIFY(r.out.isEmpty());
        }
        QVERIFY(!m_home->exists(QStringLiteral(".kivora/rules.json")));
    }

    void bashCompletesRuleCommands()
    {
        const QString framework = QStringLiteral("/usr/share/bash-completion/bash_completion");
        if (!QFileInfo::exists(framework)) {
            QSKIP("bash-completion is not installed");
        }
        const auto complete = [&](const QString& line) {
            QProcess bash;
            QProcessEnvironment env = m_env;
            env.insert(QStringLiteral("PATH"),
                       QFileInfo(qEnvironmentVariable("KIVORA_CLI")).path() + u':' +
                           env.value(QStringLiteral("PATH")));
            bash.setProcessEnvironment(env);
            bash.setWorkingDirectory(m_home->path());
            // Pressing Tab at the end of `line`.
            bash.start(QStringLiteral("/bin/bash"),
                       {QStringLiteral("-c"),
                        QStringLiteral("source %1; source %2; COMP_LINE=\"$1\"; "
                                       "COMP_POINT=${#COMP_LINE}; read -ra COMP_WORDS <<< \"$1\"; "
                                       "[[ $1 == *' ' ]] && COMP_WORDS+=(''); "
                                       "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kivora; "
                                       "printf '%s\\n' \"${COMPREPLY[@]}\"")
                            .arg(framework,
                                 QStringLiteral(KIVORA_SOURCE_DIR "/cli/completions/kivora.bash")),
                        QStringLiteral("bash"), line});
            bash.waitForFinished(-1);
            return QString::fromUtf8(bash.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        };
        QCOMPARE(complete(QStringLiteral("kivora ru")), QStringList{QStringLiteral("rule")});
        QCOMPARE(complete(QStringLiteral("kivora whi")), QStringList{QStringLiteral("which")});
        QCOMPARE(complete(QStringLiteral("kivora rule re")), QStringList{QStringLiteral("remove")});
        QCOMPARE(complete(QStringLiteral("kivora rule add W")),
                 QStringList{QStringLiteral("Work")});
        QCOMPARE(complete(QStringLiteral("kivora rule add Work --r")),
                 QStringList{QStringLiteral("--remote")});
        QCOMPARE(complete(QStringLiteral("kivora rule list --j")),
                 QStringList{QStringLiteral("--json")});
    }

    void whichSaysWhy()
    {
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                         QStringLiteral("--dir"), QStringLiteral("~/work")})
                     .status,
                 0);
        const QString ruled = newRepository(QStringLiteral("work/app"));
        const QString plain = newRepository(QStringLiteral("play/app"));
        QCOMPARE(author(ruled), QStringLiteral("Ada Work <ada@corp.example>"));

        QJsonObject w = which(ruled);
        QCOMPARE(w[QStringLiteral("gitName")].toString(), QStringLiteral("Ada Work"));
        QCOMPARE(w[QStringLiteral("gitEmail")].toString(), QStringLiteral("ada@corp.example"));
        QCOMPARE(w[QStringLiteral("source")].toString(), QStringLiteral("rule"));
        QCOMPARE(w[QStringLiteral("profile")][QStringLiteral("name")].toString(),
                 QStringLiteral("Work"));
        QCOMPARE(w[QStringLiteral("profile")][QStringLiteral("id")].toString(),
                 profileId(QStringLiteral("Work")));
        QCOMPARE(w[QStringLiteral("rule")][QStringLiteral("kind")].toString(),
                 QStringLiteral("dir"));
        QCOMPARE(w[QStringLiteral("rule")][QStringLiteral("pattern")].toString(),
                 m_home->filePath(QStringLiteral("work")));
        QVERIFY(w[QStringLiteral("sshCommand")].toString().contains(
            m_home->filePath(QStringLiteral(".ssh/id_work")) +
            QStringLiteral(" -o IdentitiesOnly=yes")));
        // A folder below the repository's top counts as the repository.
        QDir().mkpath(ruled + QStringLiteral("/src"));
        QCOMPARE(which(ruled + QStringLiteral("/src"))[QStringLiteral("source")].toString(),
                 QStringLiteral("rule"));

        w = which(plain);
        QCOMPARE(w[QStringLiteral("source")].toString(), QStringLiteral("global"));
        QCOMPARE(w[QStringLiteral("gitEmail")].toString(), QStringLiteral("ada@home.example"));
        QCOMPARE(w[QStringLiteral("profile")][QStringLiteral("name")].toString(),
                 QStringLiteral("Personal"));
        QVERIFY(w[QStringLiteral("rule")].isNull());
        QVERIFY(w[QStringLiteral("sshCommand")].isNull());

        git(ruled, {QStringLiteral("config"), QStringLiteral("user.email"),
                    QStringLiteral("me@repo.example")});
        w = which(ruled);
        QCOMPARE(w[QStringLiteral("source")].toString(), QStringLiteral("repository"));
        QCOMPARE(w[QStringLiteral("gitEmail")].toString(), QStringLiteral("me@repo.example"));
        QVERIFY(w[QStringLiteral("rule")].isNull());

        m_env.insert(QStringLiteral("GIT_AUTHOR_EMAIL"), QStringLiteral("env@example"));
        w = which(plain);
        QCOMPARE(w[QStringLiteral("source")].toString(), QStringLiteral("environment"));
        QCOMPARE(w[QStringLiteral("gitEmail")].toString(), QStringLiteral("env@example"));
        m_env.remove(QStringLiteral("GIT_AUTHOR_EMAIL"));

        // A later global switch leaves the ruled folder alone.
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("work")}).status, 0);
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("personal")}).status, 0);
        git(ruled,
            {QStringLiteral("config"), QStringLiteral("--unset"), QStringLiteral("user.email")});
        QCOMPARE(which(ruled)[QStringLiteral("source")].toString(), QStringLiteral("rule"));
        QCOMPARE(which(plain)[QStringLiteral("gitEmail")].toString(),
                 QStringLiteral("ada@home.example"));

        const Result text = kivora({QStringLiteral("which"), ruled});
        QCOMPARE(text.status, 0);
        QVERIFY(text.out.contains(QStringLiteral("Ada Work")));
        QVERIFY(text.out.contains(QStringLiteral("rule")));
        QCOMPARE(
            kivora({QStringLiteral("which"), m_home->filePath(QStringLiteral("missing"))}).status,
            1);
    }

    void removingTheProfileRemovesItsRules()
    {
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                         QStringLiteral("--dir"), QStringLiteral("~/work")})
                     .status,
                 0);
        const QString ruled = newRepository(QStringLiteral("work/app"));
        QCOMPARE(kivora({QStringLiteral("remove"), QStringLiteral("work")}).status, 0);
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("list"), QStringLiteral("--json")})
                     .out.trimmed(),
                 QStringLiteral("[]"));
        QCOMPARE(author(ruled), QStringLiteral("Ada Home <ada@home.example>"));
        QVERIFY(QDir(m_home->filePath(QStringLiteral(".kivora/git")))
                    .entryList({QStringLiteral("*.gitconfig")})
                    .isEmpty());
    }

    void cloneUsesTheRemoteRule()
    {
        const QString bare = m_home->filePath(QStringLiteral("server/acme/tool.git"));
        QDir().mkpath(bare);
        git(bare, {QStringLiteral("init"), QStringLiteral("-q"), QStringLiteral("--bare")});
        const QString url = QStringLiteral("file://") + bare;
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                         QStringLiteral("--remote"), QStringLiteral("file://**/acme/**")})
                     .status,
                 0);
        const Result r = kivora({QStringLiteral("clone"), url, QStringLiteral("src/tool")});
        QVERIFY2(r.status == 0, qPrintable(r.err));
        QVERIFY(r.out.contains(QStringLiteral("Work")));
        const QString clone = m_home->filePath(QStringLiteral("src/tool"));
        QCOMPARE(author(clone), QStringLiteral("Ada Work <ada@corp.example>"));
        // Nothing of the identity was written into the new repository: the rule gives it.
        int status = 0;
        git(clone,
            {QStringLiteral("config"), QStringLiteral("--local"), QStringLiteral("user.email")},
            &status);
        QCOMPARE(status, 1);
        QCOMPARE(which(clone)[QStringLiteral("source")].toString(), QStringLiteral("rule"));

        // A URL no rule matches clones with the global identity.
        const QString other = m_home->filePath(QStringLiteral("server/other.git"));
        QDir().mkpath(other);
        git(other, {QStringLiteral("init"), QStringLiteral("-q"), QStringLiteral("--bare")});
        QCOMPARE(kivora({QStringLiteral("clone"), QStringLiteral("file://") + other,
                         QStringLiteral("src/other")})
                     .status,
                 0);
        QCOMPARE(author(m_home->filePath(QStringLiteral("src/other"))),
                 QStringLiteral("Ada Home <ada@home.example>"));
    }

    // Both keys may log in (two accounts on one server). An agent holds the other profile's
    // key; the push from the ruled folder, and the first fetch of kivora clone, must still log
    // in with the rule's key.
    void pushOverSshUsesTheRuleKeyDespiteTheAgent()
    {
        LocalSshServer server;
        QVERIFY2(server.start(), qPrintable(server.errorText()));
        makeKey(QStringLiteral(".ssh/id_work"));
        makeKey(QStringLiteral(".ssh/id_other"));
        server.authorize(m_home->read(QStringLiteral(".ssh/id_work.pub")));
        server.authorize(m_home->read(QStringLiteral(".ssh/id_other.pub")));

        // ssh reads the account's own ~/.ssh, not $HOME's: a stand-in `ssh` first on PATH points
        // the real one at the test's client configuration.
        m_home->write(QStringLiteral("bin/ssh"), "#!/bin/sh\nexec /usr/bin/ssh -F '" +
                                                     server.clientConfigPath().toUtf8() +
                                                     "' \"$@\"\n");
        QFile::setPermissions(m_home->filePath(QStringLiteral("bin/ssh")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        m_env.insert(QStringLiteral("PATH"), m_home->filePath(QStringLiteral("bin")) + u':' +
                                                 m_env.value(QStringLiteral("PATH")));

        QProcess agent;
        agent.start(QStringLiteral("ssh-agent"), {QStringLiteral("-D"), QStringLiteral("-a"),
                                                  m_home->filePath(QStringLiteral("agent.sock"))});
        QVERIFY(agent.waitForStarted());
        QTRY_VERIFY(QFileInfo::exists(m_home->filePath(QStringLiteral("agent.sock"))));
        m_env.insert(QStringLiteral("SSH_AUTH_SOCK"),
                     m_home->filePath(QStringLiteral("agent.sock")));
        QProcess add;
        add.setProcessEnvironment(m_env);
        add.start(QStringLiteral("ssh-add"), {m_home->filePath(QStringLiteral(".ssh/id_other"))});
        add.waitForFinished(-1);
        QCOMPARE(add.exitCode(), 0);

        const QString bare = m_home->filePath(QStringLiteral("server/acme/app.git"));
        QDir().mkpath(bare);
        git(bare, {QStringLiteral("init"), QStringLiteral("-q"), QStringLiteral("--bare")});

        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                         QStringLiteral("--dir"), QStringLiteral("~/work")})
                     .status,
                 0);
        const QString repo = newRepository(QStringLiteral("work/app"));
        git(repo, {QStringLiteral("commit"), QStringLiteral("-q"), QStringLiteral("--allow-empty"),
                   QStringLiteral("-m"), QStringLiteral("first")});
        git(repo, {QStringLiteral("remote"), QStringLiteral("add"), QStringLiteral("origin"),
                   server.url(bare)});
        int status = -1;
        git(repo,
            {QStringLiteral("push"), QStringLiteral("-q"), QStringLiteral("origin"),
             QStringLiteral("HEAD:main")},
            &status);
        QCOMPARE(status, 0);
        QCOMPARE(git(bare, {QStringLiteral("log"), QStringLiteral("-1"),
                            QStringLiteral("--format=%ae"), QStringLiteral("main")}),
                 QStringLiteral("ada@corp.example"));

        const QString work =
            LocalSshServer::fingerprint(m_home->filePath(QStringLiteral(".ssh/id_work.pub")));
        const QString other =
            LocalSshServer::fingerprint(m_home->filePath(QStringLiteral(".ssh/id_other.pub")));
        QVERIFY(!work.isEmpty() && work != other);
        QByteArray log = server.log();
        QVERIFY2(log.contains("Accepted publickey") && log.contains(work.toUtf8()),
                 log.constData());
        QVERIFY2(!log.contains(other.toUtf8()), log.constData());

        // Outside the rule the agent's key is what ssh offers first: the check above can fail.
        const QString plain = newRepository(QStringLiteral("play/app"));
        git(plain, {QStringLiteral("ls-remote"), server.url(bare)}, &status);
        QCOMPARE(status, 0);
        QVERIFY(server.log().contains(other.toUtf8()));

        // kivora clone fetches with the key of the remote rule from the start.
        QCOMPARE(kivora({QStringLiteral("rule"), QStringLiteral("remove"), QStringLiteral("work"),
                         QStringLiteral("--dir"), QStringLiteral("~/work")})
                     .status,
                 0);
        QCOMPARE(
            kivora({QStringLiteral("rule"), QStringLiteral("add"), QStringLiteral("work"),
                    QStringLiteral("--remote"), QStringLiteral("ssh://*@127.0.0.1:*/**/acme/**")})
                .status,
            0);
        const qsizetype before = server.log().size();
        const Result r =
            kivora({QStringLiteral("clone"), server.url(bare), QStringLiteral("src/app")});
        QVERIFY2(r.status == 0, qPrintable(r.err));
        log = server.log().mid(before);
        QVERIFY2(log.contains(work.toUtf8()) && !log.contains(other.toUtf8()), log.constData());
        QCOMPARE(author(m_home->filePath(QStringLiteral("src/app"))),
                 QStringLiteral("Ada Work <ada@corp.example>"));

        agent.terminate();
        agent.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(tst_CliRules)
#include "tst_CliRules.moc"
