// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

#include <memory>

// The built tray application as the end-to-end tests run it on their private X display.
class AppProcess {
public:
    // Starts the application with `env` and waits until its tray icon is shown. The start-up
    // trace is switched on, and the update feed points nowhere unless `env` names one.
    // Returns nothing when the application did not get that far (its output is logged).
    static std::unique_ptr<QProcess> launch(const QString& program, QProcessEnvironment env);

    // Ends the application, politely first.
    static void stop(std::unique_ptr<QProcess>& app);

    // Writes a screenshot into the build folder, or into docs/screenshots when
    // KIVORA_UPDATE_SCREENSHOTS=1.
    static bool saveScreenshot(const QImage& image, const QString& name);

private:
    static bool waitForTray(QProcess& app);
};
