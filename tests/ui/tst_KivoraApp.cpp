// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "app/KivoraApp.h"
#include "app/WindowRegistry.h"
#include "menubar/ProfileListModel.h"
#include "prefs/PreferencesFile.h"
#include "prefs/SettingsManager.h"
#include "support/TestHome.h"
#include "updates/Updater.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QtQml/qqmlextensionplugin.h>
#include <QtTest>

#include <memory>

Q_IMPORT_QML_PLUGIN(KivoraPlugin)

// The composition root: one object of each kind for the application, and every QML
// singleton is that object, in every engine the application is attached to.
class tst_KivoraApp : public QObject {
    Q_OBJECT

    // The singletons as one engine's QML sees them.
    static QVariantMap singletons(QQmlEngine& engine)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQml\nimport Kivora\nQtObject {\n"
                          "    property var profiles: ProfileManager\n"
                          "    property var settings: SettingsManager\n"
                          "    property var ai: AIContextManager\n"
                          "    property var updater: Updater\n"
                          "    property var windows: Windows\n"
                          "    property var list: Profiles\n"
                          "}\n",
                          QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object) {
            qWarning().noquote() << component.errorString();
            return {};
        }
        QVariantMap map;
        for (const char* name : {"profiles", "settings", "ai", "updater", "windows", "list"}) {
            map.insert(QString::fromLatin1(name),
                       QVariant::fromValue(object->property(name).value<QObject*>()));
        }
        return map;
    }

private slots:
    void everySingletonIsTheApplicationsObject()
    {
        TestHome home;
        KivoraApp::Options options;
        options.home = home.path();
        KivoraApp app(options);
        QQmlEngine first;
        QQmlEngine second;
        app.attach(first);
        app.attach(second);
        QCOMPARE(&KivoraApp::from(&first), &app);

        const QList<std::pair<QString, QObject*>> expected{
            {QStringLiteral("profiles"), &app.profileManager()},
            {QStringLiteral("settings"), &app.settings()},
            {QStringLiteral("ai"), &app.aiContext()},
            {QStringLiteral("updater"), &app.updater()},
            {QStringLiteral("windows"), &app.windows()},
            {QStringLiteral("list"), &app.profileList()}};
        for (QQmlEngine* engine : {&first, &second}) {
            const QVariantMap seen = singletons(*engine);
            QVERIFY(!seen.isEmpty());
            for (const auto& [name, object] : expected) {
                QCOMPARE(seen.value(name).value<QObject*>(), object);
            }
        }
    }

    void theObjectsWorkOverTheGivenHome()
    {
        TestHome home;
        KivoraApp::Options options;
        options.home = home.path();
        KivoraApp app(options);
        QCOMPARE(app.profileManager().home(), home.path());
        QCOMPARE(app.settings().filePath(), PreferencesFile::path());
        QVERIFY(app.settings().filePath().startsWith(home.path()));
        // The profile list shows the manager's profiles, and nothing was started.
        QCOMPARE(app.profileList().count(), int(app.profileManager().profiles().size()));
        QVERIFY(!app.tray());
    }

    void theApplicationOutlivesEveryEngine()
    {
        TestHome home;
        KivoraApp::Options options;
        options.home = home.path();
        KivoraApp app(options);
        {
            QQmlEngine engine;
            app.attach(engine);
            QVERIFY(!singletons(engine).isEmpty());
        }
        // The engine is gone; the objects it handed out are not.
        QVERIFY(!app.profileManager().home().isEmpty());
        app.settings().setCompactMode(true);
        QVERIFY(app.settings().compactMode());
    }
};

QTEST_MAIN(tst_KivoraApp)
#include "tst_KivoraApp.moc"
