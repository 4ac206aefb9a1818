// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppDriver.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QtTest>

#include <memory>

namespace {

const QString button = QStringLiteral("push button");
const QString radio = QStringLiteral("radio button");
const QString text = QStringLiteral("text");

const char* const lightSettings = "[General]\nappAppearance=Light\n";
const char* const darkSettings = "[General]\nappAppearance=Dark\n";

} // namespace

// Everything the profiles page offers, with the keyboard only: add a profile in the editor,
// edit it, generate a key for it, delete it, turn the keys in ~/.ssh into profiles, export the
// list and import it again. Each step is checked in the profile file and in ~/.ssh. The
// windows are found over the accessibility bus; the screenshots show where the focus is.
class tst_ProfilesPage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void addProfileWithTheKeyboard();
    void editProfileWithTheKeyboard();
    void generateKeyWithTheKeyboard();
    void deleteProfileWithTheKeyboard();
    void scanKeysWithTheKeyboard();
    void exportAndImportWithTheKeyboard();
    void screenshotsInLightMode();
    void screenshotsInDarkMode();

private:
    bool launch(const char* settings);
    // The settings window, opened from the popover with the keyboard.
    std::optional<AppDriver::Node> openSettings();
    // Tabs on in `root` until the control has the focus.
    bool tabTo(const AppDriver::Node& root, const QString& role, const QString& name,
               const QString& key = QStringLiteral("Tab"));
    // The profile list's row that has the focus, reached with Tab from the page's buttons.
    bool focusList(const AppDriver::Node& settings);
    std::optional<StoredData> stored() const
    {
        return ProfileCodec::decodeStore(
            m_home->read(QStringLiteral(".git-switcher/profiles.json")));
    }
    QStringList storedNames() const;
    void arrangeProfiles();
    // Opens the editor with `keys` (from a focused row), takes its screenshot with the name
    // field focused, and closes it with Escape.
    bool screenshotEditor(const QString& keys, const QString& file);
    // Opens the delete confirmation with `keys`, takes its screenshot and cancels it.
    bool screenshotDeleteDialog(const AppDriver::Node& settings, const QString& keys,
                                const QString& file);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AppDriver> m_driver;
};

void tst_ProfilesPage::initTestCase()
{
    const QStringList missing = AppDriver::missingPrograms();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    QVERIFY2(QFile::exists(qEnvironmentVariable("KIVORA_APP")), "KIVORA_APP names no program");
    m_home = std::make_unique<TestHome>();
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name"),
                 QStringLiteral("Ada Lovelace")});
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.email"),
                 QStringLiteral("ada@work.example")});
    m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                  ProfileCodec::encodeStore(StoredData{}));
    m_driver = std::make_unique<AppDriver>();
    QString problem;
    QVERIFY2(m_driver->startDesktop(*m_home, &problem), qPrintable(problem));
}

void tst_ProfilesPage::cleanupTestCase()
{
    m_driver.reset();
    m_home.reset();
}

bool tst_ProfilesPage::launch(const char* settings)
{
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"), settings);
    return m_driver->launch();
}

QStringList tst_ProfilesPage::storedNames() const
{
    QStringList names;
    const auto data = stored();
    for (const GitProfile& profile : data->profiles) {
        names << profile.name;
    }
    return names;
}

bool tst_ProfilesPage::tabTo(const AppDriver::Node& root, const QString& role, const QString& name,
                             const QString& key)
{
    for (int step = 0; step < 30; ++step) {
        if (m_driver->waitForFocus(root, role, name, 400)) {
            return true;
        }
        m_driver->key(key);
    }
    qWarning() << "the keyboard never reached" << role << name << "; it is on"
               << m_driver->describeFocus(root);
    return false;
}

