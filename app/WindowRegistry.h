// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWindow>

#include <functional>

// Opens the application's windows by id ("settings", "preferences", …). Each id has one
// window at most: it is created on first opening and raised and focused when opened again.
class WindowRegistry : public QObject {
    Q_OBJECT

public:
    using Factory = std::function<QWindow*()>;

    explicit WindowRegistry(QObject* parent = nullptr);

    // The factory builds the window; the registry shows it.
    void add(const QString& id, Factory factory);

    Q_INVOKABLE bool open(const QString& id);
    Q_INVOKABLE bool isOpen(const QString& id) const;
    // The window of an id once it has been created, else null.
    QWindow* window(const QString& id) const;

signals:
    void opened(const QString& id);

private:
    QHash<QString, Factory> m_factories;
    QHash<QString, QPointer<QWindow>> m_windows;
};
