// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppProcess.h"
#include "DesktopSession.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>
#include <QtTest>

#include <memory>

// A lighter desktop: an XEmbed tray (trayer), no XDG portal. The tray menu is Kivora's own
// and follows dark mode; export and import use Qt's own file dialog, also dark, and Kivora
// asks before an export replaces a file, since that dialog does not.
class DesktopWithoutPortal : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void trayMenuIsDarkAndOpensSettings();
    void exportUsesQtsDialog();
    void exportAsksBeforeReplacing();

private:
    // Presses "Export Profiles" and fills in Qt's dialog with `typedName`.
    void exportTo(const QString& typedName, bool screenshot);

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<DesktopSession> m_desktop;
    std::unique_ptr<QProcess> m_app;
    std::optional<AtSpiClient::Node> m_application;
};

void DesktopWithoutPortal::initTestCase()
{
    // Only the accessibility bus and dconf can start on this bus: no portal.
    const DesktopSession::Options options{
        .xfcePanel = false,
        .trayer = true,
        .onlyServices =
            QStringList{QStringLiteral("org.a11y.Bus"), QStringLiteral("ca.desrt.dconf")}};
    const QStringList missing = DesktopSession::missingPrograms(options);
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    const QString appPath = qEnvironmentVariable("KIVORA_APP");
    QVERIFY2(QFile::exists(appPath), "KIVORA_APP names no program");

    m_home = std::make_unique<TestHome>();
    StoredData data;
    data.profiles << GitProfile::create(QStringLiteral("Work"), QStringLiteral("Ann Lee"),
                                        QStringLiteral("ann@work.example"), QString());
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"),
                  "[General]\nappAppearance=Dark\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
                  "showSSHKey=true\nshowSSHKeySet=true\n");

    m_desktop = std::make_unique<DesktopSession>();
    QString problem;
    QVERIFY2(m_desktop->start(*m_home, options, &problem), qPrintable(problem));
    AtSpiClient& a11y = m_desktop->accessibility();
    QVERIFY2(a11y.isConnected(), qPrintable(a11y.problem()));
    m_app = AppProcess::launch(appPath, m_desktop->environment());
    QVERIFY2(m_app, "the application did not show its tray item");
    m_application = a11y.waitForApplication(QStringLiteral("Kivora"), 30000);
    QVERIFY2(m_application, "Kivora is not on the accessibility bus");
}

void DesktopWithoutPortal::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_desktop.reset();
    m_home.reset();
}

void DesktopWithoutPortal::trayMenuIsDarkAndOpensSettings()
{
    XSession& x = m_desktop->x();
    // The XEmbed tray shows the icon only as pixels, in a small window the application
    // embeds there: that window is found and right-clicked.
    const QRect icon = x.trayIconArea(QStringLiteral("kivora-app"));
    QVERIFY2(!icon.isEmpty(), "no tray icon");
    x.click(icon.center().x(), icon.center().y(), 3);
    // Qt does not offer a tray icon's menu to assistive technology: it is checked where it
    // opens, by the icon, and used from the keyboard.
    const QRect menu(icon.center().x() - 148, icon.bottom() + 1, 120, 60);
    QImage screen;
    QElapsedTimer waited;
    waited.start();
    do {
        QThread::msleep(300);
        screen = x.captureScreen();
    } while (XSession::meanGray(screen, menu) > 110 && waited.elapsed() < 15000);
    QVERIFY(AppProcess::saveScreenshot(screen.copy(menu.adjusted(-80, -30, 150, 60)),
                                       QStringLiteral("tray-menu-dark.png")));
    QVERIFY2(XSession::meanGray(screen, menu) < 110, "the tray menu is not dark");
    // Open Kivora, then Settings…
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Down"),
                                      QStringLiteral("Down"), QStringLiteral("Return")});
    QVERIFY2(m_desktop->accessibility().waitForWindow(*m_application,
                                                      QStringLiteral("Kivora Settings"), 30000),
             "\"Settings…\" opened no settings window");
}

