// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppProcess.h"
#include "XSession.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

// Where trayer puts the first icon on a 1400 × 900 screen (top right, 28 pixels high).
constexpr int trayX = 1388;
constexpr int trayY = 14;

// Places inside the settings window (1100 × 650) and the editor (500 × 602), in window
// coordinates. The settings page's header row ends 24 pixels from the window's right edge.
constexpr QPoint addProfileButton(1020, 128);
constexpr QPoint scanKeysButton(885, 128);
// The first profile row, its trailing edit button and the second row.
constexpr QPoint firstRow(500, 194);
constexpr QPoint firstRowEdit(1020, 194);
constexpr QPoint firstRowDelete(1054, 194);
constexpr QPoint secondRow(500, 252);
constexpr QPoint secondRowEdit(1020, 252);
// The editor's Save button at the bottom right, and "Generate" beside the key path.
constexpr QPoint editorSave(445, 572);
constexpr QPoint editorGenerate(412, 367);

const char* const lightSettings = "[General]\nappAppearance=Light\n";
const char* const darkSettings = "[General]\nappAppearance=Dark\n";

} // namespace

class tst_ProfilesPage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void addProfileThroughTheEditor();
    void screenshotsInLightMode();
    void screenshotsInDarkMode();

private:
    bool launch(const char* settings);
    std::optional<QString> openSettings();
    void arrangeProfiles();
    void type(const QString& text) const;
    void key(const QString& name) const;
    void clickIn(const QRect& window, QPoint point) const;
    void saveScreenshot(const QImage& image, const QString& name);
    // A picture for looking at, kept in the build folder only.
    void saveBuildPicture(const QImage& image, const QString& name);
    void takeScreenshots(const QString& mode);

    std::unique_ptr<XSession> m_x;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QProcess> m_app;
    QString m_appPath;
};

void tst_ProfilesPage::initTestCase()
{
    const QStringList missing = XSession::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    m_appPath = qEnvironmentVariable("KIVORA_APP");
    QVERIFY2(QFile::exists(m_appPath), "KIVORA_APP names no program");

    m_x = std::make_unique<XSession>();
    QString problem;
    QVERIFY2(m_x->start(&problem), qPrintable(problem));

    m_home = std::make_unique<TestHome>();
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name"),
                 QStringLiteral("Ada Lovelace")});
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.email"),
                 QStringLiteral("ada@work.example")});
    // Two key pairs for the scan sheet.
    for (const char* name : {"id_ed25519", "id_rsa_personal"}) {
        m_home->write(QStringLiteral(".ssh/%1").arg(QLatin1String(name)), "private\n");
        m_home->write(QStringLiteral(".ssh/%1.pub").arg(QLatin1String(name)),
                      "ssh-ed25519 AAAA ada\n");
    }
}

void tst_ProfilesPage::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_x.reset();
    m_home.reset();
}

void tst_ProfilesPage::arrangeProfiles()
{
    StoredData data;
    GitProfile work =
        GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ada Lovelace"),
                           QStringLiteral("ada@work.example"), QStringLiteral("~/.ssh/id_ed25519"));
    work.aiConfig.isEnabled = true;
    work.aiConfig.provider = AIProvider::OpenAI;
    work.aiConfig.model = QStringLiteral("gpt-4o");
    work.aiConfig.apiKey = QStringLiteral("sk-example-key");
    GitProfile local = GitProfile::create(QStringLiteral("Local Models"), QStringLiteral("Ada L"),
                                          QStringLiteral("ada@home.example"), QString());
    local.aiConfig.isEnabled = true;
    local.aiConfig.provider = AIProvider::Local;
    local.aiConfig.model = QStringLiteral("llama");
    local.aiConfig.baseURL = QStringLiteral("http://localhost:11434");
    const GitProfile freelance =
        GitProfile::create(QStringLiteral("Freelance"), QStringLiteral("A. Lovelace"),
                           QStringLiteral("ada@freelance.example"), QString());
    data.profiles << work << local << freelance;
    data.activeProfileID = work.id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
}

