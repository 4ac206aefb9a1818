// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "KillTorture.h"

#include "activation/ProfileManager.h"
#include "model/LeftoverTemporaryFiles.h"
#include "support/TestHome.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <csignal>

namespace {

constexpr int baseProfiles = 20;
constexpr int importedProfiles = 2000;
constexpr int resetAbove = 5000;

// The profiles compared without their ids, for profiles a command makes with fresh ones.
bool sameButIds(const GitProfile& a, const GitProfile& b)
{
    return a.name == b.name && a.gitName == b.gitName && a.gitEmail == b.gitEmail &&
           a.sshKeyPath == b.sshKeyPath && a.aiConfig == b.aiConfig;
}

// `after` is `before` with `added` appended (fresh ids), the active id unchanged.
bool appended(const StoredData& before, const StoredData& after, const QList<GitProfile>& added)
{
    if (after.activeProfileID != before.activeProfileID ||
        after.profiles.size() != before.profiles.size() + added.size() ||
        after.profiles.mid(0, before.profiles.size()) != before.profiles) {
        return false;
    }
    for (qsizetype i = 0; i < added.size(); ++i) {
        if (!sameButIds(after.profiles.at(before.profiles.size() + i), added.at(i))) {
            return false;
        }
    }
    return true;
}

} // namespace

KillTorture::KillTorture(Options options, QTextStream& out)
    : m_options(std::move(options)), m_out(out), m_home(std::make_unique<TestHome>())
{
    if (m_options.seed == 0) {
        m_options.seed = unsigned(QDateTime::currentMSecsSinceEpoch() & 0xffffffff);
    }
    m_random.seed(m_options.seed);
    for (int i = 0; i < baseProfiles; ++i) {
        m_base << GitProfile::create(QStringLiteral("Base %1").arg(i),
                                     QStringLiteral("Person %1").arg(i),
                                     QStringLiteral("p%1@example.org").arg(i),
                                     i % 2 ? QStringLiteral("~/.ssh/id_%1").arg(i) : QString());
    }
    QList<GitProfile> exported;
    for (int i = 0; i < importedProfiles; ++i) {
        exported << GitProfile::create(QStringLiteral("imported %1").arg(i),
                                       QStringLiteral("Guest %1").arg(i),
                                       QStringLiteral("g%1@example.org").arg(i), QString());
    }
    m_home->write(QStringLiteral("export.json"), ProfileCodec::encodeProfileArray(exported));
    m_importFile = m_home->filePath(QStringLiteral("export.json"));
    m_home->git({QStringLiteral("config"), QStringLiteral("--global"), QStringLiteral("user.name"),
                 QStringLiteral("Person 0")});
    resetStore();
}

KillTorture::~KillTorture() = default;

void KillTorture::resetStore() const
{
    m_home->write(QStringLiteral(".git-switcher/profiles.json"),
                  ProfileCodec::encodeStore({m_base, m_base.first().id}));
}

KillTorture::Operation KillTorture::next(int iteration, const StoredData& before)
{
    static const QStringList kinds{QStringLiteral("add"), QStringLiteral("edit"),
                                   QStringLiteral("remove"), QStringLiteral("use"),
                                   QStringLiteral("import")};
    Operation operation;
    operation.kind = kinds.at(iteration % kinds.size());
    std::uniform_int_distribution<qsizetype> pick(0, before.profiles.size() - 1);
    const GitProfile target = before.profiles.at(pick(m_random));
    const QString id = target.idText();

    if (operation.kind == QLatin1String("add")) {
        const QString name = QStringLiteral("added %1").arg(iteration);
        operation.arguments = {QStringLiteral("add"),         name,
                               QStringLiteral("--git-name"),  QStringLiteral("A"),
                               QStringLiteral("--git-email"), QStringLiteral("a@example.org")};
        GitProfile added =
            GitProfile::create(ProfileManager::displayName(name), QStringLiteral("A"),
                               QStringLiteral("a@example.org"), QString());
        operation.isResult = [added](const StoredData& b, const StoredData& a) {
            return appended(b, a, {added});
        };
    } else if (operation.kind == QLatin1String("import")) {
        operation.arguments = {QStringLiteral("import"), m_importFile};
        const auto exported =
            ProfileCodec::decodeProfileArray(m_home->read(QStringLiteral("export.json")));
        QList<GitProfile> added;
        for (const GitProfile& p : *exported) {
            added << GitProfile::create(ProfileManager::displayName(p.name), p.gitName, p.gitEmail,
                                        p.sshKeyPath);
        }
        operation.isResult = [added](const StoredData& b, const StoredData& a) {
            return appended(b, a, added);
        };
    } else if (operation.kind == QLatin1String("edit")) {
        const QString email = QStringLiteral("edited%1@example.org").arg(iteration);
        operation.arguments = {QStringLiteral("edit"), id, QStringLiteral("--git-email"), email};
        operation.isResult = [target, email](const StoredData& b, const StoredData& a) {
            StoredData expected = b;
            for (GitProfile& p : expected.profiles) {
                if (p.id == target.id) {
                    p.gitEmail = email;
                    p.aiConfig.customHeaders.clear();
                    break;
                }
            }
            return a == expected;
        };
    } else if (operation.kind == QLatin1String("remove")) {
        operation.arguments = {QStringLiteral("remove"), id};
        operation.isResult = [target](const StoredData& b, const StoredData& a) {
            StoredData expected = b;
            expected.profiles.removeIf([&](const GitProfile& p) { return p.id == target.id; });
            if (expected.activeProfileID == target.id) {
                expected.activeProfileID.reset();
            }
            return a == expected;
        };
    } else {
        operation.arguments = {QStringLiteral("use"), id};
        operation.isResult = [target](const StoredData& b, const StoredData& a) {
            StoredData expected = b;
            expected.activeProfileID = target.id;
            return a == expected;
        };
    }
    return operation;
}