std::optional<AppDriver::Node> tst_ProfilesPage::openSettings()
{
    if (auto open = m_driver->window(QStringLiteral("Kivora Settings"), 0)) {
        m_driver->focusWindow(QStringLiteral("Kivora Settings"));
        return open;
    }
    const auto popover = m_driver->openPopover();
    if (!popover) {
        return std::nullopt;
    }
    // The popover's footer: Settings, from the keyboard.
    if (!tabTo(*popover, button, QStringLiteral("Settings"))) {
        return std::nullopt;
    }
    m_driver->key(QStringLiteral("Return"));
    return m_driver->window(QStringLiteral("Kivora Settings"));
}

bool tst_ProfilesPage::focusList(const AppDriver::Node& settings)
{
    // Ctrl+F, Tab (the sidebar), Tab (Scan SSH Keys), Tab (Add Profile), Tab (the list).
    m_driver->key(QStringLiteral("ctrl+f"));
    if (!m_driver->waitForFocus(settings, text, QStringLiteral("Search settings"))) {
        return false;
    }
    return tabTo(settings, radio, QString());
}

void tst_ProfilesPage::addProfileWithTheKeyboard()
{
    QVERIFY(launch(lightSettings));
    const auto settings = openSettings();
    QVERIFY2(settings, qPrintable(m_driver->dump()));
    QCOMPARE(m_driver->a11y().extents(*settings).size(), QSize(1100, 650));
    QVERIFY(m_driver->control(*settings, QStringLiteral("label"), QStringLiteral("0 profiles")));

    m_driver->key(QStringLiteral("ctrl+f"));
    QVERIFY(tabTo(*settings, button, QStringLiteral("Add Profile")));
    m_driver->key(QStringLiteral("Return"));
    const auto editor = m_driver->window(QStringLiteral("New Profile"));
    QVERIFY2(editor, "no editor after Add Profile");
    // As wide as designed, never taller than the settings window it sits on.
    const QRect sheet = m_driver->a11y().extents(*editor);
    QCOMPARE(sheet.width(), 500);
    QVERIFY(sheet.height() < 650);

    // The name field has the focus; Tab goes on to the git name and the e-mail; Return saves.
    QVERIFY2(m_driver->waitForFocus(*editor, text, QStringLiteral("Profile Name")),
             qPrintable(m_driver->describeFocus(*editor)));
    m_driver->type(QStringLiteral("Open Source"));
    m_driver->key(QStringLiteral("Tab"));
    QVERIFY(m_driver->waitForFocus(*editor, text, QStringLiteral("Git Name")));
    m_driver->type(QStringLiteral("Ada Lovelace"));
    m_driver->key(QStringLiteral("Tab"));
    QVERIFY(m_driver->waitForFocus(*editor, text, QStringLiteral("Git Email")));
    m_driver->type(QStringLiteral("ada@oss.example"));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("New Profile")));

    QTRY_COMPARE_WITH_TIMEOUT(storedNames(), QStringList{QStringLiteral("Open Source")}, 5000);
    const auto data = stored();
    const GitProfile& added = data->profiles.first();
    QCOMPARE(added.gitName, QStringLiteral("Ada Lovelace"));
    QCOMPARE(added.gitEmail, QStringLiteral("ada@oss.example"));
    QCOMPARE(added.sshKeyPath, QString());
    QVERIFY(!data->activeProfileID.has_value());
    QVERIFY(m_driver->control(*settings, QStringLiteral("label"), QStringLiteral("1 profile")));
}

