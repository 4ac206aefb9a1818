// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CliBench.h"

#include "BenchStats.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QProcess>

namespace {

constexpr int rounds = 30;

double timeOnce(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    process.waitForFinished(-1);
    process.readAllStandardOutput();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

void CliBench::run()
{
    TestHome home;
    QList<GitProfile> profiles;
    for (int i = 0; i < 10; ++i) {
        profiles << GitProfile::create(
            QStringLiteral("Profile %1").arg(i), QStringLiteral("Person %1").arg(i),
            QStringLiteral("p%1@example.com").arg(i), QStringLiteral("~/.ssh/id_%1").arg(i));
    }
    home.write(QStringLiteral(".git-switcher/profiles.json"),
               ProfileCodec::encodeStore({profiles, profiles.first().id}));
    home.git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name"),
              QStringLiteral("Person 0")});

    const QString kivora = QStringLiteral(KIVORA_CLI_PATH);
    QList<double> current;
    QList<double> list;
    QList<double> git;
    for (int i = 0; i < rounds; ++i) {
        current << timeOnce(kivora, {QStringLiteral("current")});
        list << timeOnce(kivora, {QStringLiteral("list")});
        git << timeOnce(
            QStringLiteral("git"),
            {QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name")});
    }
    const BenchStats gitStats = BenchStats::of(git);
    const BenchStats currentStats = BenchStats::of(current);
    const BenchStats listStats = BenchStats::of(list);
    m_out << "command line (" << rounds << " runs each, 10 profiles)\n";
    m_out << "  git config --global user.name: " << gitStats.text() << "\n";
    m_out << "  kivora current:                " << currentStats.text() << "  ("
          << QString::number(currentStats.median / gitStats.median, 'f', 1)
          << "× git; target < 4×)\n";
    m_out << "  kivora list:                   " << listStats.text() << "  ("
          << QString::number(listStats.median / gitStats.median, 'f', 1) << "× git; target < 4×)\n";
    m_out.flush();
}
