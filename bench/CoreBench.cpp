// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CoreBench.h"

#include "BenchStats.h"
#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "model/ProfileStore.h"
#include "support/TestHome.h"

#include <QElapsedTimer>
#include <QProcess>

namespace {

constexpr int activationRounds = 50;
constexpr int storeRounds = 30;
constexpr int storeProfiles = 1000;

double elapsedMs(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

GitProfile keyedAIProfile(int n)
{
    GitProfile profile = GitProfile::create(
        QStringLiteral("Profile %1").arg(n), QStringLiteral("Person %1").arg(n),
        QStringLiteral("person%1@example.com").arg(n), QStringLiteral("~/.ssh/id_bench_%1").arg(n));
    profile.aiConfig.isEnabled = true;
    profile.aiConfig.provider = n % 2 ? AIProvider::Anthropic : AIProvider::OpenAI;
    profile.aiConfig.apiKey = QStringLiteral("sk-bench-%1").arg(n);
    return profile;
}

// Starts a program the way the activation does and waits for it.
void spawn(const QString& program, const QStringList& arguments, bool capture)
{
    QProcess process;
    if (!capture) {
        process.setProcessChannelMode(QProcess::ForwardedChannels);
    }
    process.start(program, arguments);
    process.waitForFinished(-1);
    if (capture) {
        process.readAllStandardOutput();
    }
}

} // namespace

void CoreBench::run()
{
    activation();
    storeLoadAndSave();
}

void CoreBench::activation()
{
    TestHome home;
    home.write(QStringLiteral(".bashrc"), "# bench\n");
    home.write(QStringLiteral(".zshrc"), "# bench\n");
    const GitProfile a = keyedAIProfile(1);
    const GitProfile b = keyedAIProfile(2);
    home.write(QStringLiteral(".git-switcher/profiles.json"),
               ProfileCodec::encodeStore({{a, b}, std::nullopt}));

    AIContextManager ai;
    ProfileManager::Options options;
    ProfileManager manager(ai, options);
    manager.applyGlobally(a); // the wrapper and the hooks exist from here on, as in daily use

    // The same child processes, started bare: three git writes and two reads through bash.
    // Rounds of both kinds alternate, so that other load on the machine falls on both alike.
    const QString env = QStringLiteral("/usr/bin/env");
    const QString bash = QStringLiteral("/bin/bash");
    const QString git = QStringLiteral("git");
    const QString config = QStringLiteral("config");
    const QString global = QStringLiteral("--global");
    QList<double> apply;
    QList<double> bare;
    for (int i = 0; i < activationRounds; ++i) {
        const GitProfile& p = i % 2 ? a : b;
        QElapsedTimer timer;
        timer.start();
        manager.applyGlobally(p);
        apply << elapsedMs(timer);

        timer.restart();
        spawn(env, {git, config, global, QStringLiteral("user.name"), p.gitName}, false);
        spawn(env, {git, config, global, QStringLiteral("user.email"), p.gitEmail}, false);
        spawn(env, {git, config, global, QStringLiteral("core.sshCommand"), QStringLiteral("w k")},
              false);
        // The two reads run side by side, as the activation runs them.
        QProcess name;
        QProcess email;
        name.start(bash, {QStringLiteral("-c"), QStringLiteral("git config --global user.name")});
        email.start(bash, {QStringLiteral("-c"), QStringLiteral("git config --global user.email")});
        name.waitForFinished(-1);
        email.waitForFinished(-1);
        bare << elapsedMs(timer);
    }

    const BenchStats applyStats = BenchStats::of(apply);
    const BenchStats bareStats = BenchStats::of(bare);
    m_out << "activation (" << activationRounds
          << " applyGlobally, two profiles with keys and AI, alternating)\n";
    m_out << "  applyGlobally:          " << applyStats.text() << "\n";
    m_out << "  bare child processes:   " << bareStats.text()
          << "  (3 × env git config, then 2 × bash -c git config side by side)\n";
    m_out << "  overhead beyond them:   median "
          << QString::number(applyStats.median - bareStats.median, 'f', 2) << " ms, p95 "
          << QString::number(applyStats.p95 - bareStats.p95, 'f', 2) << " ms  (target < 2 ms)\n";
    m_out.flush();
}

void CoreBench::storeLoadAndSave()
{
    TestHome home;
    QList<GitProfile> profiles;
    for (int i = 0; i < storeProfiles; ++i) {
        profiles << keyedAIProfile(i);
    }
    const StoredData data{profiles, profiles.first().id};
    const ProfileStore store(home.path());

    QList<double> saves;
    QList<double> loads;
    for (int i = 0; i < storeRounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        store.save(data);
        saves << elapsedMs(timer);
        timer.restart();
        const auto loaded = store.load();
        loads << elapsedMs(timer);
        if (!loaded || loaded->profiles.size() != storeProfiles) {
            m_out << "  load failed\n";
            return;
        }
    }
    m_out << "profile file with " << storeProfiles << " profiles ("
          << home.read(QStringLiteral(".git-switcher/profiles.json")).size() / 1024 << " KiB), "
          << storeRounds << " rounds\n";
    m_out << "  save: " << BenchStats::of(saves).text() << "  (target < 20 ms)\n";
    m_out << "  load: " << BenchStats::of(loads).text() << "  (target < 20 ms)\n";
    m_out.flush();
}
