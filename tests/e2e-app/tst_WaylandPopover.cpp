// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/Descendants.h"
#include "support/TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>
#include <QtTest>

#include <memory>

// Kivora on a native Wayland compositor (Weston, headless), with no status area: the popover
// opens as a window of its own. A Wayland client cannot place its windows, so what matters is
// what it asks of the compositor, read from the protocol itself (WAYLAND_DEBUG): a fixed size
// (minimum = maximum, the content's natural size), which tiling compositors such as sway
// float instead of tiling, and the desktop entry's name as the app id, which gives the window
// its icon.
class WaylandPopover : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void popoverAsksForItsNaturalSize();

private:
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<QProcess> m_compositor;
    std::unique_ptr<QProcess> m_app;
    QProcessEnvironment m_environment;
};

void WaylandPopover::initTestCase()
{
    if (QStandardPaths::findExecutable(QStringLiteral("weston")).isEmpty()) {
        QSKIP("needs weston");
    }
    QVERIFY(QFile::exists(qEnvironmentVariable("KIVORA_APP")));
    Descendants::adopt();
    m_home = std::make_unique<TestHome>();
    const QString runtime = m_home->filePath(QStringLiteral(".run"));
    QVERIFY(QDir().mkpath(runtime));
    QVERIFY(QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(QStringLiteral("HOME"), m_home->path());
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home->configHome());
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE",
                             "DBUS_SESSION_BUS_ADDRESS"}) {
        m_environment.remove(QLatin1String(name));
    }

    m_compositor = std::make_unique<QProcess>();
    m_compositor->setProcessEnvironment(m_environment);
    m_compositor->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_compositor->start(QStringLiteral("weston"),
                        {QStringLiteral("--backend=headless-backend.so"),
                         QStringLiteral("--socket=wayland-kivora"), QStringLiteral("--width=1400"),
                         QStringLiteral("--height=900"), QStringLiteral("--idle-time=0")});
    QVERIFY(m_compositor->waitForStarted(10000));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(runtime + QStringLiteral("/wayland-kivora")), 30000);
}

void WaylandPopover::cleanupTestCase()
{
    for (auto* process : {m_app.get(), m_compositor.get()}) {
        if (process && process->state() != QProcess::NotRunning) {
            process->terminate();
            if (!process->waitForFinished(5000)) {
                process->kill();
                process->waitForFinished(3000);
            }
        }
    }
    m_app.reset();
    m_compositor.reset();
    Descendants::end();
    m_home.reset();
}

void WaylandPopover::popoverAsksForItsNaturalSize()
{
    QProcessEnvironment env = m_environment;
    env.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-kivora"));
    env.insert(QStringLiteral("WAYLAND_DEBUG"), QStringLiteral("client"));
    env.insert(QStringLiteral("KIVORA_UPDATE_FEED_URL"), QStringLiteral("http://127.0.0.1:9/"));
    env.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    // The headless compositor has no seat, and Qt 6.4's Wayland text input then crashes on
    // the first text item; a seatless desktop does not exist, so input goes through Qt's
    // plain compose input context here.
    env.insert(QStringLiteral("QT_IM_MODULE"), QStringLiteral("compose"));
    m_app = std::make_unique<QProcess>();
    m_app->setProcessEnvironment(env);
    m_app->start(qEnvironmentVariable("KIVORA_APP"), {});
    QVERIFY(m_app->waitForStarted(10000));

    // The toplevel titled "Kivora" and the last size limits it asked for.
    static const QRegularExpression toplevel(
        QStringLiteral(R"((xdg_toplevel@\d+)\.set_title\("Kivora"\))"));
    static const QRegularExpression limit(
        QStringLiteral(R"((xdg_toplevel@\d+)\.set_(min|max)_size\((\d+), (\d+)\))"));
    QByteArray log;
    QString popover;
    QSize minimum;
    QSize maximum;
    QString appId;
    QElapsedTimer waited;
    waited.start();
    // Limits settle once the content has its size; read until they have been stable a while.
    qint64 lastChange = 0;
    while (waited.elapsed() < 60000 && m_app->state() == QProcess::Running) {
        m_app->waitForReadyRead(300);
        const QByteArray more = m_app->readAllStandardError();
        if (!more.isEmpty()) {
            log += more;
            const QString text = QString::fromUtf8(log);
            if (popover.isEmpty()) {
                const auto match = toplevel.match(text);
                if (match.hasMatch()) {
                    popover = match.captured(1);
                }
            }
            if (!popover.isEmpty()) {
                auto it = limit.globalMatch(text);
                while (it.hasNext()) {
                    const auto m = it.next();
                    if (m.captured(1) != popover) {
                        continue;
                    }
                    const QSize size(m.captured(3).toInt(), m.captured(4).toInt());
                    (m.captured(2) == u"min" ? minimum : maximum) = size;
                }
                const QRegularExpression id(QRegularExpression::escape(popover) +
                                            QStringLiteral(R"re(\.set_app_id\("([^"]*)"\))re"));
                const auto idMatch = id.match(text);
                if (idMatch.hasMatch()) {
                    appId = idMatch.captured(1);
                }
            }
            lastChange = waited.elapsed();
        }
        if (!popover.isEmpty() && minimum.isValid() && waited.elapsed() - lastChange > 3000) {
            break;
        }
    }
    QVERIFY2(
        m_app->state() == QProcess::Running,
        qPrintable(QStringLiteral("the application ended: ") + QString::fromUtf8(log.right(2000))));
    QVERIFY2(!popover.isEmpty(), "no window titled Kivora");
    QCOMPARE(appId, QStringLiteral("io.github.kivora.Kivora"));
    // A fixed size, and the content's own: the popover's width, not the screen's.
    QVERIFY(minimum.width() > 0 && minimum.height() > 0);
    QCOMPARE(maximum, minimum);
    QCOMPARE(minimum.width(), 320);
    QVERIFY(minimum.height() > 150 && minimum.height() < 900);
}

QTEST_GUILESS_MAIN(WaylandPopover)

#include "tst_WaylandPopover.moc"
