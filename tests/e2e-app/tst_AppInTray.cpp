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

bool isGreen(QRgb pixel)
{
    return qGreen(pixel) > qRed(pixel) + 50 && qGreen(pixel) > qBlue(pixel) + 20;
}

int greenPixels(const QImage& image, const QRect& area)
{
    int count = 0;
    const QRect inside = area.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            count += isGreen(image.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

bool differs(QRgb a, QRgb b, int threshold)
{
    return std::abs(qRed(a) - qRed(b)) > threshold || std::abs(qGreen(a) - qGreen(b)) > threshold ||
           std::abs(qBlue(a) - qBlue(b)) > threshold;
}

// The profile rows' status dots in a picture of the popover, top to bottom: the active
// row's dot is the green mark in the left third; the other rows' outlined dots sit in the
// same column below it, down to the divider that ends the list.
QList<QPoint> rowDots(const QImage& popover)
{
    QRect active;
    for (int y = 0; y < popover.height(); ++y) {
        for (int x = 0; x < popover.width() / 3; ++x) {
            if (isGreen(popover.pixel(x, y))) {
                active = active.isNull() ? QRect(x, y, 1, 1) : active.united(QRect(x, y, 1, 1));
            }
        }
    }
    if (active.isNull()) {
        return {};
    }
    const int column = active.center().x();
    QList<QPoint> dots{active.center()};
    // A dot is a short run of ink around the column (an outlined dot has none in its middle).
    const auto inkAt = [&](int y) {
        const QRgb background = popover.pixel(2, y);
        for (int x = column - 3; x <= column + 3; ++x) {
            if (differs(popover.pixel(x, y), background, 30)) {
                return true;
            }
        }
        return false;
    };
    // The divider below the list runs across the whole width.
    const auto dividerAt = [&](int y) {
        const QRgb background = popover.pixel(2, y);
        return differs(popover.pixel(column - 9, y), background, 8) &&
               differs(popover.pixel(popover.width() / 2, y), background, 8) &&
               differs(popover.pixel(popover.width() - 30, y), background, 8);
    };
    int runStart = -1;
    for (int y = active.bottom() + 3; y < popover.height(); ++y) {
        if (dividerAt(y)) {
            break;
        }
        const bool ink = inkAt(y);
        if (ink && runStart < 0) {
            runStart = y;
        } else if (!ink && runStart >= 0) {
            const int height = y - runStart;
            if (height >= 5 && height <= 10) {
                dots << QPoint(column, runStart + height / 2);
            }
            runStart = -1;
        }
    }
    return dots;
}

} // namespace

class tst_AppInTray : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void trayClickOpensThePopover();
    void rowClickSwitchesTheGlobalIdentity();
    void secondLaunchShowsTheRunningPopover();
    void settingsWindowOpensFromThePopover();
    void quitEndsTheProcess();
    void darkAppearance();

private:
    bool launch();
    std::optional<QString> openPopover();
    void saveScreenshot(const QImage& image, const QString& name);

    std::unique_ptr<XSession> m_x;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QProcess> m_app;
    QString m_appPath;
};

void tst_AppInTray::initTestCase()
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
                 QStringLiteral("User 1")});
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.email"),
                 QStringLiteral("user1@example.com")});
    StoredData data;
    for (int i = 1; i <= 3; ++i) {
        data.profiles << GitProfile::create(QStringLiteral("Profile %1").arg(i),
                                            QStringLiteral("User %1").arg(i),
                                            QStringLiteral("user%1@example.com").arg(i), QString());
    }
    data.activeProfileID = data.profiles.first().id;
    m_home->write(QStringLiteral(".git-switcher/profiles.json"), ProfileCodec::encodeStore(data));
    // The display switches on, light appearance.
    m_home->write(
        QStringLiteral(".config/Kivora/Kivora.conf"),
        "[General]\nappAppearance=Light\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
        "showSSHKey=true\nshowSSHKeySet=true\n");
    QVERIFY(launch());
}

void tst_AppInTray::cleanupTestCase()
{
    AppProcess::stop(m_app);
    m_x.reset();
    m_home.reset();
}

bool tst_AppInTray::launch()
{
    QProcessEnvironment env = m_x->environment();
    m_app = AppProcess::launch(m_appPath, env);
    return m_app != nullptr;
}

std::optional<QString> tst_AppInTray::openPopover()
{
    if (auto open = m_x->waitForWindow(QStringLiteral("^Kivora$"), 200)) {
        return open;
    }
    m_x->click(trayX, trayY);
    return m_x->waitForWindow(QStringLiteral("^Kivora$"), 10000);
}

void tst_AppInTray::saveScreenshot(const QImage& image, const QString& name)
{
    QVERIFY(AppProcess::saveScreenshot(image, name));
}

void tst_AppInTray::trayClickOpensThePopover()
{
    const auto popover = openPopover();
    QVERIFY2(popover, "no popover after a click on the tray icon");
    const QRect area = m_x->geometry(*popover);
    // Beside the icon at the top right, inside the screen.
    QVERIFY(area.width() > 200 && area.height() > 200);
    QVERIFY(area.top() < 100);
    QVERIFY(area.right() < 1400 && area.left() > 700);
    m_x->move(area.left() - 40, area.bottom() + 40);
    QThread::msleep(400);
    saveScreenshot(m_x->capture(area), QStringLiteral("popover-light.png"));
}