bool tst_ProfilesPage::launch(const char* settings)
{
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"), settings);
    QProcessEnvironment env = m_x->environment();
    m_app = AppProcess::launch(m_appPath, env);
    return m_app != nullptr;
}

std::optional<QString> tst_ProfilesPage::openSettings()
{
    if (auto open = m_x->waitForWindow(QStringLiteral("^Kivora Settings$"), 200)) {
        return open;
    }
    auto popover = m_x->waitForWindow(QStringLiteral("^Kivora$"), 200);
    if (!popover) {
        m_x->click(trayX, trayY);
        popover = m_x->waitForWindow(QStringLiteral("^Kivora$"), 10000);
    }
    if (!popover) {
        return std::nullopt;
    }
    const QRect area = m_x->geometry(*popover);
    // The popover footer's first button ("Add Profile") opens the settings window.
    m_x->click(area.left() + 50, area.bottom() - 22);
    const auto settings = m_x->waitForWindow(QStringLiteral("^Kivora Settings$"), 10000);
    QThread::msleep(600);
    return settings;
}

void tst_ProfilesPage::type(const QString& text) const
{
    m_x->run(QStringLiteral("xdotool"),
             {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("30"), text});
}

void tst_ProfilesPage::key(const QString& name) const
{
    m_x->run(QStringLiteral("xdotool"), {QStringLiteral("key"), name});
}

void tst_ProfilesPage::clickIn(const QRect& window, QPoint point) const
{
    m_x->click(window.left() + point.x(), window.top() + point.y());
}

void tst_ProfilesPage::saveScreenshot(const QImage& image, const QString& name)
{
    QVERIFY(AppProcess::saveScreenshot(image, name));
}

void tst_ProfilesPage::saveBuildPicture(const QImage& image, const QString& name)
{
    const QString folder = QStringLiteral(KIVORA_BUILD_SCREENSHOTS);
    QDir().mkpath(folder);
    QVERIFY(image.save(folder + QLatin1Char('/') + name));
}

