// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/SSHKeyGenerator.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>
#include <QtTest>

#include <cstdio>
#include <memory>
#include <unistd.h>

namespace {

// Runs the real ssh-keygen with the arguments and returns its exit code.
int sshKeygen(const QStringList& arguments)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QStringLiteral("/usr/bin/ssh-keygen"), arguments);
    if (!process.waitForFinished(30000)) {
        return -1;
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

// Everything written to standard output while `action` runs.
template <typename Action> QByteArray capturedOutput(Action action)
{
    QTemporaryFile capture;
    if (!capture.open()) {
        return {};
    }
    std::fflush(stdout);
    const int saved = ::dup(STDOUT_FILENO);
    ::dup2(capture.handle(), STDOUT_FILENO);
    action();
    std::fflush(stdout);
    ::dup2(saved, STDOUT_FILENO);
    ::close(saved);
    QFile file(capture.fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_SSHKeyGenerator : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> m_home;

    QString sshFolder() const { return m_home->filePath(QStringLiteral(".ssh")); }
    void makeSSHFolder() const
    {
        QDir().mkpath(sshFolder());
        QFile::setPermissions(sshFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private slots:
    void initTestCase()
    {
        if (!QFile::exists(SSHKeyGenerator::program())) {
            QSKIP("needs /usr/bin/ssh-keygen");
        }
    }
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }

    void argumentsWithoutNameOrPassphrase()
    {
        SSHKeyGenerator::Request request;
        request.gitEmail = QStringLiteral("ada@example.org");
        const QStringList expected{
            QStringLiteral("-t"), QStringLiteral("ed25519"),
            QStringLiteral("-C"), QStringLiteral("ada@example.org"),
            QStringLiteral("-f"), QStringLiteral("/home/ada/.ssh/id_ed25519"),
            QStringLiteral("-N"), QString()};
        QCOMPARE(SSHKeyGenerator::arguments(request, QStringLiteral("/home/ada")), expected);

        // A switched-on passphrase left empty is no passphrase.
        request.usePassphrase = true;
        QCOMPARE(SSHKeyGenerator::arguments(request, QStringLiteral("/home/ada")), expected);
    }

    void passphraseIsGivenAsNewAndOld()
    {
        SSHKeyGenerator::Request request;
        request.gitEmail = QStringLiteral("ada@example.org");
        request.keyFilename = QStringLiteral("work key");
        request.usePassphrase = true;
        request.passphrase = QStringLiteral("s3cret words");
        QCOMPARE(SSHKeyGenerator::arguments(request, QStringLiteral("/h")),
                 (QStringList{QStringLiteral("-t"), QStringLiteral("ed25519"), QStringLiteral("-C"),
                              QStringLiteral("ada@example.org"), QStringLiteral("-f"),
                              QStringLiteral("/h/.ssh/work key"), QStringLiteral("-N"),
                              QStringLiteral("s3cret words"), QStringLiteral("-P"),
                              QStringLiteral("s3cret words")}));

        // Switched off, the typed passphrase is not used.
        request.usePassphrase = false;
        QCOMPARE(SSHKeyGenerator::arguments(request, QStringLiteral("/h")).mid(6),
                 (QStringList{QStringLiteral("-N"), QString()}));
    }

    void emptyEmailGivesThePlaceholderComment()
    {
        SSHKeyGenerator::Request request;
        QCOMPARE(SSHKeyGenerator::arguments(request, QStringLiteral("/h")).at(3),
                 SSHKeyGenerator::placeholderComment());
        QVERIFY(SSHKeyGenerator::placeholderComment().endsWith(QLatin1String("@example.com")));
    }

    void generatesTheDefaultKey()
    {
        makeSSHFolder();
        SSHKeyGenerator::Request request;
        request.gitEmail = QStringLiteral("ada@example.org");
        const auto result = SSHKeyGenerator::generate(request, m_home->path());
        QCOMPARE(result.outcome, SSHKeyGenerator::Outcome::Created);
        QCOMPARE(result.fileName, QStringLiteral("id_ed25519"));
        QCOMPARE(result.sshKeyPath, QStringLiteral("~/.ssh/id_ed25519"));
        QVERIFY(m_home->exists(QStringLiteral(".ssh/id_ed25519")));
        const QByteArray pub = m_home->read(QStringLiteral(".ssh/id_ed25519.pub"));
        QVERIFY(pub.startsWith("ssh-ed25519 "));
        QVERIFY(pub.trimmed().endsWith(" ada@example.org"));
        // No passphrase: the public key can be derived with an empty one.
        QCOMPARE(sshKeygen({QStringLiteral("-y"), QStringLiteral("-P"), QString(),
                            QStringLiteral("-f"), sshFolder() + QStringLiteral("/id_ed25519")}),
                 0);
    }

    void placeholderCommentIsWrittenIntoTheKey()
    {
        makeSSHFolder();
        SSHKeyGenerator::Request request;
        request.keyFilename = QStringLiteral("anon");
        QCOMPARE(SSHKeyGenerator::generate(request, m_home->path()).outcome,
                 SSHKeyGenerator::Outcome::Created);
        const QByteArray pub = m_home->read(QStringLiteral(".ssh/anon.pub")).trimmed();
        QVERIFY(pub.endsWith(" " + SSHKeyGenerator::placeholderComment().toUtf8()));
    }

    void passphraseEncryptsTheKey()
    {
        makeSSHFolder();
        SSHKeyGenerator::Request request;
        request.gitEmail = QStringLiteral("ada@example.org");
        request.keyFilename = QStringLiteral("locked");
        request.usePassphrase = true;
        request.passphrase = QStringLiteral("correct horse");
        const auto result = SSHKeyGenerator::generate(request, m_home->path());
        QCOMPARE(result.outcome, SSHKeyGenerator::Outcome::Created);
        QCOMPARE(result.sshKeyPath, QStringLiteral("~/.ssh/locked"));
        const QString key = sshFolder() + QStringLiteral("/locked");
        QVERIFY(sshKeygen({QStringLiteral("-y"), QStringLiteral("-P"), QString(),
                           QStringLiteral("-f"), key}) != 0);
        QCOMPARE(sshKeygen({QStringLiteral("-y"), QStringLiteral("-P"),
                            QStringLiteral("correct horse"), QStringLiteral("-f"), key}),
                 0);
    }

    void existingKeyIsNotOverwritten()
    {
        makeSSHFolder();
        SSHKeyGenerator::Request request;
        request.keyFilename = QStringLiteral("twice");
        QCOMPARE(SSHKeyGenerator::generate(request, m_home->path()).outcome,
                 SSHKeyGenerator::Outcome::Created);
        const QByteArray privateKey = m_home->read(QStringLiteral(".ssh/twice"));
        const QByteArray publicKey = m_home->read(QStringLiteral(".ssh/twice.pub"));

        const auto again = SSHKeyGenerator::generate(request, m_home->path());
        QCOMPARE(again.outcome, SSHKeyGenerator::Outcome::Failed);
        QVERIFY(again.sshKeyPath.isEmpty());
        QCOMPARE(m_home->read(QStringLiteral(".ssh/twice")), privateKey);
        QCOMPARE(m_home->read(QStringLiteral(".ssh/twice.pub")), publicKey);
    }

    void missingFolderIsNotCreated()
    {
        SSHKeyGenerator::Request request;
        const auto result = SSHKeyGenerator::generate(request, m_home->path());
        QCOMPARE(result.outcome, SSHKeyGenerator::Outcome::Failed);
        QVERIFY(result.sshKeyPath.isEmpty());
        QVERIFY(!m_home->exists(QStringLiteral(".ssh")));
    }

    void failedStartPrintsOneLine()
    {
        makeSSHFolder();
        SSHKeyGenerator::Result result;
        const QByteArray printed = capturedOutput([&] {
            result = SSHKeyGenerator::generate({}, m_home->path(),
                                               m_home->filePath(QStringLiteral("no-such-program")));
        });
        QCOMPARE(result.outcome, SSHKeyGenerator::Outcome::NotStarted);
        QVERIFY(!result.error.isEmpty());
        QCOMPARE(printed,
                 (QStringLiteral("Failed to generate SSH key: ") + result.error + u'\n').toUtf8());
        QVERIFY(!m_home->exists(QStringLiteral(".ssh/id_ed25519")));
    }

    void publicKeyIsReadAsStored()
    {
        m_home->write(QStringLiteral(".ssh/k.pub"), "ssh-ed25519 AAAA comment\n");
        QCOMPARE(SSHKeyGenerator::publicKey(QStringLiteral("k"), m_home->path()),
                 std::optional<QString>(QStringLiteral("ssh-ed25519 AAAA comment\n")));
        QCOMPARE(SSHKeyGenerator::publicKey(QStringLiteral("missing"), m_home->path()),
                 std::nullopt);
        m_home->write(QStringLiteral(".ssh/bad.pub"), "ssh-ed25519 \xff\xfe\n");
        QCOMPARE(SSHKeyGenerator::publicKey(QStringLiteral("bad"), m_home->path()), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(tst_SSHKeyGenerator)

#include "tst_SSHKeyGenerator.moc"
