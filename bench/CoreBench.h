// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextStream>

// Activation and profile-file figures of the core library.
class CoreBench {
public:
    explicit CoreBench(QTextStream& out) : m_out(out) {}
    void run();

private:
    void activation();
    void storeLoadAndSave();

    QTextStream& m_out;
};
