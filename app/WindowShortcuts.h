// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class WindowRegistry;

// Keys that work in every Kivora window, whichever has the focus: Ctrl+, opens the
// preferences window. Installed once on the application.
class WindowShortcuts : public QObject {
    Q_OBJECT

public:
    explicit WindowShortcuts(WindowRegistry& windows, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowRegistry& m_windows;
};
