// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppProcess.h"
#include "DesktopSession.h"
#include "StatusNotifierClient.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QThread>
#include <QtTest>

#include <memory>

// Kivora in the XFCE panel's status tray, on a private display and session bus: the panel
// is the StatusNotifierItem host, as on an XFCE desktop. Controls are found over the
// accessibility bus by role and name.
class XfcePanel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void itemRegistersWithTitleKivora();
    void exportedMenuHasTheEntries();
    void activateTogglesThePopover();
    void popoverStaysPutWhenAProfileIsClicked();
    void menuSettingsOpensTheSettingsWindow();
    void controlCommaOpensPreferences();
    void menuPreferencesOpensThePreferencesWindow();

private:
    // A click on the tray item: the pointer on the panel's tray, and the panel's call.
    bool activate() const;
    QPoint trayPoint() const;
    void closeWindow(const QString& window);
    bool popoverShown() const;
    QString windowProperty(const QString& window, const QString& property) const;

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<DesktopSession> m_desktop;
    std::unique_ptr<StatusNotifierClient> m_tray;
    std::unique_ptr<QProcess> m_app;
    std::optional<AtSpiClient::Node> m_application;
};

void XfcePanel::initTestCase()
{
    const DesktopSession::Options options{.xfcePanel = true, .onlyServices = std::nullopt};
    const QStringList missing = DesktopSession::missingPrograms(options);
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(QStringLiteral("needs ") + missing.join(QStringLiteral(", "))));
    }
    const QString appPath = qEnvironmentVariable("KIVORA_APP");
    QVERIFY2(QFile::exists(appPath), "KIVORA_APP names no program");

    m_home = std::make_unique<TestHome>();
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name"),
                 QStringLiteral("User 1")});
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.email"),
                 QStringLiteral("user1@example.com")});
    // The second profile has a key: switching to it adds the key line to the active profile
    // card, so the popover grows.
    m_home->write(QStringLiteral(".ssh/id_second"), "private key\n");
    StoredData data;
    for (int i = 1; i <= 3; ++i) {
        data.profiles << GitProfile::create(
            QStringLiteral("Profile %1").arg(i), QStringLiteral("User %1").arg(i),
            QStringLiteral("user%1@example.com").arg(i),
            i == 2 ? QStringLiteral("~/.ssh/id_second") : QString());
    }
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"),
                  "[General]\nappAppearance=Dark\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
                  "showSSHKey=true\nshowSSHKeySet=true\n");

    m_desktop = std::make_unique<DesktopSession>();
    QString problem;
    QVERIFY2(m_desktop->start(*m_home, options, &problem), qPrintable(problem));
    QVERIFY2(m_desktop->accessibility().isConnected(),
             qPrintable(m_desktop->accessibility().problem()));

    m_tray = std::make_unique<StatusNotifierClient>(m_desktop->bus().connectionName());
    m_app = AppProcess::launch(appPath, m_desktop->environment());
    QVERIFY2(m_app, "the application did not show its tray item");
    // Qt names the application's accessible root after the application name.
    AtSpiClient& a11y = m_desktop->accessibility();
    m_application = a11y.waitForApplication(QStringLiteral("Kivora"), 30000);
    if (!m_application) {
        QStringList names;
        for (const AtSpiClient::Node& application : a11y.applications()) {
            names << a11y.name(application);
        }
        QFAIL(qPrintable(QStringLiteral("Kivora is not on the accessibility bus; there are: ") +
                         names.join(QStringLiteral(", "))));
    }
}

void XfcePanel::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_desktop.reset();
    m_home.reset();
}

bool XfcePanel::popoverShown() const
{
    return m_desktop->x().waitForWindow(QStringLiteral("^Kivora$"), 300).has_value();
}

QString XfcePanel::windowProperty(const QString& window, const QString& property) const
{
    return m_desktop->x().run(QStringLiteral("xprop"), {QStringLiteral("-id"), window, property});
}

QPoint XfcePanel::trayPoint() const
{
    // The tray plugin runs in a process of its own, embedded in the panel: the panel shows
    // the embedding as a filler, and Kivora's is the only icon in it.
    AtSpiClient& a11y = m_desktop->accessibility();
    for (const AtSpiClient::Node& application : a11y.applications()) {
        if (a11y.name(application) != QLatin1String("xfce4-panel")) {
            continue;
        }
        if (const auto tray = a11y.find(application, QStringLiteral("filler"), QString())) {
            const QRect area = a11y.extents(*tray);
            if (!area.isEmpty()) {
                return area.center();
            }
        }
    }
    return QPoint(1380, 14);
}

bool XfcePanel::activate() const
{
    const QPoint point = trayPoint();
    m_desktop->x().move(point.x(), point.y());
    return m_tray->activate(point.x(), point.y());
}

void XfcePanel::itemRegistersWithTitleKivora()
{
    QTRY_VERIFY_WITH_TIMEOUT(m_tray->item().has_value(), 30000);
    QCOMPARE(m_tray->property(QStringLiteral("Title")).toString(), QStringLiteral("Kivora"));
    QCOMPARE(m_tray->property(QStringLiteral("Status")).toString(), QStringLiteral("Active"));
}

void XfcePanel::exportedMenuHasTheEntries()
{
    const QStringList expected{
        QStringLiteral("Open Kivora"),    QStringLiteral("Settings…"),
        QStringLiteral("Preferences…"),   QStringLiteral("Check for Updates…"),
        QStringLiteral("Start at Login"), QStringLiteral("Quit")};
    QCOMPARE(m_tray->menuLabels(), expected);
}

