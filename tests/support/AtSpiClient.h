// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// A client of the accessibility bus (AT-SPI 2), for tests that drive a real application the
// way assistive technology does: controls are found by their role and name, pressed through
// their actions and read through their states, text and extents, never by pixel position.
//
// Qt exposes its windows there when QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 (or accessibility is
// switched on, which the client does); GTK applications always do. The session bus given to
// the client must have org.a11y.Bus (package at-spi2-core) to start on demand.
class AtSpiClient {
public:
    // One accessible object: the bus name of its application and its object path.
    struct Node {
        QString service;
        QString path;
        bool isValid() const { return !service.isEmpty() && !path.isEmpty(); }
        bool operator==(const Node& other) const = default;
    };

    // `sessionBus` names a connected QDBusConnection to the desktop's session bus.
    explicit AtSpiClient(const QString& sessionBus);
    ~AtSpiClient();
    AtSpiClient(const AtSpiClient&) = delete;
    AtSpiClient& operator=(const AtSpiClient&) = delete;

    bool isConnected() const { return m_connected; }
    QString problem() const { return m_problem; }

    // The applications registered on the bus (the desktop's root's children).
    QList<Node> applications() const;
    // The first application with this name ("kivora-app", "xfce4-panel", …), waiting for it.
    std::optional<Node> waitForApplication(const QString& name, int timeoutMs) const;

    QString name(const Node& node) const;
    QString description(const Node& node) const;
    // The role as AT-SPI names it: "push button", "frame", "label", "menu item", …
    QString roleName(const Node& node) const;
    QList<Node> children(const Node& node) const;
    Node parent(const Node& node) const;
    // State names, as AT-SPI spells them: "visible", "showing", "focused", "checked", …
    QStringList states(const Node& node) const;
    bool hasState(const Node& node, const QString& state) const;

    // The first object under `root` (depth first, `root` included) that matches.
    std::optional<Node> find(const Node& root, const std::function<bool(const Node&)>& matches,
                             int maxDepth = 64) const;
    // By role name and accessible name; an empty role or name matches any.
    std::optional<Node> find(const Node& root, const QString& role, const QString& name) const;
    QList<Node> findAll(const Node& root, const QString& role, const QString& name) const;
    // Waits until find() succeeds: the tree changes as windows open.
    std::optional<Node> waitFor(const Node& root, const QString& role, const QString& name,
                                int timeoutMs) const;
    // Waits for a visible top-level window of `application` with this title.
    std::optional<Node> waitForWindow(const Node& application, const QString& title,
                                      int timeoutMs) const;
    // Searches every application.
    std::optional<Node> waitForAnywhere(const QString& role, const QString& name,
                                        int timeoutMs) const;

    // Action names ("press", "click", "toggle", "activate", …).
    QStringList actions(const Node& node) const;
    // Runs the named action, or the first one when `action` is empty.
    bool doAction(const Node& node, const QString& action = QString()) const;
    // Presses a button: its press or click action, whichever it offers.
    bool press(const Node& node) const;

    // The object's rectangle in screen coordinates.
    QRect extents(const Node& node) const;
    // The text of a text object (a label, a field).
    QString text(const Node& node) const;
    // Replaces the text of an editable field.
    bool setText(const Node& node, const QString& text) const;
    // Gives the object the keyboard focus.
    bool grabFocus(const Node& node) const;

    // The tree under `root`, one object a line with its role, name and states, for failure
    // messages and for finding out how an application presents itself.
    QString dump(const Node& root, int maxDepth = 64) const;

private:
    QVariant property(const Node& node, const QString& interface, const QString& name) const;
    QDBusMessage call(const Node& node, const QString& interface, const QString& method,
                      const QVariantList& arguments = {}) const;
    void dumpInto(const Node& node, int depth, int maxDepth, QString& out) const;

    QString m_busName;
    bool m_connected = false;
    QString m_problem;
};
