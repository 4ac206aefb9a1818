// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AppDriver.h"

#include "AppProcess.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>

#include <functional>

namespace {

// The roles top-level windows have on the accessibility bus.
bool isWindowRole(const QString& role)
{
    return role == QLatin1String("frame") || role == QLatin1String("window") ||
           role == QLatin1String("dialog");
}

DesktopSession::Options desktopOptions()
{
    DesktopSession::Options options;
    options.trayer = true;
    options.onlyServices = QStringList{QStringLiteral("org.a11y.Bus")};
    return options;
}

} // namespace

QStringList AppDriver::missingPrograms()
{
    return DesktopSession::missingPrograms(desktopOptions());
}

AppDriver::AppDriver() = default;

AppDriver::~AppDriver()
{
    stopApp();
    m_desktop.reset();
}

bool AppDriver::startDesktop(const TestHome& home, QString* problem)
{
    m_desktop = std::make_unique<DesktopSession>();
    if (!m_desktop->start(home, desktopOptions(), problem)) {
        return false;
    }
    if (!a11y().isConnected()) {
        *problem = QStringLiteral("no accessibility bus: ") + a11y().problem();
        return false;
    }
    return true;
}

bool AppDriver::launch(const QProcessEnvironment& extra)
{
    QProcessEnvironment env = m_desktop->environment();
    for (const QString& name : extra.keys()) {
        env.insert(name, extra.value(name));
    }
    m_app = AppProcess::launch(qEnvironmentVariable("KIVORA_APP"), env);
    if (!m_app) {
        return false;
    }
    // Qt names the application's accessible root after the application name.
    m_application = a11y().waitForApplication(QStringLiteral("Kivora"), 30000);
    return m_application.has_value();
}

void AppDriver::stopApp()
{
    AppProcess::stop(m_app);
    m_application.reset();
}

std::optional<AppDriver::Node> AppDriver::window(const QString& title, int timeoutMs) const
{
    if (!m_application) {
        return std::nullopt;
    }
    QElapsedTimer waited;
    waited.start();
    do {
        for (const Node& candidate : a11y().children(*m_application)) {
            if (a11y().name(candidate) == title && isWindowRole(a11y().roleName(candidate)) &&
                a11y().hasState(candidate, QStringLiteral("showing"))) {
                return candidate;
            }
        }
        QThread::msleep(150);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

bool AppDriver::windowGone(const QString& title, int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        if (!window(title, 0)) {
            return true;
        }
        QThread::msleep(150);
    } while (waited.elapsed() < timeoutMs);
    return false;
}

std::optional<AppDriver::Node> AppDriver::control(const Node& root, const QString& role,
                                                  const QString& name, int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        const auto found = a11y().find(root, [&](const Node& node) {
            return (role.isEmpty() || a11y().roleName(node) == role) &&
                   (name.isEmpty() || a11y().name(node) == name) &&
                   a11y().hasState(node, QStringLiteral("showing"));
        });
        if (found) {
            return found;
        }
        QThread::msleep(150);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

bool AppDriver::press(const Node& root, const QString& role, const QString& name) const
{
    const auto found = control(root, role, name);
    return found && a11y().press(*found);
}

std::optional<AppDriver::Node> AppDriver::focused(const Node& root) const
{
    // Containers of the focused control may say "focused" too: the deepest one is the control.
    std::optional<Node> deepest;
    std::function<void(const Node&, int)> visit = [&](const Node& node, int depth) {
        if (a11y().hasState(node, QStringLiteral("focused"))) {
            deepest = node;
        }
        if (depth < 64) {
            for (const Node& child : a11y().children(node)) {
                if (a11y().hasState(child, QStringLiteral("showing"))) {
                    visit(child, depth + 1);
                }
            }
        }
    };
    visit(root, 0);
    return deepest;
}

bool AppDriver::waitForFocus(const Node& root, const QString& role, const QString& name,
                             int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        const auto node = focused(root);
        if (node && (role.isEmpty() || a11y().roleName(*node) == role) &&
            (name.isEmpty() || a11y().name(*node) == name)) {
            return true;
        }
        QThread::msleep(100);
    } while (waited.elapsed() < timeoutMs);
    return false;
}

QString AppDriver::describeFocus(const Node& root) const
{
    const auto node = focused(root);
    return node ? a11y().roleName(*node) + QStringLiteral(" \"") + a11y().name(*node) + u'"'
                : QStringLiteral("nothing");
}

void AppDriver::key(const QString& keys) const
{
    QStringList arguments{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("60")};
    arguments << keys.split(u' ', Qt::SkipEmptyParts);
    x().run(QStringLiteral("xdotool"), arguments);
    // Each key is handled before the test looks at what it did.
    QThread::msleep(150);
}

void AppDriver::type(const QString& text) const
{
    x().run(QStringLiteral("xdotool"),
            {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("30"), text});
    QThread::msleep(150);
}

bool AppDriver::focusWindow(const QString& title) const
{
    const auto id = x().waitForWindow(QLatin1Char('^') + title + QLatin1Char('$'), 10000);
    if (!id) {
        return false;
    }
    int status = -1;
    x().run(QStringLiteral("xdotool"), {QStringLiteral("windowfocus"), *id}, &status);
    return status == 0;
}

bool AppDriver::clickTrayIcon() const
{
    // Trayer embeds the icon as a small window of the application's own, icon-sized.
    const QRect area = x().trayIconArea(QStringLiteral("kivora-app"));
    if (area.isEmpty()) {
        return false;
    }
    x().click(area.center().x(), area.center().y());
    return true;
}

std::optional<AppDriver::Node> AppDriver::openPopover() const
{
    if (auto open = window(QStringLiteral("Kivora"), 0)) {
        return open;
    }
    if (!clickTrayIcon()) {
        return std::nullopt;
    }
    return window(QStringLiteral("Kivora"), 10000);
}

QImage AppDriver::capture(const Node& window) const
{
    return x().capture(a11y().extents(window));
}

bool AppDriver::saveScreenshot(const Node& window, const QString& name) const
{
    return AppProcess::saveScreenshot(capture(window), name);
}

QString AppDriver::dump() const
{
    return m_application ? a11y().dump(*m_application) : QStringLiteral("(no application)");
}
