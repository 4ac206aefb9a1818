// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextStream>

// Wall time of read-only commands of the command line, beside a bare git read.
class CliBench {
public:
    explicit CliBench(QTextStream& out) : m_out(out) {}
    void run();

private:
    QTextStream& m_out;
};
