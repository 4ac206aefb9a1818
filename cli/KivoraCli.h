// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QStringList>
#include <QTextStream>

#include <memory>
#include <optional>

class AIContextManager;
class ProfileManager;
struct GitProfile;

// The `kivora` command: parses the arguments, runs one command over the core and returns the
// exit status (0 done, 1 the work failed, 2 a usage error).
class KivoraCli {
    Q_DECLARE_TR_FUNCTIONS(KivoraCli)

public:
    enum Status { Success = 0, Failure = 1, UsageError = 2 };

    // With `hosted`, the commands work on that profile manager (the running application's)
    // instead of one of their own, and nothing is handed on.
    KivoraCli(QStringList arguments, QTextStream& out, QTextStream& err, QTextStream& in,
              ProfileManager* hosted = nullptr);
    ~KivoraCli();

    int run();

    // The commands that change profiles: only they are handed to a running application.
    static bool changesProfiles(const QString& command);

private:
    int startApplication();
    // Hands a command that changes profiles to the running application, whose state in memory
    // is authoritative; nothing when no application answers.
    std::optional<int> handOn(const QString& command, const QStringList& args);
    int testAI(const QStringList& args);
    // Standard input, read once.
    QString input();
    int list(const QStringList& args);
    int current(const QStringList& args);
    int use(const QStringList& args);
    int add(const QStringList& args);
    int edit(const QStringList& args);
    int remove(const QStringList& args);
    int exportProfiles(const QStringList& args);
    int importProfiles(const QStringList& args);
    int keys(const QStringList& args);
    int terminal(const QStringList& args);
    int checkUpdates(const QStringList& args);
    int autostart(const QStringList& args);
    int rule(const QStringList& args);
    int transferRules(const QString& action, const QStringList& args);
    int which(const QStringList& args);
    int guard(const QStringList& args);
    int clone(const QStringList& args);

    // Parses a command's arguments; false when they are wrong (the error is printed) or when
    // help was asked for (printed, and `m_status` says which).
    bool parse(QCommandLineParser& parser, const QString& command, const QStringList& args,
               int positionals, int optionalPositionals = 0);
    // The profile manager, created on first use; `withGlobalIdentity` reads git's identity.
    ProfileManager& manager(bool withGlobalIdentity = false);
    std::optional<GitProfile> resolve(const QString& query);
    int fail(const QString& sentence, int status = Failure);

    QStringList m_arguments;
    QTextStream& m_out;
    QTextStream& m_err;
    QTextStream& m_in;
    // A command of its own keeps its AI context for its moment; the application's manager
    // has the application's.
    std::unique_ptr<AIContextManager> m_aiContext;
    std::unique_ptr<ProfileManager> m_manager;
    ProfileManager* m_hosted = nullptr;
    std::optional<QString> m_input;
    int m_status = Success;
    QString m_command;
};
