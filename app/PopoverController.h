// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QQuickWindow>
#include <QRect>
#include <QSize>

class QmlHost;

// The popover: a frameless window placed by the tray icon, closed by Escape and when it
// loses focus. Without a status area it is an ordinary window instead. Its QML is loaded
// the first time it opens.
class PopoverController : public QObject {
    Q_OBJECT

public:
    explicit PopoverController(QmlHost& host, QObject* parent = nullptr);

    // Opens by the anchor (the tray icon's geometry; an empty rectangle means "by the
    // pointer"), or closes when open.
    void toggle(const QRect& anchor);
    void show(const QRect& anchor);
    // Opens as an ordinary, decorated window (no status area to sit by).
    void showAsWindow();
    void hide();
    bool isVisible() const;

    QQuickWindow* window() const { return m_window; }

    // Where a popover of `size` goes for an anchor: below or above it when it sits near the
    // top or bottom edge, beside it in a vertical panel, centred on it, and always inside
    // the available area.
    static QPoint placement(const QRect& anchor, const QSize& size, const QRect& screen,
                            const QRect& available);

signals:
    void shown();

private:
    QQuickWindow* ensureWindow();
    void place();
    void onActiveChanged();
    void traceFirstFrame();

    QmlHost& m_host;
    QPointer<QQuickWindow> m_window;
    // What the popover sits by while it is open: the icon, or the pointer where it was when
    // the popover opened.
    QRect m_anchor;
    bool m_asWindow = false;
    bool m_wasActive = false;
    bool m_everShown = false;
    QElapsedTimer m_hiddenByFocusLoss;
    QElapsedTimer m_openedAt;
};