void tst_AppInTray::rowClickSwitchesTheGlobalIdentity()
{
    const auto popover = openPopover();
    QVERIFY(popover);
    const QRect area = m_x->geometry(*popover);
    m_x->move(area.left() - 40, area.bottom() + 40);
    QThread::msleep(300);
    const QList<QPoint> dots = rowDots(m_x->capture(area));
    QCOMPARE(dots.size(), 3);
    QCOMPARE(m_home->gitConfig(QStringLiteral("user.name")), QStringLiteral("User 1"));

    // The second row: Profile 2. The "Switched" mark shows for 1.5 seconds, so pictures are
    // taken at once, before anything else; it is green at the row's trailing side.
    const QPoint target = area.topLeft() + dots.at(1) + QPoint(80, 0);
    const QRect trailing(area.width() / 2, dots.at(1).y() - 12, area.width() / 2 - 100, 24);
    QElapsedTimer sinceClick;
    m_x->click(target.x(), target.y());
    sinceClick.start();
    bool marked = false;
    while (!marked && sinceClick.elapsed() < 1400) {
        marked = greenPixels(m_x->capture(area), trailing) > 15;
    }
    QVERIFY2(marked, "no Switched mark after the click");
    QTRY_COMPARE_WITH_TIMEOUT(m_home->gitConfig(QStringLiteral("user.name")),
                              QStringLiteral("User 2"), 5000);
    QCOMPARE(m_home->gitConfig(QStringLiteral("user.email")), QStringLiteral("user2@example.com"));

    // Gone once its timer ran.
    QThread::msleep(std::max<qint64>(0, 2500 - sinceClick.elapsed()));
    const QImage cleared = m_x->capture(area);
    QCOMPARE(greenPixels(cleared, trailing), 0);
    // The row of Profile 2 now has the filled green dot.
    QVERIFY(greenPixels(cleared, QRect(dots.at(1) - QPoint(4, 4), QSize(9, 9))) > 10);
}

void tst_AppInTray::secondLaunchShowsTheRunningPopover()
{
    m_x->run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Escape")});
    QTRY_VERIFY_WITH_TIMEOUT(!m_x->waitForWindow(QStringLiteral("^Kivora$"), 100), 5000);

    QProcess second;
    second.setProcessEnvironment(m_x->environment());
    second.start(m_appPath, {});
    QVERIFY(second.waitForFinished(15000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(m_app->state(), QProcess::Running);
    QVERIFY2(m_x->waitForWindow(QStringLiteral("^Kivora$"), 5000),
             "the running instance did not bring its popover forward");
}

void tst_AppInTray::settingsWindowOpensFromThePopover()
{
    const auto popover = openPopover();
    QVERIFY(popover);
    const QRect area = m_x->geometry(*popover);
    // "Add Profile" is the footer's first button.
    m_x->click(area.left() + 50, area.bottom() - 22);
    const auto settings = m_x->waitForWindow(QStringLiteral("^Kivora Settings$"), 10000);
    QVERIFY2(settings, "no settings window");
    const QRect window = m_x->geometry(*settings);
    QCOMPARE(window.size(), QSize(1100, 650));
    QThread::msleep(500);
    saveScreenshot(m_x->capture(window), QStringLiteral("settings-light.png"));
    m_x->run(QStringLiteral("xdotool"), {QStringLiteral("windowunmap"), *settings});
}

void tst_AppInTray::quitEndsTheProcess()
{
    const auto popover = openPopover();
    QVERIFY(popover);
    const QRect area = m_x->geometry(*popover);
    // "Quit" is the footer's last button.
    m_x->click(area.right() - 26, area.bottom() - 22);
    QVERIFY(m_app->waitForFinished(10000));
    QCOMPARE(m_app->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_app->exitCode(), 0);
}

void tst_AppInTray::darkAppearance()
{
    AppProcess::stop(m_app);
    m_home->write(QStringLiteral(".config/Kivora/Kivora.conf"),
                  "[General]\nappAppearance=Dark\nshowProfileEmail=true\nshowProfileEmailSet=true\n"
                  "showSSHKey=true\nshowSSHKeySet=true\n");
    QVERIFY(launch());
    const auto popover = openPopover();
    QVERIFY(popover);
    const QRect area = m_x->geometry(*popover);
    m_x->move(area.left() - 40, area.bottom() + 40);
    QThread::msleep(400);
    const QImage dark = m_x->capture(area);
    saveScreenshot(dark, QStringLiteral("popover-dark.png"));
    // A dark background: the popover's corner region is dark.
    QVERIFY(qGray(dark.pixel(4, area.height() / 2)) < 80);

    m_x->click(area.left() + 50, area.bottom() - 22);
    const auto settings = m_x->waitForWindow(QStringLiteral("^Kivora Settings$"), 10000);
    QVERIFY(settings);
    QThread::msleep(500);
    const QImage window = m_x->capture(m_x->geometry(*settings));
    saveScreenshot(window, QStringLiteral("settings-dark.png"));
    QVERIFY(qGray(window.pixel(window.width() - 10, window.height() - 10)) < 80);
    AppProcess::stop(m_app);
}

QTEST_GUILESS_MAIN(tst_AppInTray)

#include "tst_AppInTray.moc"
