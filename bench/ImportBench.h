// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextStream>

// Wall time of `kivora import` of a large export into a profile file that holds one profile.
class ImportBench {
public:
    explicit ImportBench(QTextStream& out) : m_out(out) {}
    void run();

private:
    QTextStream& m_out;
};