void XfcePanel::activateTogglesThePopover()
{
    QVERIFY(!popoverShown());
    QVERIFY(activate());
    QVERIFY2(
        m_desktop->accessibility().waitForWindow(*m_application, QStringLiteral("Kivora"), 15000),
        "Activate did not open the popover");
    QVERIFY(m_desktop->x().waitForWindow(QStringLiteral("^Kivora$"), 10000));
    QVERIFY(activate());
    QTRY_VERIFY_WITH_TIMEOUT(!popoverShown(), 15000);
}

void XfcePanel::popoverStaysPutWhenAProfileIsClicked()
{
    XSession& x = m_desktop->x();
    AtSpiClient& a11y = m_desktop->accessibility();
    // Opened with the pointer on the tray, as a click on the icon would.
    QVERIFY(activate());
    const auto window = x.waitForWindow(QStringLiteral("^Kivora$"), 15000);
    QVERIFY(window);
    QThread::msleep(500);
    const QRect before = x.geometry(*window);
    QVERIFY2(before.top() >= 20 && before.top() < 80, "the popover is not under the panel");
    QVERIFY(before.right() < 1400);

    // The pointer wanders off; the popover keeps the anchor it opened with.
    x.move(300, 600);
    const auto frame =
        m_desktop->accessibility().waitForWindow(*m_application, QStringLiteral("Kivora"), 10000);
    QVERIFY(frame);
    const auto row =
        a11y.waitFor(*frame, QStringLiteral("radio button"), QStringLiteral("Profile 2"), 15000);
    QVERIFY2(row, qPrintable(a11y.dump(*frame)));
    QVERIFY(a11y.press(*row));
    QTRY_COMPARE_WITH_TIMEOUT(m_home->gitConfig(QStringLiteral("user.name")),
                              QStringLiteral("User 2"), 15000);
    QThread::msleep(800);
    QVERIFY2(popoverShown(), "the popover closed");
    const QRect after = x.geometry(*window);
    // The card gained the key line: the popover grew downwards, from where it was.
    QVERIFY(after.height() > before.height());
    QCOMPARE(after.topLeft(), before.topLeft());

    x.move(after.left() - 30, after.bottom() + 30);
    QThread::msleep(400);
    const QImage screen = x.captureScreen();
    const QRect area(std::max(0, after.left() - 260), 0,
                     std::min(1400, after.right() + 1) - std::max(0, after.left() - 260),
                     after.bottom() + 20);
    QVERIFY(
        AppProcess::saveScreenshot(screen.copy(area), QStringLiteral("popover-xfce-panel.png")));
    QVERIFY(activate());
    QTRY_VERIFY_WITH_TIMEOUT(!popoverShown(), 15000);
}

void XfcePanel::closeWindow(const QString& window)
{
    // As a user would: the window manager's close key on the focused window.
    XSession& x = m_desktop->x();
    x.run(QStringLiteral("xdotool"),
          {QStringLiteral("windowactivate"), QStringLiteral("--sync"), window});
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("alt+F4")});
}

void XfcePanel::menuSettingsOpensTheSettingsWindow()
{
    QVERIFY(m_tray->clickMenuEntry(QStringLiteral("Settings…")));
    const auto settings = m_desktop->x().waitForWindow(QStringLiteral("^Kivora Settings"), 20000);
    QVERIFY2(settings, "\"Settings…\" opened no settings window");
    // The exact title, with no application name appended, and the window's icon.
    QCOMPARE(windowProperty(*settings, QStringLiteral("_NET_WM_NAME")),
             QStringLiteral("_NET_WM_NAME(UTF8_STRING) = \"Kivora Settings\""));
    const QString icon = windowProperty(*settings, QStringLiteral("_NET_WM_ICON"));
    QVERIFY2(icon.startsWith(QStringLiteral("_NET_WM_ICON(CARDINAL)")) &&
                 icon.contains(QStringLiteral("Icon (32 x 32)")),
             qPrintable(icon.left(200)));
    QVERIFY(m_desktop->accessibility().waitForWindow(*m_application,
                                                     QStringLiteral("Kivora Settings"), 10000));
}

void XfcePanel::controlCommaOpensPreferences()
{
    XSession& x = m_desktop->x();
    const auto settings = x.waitForWindow(QStringLiteral("^Kivora Settings$"), 10000);
    QVERIFY(settings);
    x.run(QStringLiteral("xdotool"),
          {QStringLiteral("windowactivate"), QStringLiteral("--sync"), *settings});
    x.run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("ctrl+comma")});
    const auto preferences = x.waitForWindow(QStringLiteral("^Kivora Preferences"), 20000);
    QVERIFY2(preferences, "Ctrl+, in the settings window opened no preferences window");
    QCOMPARE(windowProperty(*preferences, QStringLiteral("_NET_WM_NAME")),
             QStringLiteral("_NET_WM_NAME(UTF8_STRING) = \"Kivora Preferences\""));
    QVERIFY(m_desktop->accessibility().waitForWindow(*m_application,
                                                     QStringLiteral("Kivora Preferences"), 10000));
    closeWindow(*preferences);
    QTRY_VERIFY_WITH_TIMEOUT(!x.waitForWindow(QStringLiteral("^Kivora Preferences"), 200), 15000);
}

void XfcePanel::menuPreferencesOpensThePreferencesWindow()
{
    QVERIFY(m_tray->clickMenuEntry(QStringLiteral("Preferences…")));
    QVERIFY2(m_desktop->x().waitForWindow(QStringLiteral("^Kivora Preferences$"), 20000),
             "\"Preferences…\" opened no preferences window");
    QVERIFY(m_desktop->accessibility().waitForWindow(*m_application,
                                                     QStringLiteral("Kivora Preferences"), 10000));
}

QTEST_GUILESS_MAIN(XfcePanel)

#include "tst_XfcePanel.moc"
