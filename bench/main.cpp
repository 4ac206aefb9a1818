// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CliBench.h"
#include "CoreBench.h"
#include "ImportBench.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QThread>

// Prints the speed figures of Kivora. Every run works in temporary home folders.
int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    out << "Kivora benchmarks (" << QSysInfo::prettyProductName() << ", "
        << QThread::idealThreadCount() << " cores)\n\n";
    CoreBench(out).run();
    out << "\n";
    CliBench(out).run();
    out << "\n";
    ImportBench(out).run();
    return 0;
}
