// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppProcess.h"
#include "XSession.h"
#include "activation/RuleStore.h"
#include "activation/RuleSync.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

// Where trayer puts the first icon on a 1400 × 900 screen (top right, 28 pixels high).
constexpr int trayX = 1388;
constexpr int trayY = 14;
// In the settings window (1100 × 650): the first profile row and its edit button.
constexpr QPoint firstRow(500, 200);
constexpr QPoint firstRowEdit(1020, 200);
// In the editor (500 wide, as tall as fits the settings window: 602) scrolled to its end: the
// first rule's remove button, and Save.
constexpr QPoint removeFirstRule(448, 368);
constexpr QPoint editorSave(439, 572);
constexpr QPoint addFolder(98, 491);
// Qt's folder dialog inside the sheet: the first folder of the list, and Open.
constexpr QPoint chooserFirstFolder(70, 228);
constexpr QPoint chooserOpen(325, 467);

} // namespace

// The rules in the windows: the profiles page shows a profile's rules under its identity, and
// the editor's last section lists them, each removable.
class tst_RulesWindows : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void pageAndEditorShowTheRules();

private:
    std::optional<QString> openSettings();

    std::unique_ptr<XSession> m_x;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QProcess> m_app;
};

void tst_RulesWindows::initTestCase()
{
    const QStringList missing = XSession::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    QVERIFY2(QFile::exists(qEnvironmentVariable("KIVORA_APP")), "KIVORA_APP names no program");
    m_x = std::make_unique<XSession>();
    QString problem;
    QVERIFY2(m_x->start(&problem), qPrintable(problem));
    m_home = std::make_unique<TestHome>();
}

void tst_RulesWindows::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_x.reset();
    m_home.reset();
}

std::optional<QString> tst_RulesWindows::openSettings()
{
    auto popover = m_x->waitForWindow(QStringLiteral("^Kivora$"), 200);
    if (!popover) {
        m_x->click(trayX, trayY);
        popover = m_x->waitForWindow(QStringLiteral("^Kivora$"), 10000);
    }
    if (!popover) {
        return std::nullopt;
    }
    const QRect area = m_x->geometry(*popover);
    // The popover footer's first button opens the settings window.
    m_x->click(area.left() + 50, area.bottom() - 22);
    const auto settings = m_x->waitForWindow(QStringLiteral("^Kivora Settings$"), 10000);
    QThread::msleep(600);
    return settings;
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

    m_app = AppProcess::launch(qEnvironmentVariable("KIVORA_APP"), m_x->environment());
    QVERIFY(m_app);
    const auto settings = openSettings();
    QVERIFY2(settings, "no settings window");
    const QRect window = m_x->geometry(*settings);
    m_x->move(window.left() + firstRow.x(), window.top() + firstRow.y());
    QThread::msleep(500);
    QVERIFY(AppProcess::saveScreenshot(m_x->capture(window),
                                       QStringLiteral("profiles-rules-light.png")));

    m_x->click(window.left() + firstRowEdit.x(), window.top() + firstRowEdit.y());
    const auto editor = m_x->waitForWindow(QStringLiteral("^Edit Profile$"), 10000);
    QVERIFY2(editor, "no editor after the edit button");
    const QRect sheet = m_x->geometry(*editor);
    QThread::msleep(400);
    // Scrolled to the end of the form, where "Used Automatically In" is.
    m_x->move(sheet.center().x(), sheet.center().y());
    for (int i = 0; i < 15; ++i) {
        m_x->click(sheet.center().x(), sheet.center().y(), 5);
    }
    QThread::msleep(600);
    QVERIFY(
        AppProcess::saveScreenshot(m_x->capture(sheet), QStringLiteral("editor-rules-light.png")));

    // The folder rule's remove button; then "Add Folder…" and the folder chooser (on a desktop
    // without a portal, Qt's own dialog inside the sheet) choose the same folder again: it
    // comes back after the remote rule. Save writes both.
    m_x->click(sheet.left() + removeFirstRule.x(), sheet.top() + removeFirstRule.y());
    QThread::msleep(300);
    m_x->click(sheet.left() + addFolder.x(), sheet.top() + addFolder.y());
    QThread::msleep(1000);
    const QString pictures = QStringLiteral(KIVORA_BUILD_SCREENSHOTS);
    QDir().mkpath(pictures);
    QVERIFY(m_x->capture(sheet).save(pictures + QStringLiteral("/folder-chooser.png")));
    m_x->click(sheet.left() + chooserFirstFolder.x(), sheet.top() + chooserFirstFolder.y());
    QThread::msleep(300);
    m_x->click(sheet.left() + chooserOpen.x(), sheet.top() + chooserOpen.y());
    QThread::msleep(600);
    QVERIFY(m_x->capture(sheet).save(pictures + QStringLiteral("/editor-folder-added.png")));
    m_x->click(sheet.left() + editorSave.x(), sheet.top() + editorSave.y());
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Edit Profile$"), 100), 5000);
    const auto rules = RuleStore(m_home->path()).load();
    QVERIFY(rules);
    QCOMPARE(*rules,
             (IdentityRules{
                 {work.id, IdentityRule::Kind::Remote, QStringLiteral("git@github.com:acme/**")},
                 {work.id, IdentityRule::Kind::Dir, m_home->filePath(QStringLiteral("work"))}}));
    const QByteArray generated = m_home->read(QStringLiteral(".kivora/git/rules.gitconfig"));
    QVERIFY(generated.indexOf("hasconfig:") < generated.indexOf("gitdir:"));
    AppProcess::stop(m_app);
}

QTEST_GUILESS_MAIN(tst_RulesWindows)

#include "tst_RulesWindows.moc"