void tst_ProfilesPage::addProfileThroughTheEditor()
{
    m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                  ProfileCodec::encodeStore(StoredData{}));
    QVERIFY(launch(lightSettings));
    const auto settings = openSettings();
    QVERIFY2(settings, "no settings window");
    const QRect window = m_x->geometry(*settings);
    QCOMPARE(window.size(), QSize(1100, 650));

    saveBuildPicture(m_x->capture(window), QStringLiteral("profiles-empty.png"));
    clickIn(window, addProfileButton);
    const auto editor = m_x->waitForWindow(QStringLiteral("^New Profile$"), 10000);
    QVERIFY2(editor, "no editor after Add Profile");
    const QRect sheet = m_x->geometry(*editor);
    // As wide as designed, and never taller than the settings window it sits on.
    QCOMPARE(sheet.width(), 500);
    QVERIFY(sheet.height() < window.height());
    QThread::msleep(400);

    // The name field has the focus; Tab moves on to the git name and the e-mail.
    type(QStringLiteral("Open Source"));
    key(QStringLiteral("Tab"));
    type(QStringLiteral("Ada Lovelace"));
    key(QStringLiteral("Tab"));
    type(QStringLiteral("ada@oss.example"));
    QThread::msleep(200);
    saveBuildPicture(m_x->capture(sheet), QStringLiteral("editor-new.png"));
    // The key generation form over the editor, closed again with Escape.
    clickIn(sheet, editorGenerate);
    const auto form = m_x->waitForWindow(QStringLiteral("^Generate SSH Key$"), 10000);
    QVERIFY2(form, "no key generation form");
    QThread::msleep(400);
    saveBuildPicture(m_x->capture(m_x->geometry(*form)), QStringLiteral("generate-form.png"));
    key(QStringLiteral("Escape"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Generate SSH Key$"), 100), 5000);
    clickIn(sheet, editorSave);
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^New Profile$"), 100), 5000);

    QTRY_VERIFY_WITH_TIMEOUT(
        ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json")))
                ->profiles.size() == 1,
        5000);
    const auto stored =
        ProfileCodec::decodeStore(m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    QVERIFY(stored);
    const GitProfile& added = stored->profiles.first();
    QCOMPARE(added.name, QStringLiteral("Open Source"));
    QCOMPARE(added.gitName, QStringLiteral("Ada Lovelace"));
    QCOMPARE(added.gitEmail, QStringLiteral("ada@oss.example"));
    QCOMPARE(added.sshKeyPath, QString());
    QVERIFY(!stored->activeProfileID.has_value());

    AppProcess::stop(m_app);
}

void tst_ProfilesPage::takeScreenshots(const QString& mode)
{
    const auto settings = openSettings();
    QVERIFY2(settings, "no settings window");
    const QRect window = m_x->geometry(*settings);
    // The pointer rests on the first row, so its edit and delete buttons show.
    m_x->move(window.left() + firstRow.x(), window.top() + firstRow.y());
    QThread::msleep(500);
    const QImage page = m_x->capture(window);
    saveScreenshot(page, QStringLiteral("profiles-page-%1.png").arg(mode));

    // The editor of the first profile (OpenAI).
    clickIn(window, firstRowEdit);
    auto editor = m_x->waitForWindow(QStringLiteral("^Edit Profile$"), 10000);
    QVERIFY2(editor, "no editor after the edit button");
    QThread::msleep(600);
    saveScreenshot(m_x->capture(m_x->geometry(*editor)),
                   QStringLiteral("editor-openai-%1.png").arg(mode));
    key(QStringLiteral("Escape"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Edit Profile$"), 100), 5000);

    // The editor of the second profile (Local).
    m_x->move(window.left() + secondRow.x(), window.top() + secondRow.y());
    QThread::msleep(300);
    clickIn(window, secondRowEdit);
    editor = m_x->waitForWindow(QStringLiteral("^Edit Profile$"), 10000);
    QVERIFY2(editor, "no editor for the second profile");
    QThread::msleep(600);
    saveScreenshot(m_x->capture(m_x->geometry(*editor)),
                   QStringLiteral("editor-local-%1.png").arg(mode));
    key(QStringLiteral("Escape"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Edit Profile$"), 100), 5000);

    // The delete confirmation of the first profile (it has a key), closed with Escape.
    m_x->move(window.left() + firstRow.x(), window.top() + firstRow.y());
    QThread::msleep(300);
    clickIn(window, firstRowDelete);
    QThread::msleep(500);
    saveBuildPicture(m_x->capture(window), QStringLiteral("delete-dialog-%1.png").arg(mode));
    key(QStringLiteral("Escape"));
    QThread::msleep(300);

    // The key scan at its first key.
    clickIn(window, scanKeysButton);
    const auto scan = m_x->waitForWindow(QStringLiteral("^Scan SSH Keys$"), 10000);
    QVERIFY2(scan, "no scan sheet");
    QThread::msleep(600);
    const QRect scanArea = m_x->geometry(*scan);
    QCOMPARE(scanArea.width(), 450);
    saveScreenshot(m_x->capture(scanArea), QStringLiteral("scan-sheet-%1.png").arg(mode));
    key(QStringLiteral("Escape"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Scan SSH Keys$"), 100), 5000);
}

void tst_ProfilesPage::screenshotsInLightMode()
{
    arrangeProfiles();
    QVERIFY(launch(lightSettings));
    takeScreenshots(QStringLiteral("light"));
    AppProcess::stop(m_app);
}

void tst_ProfilesPage::screenshotsInDarkMode()
{
    arrangeProfiles();
    QVERIFY(launch(darkSettings));
    takeScreenshots(QStringLiteral("dark"));
    AppProcess::stop(m_app);
}

QTEST_GUILESS_MAIN(tst_ProfilesPage)

#include "tst_ProfilesPage.moc"
