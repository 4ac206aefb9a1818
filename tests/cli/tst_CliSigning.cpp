// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ProfileCodec.h"
#include "support/CliProcess.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <memory>

// `kivora edit --signing-key/--sign-commits` and the "signing" member of the JSON listings,
// with the real git and ssh-keygen in a temporary home.
class tst_CliSigning : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;
    GitProfile m_work;
    GitProfile m_home2;

    static CliProcess::Result kivora(const QStringList& arguments)
    {
        return CliProcess::run(arguments);
    }

    void makeSSHKey(const QString& name) const
    {
        QDir(m_home->path()).mkpath(QStringLiteral(".ssh"));
        QCOMPARE(QProcess::execute(QStringLiteral("/usr/bin/ssh-keygen"),
                                   {QStringLiteral("-q"), QStringLiteral("-t"),
                                    QStringLiteral("ed25519"), QStringLiteral("-N"), QString(),
                                    QStringLiteral("-f"),
                                    m_home->filePath(QStringLiteral(".ssh/") + name)}),
                 0);
    }

    QJsonObject listed(const QString& name) const
    {
        const auto result = kivora({QStringLiteral("list"), QStringLiteral("--json")});
        for (const QJsonValue value : QJsonDocument::fromJson(result.out.toUtf8()).array()) {
            if (value.toObject().value(u"name").toString() == name) {
                return value.toObject();
            }
        }
        return {};
    }

private slots:
    void initTestCase()
    {
        QVERIFY2(QFileInfo(qEnvironmentVariable("KIVORA_CLI")).isExecutable(), "KIVORA_CLI");
    }

    void init()
    {
        m_home = std::make_unique<TestHome>();
        m_home->setEnv("SSH_AUTH_SOCK", std::nullopt);
        m_work = GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada Work"),
                                    QStringLiteral("ada@work.example"), QString());
        m_home2 = GitProfile::create(QStringLiteral("Home"), QStringLiteral("Ada Home"),
                                     QStringLiteral("ada@home.example"), QString());
        m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                      ProfileCodec::encodeStore({{m_work, m_home2}, std::nullopt}));
    }

    void cleanup() { m_home.reset(); }

    void signingIsNullUntilSetAndExistingFieldsStay()
    {
        const QJsonObject before = listed(QStringLiteral("Work"));
        QVERIFY(before.contains(u"signing"));
        QVERIFY(before.value(u"signing").isNull());
        makeSSHKey(QStringLiteral("id_work"));
        const QByteArray profilesBefore =
            m_home->read(QStringLiteral(".git-switcher/profiles.json"));

        const auto result =
            kivora({QStringLiteral("edit"), QStringLiteral("work"), QStringLiteral("--signing-key"),
                    QStringLiteral("~/.ssh/id_work.pub"), QStringLiteral("--sign-commits"),
                    QStringLiteral("on")});
        QVERIFY2(result.status == 0, qPrintable(result.err));
        // Signing lives beside the profiles: the profile file is not rewritten for it.
        QCOMPARE(m_home->read(QStringLiteral(".git-switcher/profiles.json")), profilesBefore);

        const QJsonObject after = listed(QStringLiteral("Work"));
        for (const char* field :
             {"id", "name", "gitName", "gitEmail", "sshKeyPath", "active", "ai"}) {
            QCOMPARE(after.value(QLatin1String(field)), before.value(QLatin1String(field)));
        }
        const QJsonObject signing = after.value(u"signing").toObject();
        QCOMPARE(signing.value(u"key").toString(), QStringLiteral("~/.ssh/id_work.pub"));
        QCOMPARE(signing.value(u"format").toString(), QStringLiteral("ssh"));
        QCOMPARE(signing.value(u"signCommits").toBool(), true);
        QVERIFY(listed(QStringLiteral("Home")).value(u"signing").isNull());
    }

    void useSignsAndCurrentShowsIt()
    {
        makeSSHKey(QStringLiteral("id_work"));
        QCOMPARE(kivora({QStringLiteral("edit"), QStringLiteral("Work"),
                         QStringLiteral("--signing-key"), QStringLiteral("~/.ssh/id_work")})
                     .status,
                 0);
        QCOMPARE(kivora({QStringLiteral("use"), QStringLiteral("Work")}).status, 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QStringLiteral("true"));
        const auto current = kivora({QStringLiteral("current"), QStringLiteral("--json")});
        const QJsonObject profile =
            QJsonDocument::fromJson(current.out.toUtf8()).object().value(u"profile").toObject();
        QCOMPARE(profile.value(u"signing").toObject().value(u"format").toString(),
                 QStringLiteral("ssh"));

        // Off again for the active profile: git stops signing at once.
        QCOMPARE(kivora({QStringLiteral("edit"), QStringLiteral("Work"),
                         QStringLiteral("--sign-commits"), QStringLiteral("off")})
                     .status,
                 0);
        QCOMPARE(m_home->gitConfig(QStringLiteral("commit.gpgsign")), QString());
        QCOMPARE(listed(QStringLiteral("Work")).value(u"signing").toObject().value(u"signCommits"),
                 QJsonValue(false));
        QCOMPARE(kivora({QStringLiteral("edit"), QStringLiteral("Work"),
                         QStringLiteral("--signing-key"), QStringLiteral("none")})
                     .status,
                 0);
        QVERIFY(listed(QStringLiteral("Work")).value(u"signing").isNull());
    }

    void openPGPKeyIdsNeedNoFile()
    {
        const auto result =
            kivora({QStringLiteral("edit"), QStringLiteral("Home"), QStringLiteral("--signing-key"),
                    QStringLiteral("3AA5C34371567BD2")});
        QCOMPARE(result.status, 0);
        QCOMPARE(listed(QStringLiteral("Home")).value(u"signing").toObject().value(u"format"),
                 QJsonValue(QStringLiteral("openpgp")));
    }

    void badSigningArgumentsChangeNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::newRow("on without a key")
            << QStringList{QStringLiteral("--sign-commits"), QStringLiteral("on")} << 2;
        QTest::newRow("neither on nor off")
            << QStringList{QStringLiteral("--sign-commits"), QStringLiteral("maybe")} << 2;
        QTest::newRow("empty key") << QStringList{QStringLiteral("--signing-key"), QString()} << 2;
        QTest::newRow("missing SSH key")
            << QStringList{QStringLiteral("--signing-key"), QStringLiteral("~/.ssh/nothing.pub")}
            << 1;
    }

    void badSigningArgumentsChangeNothing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        const auto before = m_home->snapshot();
        const auto result =
            kivora(QStringList{QStringLiteral("edit"), QStringLiteral("Work")} + arguments);
        QCOMPARE(result.status, status);
        QVERIFY(!result.err.trimmed().isEmpty());
        QCOMPARE(result.err.trimmed().count(u'\n'), 0); // one sentence
        QVERIFY(result.out.isEmpty());
        QCOMPARE(m_home->snapshot(), before);
    }
};

QTEST_GUILESS_MAIN(tst_CliSigning)
#include "tst_CliSigning.moc"