void tst_ProfilesPage::editProfileWithTheKeyboard()
{
    const auto settings = openSettings();
    QVERIFY(settings);
    QVERIFY(focusList(*settings));
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Open Source")));
    // The row's menu: Edit profile.
    m_driver->key(QStringLiteral("Menu"));
    QVERIFY(
        m_driver->control(*settings, QStringLiteral("menu item"), QStringLiteral("Edit profile")));
    m_driver->key(QStringLiteral("Return"));
    const auto editor = m_driver->window(QStringLiteral("Edit Profile"));
    QVERIFY2(editor, "no editor from the row's menu");
    QVERIFY(m_driver->waitForFocus(*editor, text, QStringLiteral("Profile Name")));
    m_driver->key(QStringLiteral("End"));
    m_driver->type(QStringLiteral(" Work"));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Edit Profile")));
    QTRY_COMPARE_WITH_TIMEOUT(storedNames(), QStringList{QStringLiteral("Open Source Work")}, 5000);
    QCOMPARE(stored()->profiles.first().gitEmail, QStringLiteral("ada@oss.example"));
    // Space on the row makes it the active profile: git follows.
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Open Source Work")));
    m_driver->key(QStringLiteral("space"));
    QTRY_COMPARE_WITH_TIMEOUT(m_home->gitConfig(QStringLiteral("user.email")),
                              QStringLiteral("ada@oss.example"), 10000);
    QVERIFY(stored()->activeProfileID.has_value());
}

void tst_ProfilesPage::generateKeyWithTheKeyboard()
{
    // ssh-keygen writes into ~/.ssh; the generation does not make the folder.
    QVERIFY(QDir().mkpath(m_home->filePath(QStringLiteral(".ssh"))));
    const auto settings = openSettings();
    QVERIFY(settings);
    QVERIFY(focusList(*settings));
    m_driver->key(QStringLiteral("shift+F10"));
    QVERIFY(
        m_driver->control(*settings, QStringLiteral("menu item"), QStringLiteral("Edit profile")));
    m_driver->key(QStringLiteral("Return"));
    const auto editor = m_driver->window(QStringLiteral("Edit Profile"));
    QVERIFY(editor);
    QVERIFY(m_driver->waitForFocus(*editor, text, QStringLiteral("Profile Name")));
    // Tab to "Generate", beside the key path; Return opens the form, its file name focused.
    QVERIFY(tabTo(*editor, button, QStringLiteral("Generate")));
    m_driver->key(QStringLiteral("Return"));
    const auto form = m_driver->window(QStringLiteral("Generate SSH Key"));
    QVERIFY2(form, "no key generation form");
    QVERIFY2(m_driver->waitForFocus(*form, text,
                                    QStringLiteral("Filename (leave blank for id_ed25519)")),
             qPrintable(m_driver->describeFocus(*form)));
    m_driver->type(QStringLiteral("id_keyboard"));
    // Return: Generate. ssh-keygen runs, the public key goes to the clipboard, and the
    // confirmation comes up; Return is its Done.
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Generate SSH Key"), 30000));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_home->filePath(QStringLiteral(".ssh/id_keyboard"))),
                             10000);
    QVERIFY(QFile::exists(m_home->filePath(QStringLiteral(".ssh/id_keyboard.pub"))));
    const auto copied = m_driver->window(QStringLiteral("SSH Key Generated"));
    QVERIFY2(copied, "no confirmation");
    QVERIFY(
        m_driver->control(*copied, QStringLiteral("label"), QStringLiteral("SSH Key Generated!")));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("SSH Key Generated")));
    // The editor's key path reads the new key. The keyboard is back on "Generate" (Return
    // there would generate again): Tab on to Save, and Return.
    const auto keyField = m_driver->control(*editor, text, QStringLiteral("SSH Key Path"));
    QVERIFY(keyField);
    QTRY_COMPARE_WITH_TIMEOUT(m_driver->a11y().text(*keyField),
                              QStringLiteral("~/.ssh/id_keyboard"), 5000);
    QVERIFY(m_driver->waitForFocus(*editor, button, QStringLiteral("Generate")));
    QVERIFY(tabTo(*editor, button, QStringLiteral("Save")));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Edit Profile")));
    QTRY_COMPARE_WITH_TIMEOUT(stored()->profiles.first().sshKeyPath,
                              QStringLiteral("~/.ssh/id_keyboard"), 5000);
}

