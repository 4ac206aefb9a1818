// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppDriver.h"
#include "activation/RuleStore.h"
#include "activation/RuleSync.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QThread>
#include <QtTest>

#include <memory>

// The rules in the windows, with the keyboard: the profiles page says a profile's rules with
// its identity, and the editor's last section lists them, each removable, and adds a folder
// through the desktop's folder chooser. Checked in the rule file and git's configuration.
class tst_RulesWindows : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void pageAndEditorShowTheRules();

private:
    bool tabTo(const AppDriver::Node& root, const QString& role, const QString& name);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AppDriver> m_driver;
};

void tst_RulesWindows::initTestCase()
{
    const QStringList missing = AppDriver::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    QVERIFY2(QFile::exists(qEnvironmentVariable("KIVORA_APP")), "KIVORA_APP names no program");
    m_home = std::make_unique<TestHome>();
    m_driver = std::make_unique<AppDriver>();
    QString problem;
    QVERIFY2(m_driver->startDesktop(*m_home, &problem), qPrintable(problem));
}

void tst_RulesWindows::cleanupTestCase()
{
    m_driver.reset();
    m_home.reset();
}

bool tst_RulesWindows::tabTo(const AppDriver::Node& root, const QString& role, const QString& name)
{
    for (int step = 0; step < 40; ++step) {
        if (m_driver->waitForFocus(root, role, name, 400)) {
            return true;
        }
        m_driver->key(QStringLiteral("Tab"));
    }
    qWarning() << "the keyboard never reached" << role << name << "; it is on"
               << m_driver->describeFocus(root);
    return false;
}

void tst_RulesWindows::pageAndEditorShowTheRules()
{
    const GitProfile work =
        GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada Lovelace"),
                           QStringLiteral("ada@corp.example"), QStringLiteral("~/.ssh/id_work"));
    const GitProfile personal = GitProfile::create(
        QStringLiteral("Personal"), QStringLiteral("Ada"), QStringLiteral("ada@home.example"), {});
    m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                  ProfileCodec::encodeStore({{work, personal}, personal.id}));
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"), "[General]\nappAppearance=Light\n");
    QDir().mkpath(m_home->filePath(QStringLiteral("work")));
    QVERIFY(
        RuleSync(m_home->path())
            .apply(
                {{work.id, IdentityRule::Kind::Dir, m_home->filePath(QStringLiteral("work"))},
                 {work.id, IdentityRule::Kind::Remote, QStringLiteral("git@github.com:acme/**")}},
                {work, personal}));

    QVERIFY(m_driver->launch());
    const auto popover = m_driver->openPopover();
    QVERIFY(popover);
    QVERIFY(m_driver->press(*popover, QStringLiteral("push button"), QStringLiteral("Settings")));
    const auto settings = m_driver->window(QStringLiteral("Kivora Settings"));
    QVERIFY2(settings, "no settings window");
    // The list's row of Work says where the profile is used.
    const auto workRow =
        m_driver->control(*settings, QStringLiteral("radio button"), QStringLiteral("Work"));
    QVERIFY(workRow);
    QVERIFY2(m_driver->a11y().description(*workRow).contains(QStringLiteral("Used in ")),
             qPrintable(m_driver->a11y().description(*workRow)));
    // Into the list (the active profile, Personal), up to Work: its ring and buttons show.
    m_driver->key(QStringLiteral("ctrl+f"));
    QVERIFY(tabTo(*settings, QStringLiteral("radio button"), QStringLiteral("Personal")));
    m_driver->key(QStringLiteral("Up"));
    QVERIFY(
        m_driver->waitForFocus(*settings, QStringLiteral("radio button"), QStringLiteral("Work")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*settings, QStringLiteral("profiles-rules-light.png")));

    m_driver->key(QStringLiteral("Menu Return"));
    const auto editor = m_driver->window(QStringLiteral("Edit Profile"));
    QVERIFY2(editor, "no editor from the row's menu");
    QVERIFY(
        m_driver->waitForFocus(*editor, QStringLiteral("text"), QStringLiteral("Profile Name")));
    // Tab down the form to the first rule's Remove: the form scrolls along.
    QVERIFY(tabTo(*editor, QStringLiteral("push button"), QStringLiteral("Remove")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*editor, QStringLiteral("editor-rules-light.png")));
    m_driver->key(QStringLiteral("Return"));
    // The folder rule is gone from the list (the remote one is left); Add Folder… opens the
    // folder chooser, whose keyboard starts on the home folder's first folder, "work": Tab
    // to its Open button, Space. The folder comes back after the remote rule.
    QTRY_COMPARE_WITH_TIMEOUT(
        m_driver->a11y()
            .findAll(*editor, QStringLiteral("push button"), QStringLiteral("Remove"))
            .size(),
        1, 5000);
    QVERIFY(tabTo(*editor, QStringLiteral("push button"), QStringLiteral("Add Folder…")));
    m_driver->key(QStringLiteral("Return"));
    const auto chooser =
        m_driver->control(*editor, QStringLiteral("dialog"), QStringLiteral("Choose a Folder"));
    QVERIFY2(chooser, qPrintable(m_driver->a11y().dump(*editor)));
    QVERIFY(m_driver->waitForFocus(*chooser, QStringLiteral("list item"), QString()));
    QVERIFY(m_driver->control(*m_driver->focused(*chooser), QStringLiteral("label"),
                              QStringLiteral("work"), 2000));
    QThread::msleep(300);
    const QString pictures = QStringLiteral(KIVORA_BUILD_SCREENSHOTS);
    QDir().mkpath(pictures);
    QVERIFY(m_driver->capture(*editor).save(pictures + QStringLiteral("/folder-chooser.png")));
    QVERIFY(tabTo(*chooser, QStringLiteral("push button"), QStringLiteral("Open")));
    m_driver->key(QStringLiteral("space"));
    QTRY_COMPARE_WITH_TIMEOUT(
        m_driver->a11y()
            .findAll(*editor, QStringLiteral("push button"), QStringLiteral("Remove"))
            .size(),
        2, 5000);
    // Save, from the keyboard.
    QVERIFY(tabTo(*editor, QStringLiteral("push button"), QStringLiteral("Save")));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Edit Profile")));
    const auto rules = RuleStore(m_home->path()).load();
    QVERIFY(rules);
    QCOMPARE(*rules,
             (IdentityRules{
                 {work.id, IdentityRule::Kind::Remote, QStringLiteral("git@github.com:acme/**")},
                 {work.id, IdentityRule::Kind::Dir, m_home->filePath(QStringLiteral("work"))}}));
    const QByteArray generated = m_home->read(QStringLiteral(".kivora/git/rules.gitconfig"));
    QVERIFY(generated.indexOf("hasconfig:") < generated.indexOf("gitdir:"));
    m_driver->stopApp();
}

QTEST_GUILESS_MAIN(tst_RulesWindows)

#include "tst_RulesWindows.moc"
