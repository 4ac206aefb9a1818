// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PopoverController.h"

#include "app/QmlHost.h"
#include "app/StartupTrace.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>

namespace {

// A click on the tray icon while the popover is open first takes the focus away (which
// closes it) and then arrives as a click: within this time it must not reopen it.
constexpr qint64 reopenGuardMs = 300;
constexpr int gap = 4;
// How far from a screen edge an icon can be and still sit in a panel along that edge.
constexpr int panelReach = 64;

} // namespace

PopoverController::PopoverController(QmlHost& host, QObject* parent) : QObject(parent), m_host(host)
{
}

QQuickWindow* PopoverController::ensureWindow()
{
    if (!m_window) {
        m_window = m_host.createWindow(QStringLiteral("menubar/PopoverWindow.qml"));
        if (m_window) {
            connect(m_window, &QWindow::activeChanged, this, &PopoverController::onActiveChanged);
            connect(m_window, &QWindow::heightChanged, this, [this] {
                if (m_window->isVisible() && !m_asWindow) {
                    place();
                }
            });
            connect(m_window, &QWindow::visibleChanged, this, [this](bool visible) {
                if (!visible) {
                    m_wasActive = false;
                }
            });
        }
    }
    return m_window;
}

bool PopoverController::isVisible() const
{
    return m_window && m_window->isVisible();
}

void PopoverController::toggle(const QRect& anchor)
{
    if (isVisible()) {
        hide();
        return;
    }
    if (m_hiddenByFocusLoss.isValid() && m_hiddenByFocusLoss.elapsed() < reopenGuardMs) {
        m_hiddenByFocusLoss.invalidate();
        return;
    }
    show(anchor);
}

void PopoverController::show(const QRect& anchor)
{
    if (isVisible() && !m_asWindow) {
        // Already open: brought forward where it is.
        m_window->raise();
        m_window->requestActivate();
        emit shown();
        return;
    }
    m_openedAt.start();
    // The anchor is decided once, when the popover opens, and kept until it closes: most
    // status areas (every StatusNotifierItem host) report no geometry for the icon, and a
    // pointer read again later would move the popover whenever its height changes.
    m_anchor = anchor.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : anchor;
    if (!ensureWindow()) {
        return;
    }
    if (m_asWindow) {
        // Back to a popover once a status area exists.
        m_asWindow = false;
        m_window->hide();
    }
    m_window->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    traceFirstFrame();
    place();
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
    emit shown();
}

void PopoverController::showAsWindow()
{
    m_openedAt.start();
    if (!ensureWindow()) {
        return;
    }
    m_asWindow = true;
    m_window->setFlags(Qt::Window);
    traceFirstFrame();
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
    emit shown();
}

void PopoverController::hide()
{
    if (m_window) {
        m_window->hide();
    }
}

void PopoverController::onActiveChanged()
{
    if (!m_window) {
        return;
    }
    if (m_window->isActive()) {
        m_wasActive = true;
        return;
    }
    if (m_wasActive && m_window->isVisible() && !m_asWindow) {
        m_hiddenByFocusLoss.start();
        hide();
    }
}

void PopoverController::traceFirstFrame()
{
    if (!StartupTrace::enabled()) {
        return;
    }
    const bool first = !m_everShown;
    m_everShown = true;
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = connect(m_window, &QQuickWindow::frameSwapped, this, [this, first, connection] {
        disconnect(*connection);
        StartupTrace::mark(first ? QStringLiteral("popover-first-frame")
                                 : QStringLiteral("popover-frame"),
                           m_openedAt.elapsed());
    });
}

void PopoverController::place()
{
    const QRect anchor = m_anchor;
    QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    if (!screen) {
        return;
    }
    m_window->setPosition(
        placement(anchor, m_window->size(), screen->geometry(), screen->availableGeometry()));
}

QPoint PopoverController::placement(const QRect& anchor, const QSize& size, const QRect& screen,
                                    const QRect& available)
{
    const QPoint centre = anchor.center();
    const int toTop = centre.y() - screen.top();
    const int toBottom = screen.bottom() - centre.y();
    const int toLeft = centre.x() - screen.left();
    const int toRight = screen.right() - centre.x();

    // Panels run along an edge; an icon in a corner belongs to the horizontal panel, which
    // is by far the common one, unless it is clearly inside a vertical one.
    QPoint origin;
    if (std::min(toTop, toBottom) <= panelReach || std::min(toLeft, toRight) > panelReach) {
        if (toTop <= toBottom) {
            origin = {centre.x() - size.width() / 2, anchor.bottom() + 1 + gap};
        } else {
            origin = {centre.x() - size.width() / 2, anchor.top() - gap - size.height()};
        }
    } else if (toLeft <= toRight) {
        origin = {anchor.right() + 1 + gap, centre.y() - size.height() / 2};
    } else {
        origin = {anchor.left() - gap - size.width(), centre.y() - size.height() / 2};
    }
    const int maxX = std::max(available.left(), available.right() + 1 - size.width());
    const int maxY = std::max(available.top(), available.bottom() + 1 - size.height());
    return {std::clamp(origin.x(), available.left(), maxX),
            std::clamp(origin.y(), available.top(), maxY)};
}