void tst_ProfilesPage::deleteProfileWithTheKeyboard()
{
    const auto settings = openSettings();
    QVERIFY(settings);
    QVERIFY(focusList(*settings));
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Open Source Work")));
    m_driver->key(QStringLiteral("shift+F10"));
    QVERIFY(m_driver->control(*settings, QStringLiteral("menu item"),
                              QStringLiteral("Delete profile")));
    m_driver->key(QStringLiteral("Down Return"));
    // The profile has a key: the dialog's first button, "Delete Profile Only", has the
    // focus. Tab to "Delete Profile and SSH Key" and press it with Return.
    const auto dialog =
        m_driver->control(*settings, QStringLiteral("dialog"), QStringLiteral("Delete Profile"));
    QVERIFY2(dialog, qPrintable(m_driver->a11y().dump(*settings)));
    QVERIFY2(m_driver->waitForFocus(*dialog, button, QStringLiteral("Delete Profile Only")),
             qPrintable(m_driver->describeFocus(*settings)));
    m_driver->key(QStringLiteral("Tab"));
    QVERIFY(m_driver->waitForFocus(*dialog, button, QStringLiteral("Delete Profile and SSH Key")));
    m_driver->key(QStringLiteral("Return"));
    QTRY_COMPARE_WITH_TIMEOUT(storedNames(), QStringList(), 5000);
    QVERIFY(!QFile::exists(m_home->filePath(QStringLiteral(".ssh/id_keyboard"))));
    QVERIFY(!QFile::exists(m_home->filePath(QStringLiteral(".ssh/id_keyboard.pub"))));
    QVERIFY(m_driver->control(*settings, QStringLiteral("label"), QStringLiteral("0 profiles")));
}

