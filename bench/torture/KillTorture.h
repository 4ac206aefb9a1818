// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/GitProfile.h"
#include "model/ProfileCodec.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <functional>
#include <memory>
#include <random>

class TestHome;

// Starts profile-changing commands of the command line (save: add, edit, remove; use; import)
// and kills each with SIGKILL after a random delay, over and over, in a home folder of its own.
// After every kill the profile file must hold either its whole old content or the whole result
// of the command, never a part of it and never nothing.
class KillTorture {
public:
    struct Options {
        int iterations = 600;
        unsigned seed = 0; // 0: from the clock
        QString kivora;
    };

    KillTorture(Options options, QTextStream& out);
    ~KillTorture();

    // Runs all iterations and prints the figures; false when any kill left a file that was
    // neither the old nor the new whole content.
    bool run();

private:
    enum class Outcome { Old, New, Broken };

    struct Tally {
        int runs = 0;
        int killed = 0; // still running when the kill came
        QMap<Outcome, int> outcomes;
        QMap<Outcome, int> killedOutcomes;
    };

    struct Operation {
        QString kind;
        QStringList arguments;
        // The whole result of the command on `before`, or nothing when the test cannot know it.
        std::function<bool(const StoredData& before, const StoredData& after)> isResult;
    };

    Operation next(int iteration, const StoredData& before);
    void resetStore() const;
    double calibrate(const Operation& operation);

    Options m_options;
    QTextStream& m_out;
    std::unique_ptr<TestHome> m_home;
    std::mt19937 m_random;
    QString m_importFile;
    QList<GitProfile> m_base;
    QMap<QString, Tally> m_tallies;
    QMap<QString, double> m_typicalMs;
    QMap<QString, double> m_spanMs;
};