void DesktopWithoutPortal::exportTo(const QString& typedName, bool screenshot)
{
    AtSpiClient& a11y = m_desktop->accessibility();
    const auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 10000);
    QVERIFY(window);
    const auto action =
        a11y.find(*window, QStringLiteral("push button"), QStringLiteral("Export Profiles"));
    QVERIFY2(action, qPrintable(a11y.dump(*window)));
    QVERIFY(a11y.press(*action));

    // No portal: Qt's own dialog, with the button Kivora asked for.
    std::optional<AtSpiClient::Node> save;
    QElapsedTimer waited;
    waited.start();
    while (!save && waited.elapsed() < 30000) {
        save = a11y.find(*m_application, [&](const AtSpiClient::Node& node) {
            return a11y.roleName(node) == QLatin1String("push button") &&
                   a11y.name(node) == QLatin1String("Save") &&
                   a11y.hasState(node, QStringLiteral("showing"));
        });
        QThread::msleep(200);
    }
    QVERIFY2(save, qPrintable(a11y.dump(*m_application)));
    const auto name = a11y.find(*m_application, [&](const AtSpiClient::Node& node) {
        return a11y.roleName(node) == QLatin1String("text") &&
               a11y.text(node) == QLatin1String("kivora-profiles.json");
    });
    QVERIFY2(name, qPrintable(a11y.dump(*m_application)));
    if (screenshot) {
        const auto settings = m_desktop->accessibility().waitForWindow(
            *m_application, QStringLiteral("Kivora Settings"), 1000);
        QVERIFY(settings);
        QThread::msleep(500);
        const QImage screen = m_desktop->x().captureScreen();
        QVERIFY(AppProcess::saveScreenshot(screen.copy(a11y.extents(*settings)),
                                           QStringLiteral("file-dialog-dark.png")));
        // The dialog's own surface, just above its file name field.
        const QRect field = a11y.extents(*name);
        QVERIFY2(XSession::meanGray(screen,
                                    QRect(field.left(), field.top() - 40, field.width(), 20)) < 110,
                 "Qt's file dialog is not dark");
    }
    // Typed, as a user does: the dialog takes the name from what is typed into the field.
    XSession& x = m_desktop->x();
    const QPoint field = a11y.extents(*name).center();
    x.click(field.x(), field.y());
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("ctrl+a")});
    x.run(QStringLiteral("xdotool"),
          {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("30"), typedName});
    QTRY_COMPARE_WITH_TIMEOUT(a11y.text(*name), typedName, 10000);
    // Qt 6.4's dialog buttons offer the press action but do nothing on it: a click on the
    // button found.
    const QPoint button = a11y.extents(*save).center();
    x.click(button.x(), button.y());
}

void DesktopWithoutPortal::exportUsesQtsDialog()
{
    exportTo(QStringLiteral("plain"), true);
    if (QTest::currentTestFailed()) {
        return;
    }
    QTRY_VERIFY_WITH_TIMEOUT(m_home->exists(QStringLiteral("plain.json")), 15000);
    QCOMPARE(QJsonDocument::fromJson(m_home->read(QStringLiteral("plain.json"))).array().size(), 1);
}

void DesktopWithoutPortal::exportAsksBeforeReplacing()
{
    AtSpiClient& a11y = m_desktop->accessibility();
    m_home->write(QStringLiteral("plain.json"), "kept\n");
    exportTo(QStringLiteral("plain.json"), false);
    if (QTest::currentTestFailed()) {
        return;
    }
    const auto window = m_desktop->accessibility().waitForWindow(
        *m_application, QStringLiteral("Kivora Settings"), 10000);
    QVERIFY(window);
    const auto replace =
        a11y.waitFor(*window, QStringLiteral("push button"), QStringLiteral("Replace"), 15000);
    QVERIFY2(replace, qPrintable(a11y.dump(*window)));
    QCOMPARE(m_home->read(QStringLiteral("plain.json")), QByteArray("kept\n"));
    QVERIFY(a11y.press(*replace));
    QTRY_COMPARE_WITH_TIMEOUT(
        QJsonDocument::fromJson(m_home->read(QStringLiteral("plain.json"))).array().size(), 1,
        15000);
}

QTEST_GUILESS_MAIN(DesktopWithoutPortal)

#include "tst_DesktopWithoutPortal.moc"
