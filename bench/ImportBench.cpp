// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImportBench.h"

#include "BenchStats.h"
#include "model/ProfileCodec.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QProcess>

void ImportBench::run()
{
    constexpr int profiles = 2000;
    constexpr int rounds = 5;
    QList<GitProfile> exported;
    for (int i = 0; i < profiles; ++i) {
        exported << GitProfile::create(QStringLiteral("imported %1").arg(i),
                                       QStringLiteral("Person %1").arg(i),
                                       QStringLiteral("p%1@example.org").arg(i), QString());
    }
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        TestHome home;
        home.write(QStringLiteral("export.json"), ProfileCodec::encodeProfileArray(exported));
        const GitProfile own = GitProfile::create(QStringLiteral("Own"), QStringLiteral("O"),
                                                  QStringLiteral("o@example.org"), QString());
        home.write(QStringLiteral(".git-switcher/profiles.json"),
                   ProfileCodec::encodeStore({{own}, own.id}));
        QProcess process;
        QElapsedTimer timer;
        timer.start();
        process.start(QStringLiteral(KIVORA_CLI_PATH),
                      {QStringLiteral("import"), home.filePath(QStringLiteral("export.json"))});
        process.waitForFinished(-1);
        times << double(timer.nsecsElapsed()) / 1e6;
        const auto stored =
            ProfileCodec::decodeStore(home.read(QStringLiteral(".git-switcher/profiles.json")));
        if (process.exitCode() != 0 || !stored || stored->profiles.size() != profiles + 1) {
            m_out << "import of " << profiles << " profiles: FAILED\n";
            return;
        }
    }
    m_out << "import (" << rounds << " runs, " << profiles << " profiles into a file of one)\n";
    m_out << "  kivora import: " << BenchStats::of(times).text() << "\n";
    m_out.flush();
}
