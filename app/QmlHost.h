// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QQmlEngine;
class QQuickWindow;

// The QML engine of the application's windows. It is created on the first window that
// needs it, so that a tray process that is never opened keeps no engine in memory.
class QmlHost : public QObject {
    Q_OBJECT

public:
    // `attach` readies a new engine for the views (KivoraApp::attach).
    explicit QmlHost(std::function<void(QQmlEngine&)> attach, QObject* parent = nullptr);
    ~QmlHost() override;

    QQmlEngine& engine();
    bool hasEngine() const { return m_engine != nullptr; }

    // Creates the window described by a file of the Kivora module, given by its path in the
    // module ("menubar/PopoverWindow.qml"). Null, with the errors on the console, on failure.
    QQuickWindow* createWindow(const QString& modulePath);

    // What every engine that shows Kivora's views needs besides its application: the
    // module's import path and the symbol images.
    static void prepare(QQmlEngine& engine);

private:
    std::function<void(QQmlEngine&)> m_attach;
    QQmlEngine* m_engine = nullptr;
};