void tst_ProfilesPage::scanKeysWithTheKeyboard()
{
    for (const char* name : {"id_ed25519", "id_rsa_personal"}) {
        m_home->write(QStringLiteral(".ssh/%1").arg(QLatin1String(name)), "private\n");
        m_home->write(QStringLiteral(".ssh/%1.pub").arg(QLatin1String(name)),
                      "ssh-ed25519 AAAA ada\n");
    }
    const auto settings = openSettings();
    QVERIFY(settings);
    m_driver->key(QStringLiteral("ctrl+f"));
    QVERIFY(tabTo(*settings, button, QStringLiteral("Scan SSH Keys")));
    m_driver->key(QStringLiteral("Return"));
    const auto scan = m_driver->window(QStringLiteral("Scan SSH Keys"));
    QVERIFY2(scan, "no scan sheet");
    QCOMPARE(m_driver->a11y().extents(*scan).width(), 450);
    QVERIFY(m_driver->control(*scan, QStringLiteral("label"), QStringLiteral("SSH Key 1 of 2")));
    QVERIFY(m_driver->control(*scan, QStringLiteral("label"), QStringLiteral("Key: id_ed25519")));
    // The git name is focused; Return is Add.
    QVERIFY2(m_driver->waitForFocus(*scan, text, QStringLiteral("Git Name")),
             qPrintable(m_driver->describeFocus(*scan)));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*scan, QStringLiteral("scan-sheet-light.png")));
    m_driver->type(QStringLiteral("Ada Lovelace"));
    m_driver->key(QStringLiteral("Tab"));
    m_driver->type(QStringLiteral("ada@work.example"));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->control(*scan, QStringLiteral("label"), QStringLiteral("SSH Key 2 of 2")));
    QVERIFY(m_driver->waitForFocus(*scan, text, QStringLiteral("Git Name")));
    m_driver->type(QStringLiteral("Ada"));
    m_driver->key(QStringLiteral("Tab"));
    m_driver->type(QStringLiteral("ada@home.example"));
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(
        m_driver->control(*scan, QStringLiteral("label"), QStringLiteral("2 profiles created")));
    // Return is Done now.
    m_driver->key(QStringLiteral("Return"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Scan SSH Keys")));
    QTRY_COMPARE_WITH_TIMEOUT(stored()->profiles.size(), 2, 5000);
    const auto data = stored();
    QCOMPARE(data->profiles.at(0).sshKeyPath, QStringLiteral("~/.ssh/id_ed25519"));
    QCOMPARE(data->profiles.at(0).gitEmail, QStringLiteral("ada@work.example"));
    QCOMPARE(data->profiles.at(1).sshKeyPath, QStringLiteral("~/.ssh/id_rsa_personal"));
    QCOMPARE(data->profiles.at(1).gitName, QStringLiteral("Ada"));
}

void tst_ProfilesPage::exportAndImportWithTheKeyboard()
{
    const auto settings = openSettings();
    QVERIFY(settings);
    // The quick actions are the sidebar's last rows: End, Up, Up is Export Profiles.
    m_driver->key(QStringLiteral("ctrl+f Down End Up Up"));
    QVERIFY2(m_driver->waitForFocus(*settings, button, QStringLiteral("Export Profiles")),
             qPrintable(m_driver->describeFocus(*settings)));
    m_driver->key(QStringLiteral("Return"));
    // Qt's save dialog in the window: the suggested name in the home folder; Tab to the name,
    // Tab to its Save button, Space.
    auto dialog =
        m_driver->control(*settings, QStringLiteral("dialog"), QStringLiteral("Export Profiles"));
    QVERIFY2(dialog, qPrintable(m_driver->a11y().dump(*settings)));
    QVERIFY(tabTo(*dialog, text, QString()));
    QCOMPARE(m_driver->a11y().text(*m_driver->focused(*dialog)),
             QStringLiteral("kivora-profiles.json"));
    QVERIFY(tabTo(*dialog, button, QStringLiteral("Save")));
    m_driver->key(QStringLiteral("space"));
    const QString exported = m_home->filePath(QStringLiteral("kivora-profiles.json"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(exported), 10000);
    const auto list =
        ProfileCodec::decodeProfileArray(m_home->read(QStringLiteral("kivora-profiles.json")));
    QVERIFY(list);
    QCOMPARE(list->size(), 2);

    // Import: the next row down; in Qt's open dialog the keyboard starts on the first file,
    // the export, and Return opens it.
    QVERIFY(m_driver->waitForFocus(*settings, button, QStringLiteral("Export Profiles")));
    m_driver->key(QStringLiteral("Down"));
    QVERIFY(m_driver->waitForFocus(*settings, button, QStringLiteral("Import Profiles")));
    m_driver->key(QStringLiteral("Return"));
    dialog =
        m_driver->control(*settings, QStringLiteral("dialog"), QStringLiteral("Import Profiles"));
    QVERIFY(dialog);
    QVERIFY(m_driver->waitForFocus(*dialog, QStringLiteral("list item"), QString()));
    const auto file = m_driver->focused(*dialog);
    QVERIFY(m_driver->control(*file, QStringLiteral("label"),
                              QStringLiteral("kivora-profiles.json"), 2000));
    m_driver->key(QStringLiteral("Return"));
    QTRY_COMPARE_WITH_TIMEOUT(stored()->profiles.size(), 4, 10000);
    // The imported copies: new ids, the same identities, after the two that were there.
    const auto data = stored();
    QCOMPARE(data->profiles.at(2).gitEmail, data->profiles.at(0).gitEmail);
    QVERIFY(data->profiles.at(2).id != data->profiles.at(0).id);
    // The keyboard is back on the sidebar's row.
    QVERIFY(m_driver->waitForFocus(*settings, button, QStringLiteral("Import Profiles")));
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

bool tst_ProfilesPage::screenshotEditor(const QString& keys, const QString& file)
{
    m_driver->key(keys);
    const auto editor = m_driver->window(QStringLiteral("Edit Profile"));
    if (!editor || !m_driver->waitForFocus(*editor, text, QStringLiteral("Profile Name"))) {
        return false;
    }
    QThread::msleep(500);
    if (!m_driver->saveScreenshot(*editor, file)) {
        return false;
    }
    m_driver->key(QStringLiteral("Escape"));
    return m_driver->windowGone(QStringLiteral("Edit Profile"));
}

bool tst_ProfilesPage::screenshotDeleteDialog(const AppDriver::Node& settings, const QString& keys,
                                              const QString& file)
{
    const QString title = QStringLiteral("Delete Profile");
    m_driver->key(keys);
    if (!m_driver->control(settings, QStringLiteral("dialog"), title)) {
        return false;
    }
    QThread::msleep(500);
    if (!m_driver->saveScreenshot(settings, file)) {
        return false;
    }
    m_driver->key(QStringLiteral("Escape"));
    QElapsedTimer waited;
    waited.start();
    while (m_driver->control(settings, QStringLiteral("dialog"), title, 0)) {
        if (waited.elapsed() > 5000) {
            return false;
        }
        QThread::msleep(150);
    }
    return true;
}

void tst_ProfilesPage::screenshotsInLightMode()
{
    m_driver->stopApp();
    arrangeProfiles();
    QVERIFY(launch(lightSettings));
    const auto settings = openSettings();
    QVERIFY(settings);
    // The focus on the second row: its ring and its buttons show.
    QVERIFY(focusList(*settings));
    m_driver->key(QStringLiteral("Down"));
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Local Models")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*settings, QStringLiteral("profiles-page-light.png")));
    // The editor of the first profile (OpenAI), its name field focused.
    QVERIFY(screenshotEditor(QStringLiteral("Up Menu Return"),
                             QStringLiteral("editor-openai-light.png")));
    // The editor of the second profile (Local).
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Work")));
    QVERIFY(screenshotEditor(QStringLiteral("Down Menu Return"),
                             QStringLiteral("editor-local-light.png")));
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Local Models")));
    m_driver->key(QStringLiteral("Up"));
    // The delete confirmation of the first profile (it has a key), its first button focused.
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Work")));
    QVERIFY(screenshotDeleteDialog(*settings, QStringLiteral("Menu Down Return"),
                                   QStringLiteral("delete-dialog-light.png")));
    QCOMPARE(stored()->profiles.size(), 3);
}

void tst_ProfilesPage::screenshotsInDarkMode()
{
    m_driver->stopApp();
    arrangeProfiles();
    QVERIFY(launch(darkSettings));
    const auto settings = openSettings();
    QVERIFY(settings);
    QVERIFY(focusList(*settings));
    m_driver->key(QStringLiteral("Down"));
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Local Models")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*settings, QStringLiteral("profiles-page-dark.png")));
    QVERIFY(
        screenshotEditor(QStringLiteral("Menu Return"), QStringLiteral("editor-local-dark.png")));
    QVERIFY(screenshotDeleteDialog(*settings, QStringLiteral("Menu Down Return"),
                                   QStringLiteral("delete-dialog-dark.png")));
    // The first profile's editor (OpenAI), and the key scan at its first key.
    QVERIFY(m_driver->waitForFocus(*settings, radio, QStringLiteral("Local Models")));
    QVERIFY(screenshotEditor(QStringLiteral("Up Menu Return"),
                             QStringLiteral("editor-openai-dark.png")));
    m_driver->key(QStringLiteral("ctrl+f"));
    QVERIFY(tabTo(*settings, button, QStringLiteral("Scan SSH Keys")));
    m_driver->key(QStringLiteral("Return"));
    const auto scan = m_driver->window(QStringLiteral("Scan SSH Keys"));
    QVERIFY(scan);
    QVERIFY(m_driver->waitForFocus(*scan, text, QStringLiteral("Git Name")));
    QThread::msleep(400);
    QVERIFY(m_driver->saveScreenshot(*scan, QStringLiteral("scan-sheet-dark.png")));
    m_driver->key(QStringLiteral("Escape"));
    QVERIFY(m_driver->windowGone(QStringLiteral("Scan SSH Keys")));
    QCOMPARE(stored()->profiles.size(), 3);
    m_driver->stopApp();
}

QTEST_GUILESS_MAIN(tst_ProfilesPage)

#include "tst_ProfilesPage.moc"