double KillTorture::calibrate(const Operation& operation)
{
    QList<double> times;
    for (int i = 0; i < 5; ++i) {
        const QByteArray saved = m_home->read(QStringLiteral(".git-switcher/profiles.json"));
        QProcess process;
        QElapsedTimer timer;
        process.start(m_options.kivora, operation.arguments);
        process.waitForStarted(-1);
        timer.start();
        process.waitForFinished(-1);
        times << double(timer.nsecsElapsed()) / 1e6;
        m_home->write(QStringLiteral(".git-switcher/profiles.json"), saved);
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

bool KillTorture::run()
{
    const QString store = QStringLiteral(".git-switcher/profiles.json");
    // How long each kind of command takes here, so that the kills fall anywhere in its run.
    {
        const auto before = ProfileCodec::decodeStore(m_home->read(store));
        for (int i = 0; i < 5; ++i) {
            const Operation operation = next(i, *before);
            m_typicalMs[operation.kind] = calibrate(operation);
            m_spanMs[operation.kind] = 2 * m_typicalMs[operation.kind];
        }
    }

    QElapsedTimer total;
    total.start();
    int leftovers = 0;
    for (int i = 0; i < m_options.iterations; ++i) {
        auto before = ProfileCodec::decodeStore(m_home->read(store));
        if (!before || before->profiles.size() < 5 || before->profiles.size() > resetAbove) {
            resetStore();
            before = ProfileCodec::decodeStore(m_home->read(store));
        }
        const QByteArray oldBytes = m_home->read(store);
        const Operation operation = next(i, *before);
        Tally& tally = m_tallies[operation.kind];
        ++tally.runs;

        // A kill at any moment of the command's run. The span the delay is drawn from follows
        // the machine: it grows after a kill and shrinks after a command that ended first, so
        // that about half the commands are killed, at every point of their run.
        double& span = m_spanMs[operation.kind];
        std::uniform_real_distribution<double> delay(0.0, span);
        const auto waitUs = qint64(delay(m_random) * 1000.0);
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.setStandardInputFile(QProcess::nullDevice());
        QElapsedTimer started;
        process.start(m_options.kivora, operation.arguments);
        process.waitForStarted(-1);
        started.start();
        bool finished = false;
        while (started.nsecsElapsed() / 1000 < waitUs && !(finished = process.waitForFinished(0))) {
            QThread::usleep(100);
        }
        const bool killed = !finished && !process.waitForFinished(0);
        if (killed) {
            ::kill(pid_t(process.processId()), SIGKILL);
            ++tally.killed;
            span *= 1.1;
        } else {
            span /= 1.1;
        }
        process.waitForFinished(-1);

        const QByteArray now = m_home->read(store);
        Outcome outcome = Outcome::Broken;
        if (now == oldBytes) {
            outcome = Outcome::Old;
        } else if (const auto after = ProfileCodec::decodeStore(now);
                   after && operation.isResult(*before, *after)) {
            outcome = Outcome::New;
        }
        ++tally.outcomes[outcome];
        if (killed) {
            ++tally.killedOutcomes[outcome];
        }
        if (outcome == Outcome::Broken) {
            m_out << "iteration " << i << ": `kivora " << operation.arguments.join(u' ')
                  << "` killed after " << waitUs / 1000.0
                  << " ms left a profile file that is neither the old nor the new one ("
                  << now.size() << " bytes)\n";
            resetStore();
        }
        // A write killed between its temporary file and the rename leaves the temporary file;
        // the next start takes it away once it is old enough.
        const QStringList files = QDir(m_home->filePath(QStringLiteral(".git-switcher")))
                                      .entryList(QDir::Files | QDir::Hidden);
        for (const QString& file : files) {
            if (LeftoverTemporaryFiles::isTemporaryFor(file, QStringLiteral("profiles.json"))) {
                ++leftovers;
                QFile::remove(m_home->filePath(QStringLiteral(".git-switcher/") + file));
            }
        }
    }

    int broken = 0;
    m_out << "kill -9 torture: " << m_options.iterations << " iterations, seed " << m_options.seed
          << ", " << QString::number(total.elapsed() / 1000.0, 'f', 1) << " s\n";
    m_out << "  command   usual ms  runs  ended  killed: before the save  after it  broken\n";
    for (auto it = m_tallies.cbegin(); it != m_tallies.cend(); ++it) {
        const Tally& t = it.value();
        broken += t.outcomes.value(Outcome::Broken);
        m_out << QStringLiteral("  %1 %2 %3 %4 %5 %6 %7\n")
                     .arg(it.key(), -8)
                     .arg(m_typicalMs.value(it.key()), 9, 'f', 1)
                     .arg(t.runs, 5)
                     .arg(t.runs - t.killed, 6)
                     .arg(t.killedOutcomes.value(Outcome::Old), 24)
                     .arg(t.killedOutcomes.value(Outcome::New), 9)
                     .arg(t.outcomes.value(Outcome::Broken), 7);
    }
    m_out << "  temporary files left by killed writes (removed at the next start): " << leftovers
          << "\n";
    m_out << (broken == 0 ? "  every profile file was the old or the new whole content\n"
                          : "  FAILED: some kills left a partial or lost profile file\n");
    m_out.flush();
    return broken == 0;
}
