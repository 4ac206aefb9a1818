// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ViewFixture.h"

#include <QQmlEngine>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

#include <memory>

Q_IMPORT_QML_PLUGIN(KivoraPlugin)

// Attaches the fixture's application to every test file's engine (its singletons, the
// module's import path and symbols), and gives the fixture as the singleton "Fixture" of the
// module "KivoraTest".
class Setup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        m_fixture = std::make_unique<ViewFixture>();
        qmlRegisterSingletonInstance("KivoraTest", 1, 0, "Fixture", m_fixture.get());
    }

    void qmlEngineAvailable(QQmlEngine* engine) { m_fixture->app().attach(*engine); }

    void cleanupTestCase() { m_fixture.reset(); }

private:
    std::unique_ptr<ViewFixture> m_fixture;
};

QUICK_TEST_MAIN_WITH_SETUP(kivora_views, Setup)

#include "main.moc"
