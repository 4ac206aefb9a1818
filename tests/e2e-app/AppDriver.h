// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "DesktopSession.h"
#include "support/AtSpiClient.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class TestHome;

// Drives the built application the way a person using the keyboard, or a screen reader, does:
// on a private desktop (an X display with trayer as its status area, a session bus with the
// accessibility bus), windows and controls are found over AT-SPI by role and name, pressed
// through their actions, and keys are real key events (xdotool). No pixel position is ever
// typed in: where the pointer must go (the tray icon), it goes to the middle of what was
// found. Screenshots are of a window as the accessibility bus places it.
class AppDriver {
public:
    using Node = AtSpiClient::Node;

    // The programs needed that are missing (empty when the tests can run).
    static QStringList missingPrograms();

    AppDriver();
    ~AppDriver();
    AppDriver(const AppDriver&) = delete;
    AppDriver& operator=(const AppDriver&) = delete;

    // The desktop for the home folder; only the accessibility bus is started on demand, so
    // dialogs are Qt's own and the colour scheme is the application's.
    bool startDesktop(const TestHome& home, QString* problem);
    // Starts the application with the desktop's environment plus `extra`, and waits for its
    // tray icon and for it to show on the accessibility bus.
    bool launch(const QProcessEnvironment& extra = QProcessEnvironment());
    void stopApp();
    QProcess* app() const { return m_app.get(); }

    DesktopSession& desktop() { return *m_desktop; }
    AtSpiClient& a11y() const { return m_desktop->accessibility(); }
    XSession& x() const { return m_desktop->x(); }
    QProcessEnvironment environment() const { return m_desktop->environment(); }

    // A shown window of the application by its title, waiting for it.
    std::optional<Node> window(const QString& title, int timeoutMs = 15000) const;
    // Waits until no window of that title is shown.
    bool windowGone(const QString& title, int timeoutMs = 10000) const;
    // A control under `root` by role and name ("" for any), waiting for it to show.
    std::optional<Node> control(const Node& root, const QString& role, const QString& name,
                                int timeoutMs = 10000) const;
    // Finds the control and runs its press (or toggle) action.
    bool press(const Node& root, const QString& role, const QString& name) const;
    // The object under `root` that has the keyboard focus.
    std::optional<Node> focused(const Node& root) const;
    // Waits until the control of that role and name has the keyboard focus.
    bool waitForFocus(const Node& root, const QString& role, const QString& name,
                      int timeoutMs = 10000) const;
    // "role \"name\"" of the focused object, for messages.
    QString describeFocus(const Node& root) const;

    // Real key events to the window with the keyboard focus: xdotool key names ("Tab",
    // "shift+F10", "Down Down Return").
    void key(const QString& keys) const;
    void type(const QString& text) const;
    // Gives the keyboard to the application's window of that title, as a window manager would
    // when it comes up.
    bool focusWindow(const QString& title) const;

    // A click in the middle of the tray icon (the X window trayer embedded for Kivora).
    bool clickTrayIcon() const;
    // The popover, opened from the tray icon unless it is open already.
    std::optional<Node> openPopover() const;

    QImage capture(const Node& window) const;
    // Keeps a screenshot: in docs/screenshots with KIVORA_UPDATE_SCREENSHOTS=1, else in the
    // build folder.
    bool saveScreenshot(const Node& window, const QString& name) const;
    // The application's accessibility tree, for failure messages.
    QString dump() const;

private:
    std::unique_ptr<DesktopSession> m_desktop;
    std::unique_ptr<QProcess> m_app;
    std::optional<Node> m_application;
};
