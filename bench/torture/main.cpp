// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "KillTorture.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

// kivora-torture [--iterations N] [--seed S] KIVORA: kills profile-changing commands of the
// command line at random moments and checks the profile file after each kill.
int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption iterations(QStringLiteral("iterations"), QString(),
                                        QStringLiteral("N"), QStringLiteral("600"));
    const QCommandLineOption seed(QStringLiteral("seed"), QString(), QStringLiteral("S"),
                                  QStringLiteral("0"));
    parser.addOptions({iterations, seed});
    parser.addPositionalArgument(QStringLiteral("kivora"), QString());
    parser.process(app);
    QTextStream out(stdout);
    if (parser.positionalArguments().size() != 1) {
        out << "usage: kivora-torture [--iterations N] [--seed S] KIVORA\n";
        return 2;
    }
    KillTorture::Options options;
    options.iterations = std::max(1, parser.value(iterations).toInt());
    options.seed = parser.value(seed).toUInt();
    options.kivora = parser.positionalArguments().first();
    return KillTorture(options, out).run() ? 0 : 1;
}
