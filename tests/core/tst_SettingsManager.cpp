// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "prefs/AppAppearance.h"
#include "prefs/MenuBarIconStyle.h"
#include "prefs/PreferencesFile.h"
#include "prefs/SettingsManager.h"
#include "support/TestHome.h"

#include <QFile>
#include <QMap>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {

// The key=value lines of the preferences file, exactly as written, by key.
QMap<QString, QString> fileEntries(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QMap<QString, QString> entries;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& line : lines) {
        const qsizetype equals = line.indexOf(u'=');
        if (equals > 0) {
            entries.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
        }
    }
    return entries;
}

QStringList sortedKeys(const QString& path)
{
    QSettings settings(path, QSettings::NativeFormat);
    QStringList keys = settings.allKeys();
    keys.sort();
    return keys;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

class tst_SettingsManager : public QObject {
    Q_OBJECT

private:
    static QString settingsPath(const TestHome& home)
    {
        return home.configHome() + QStringLiteral("/Kivora/Kivora.conf");
    }

    // Writes a preferences file as an earlier run would have left it.
    static void writeStore(const TestHome& home, const QByteArray& general)
    {
        home.write(QStringLiteral(".config/Kivora/Kivora.conf"), "[General]\n" + general);
    }

private slots:
    void iconStyleTable()
    {
        const QList<MenuBarIconStyle> expected{MenuBarIconStyle::dot, MenuBarIconStyle::full,
                                               MenuBarIconStyle::text};
        QCOMPARE(MenuBarIconStyles::all(), expected);
        QCOMPARE(MenuBarIconStyles::rawValue(MenuBarIconStyle::dot), QStringLiteral("dot"));
        QCOMPARE(MenuBarIconStyles::rawValue(MenuBarIconStyle::full), QStringLiteral("full"));
        QCOMPARE(MenuBarIconStyles::rawValue(MenuBarIconStyle::text), QStringLiteral("text"));
        QCOMPARE(MenuBarIconStyles::displayName(MenuBarIconStyle::dot), QStringLiteral("Dot"));
        QCOMPARE(MenuBarIconStyles::displayName(MenuBarIconStyle::full),
                 QStringLiteral("Full Logo"));
        QCOMPARE(MenuBarIconStyles::displayName(MenuBarIconStyle::text), QStringLiteral("Text"));
        QCOMPARE(MenuBarIconStyles::description(MenuBarIconStyle::dot),
                 QStringLiteral("A simple colored dot in the menu bar"));
        QCOMPARE(MenuBarIconStyles::description(MenuBarIconStyle::full),
                 QStringLiteral("Full Kivora logo icon in the menu bar"));
        QCOMPARE(MenuBarIconStyles::description(MenuBarIconStyle::text),
                 QStringLiteral("Text 'K' displayed in the menu bar"));
    }

    void iconStyleLookup_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<int>("expected"); // -1: no style
        QTest::newRow("dot") << QStringLiteral("dot") << int(MenuBarIconStyle::dot);
        QTest::newRow("full") << QStringLiteral("full") << int(MenuBarIconStyle::full);
        QTest::newRow("text") << QStringLiteral("text") << int(MenuBarIconStyle::text);
        QTest::newRow("wrong case") << QStringLiteral("Dot") << -1;
        QTest::newRow("display name") << QStringLiteral("Full Logo") << -1;
        QTest::newRow("unknown") << QStringLiteral("star") << -1;
        QTest::newRow("empty") << QString() << -1;
        QTest::newRow("padded") << QStringLiteral(" dot") << -1;
    }

    void iconStyleLookup()
    {
        QFETCH(QString, raw);
        QFETCH(int, expected);
        const auto style = MenuBarIconStyles::fromRawValue(raw);
        QCOMPARE(style.has_value(), expected >= 0);
        if (style) {
            QCOMPARE(int(*style), expected);
        }
    }

    void appearanceTable()
    {
        const QList<AppAppearance> expected{AppAppearance::system, AppAppearance::light,
                                            AppAppearance::dark};
        QCOMPARE(AppAppearances::all(), expected);
        QCOMPARE(AppAppearances::rawValue(AppAppearance::system), QStringLiteral("System"));
        QCOMPARE(AppAppearances::rawValue(AppAppearance::light), QStringLiteral("Light"));
        QCOMPARE(AppAppearances::rawValue(AppAppearance::dark), QStringLiteral("Dark"));
        QCOMPARE(AppAppearances::displayName(AppAppearance::system), QStringLiteral("System"));
        QCOMPARE(AppAppearances::displayName(AppAppearance::light), QStringLiteral("Light"));
        QCOMPARE(AppAppearances::displayName(AppAppearance::dark), QStringLiteral("Dark"));
        QCOMPARE(AppAppearances::description(AppAppearance::system),
                 QStringLiteral("Adapts to your system's light or dark mode"));
        QCOMPARE(AppAppearances::description(AppAppearance::light),
                 QStringLiteral("Always uses light appearance"));
        QCOMPARE(AppAppearances::description(AppAppearance::dark),
                 QStringLiteral("Always uses dark appearance"));
    }

    void appearanceLookup_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<int>("expected"); // -1: no appearance
        QTest::newRow("System") << QStringLiteral("System") << int(AppAppearance::system);
        QTest::newRow("Light") << QStringLiteral("Light") << int(AppAppearance::light);
        QTest::newRow("Dark") << QStringLiteral("Dark") << int(AppAppearance::dark);
        QTest::newRow("lower case") << QStringLiteral("dark") << -1;
        QTest::newRow("upper case") << QStringLiteral("LIGHT") << -1;
        QTest::newRow("unknown") << QStringLiteral("Sepia") << -1;
        QTest::newRow("empty") << QString() << -1;
    }

    void appearanceLookup()
    {
        QFETCH(QString, raw);
        QFETCH(int, expected);
        const auto appearance = AppAppearances::fromRawValue(raw);
        QCOMPARE(appearance.has_value(), expected >= 0);
        if (appearance) {
            QCOMPARE(int(*appearance), expected);
        }
    }

    void preferencesFileFollowsXdgConfigHome()
    {
        TestHome home;
        QCOMPARE(PreferencesFile::path(),
                 home.path() + QStringLiteral("/.config/Kivora/Kivora.conf"));
        home.setEnv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("elsewhere")).toLocal8Bit());
        QCOMPARE(PreferencesFile::path(),
                 home.path() + QStringLiteral("/elsewhere/Kivora/Kivora.conf"));
    }

    void preferencesFileFallsBackToDotConfig_data()
    {
        QTest::addColumn<std::optional<QByteArray>>("xdgConfigHome");
        QTest::newRow("unset") << std::optional<QByteArray>();
        QTest::newRow("empty") << std::optional<QByteArray>(QByteArray());
        QTest::newRow("relative") << std::optional<QByteArray>(
            QByteArrayLiteral("relative/config"));
    }

    void preferencesFileFallsBackToDotConfig()
    {
        QFETCH(std::optional<QByteArray>, xdgConfigHome);
        TestHome home;
        home.setEnv("XDG_CONFIG_HOME", xdgConfigHome);
        QCOMPARE(PreferencesFile::path(),
                 home.path() + QStringLiteral("/.config/Kivora/Kivora.conf"));
    }

    void preferencesOverTheUserFile()
    {
        TestHome home;
        const SettingsManager first(PreferencesFile::path());
        QCOMPARE(first.filePath(), settingsPath(home));
        QVERIFY(QFile::exists(settingsPath(home)));
    }

    void firstRunWithAnEmptyStore()
    {
        TestHome home;
        QVERIFY(!home.exists(QStringLiteral(".config/Kivora")));
        SettingsManager settings(settingsPath(home));

        QCOMPARE(settings.showProfileEmail(), true);
        QCOMPARE(settings.showSSHKey(), true);
        QCOMPARE(settings.compactMode(), false);
        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::dot);
        QCOMPARE(settings.menuBarIconStyle(), QStringLiteral("dot"));
        QCOMPARE(settings.appearance(), AppAppearance::system);
        QCOMPARE(settings.appAppearance(), QStringLiteral("System"));

        // Only the two markers are stored, as Booleans written true.
        QCOMPARE(sortedKeys(settingsPath(home)),
                 sorted({QStringLiteral("showProfileEmailSet"), QStringLiteral("showSSHKeySet")}));
        const QMap<QString, QString> entries = fileEntries(settingsPath(home));
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries.value(QStringLiteral("showProfileEmailSet")), QStringLiteral("true"));
        QCOMPARE(entries.value(QStringLiteral("showSSHKeySet")), QStringLiteral("true"));
    }

    void secondRunWithNoChangeShowsBothSwitchesOff()
    {
        TestHome home;
        {
            SettingsManager firstRun(settingsPath(home));
            QVERIFY(firstRun.showProfileEmail());
            QVERIFY(firstRun.showSSHKey());
        }
        SettingsManager secondRun(settingsPath(home));
        QCOMPARE(secondRun.showProfileEmail(), false);
        QCOMPARE(secondRun.showSSHKey(), false);
        QCOMPARE(secondRun.compactMode(), false);
        QCOMPARE(secondRun.iconStyle(), MenuBarIconStyle::dot);
        QCOMPARE(secondRun.appearance(), AppAppearance::system);
        // Loading again stored nothing new.
        QCOMPARE(sortedKeys(settingsPath(home)),
                 sorted({QStringLiteral("showProfileEmailSet"), QStringLiteral("showSSHKeySet")}));
    }

    void eachMarkerOnlyGuardsItsOwnSwitch()
    {
        TestHome home;
        writeStore(home, "showProfileEmailSet=true\n");
        SettingsManager settings(settingsPath(home));
        QCOMPARE(settings.showProfileEmail(), false);
        QCOMPARE(settings.showSSHKey(), true);
        QCOMPARE(fileEntries(settingsPath(home)).value(QStringLiteral("showSSHKeySet")),
                 QStringLiteral("true"));
        QVERIFY(!fileEntries(settingsPath(home)).contains(QStringLiteral("showSSHKey")));
    }

    void storedValuesAreReadBack()
    {
        TestHome home;
        writeStore(home, "menuBarIconStyle=text\nappAppearance=Dark\nshowProfileEmail=true\n"
                         "showProfileEmailSet=true\nshowSSHKey=false\nshowSSHKeySet=true\n"
                         "compactMode=true\n");
        const QByteArray before = home.read(QStringLiteral(".config/Kivora/Kivora.conf"));
        SettingsManager settings(settingsPath(home));
        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::text);
        QCOMPARE(settings.appearance(), AppAppearance::dark);
        QCOMPARE(settings.showProfileEmail(), true);
        QCOMPARE(settings.showSSHKey(), false);
        QCOMPARE(settings.compactMode(), true);
        // With both markers present, loading writes nothing.
        QCOMPARE(home.read(QStringLiteral(".config/Kivora/Kivora.conf")), before);
    }

    void storedIconStyleFallsBackToDot_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("wrong case") << QByteArrayLiteral("Dot");
        QTest::newRow("unknown") << QByteArrayLiteral("star");
        QTest::newRow("display name") << QByteArrayLiteral("Text");
        QTest::newRow("empty") << QByteArray();
    }

    void storedIconStyleFallsBackToDot()
    {
        QFETCH(QByteArray, stored);
        TestHome home;
        writeStore(home, "menuBarIconStyle=" + stored + "\n");
        SettingsManager settings(settingsPath(home));
        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::dot);
        QCOMPARE(settings.menuBarIconStyle(), QStringLiteral("dot"));
        // The odd value stays in the file until the user picks a style.
        QCOMPARE(fileEntries(settingsPath(home)).value(QStringLiteral("menuBarIconStyle")),
                 QString::fromUtf8(stored));
    }

    void storedAppearanceFallsBackToSystem_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("lower case dark") << QByteArrayLiteral("dark");
        QTest::newRow("lower case light") << QByteArrayLiteral("light");
        QTest::newRow("unknown") << QByteArrayLiteral("Sepia");
        QTest::newRow("empty") << QByteArray();
    }

    void storedAppearanceFallsBackToSystem()
    {
        QFETCH(QByteArray, stored);
        TestHome home;
        writeStore(home, "appAppearance=" + stored + "\n");
        SettingsManager settings(settingsPath(home));
        QCOMPARE(settings.appearance(), AppAppearance::system);
        QCOMPARE(settings.appAppearance(), QStringLiteral("System"));
    }

    void iconStyleIsWrittenThrough()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        QSignalSpy changed(&settings, &SettingsManager::menuBarIconStyleChanged);
        settings.setIconStyle(MenuBarIconStyle::full);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(settings.menuBarIconStyle(), QStringLiteral("full"));
        QCOMPARE(fileEntries(settingsPath(home)).value(QStringLiteral("menuBarIconStyle")),
                 QStringLiteral("full"));
        settings.setMenuBarIconStyle(QStringLiteral("text"));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::text);
        QCOMPARE(fileEntries(settingsPath(home)).value(QStringLiteral("menuBarIconStyle")),
                 QStringLiteral("text"));
    }

    void appearanceIsWrittenThrough()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        QSignalSpy changed(&settings, &SettingsManager::appAppearanceChanged);
        settings.setAppearance(AppAppearance::dark);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(settings.appAppearance(), QStringLiteral("Dark"));
        QCOMPARE(fileEntries(settingsPath(home)).value(QStringLiteral("appAppearance")),
                 QStringLiteral("Dark"));
        settings.setAppAppearance(QStringLiteral("Light"));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(settings.appearance(), AppAppearance::light);
        QCOMPARE(fileEntries(settingsPath(home)).value(QStringLiteral("appAppearance")),
                 QStringLiteral("Light"));
    }

    void unknownRawValuesFromViewsAreIgnored()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        settings.setIconStyle(MenuBarIconStyle::full);
        settings.setAppearance(AppAppearance::dark);
        const QByteArray before = home.read(QStringLiteral(".config/Kivora/Kivora.conf"));
        QSignalSpy iconChanged(&settings, &SettingsManager::menuBarIconStyleChanged);
        QSignalSpy appearanceChanged(&settings, &SettingsManager::appAppearanceChanged);

        settings.setMenuBarIconStyle(QStringLiteral("Dot"));
        settings.setMenuBarIconStyle(QStringLiteral("star"));
        settings.setAppAppearance(QStringLiteral("light"));
        settings.setAppAppearance(QString());

        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::full);
        QCOMPARE(settings.appearance(), AppAppearance::dark);
        QCOMPARE(iconChanged.count(), 0);
        QCOMPARE(appearanceChanged.count(), 0);
        QCOMPARE(home.read(QStringLiteral(".config/Kivora/Kivora.conf")), before);
    }

    void switchesAreWrittenThroughAsTrueOrFalse()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        QSignalSpy emailChanged(&settings, &SettingsManager::showProfileEmailChanged);
        QSignalSpy keyChanged(&settings, &SettingsManager::showSSHKeyChanged);
        QSignalSpy compactChanged(&settings, &SettingsManager::compactModeChanged);

        settings.setShowProfileEmail(false);
        settings.setShowSSHKey(false);
        settings.setCompactMode(true);
        QCOMPARE(emailChanged.count(), 1);
        QCOMPARE(keyChanged.count(), 1);
        QCOMPARE(compactChanged.count(), 1);
        QMap<QString, QString> entries = fileEntries(settingsPath(home));
        QCOMPARE(entries.value(QStringLiteral("showProfileEmail")), QStringLiteral("false"));
        QCOMPARE(entries.value(QStringLiteral("showSSHKey")), QStringLiteral("false"));
        QCOMPARE(entries.value(QStringLiteral("compactMode")), QStringLiteral("true"));

        settings.setShowProfileEmail(true);
        settings.setShowSSHKey(true);
        settings.setCompactMode(false);
        entries = fileEntries(settingsPath(home));
        QCOMPARE(entries.value(QStringLiteral("showProfileEmail")), QStringLiteral("true"));
        QCOMPARE(entries.value(QStringLiteral("showSSHKey")), QStringLiteral("true"));
        QCOMPARE(entries.value(QStringLiteral("compactMode")), QStringLiteral("false"));
        QCOMPARE(emailChanged.count(), 2);
        QCOMPARE(keyChanged.count(), 2);
        QCOMPARE(compactChanged.count(), 2);
    }

    void settingAnUnchangedValueStillStoresIt()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        QSignalSpy compactChanged(&settings, &SettingsManager::compactModeChanged);
        QSignalSpy emailChanged(&settings, &SettingsManager::showProfileEmailChanged);
        settings.setCompactMode(false);
        settings.setShowProfileEmail(true); // on in memory after the first run, key missing
        QCOMPARE(compactChanged.count(), 0);
        QCOMPARE(emailChanged.count(), 0);
        const QMap<QString, QString> entries = fileEntries(settingsPath(home));
        QCOMPARE(entries.value(QStringLiteral("compactMode")), QStringLiteral("false"));
        QCOMPARE(entries.value(QStringLiteral("showProfileEmail")), QStringLiteral("true"));
    }

    void resetStoresTheFactoryValues()
    {
        TestHome home;
        writeStore(home, "menuBarIconStyle=full\nappAppearance=Dark\nshowProfileEmail=false\n"
                         "showProfileEmailSet=true\nshowSSHKey=false\nshowSSHKeySet=true\n"
                         "compactMode=true\n");
        SettingsManager settings(settingsPath(home));
        QSignalSpy iconChanged(&settings, &SettingsManager::menuBarIconStyleChanged);
        QSignalSpy appearanceChanged(&settings, &SettingsManager::appAppearanceChanged);
        QSignalSpy emailChanged(&settings, &SettingsManager::showProfileEmailChanged);
        QSignalSpy keyChanged(&settings, &SettingsManager::showSSHKeyChanged);
        QSignalSpy compactChanged(&settings, &SettingsManager::compactModeChanged);

        settings.reset();

        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::dot);
        QCOMPARE(settings.appearance(),
                 AppAppearance::system); // the application follows the desktop
        QCOMPARE(settings.showProfileEmail(), true);
        QCOMPARE(settings.showSSHKey(), true);
        QCOMPARE(settings.compactMode(), false);
        QCOMPARE(iconChanged.count(), 1);
        QCOMPARE(appearanceChanged.count(), 1);
        QCOMPARE(emailChanged.count(), 1);
        QCOMPARE(keyChanged.count(), 1);
        QCOMPARE(compactChanged.count(), 1);

        const QMap<QString, QString> entries = fileEntries(settingsPath(home));
        QCOMPARE(entries.value(QStringLiteral("menuBarIconStyle")), QStringLiteral("dot"));
        QCOMPARE(entries.value(QStringLiteral("appAppearance")), QStringLiteral("System"));
        QCOMPARE(entries.value(QStringLiteral("showProfileEmail")), QStringLiteral("true"));
        QCOMPARE(entries.value(QStringLiteral("showSSHKey")), QStringLiteral("true"));
        QCOMPARE(entries.value(QStringLiteral("compactMode")), QStringLiteral("false"));
        QCOMPARE(entries.value(QStringLiteral("showProfileEmailSet")), QStringLiteral("true"));
        QCOMPARE(entries.value(QStringLiteral("showSSHKeySet")), QStringLiteral("true"));
        QCOMPARE(entries.size(), 7);
    }

    void resetAfterAFirstRunStoresAllFiveKeys()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        QSignalSpy appearanceChanged(&settings, &SettingsManager::appAppearanceChanged);
        settings.reset();
        QCOMPARE(appearanceChanged.count(), 0); // it was already System
        QCOMPARE(sortedKeys(settingsPath(home)),
                 sorted({QStringLiteral("menuBarIconStyle"), QStringLiteral("appAppearance"),
                         QStringLiteral("showProfileEmail"), QStringLiteral("showSSHKey"),
                         QStringLiteral("compactMode"), QStringLiteral("showProfileEmailSet"),
                         QStringLiteral("showSSHKeySet")}));
        // The next launch now keeps both switches on.
        SettingsManager nextRun(settingsPath(home));
        QCOMPARE(nextRun.showProfileEmail(), true);
        QCOMPARE(nextRun.showSSHKey(), true);
    }

    void resetLeavesOtherKeysAlone()
    {
        TestHome home;
        home.write(QStringLiteral(".config/Kivora/Kivora.conf"),
                   "[General]\nkivora_has_scanned_ssh=true\n[updater]\n"
                   "automaticallyChecksForUpdates=false\n");
        SettingsManager settings(settingsPath(home));
        settings.reset();
        QSettings stored(settingsPath(home), QSettings::NativeFormat);
        QCOMPARE(stored.value(QStringLiteral("kivora_has_scanned_ssh")).toString(),
                 QStringLiteral("true"));
        QCOMPARE(stored.value(QStringLiteral("updater/automaticallyChecksForUpdates")).toString(),
                 QStringLiteral("false"));
    }

    void aSecondInstanceSeesTheFirstOnesValues()
    {
        TestHome home;
        {
            SettingsManager first(settingsPath(home));
            first.setIconStyle(MenuBarIconStyle::text);
            first.setAppearance(AppAppearance::light);
            first.setShowProfileEmail(true);
            first.setShowSSHKey(false);
            first.setCompactMode(true);
        }
        SettingsManager restarted(settingsPath(home));
        QCOMPARE(restarted.iconStyle(), MenuBarIconStyle::text);
        QCOMPARE(restarted.appearance(), AppAppearance::light);
        QCOMPARE(restarted.showProfileEmail(), true);
        QCOMPARE(restarted.showSSHKey(), false);
        QCOMPARE(restarted.compactMode(), true);
    }

    void propertiesAreReachableByName()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        QVERIFY(settings.setProperty("menuBarIconStyle", QStringLiteral("full")));
        QVERIFY(settings.setProperty("appAppearance", QStringLiteral("Dark")));
        QVERIFY(settings.setProperty("compactMode", true));
        QCOMPARE(settings.property("menuBarIconStyle").toString(), QStringLiteral("full"));
        QCOMPARE(settings.property("appAppearance").toString(), QStringLiteral("Dark"));
        QCOMPARE(settings.property("showProfileEmail").toBool(), true);
        QCOMPARE(settings.property("showSSHKey").toBool(), true);
        QCOMPARE(settings.property("compactMode").toBool(), true);
        QCOMPARE(settings.iconStyle(), MenuBarIconStyle::full);
        QCOMPARE(settings.appearance(), AppAppearance::dark);
    }

    void pickerChoicesFollowTheTables()
    {
        TestHome home;
        SettingsManager settings(settingsPath(home));
        const QVariantList icons = settings.iconStyleChoices();
        QCOMPARE(icons.size(), 3);
        const QStringList iconRaw{QStringLiteral("dot"), QStringLiteral("full"),
                                  QStringLiteral("text")};
        const QStringList iconNames{QStringLiteral("Dot"), QStringLiteral("Full Logo"),
                                    QStringLiteral("Text")};
        const QStringList iconDescriptions{QStringLiteral("A simple colored dot in the menu bar"),
                                           QStringLiteral("Full Kivora logo icon in the menu bar"),
                                           QStringLiteral("Text 'K' displayed in the menu bar")};
        for (int i = 0; i < 3; ++i) {
            const QVariantMap choice = icons[i].toMap();
            QCOMPARE(choice.value(QStringLiteral("rawValue")).toString(), iconRaw[i]);
            QCOMPARE(choice.value(QStringLiteral("displayName")).toString(), iconNames[i]);
            QCOMPARE(choice.value(QStringLiteral("description")).toString(), iconDescriptions[i]);
        }

        const QVariantList appearances = settings.appearanceChoices();
        QCOMPARE(appearances.size(), 3);
        const QStringList appearanceNames{QStringLiteral("System"), QStringLiteral("Light"),
                                          QStringLiteral("Dark")};
        const QStringList appearanceDescriptions{
            QStringLiteral("Adapts to your system's light or dark mode"),
            QStringLiteral("Always uses light appearance"),
            QStringLiteral("Always uses dark appearance")};
        for (int i = 0; i < 3; ++i) {
            const QVariantMap choice = appearances[i].toMap();
            QCOMPARE(choice.value(QStringLiteral("rawValue")).toString(), appearanceNames[i]);
            QCOMPARE(choice.value(QStringLiteral("displayName")).toString(), appearanceNames[i]);
            QCOMPARE(choice.value(QStringLiteral("description")).toString(),
                     appearanceDescriptions[i]);
        }
    }
};

QTEST_GUILESS_MAIN(tst_SettingsManager)
#include "tst_SettingsManager.moc"
