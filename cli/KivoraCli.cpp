// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/KivoraCli.h"

#include "activation/InstanceChannel.h"
#include "activation/ProfileManager.h"
#include "activation/RuleSync.h"
#include "activation/SSHKeyScanner.h"
#include "activation/TerminalLauncher.h"
#include "ai/AIContextManager.h"
#include "cli/GitIdentity.h"
#include "cli/GuardCommand.h"
#include "cli/HelpText.h"
#include "cli/IdentityReport.h"
#include "cli/ProfileJson.h"
#include "cli/ProfileResolver.h"
#include "model/AtomicFile.h"
#include "model/HomePath.h"
#include "model/ProfileCodec.h"
#include "model/RegularFileReader.h"
#include "prefs/Autostart.h"
#include "updates/Updater.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace {

// Names and e-mails may hold line ends and tabs; a listing shows them escaped, on one line.
QString printable(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\n') {
            shown += QStringLiteral("\\n");
        } else if (c == u'\t') {
            shown += QStringLiteral("\\t");
        } else if (c == u'\r') {
            shown += QStringLiteral("\\r");
        } else if (c.category() == QChar::Other_Control) {
            shown += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        } else {
            shown += c;
        }
    }
    return shown;
}

QString aiSummary(const AIConfig& ai)
{
    if (!ai.isEnabled || !ai.isConfigured()) {
        return QCoreApplication::translate("KivoraCli", "Not configured");
    }
    return QStringLiteral("%1 (%2)").arg(ai.providerName(), printable(ai.model));
}

QString identity(const QString& name, const QString& email)
{
    return QStringLiteral("%1 <%2>").arg(printable(name), printable(email));
}

std::optional<AIProvider> providerNamed(const QString& text)
{
    for (AIProvider provider : AIProviders::all()) {
        if (AIProviders::rawValue(provider).compare(text, Qt::CaseInsensitive) == 0) {
            return provider;
        }
    }
    return std::nullopt;
}

} // namespace

KivoraCli::KivoraCli(QStringList arguments, QTextStream& out, QTextStream& err, QTextStream& in,
                     ProfileManager* hosted)
    : m_arguments(std::move(arguments)), m_out(out), m_err(err), m_in(in), m_hosted(hosted)
{
}

KivoraCli::~KivoraCli() = default;

int KivoraCli::fail(const QString& sentence, int status)
{
    m_err << "kivora: " << sentence << "\n";
    m_err.flush();
    return status;
}

int KivoraCli::run()
{
    const QStringList args = m_arguments.mid(1);
    if (args.isEmpty()) {
        return startApplication();
    }
    const QString command = args.first();
    if (command == QLatin1String("-h") || command == QLatin1String("--help") ||
        command == QLatin1String("help")) {
        const QString topic = args.value(1);
        const QString text = topic.isEmpty() ? HelpText::overview() : HelpText::forCommand(topic);
        if (text.isEmpty()) {
            return fail(tr("there is no command \"%1\"; see kivora --help.").arg(topic),
                        UsageError);
        }
        m_out << text;
        return Success;
    }
    if (command == QLatin1String("-v") || command == QLatin1String("--version")) {
        m_out << "kivora " << QCoreApplication::applicationVersion() << "\n";
        return Success;
    }

    const QStringList rest = args.mid(1);
    m_command = command;
    if (const auto status = handOn(command, rest)) {
        return *status;
    }
    using Handler = int (KivoraCli::*)(const QStringList&);
    const QList<std::pair<QLatin1String, Handler>> handlers{
        {QLatin1String("list"), &KivoraCli::list},
        {QLatin1String("current"), &KivoraCli::current},
        {QLatin1String("use"), &KivoraCli::use},
        {QLatin1String("add"), &KivoraCli::add},
        {QLatin1String("edit"), &KivoraCli::edit},
        {QLatin1String("remove"), &KivoraCli::remove},
        {QLatin1String("export"), &KivoraCli::exportProfiles},
        {QLatin1String("import"), &KivoraCli::importProfiles},
        {QLatin1String("keys"), &KivoraCli::keys},
        {QLatin1String("terminal"), &KivoraCli::terminal},
        {QLatin1String("check-updates"), &KivoraCli::checkUpdates},
        {QLatin1String("test-ai"), &KivoraCli::testAI},
        {QLatin1String("autostart"), &KivoraCli::autostart},
        {QLatin1String("rule"), &KivoraCli::rule},
        {QLatin1String("which"), &KivoraCli::which},
        {QLatin1String("guard"), &KivoraCli::guard},
        {QLatin1String("clone"), &KivoraCli::clone},
    };
    for (const auto& [name, handler] : handlers) {
        if (command == name) {
            return (this->*handler)(rest);
        }
    }
    if (command.startsWith(u'-')) {
        return fail(tr("unknown option \"%1\"; see kivora --help.").arg(command), UsageError);
    }
    return fail(tr("unknown command \"%1\"; see kivora --help.").arg(command), UsageError);
}

bool KivoraCli::parse(QCommandLineParser& parser, const QString& command, const QStringList& args,
                      int positionals, int optionalPositionals)
{
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    parser.addOption(help);
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    if (!parser.parse(QStringList{QStringLiteral("kivora")} + args)) {
        QString error = parser.errorText();
        if (error.endsWith(u'.')) {
            error.chop(1);
        }
        if (!error.isEmpty()) {
            error[0] = error[0].toLower();
        }
        m_status = fail(tr("%1; see kivora %2 --help.").arg(error, command), UsageError);
        return false;
    }
    if (parser.isSet(help)) {
        m_out << HelpText::forCommand(command);
        m_status = Success;
        return false;
    }
    const qsizetype given = parser.positionalArguments().size();
    if (given < positionals || given > positionals + optionalPositionals) {
        const QString usage = HelpText::synopsis(command);
        m_status = fail(given < positionals
                            ? tr("%1 is missing an argument; usage: %2.").arg(command, usage)
                            : tr("%1 takes no more arguments than: %2.").arg(command, usage),
                        UsageError);
        return false;
    }
    return true;
}

ProfileManager& KivoraCli::manager(bool withGlobalIdentity)
{
    if (m_hosted) {
        if (withGlobalIdentity) {
            m_hosted->refreshGlobalConfig();
        }
        return *m_hosted;
    }
    if (!m_manager) {
        ProfileManager::Options options;
        options.readGlobalIdentity = withGlobalIdentity;
        // A command runs for a moment: the environment of this process is not worth restoring,
        // and a command that only reads must leave every file as it found it.
        options.restoreAIContext = false;
        m_aiContext = std::make_unique<AIContextManager>();
        m_manager = std::make_unique<ProfileManager>(*m_aiContext, options);
        if (m_manager->startedFresh() && !m_manager->preservedFilePath().isEmpty()) {
            // The reason may quote a value of the file, line ends and all: shown escaped.
            m_err << "kivora: "
                  << tr("%1; it was kept as %2 and new profiles were set up.")
                         .arg(printable(m_manager->loadError()), m_manager->preservedFilePath())
                  << "\n";
            m_err.flush();
        }
        // A command that changes profiles says so itself when it cannot save them.
        if (!m_manager->setupSaveError().isEmpty() && !changesProfiles(m_command)) {
            m_err << "kivora: "
                  << tr("%1; the profiles shown are not saved.").arg(m_manager->setupSaveError())
                  << "\n";
            m_err.flush();
        }
    }
    return *m_manager;
}

std::optional<GitProfile> KivoraCli::resolve(const QString& query)
{
    QString error;
    auto profile = ProfileResolver(manager().profiles()).resolve(query, &error);
    if (!profile) {
        m_status = fail(error, UsageError);
    }
    return profile;
}

bool KivoraCli::changesProfiles(const QString& command)
{
    static const QStringList changing{QStringLiteral("use"), QStringLiteral("add"),
                                      QStringLiteral("edit"), QStringLiteral("remove"),
                                      QStringLiteral("import")};
    return changing.contains(command);
}

std::optional<int> KivoraCli::handOn(const QString& command, const QStringList& args)
{
    if (m_hosted || !changesProfiles(command) || args.contains(QLatin1String("--help")) ||
        args.contains(QLatin1String("-h"))) {
        return std::nullopt;
    }
    QStringList arguments{command};
    for (const QString& arg : args) {
        // The application has its own working folder: a file to import is named absolutely.
        const bool file = command == QLatin1String("import") && !arg.startsWith(u'-');
        arguments << (file ? QFileInfo(arg).absoluteFilePath() : arg);
    }
    QJsonObject request{{QStringLiteral("command"), QStringLiteral("cli")},
                        {QStringLiteral("arguments"), QJsonArray::fromStringList(arguments)}};
    if (command == QLatin1String("edit") && args.contains(QLatin1String("--ai-key-stdin"))) {
        request.insert(QStringLiteral("input"), input());
    }
    // The application waits for git while it switches; a minute is far beyond any switch.
    const int seconds = qEnvironmentVariableIsSet("KIVORA_ANSWER_TIMEOUT")
                            ? std::max(1, qEnvironmentVariableIntValue("KIVORA_ANSWER_TIMEOUT"))
                            : 60;
    const auto answer = InstanceChannel::ask(request, seconds * 1000);
    switch (answer.kind) {
    case InstanceChannel::Answer::Kind::NotRunning:
        return std::nullopt;
    case InstanceChannel::Answer::Kind::Foreign:
        m_err << "kivora: "
              << tr("the socket %1 belongs to a process of another user, not to your Kivora; it "
                    "was left alone.")
                     .arg(InstanceChannel::socketPath())
              << "\n";
        m_err.flush();
        return std::nullopt;
    case InstanceChannel::Answer::Kind::NoAnswer:
        // The application may have made the change, or may still make it: doing it here too
        // could make it twice.
        return fail(tr("the running Kivora did not answer within %n second(s); the change was "
                       "not made here, see kivora list for what it did.",
                       nullptr, seconds));
    case InstanceChannel::Answer::Kind::Answered:
        break;
    }
    const QJsonObject& reply = answer.reply;
    if (!reply.value(QStringLiteral("ok")).toBool()) {
        return fail(tr("the running Kivora did not take the command: %1.")
                        .arg(reply.value(QStringLiteral("error")).toString()));
    }
    m_out << reply.value(QStringLiteral("out")).toString();
    m_err << reply.value(QStringLiteral("err")).toString();
    return reply.value(QStringLiteral("status")).toInt(Failure);
}

QString KivoraCli::input()
{
    if (!m_input) {
        m_input = m_in.readAll();
    }
    return *m_input;
}

int KivoraCli::startApplication()
{
    const QString here = QCoreApplication::applicationDirPath();
    QStringList candidates;
    if (const QString chosen = qEnvironmentVariable("KIVORA_APP"); !chosen.isEmpty()) {
        candidates << chosen;
    }
    candidates << here + QStringLiteral("/kivora-app")
               << here + QStringLiteral("/../app/kivora-app")
               << here + QStringLiteral("/../lib/kivora/kivora-app")
               << here + QStringLiteral("/" KIVORA_INSTALLED_APP_DIR "/kivora-app")
               << here + QStringLiteral("/../libexec/kivora-app");
    for (const QString& candidate : candidates) {
        const QFileInfo info(candidate);
        if (info.isFile() && info.isExecutable()) {
            const QByteArray program = QFile::encodeName(info.canonicalFilePath());
            char* const argv[] = {const_cast<char*>(program.constData()), nullptr};
            ::execv(program.constData(), argv);
            return fail(
                tr("cannot start %1: %2.")
                    .arg(info.canonicalFilePath(), QString::fromLocal8Bit(std::strerror(errno))));
        }
    }
    return fail(
        tr("the tray application is not installed; the commands work without it, see kivora "
           "--help."));
}

int KivoraCli::list(const QStringList& args)
{
    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"));
    const QCommandLineOption names(QStringLiteral("names"));
    parser.addOptions({json, names});
    if (!parse(parser, QStringLiteral("list"), args, 0)) {
        return m_status;
    }
    ProfileManager& profiles = manager();
    const auto& active = profiles.activeProfileID();
    if (parser.isSet(json)) {
        m_out << QString::fromUtf8(
            ProfileJson::list(profiles.profiles(), active, profiles.signingStore().load()));
        return Success;
    }
    if (parser.isSet(names)) { // one display name a line, for shell completion
        for (const GitProfile& p : profiles.profiles()) {
            m_out << printable(p.name) << "\n";
        }
        return Success;
    }
    if (profiles.profiles().isEmpty()) {
        m_out << tr("No profiles yet. Add one with: kivora add NAME --git-name N --git-email E")
              << "\n";
        return Success;
    }
    qsizetype nameWidth = 0;
    qsizetype identityWidth = 0;
    for (const GitProfile& p : profiles.profiles()) {
        nameWidth = std::max(nameWidth, printable(p.name).size());
        identityWidth = std::max(identityWidth, identity(p.gitName, p.gitEmail).size());
    }
    for (const GitProfile& p : profiles.profiles()) {
        QString line = QStringLiteral("%1 %2  %3")
                           .arg(QString(active == p.id ? u'*' : u' '))
                           .arg(printable(p.name), -int(nameWidth))
                           .arg(identity(p.gitName, p.gitEmail), -int(identityWidth));
        line += QStringLiteral("  %1").arg(p.sshKeyPath.isEmpty() ? tr("no key")
                                                                  : printable(p.sshKeyPath));
        if (p.aiConfig.isEnabled && p.aiConfig.isConfigured()) {
            line += QStringLiteral("  %1").arg(tr("AI: %1").arg(aiSummary(p.aiConfig)));
        }
        while (line.endsWith(u' ')) {
            line.chop(1);
        }
        m_out << line << "\n";
    }
    return Success;
}

int KivoraCli::current(const QStringList& args)
{
    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"));
    parser.addOption(json);
    if (!parse(parser, QStringLiteral("current"), args, 0)) {
        return m_status;
    }
    ProfileManager& profiles = manager(m_hosted != nullptr);
    const auto profile = profiles.activeProfile();
    // One git start reads both values; the application's manager already knows them.
    const GitIdentity global =
        m_hosted ? GitIdentity{profiles.globalGitName(), profiles.globalGitEmail()}
                 : GitIdentity::readGlobal();
    if (parser.isSet(json)) {
        m_out << QString::fromUtf8(ProfileJson::current(profile, true, global.name, global.email,
                                                        profiles.needsProfileSetup(),
                                                        profiles.signingStore().load()));
        return Success;
    }
    const auto orNotSet = [](const QString& text) {
        return text.isEmpty() ? tr("(not set)") : printable(text);
    };
    // The labels' padding lines the values up in one column.
    //: Keep the values of kivora current in one column.
    m_out << tr("Profile:    %1").arg(profile ? printable(profile->name) : tr("none")) << "\n";
    //: Keep the values of kivora current in one column.
    m_out << tr("Git name:   %1").arg(orNotSet(global.name)) << "\n";
    //: Keep the values of kivora current in one column.
    m_out << tr("Git email:  %1").arg(orNotSet(global.email)) << "\n";
    if (profile) {
        //: Keep the values of kivora current in one column.
        m_out << tr("SSH key:    %1")
                     .arg(profile->sshKeyPath.isEmpty() ? tr("none")
                                                        : printable(profile->sshKeyPath))
              << "\n";
    }
    //: Keep the values of kivora current in one column.
    m_out << tr("AI:         %1")
                 .arg(profile ? aiSummary(profile->aiConfig)
                              : QCoreApplication::translate("KivoraCli", "Not configured"))
          << "\n";
    return Success;
}

int KivoraCli::use(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("use"), args, 1)) {
        return m_status;
    }
    const auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }
    ProfileManager& profiles = manager();
    QString why;
    if (!profiles.applyGlobally(*profile, &why)) {
        return fail(printable(why) + u'.');
    }
    // git may also be missing, or leave the values to a file it includes that says otherwise.
    if (profiles.globalGitName() != profile->gitName.trimmed() ||
        profiles.globalGitEmail() != profile->gitEmail.trimmed()) {
        return fail(tr("git did not take the new identity (it reports %1); is git installed "
                       "and ~/.gitconfig writable?")
                        .arg(identity(profiles.globalGitName(), profiles.globalGitEmail())));
    }
    m_out << tr("Switched to %1: %2")
                 .arg(printable(profile->name),
                      identity(profiles.globalGitName(), profiles.globalGitEmail()))
          << "\n";
    return Success;
}

int KivoraCli::add(const QStringList& args)
{
    QCommandLineParser parser;
    const QCommandLineOption gitName(QStringLiteral("git-name"), QString(), QStringLiteral("N"));
    const QCommandLineOption gitEmail(QStringLiteral("git-email"), QString(), QStringLiteral("E"));
    const QCommandLineOption sshKey(QStringLiteral("ssh-key"), QString(), QStringLiteral("PATH"));
    parser.addOptions({gitName, gitEmail, sshKey});
    if (!parse(parser, QStringLiteral("add"), args, 1)) {
        return m_status;
    }
    const QString name = parser.positionalArguments().first();
    if (name.isEmpty()) {
        return fail(tr("the profile name is empty."), UsageError);
    }
    if (parser.value(gitName).isEmpty() || parser.value(gitEmail).isEmpty()) {
        return fail(tr("add needs a git name and e-mail: --git-name N --git-email E."), UsageError);
    }
    QString why;
    const auto added = manager().addProfile(name, parser.value(gitName), parser.value(gitEmail),
                                            parser.value(sshKey), &why);
    if (!added) {
        return fail(tr("%1; nothing was added.").arg(printable(why)));
    }
    m_out << tr("Added profile %1.").arg(printable(added->name)) << "\n";
    return Success;
}

int KivoraCli::edit(const QStringList& args)
{
    QCommandLineParser parser;
    const QCommandLineOption name(QStringLiteral("name"), QString(), QStringLiteral("N"));
    const QCommandLineOption gitName(QStringLiteral("git-name"), QString(), QStringLiteral("N"));
    const QCommandLineOption gitEmail(QStringLiteral("git-email"), QString(), QStringLiteral("E"));
    const QCommandLineOption sshKey(QStringLiteral("ssh-key"), QString(), QStringLiteral("PATH"));
    const QCommandLineOption ai(QStringLiteral("ai"), QString(), QStringLiteral("on|off"));
    const QCommandLineOption provider(QStringLiteral("ai-provider"), QString(),
                                      QStringLiteral("P"));
    const QCommandLineOption model(QStringLiteral("ai-model"), QString(), QStringLiteral("M"));
    const QCommandLineOption baseUrl(QStringLiteral("ai-base-url"), QString(), QStringLiteral("U"));
    const QCommandLineOption keyStdin(QStringLiteral("ai-key-stdin"));
    const QCommandLineOption signingKey(QStringLiteral("signing-key"), QString(),
                                        QStringLiteral("KEY|none"));
    const QCommandLineOption signCommits(QStringLiteral("sign-commits"), QString(),
                                         QStringLiteral("on|off"));
    parser.addOptions({name, gitName, gitEmail, sshKey, ai, provider, model, baseUrl, keyStdin,
                       signingKey, signCommits});
    if (!parse(parser, QStringLiteral("edit"), args, 1)) {
        return m_status;
    }
    for (const auto* required : {&name, &gitName, &gitEmail}) {
        if (parser.isSet(*required) && parser.value(*required).isEmpty()) {
            return fail(tr("--%1 cannot be empty.").arg(required->names().first()), UsageError);
        }
    }
    std::optional<bool> aiEnabled;
    if (parser.isSet(ai)) {
        const QString value = parser.value(ai).toLower();
        if (value != QLatin1String("on") && value != QLatin1String("off")) {
            return fail(tr("--ai takes on or off, not \"%1\".").arg(parser.value(ai)), UsageError);
        }
        aiEnabled = value == QLatin1String("on");
    }
    std::optional<AIProvider> newProvider;
    if (parser.isSet(provider)) {
        newProvider = providerNamed(parser.value(provider));
        if (!newProvider) {
            QStringList known;
            for (AIProvider p : AIProviders::all()) {
                known << u'"' + AIProviders::rawValue(p) + u'"';
            }
            return fail(tr("\"%1\" is not an AI provider; choose one of %2.")
                            .arg(parser.value(provider), known.join(QStringLiteral(", "))),
                        UsageError);
        }
    }
    std::optional<bool> signingOn;
    if (parser.isSet(signCommits)) {
        const QString value = parser.value(signCommits).toLower();
        if (value != QLatin1String("on") && value != QLatin1String("off")) {
            return fail(
                tr("--sign-commits takes on or off, not \"%1\".").arg(parser.value(signCommits)),
                UsageError);
        }
        signingOn = value == QLatin1String("on");
    }
    if (parser.isSet(signingKey) && parser.value(signingKey).isEmpty()) {
        return fail(tr("--signing-key needs a key, or none to remove it."), UsageError);
    }
    auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }
    const bool changesSigning = parser.isSet(signingKey) || parser.isSet(signCommits);
    const bool changesProfile = !changesSigning || parser.isSet(name) || parser.isSet(gitName) ||
                                parser.isSet(gitEmail) || parser.isSet(sshKey) ||
                                parser.isSet(ai) || parser.isSet(provider) || parser.isSet(model) ||
                                parser.isSet(baseUrl) || parser.isSet(keyStdin);
    std::optional<SigningSettings> signing;
    if (changesSigning) {
        signing = manager().signingStore().find(profile->id);
        if (parser.isSet(signingKey)) {
            const QString key = parser.value(signingKey);
            if (key == QLatin1String("none")) {
                signing.reset();
            } else {
                const bool on = signing ? signing->signCommits : true;
                signing = SigningSettings{key, SigningSettings::formatOf(key), on};
            }
        }
        if (signingOn) {
            if (*signingOn && !signing) {
                return fail(tr("--sign-commits on needs a signing key: add --signing-key KEY."),
                            UsageError);
            }
            if (signing) {
                signing->signCommits = *signingOn;
            }
        }
        // A key git cannot read would make every commit fail, so it is refused here.
        if (signing && signing->format == SigningSettings::Format::ssh &&
            manager().commitSigning().publicKey(signing->key).isEmpty()) {
            return fail(tr("%1 is not a readable SSH public key (nor the private half of one "
                           "with its .pub beside it); nothing was saved.")
                            .arg(printable(signing->key)));
        }
    }

    // The fields given are changed on the profile as the file holds it when it is saved, so
    // a change another process made meanwhile to the other fields stays.
    const auto edit = [&](GitProfile& stored) {
        if (parser.isSet(name)) {
            stored.name = parser.value(name);
        }
        if (parser.isSet(gitName)) {
            stored.gitName = parser.value(gitName);
        }
        if (parser.isSet(gitEmail)) {
            stored.gitEmail = parser.value(gitEmail);
        }
        if (parser.isSet(sshKey)) {
            stored.sshKeyPath = parser.value(sshKey);
        }
        // Saved as the profile editor saves: a fresh AI configuration without custom headers.
        AIConfig& config = stored.aiConfig;
        config.customHeaders.clear();
        if (aiEnabled) {
            config.isEnabled = *aiEnabled;
        }
        if (newProvider && *newProvider != config.provider) {
            config.provider = *newProvider;
            config.model = AIProviders::models(*newProvider).value(0);
        }
        if (parser.isSet(model)) {
            config.model = parser.value(model);
        }
        if (parser.isSet(baseUrl)) {
            config.baseURL = parser.value(baseUrl);
        }
        if (parser.isSet(keyStdin)) {
            QString key = input();
            if (key.endsWith(u'\n')) {
                key.chop(1);
            }
            if (key.endsWith(u'\r')) {
                key.chop(1);
            }
            config.apiKey = key;
        }
    };
    if (parser.isSet(keyStdin)) {
        input(); // read before the profiles are locked, however slowly it comes
    }
    if (changesProfile) {
        QString why;
        switch (manager().editProfile(profile->id, edit, &why, &*profile)) {
        case ProfileManager::Update::Saved:
            break;
        case ProfileManager::Update::Gone:
            return fail(tr("the profile is gone; nothing was saved."));
        case ProfileManager::Update::Failed:
            return fail(tr("%1; nothing was saved.").arg(printable(why)));
        }
    }
    const AIConfig& config = profile->aiConfig;
    if (changesSigning) {
        QString error;
        if (!manager().setSigning(profile->id, signing, &error)) {
            return fail(error);
        }
    }
    m_out << tr("Saved profile %1.").arg(printable(profile->name)) << "\n";
    if (changesSigning) {
        m_out << (signing && signing->signs()
                      ? tr("Commits and tags are signed with %1 (%2).")
                            .arg(printable(signing->key),
                                 SigningSettings::formatName(signing->format))
                      : tr("Commits are not signed."))
              << "\n";
    }
    if (parser.isSet(keyStdin) && config.apiKey.isEmpty() && config.provider != AIProvider::Local) {
        m_out << tr("The API key is empty, so its AI context stays off.") << "\n";
    }
    if (changesProfile && manager().activeProfileID() == profile->id) {
        m_out << tr("It is the active profile: run kivora use \"%1\" to apply the changes.")
                     .arg(printable(profile->name))
              << "\n";
    }
    return Success;
}

int KivoraCli::remove(const QStringList& args)
{
    QCommandLineParser parser;
    const QCommandLineOption deleteKey(QStringLiteral("delete-key"));
    parser.addOption(deleteKey);
    if (!parse(parser, QStringLiteral("remove"), args, 1)) {
        return m_status;
    }
    const auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }
    const auto deletion = manager().removeProfile(*profile, parser.isSet(deleteKey));
    if (!deletion.saved) {
        return fail(
            tr("%1; the profile and its key files were kept.").arg(printable(deletion.error)));
    }
    m_out << tr("Removed profile %1.").arg(printable(profile->name)) << "\n";
    for (const QString& file : deletion.removedKeyFiles) {
        m_out << tr("Deleted %1").arg(printable(file)) << "\n";
    }
    if (parser.isSet(deleteKey) && !profile->sshKeyPath.isEmpty() &&
        deletion.removedKeyFiles.size() + deletion.refusedKeyFiles.size() < 2) {
        m_out << tr("Not every key file was there to delete.") << "\n";
    }
    // Only a regular file inside ~/.ssh is ever deleted; the profile is gone either way, but
    // a key file that was asked for and kept is a failure the user must hear about.
    int status = Success;
    for (const QString& sentence : deletion.refusedKeyFiles) {
        status = fail(printable(sentence));
    }
    return status;
}

int KivoraCli::exportProfiles(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("export"), args, 0, 1)) {
        return m_status;
    }
    const QByteArray json = ProfileCodec::encodeProfileArray(manager().profiles());
    if (parser.positionalArguments().isEmpty()) {
        m_out << QString::fromUtf8(json) << "\n";
        return Success;
    }
    const QString file = parser.positionalArguments().first();
    if (!AtomicFile::write(file, json, AtomicFile::privateFile)) {
        return fail(tr("cannot write %1.").arg(file));
    }
    m_out
        << tr("Exported %n profile(s) to %1.", nullptr, int(manager().profiles().size())).arg(file)
        << "\n";
    return Success;
}

int KivoraCli::importProfiles(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("import"), args, 1)) {
        return m_status;
    }
    const QString path = parser.positionalArguments().first();
    // Only a regular file of at most 16 MiB is read: a FIFO or device would block or act.
    RegularFileReader reader;
    const auto bytes = reader.read(path);
    if (!bytes) {
        return fail(
            tr("cannot read %1: %2; nothing was imported.").arg(printable(path), reader.error()));
    }
    QString why;
    const auto profiles = ProfileCodec::decodeProfileArray(*bytes, &why);
    if (!profiles) {
        return fail(tr("%1 is not a profile export (%2); nothing was imported.").arg(path, why));
    }
    // One save for the whole file: a kill or a full disk leaves all of it or none.
    if (!manager().addProfiles(*profiles, &why)) {
        return fail(tr("%1; nothing was imported.").arg(printable(why)));
    }
    m_out << tr("Imported %n profile(s).", nullptr, int(profiles->size())) << "\n";
    return Success;
}

int KivoraCli::keys(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("keys"), args, 0)) {
        return m_status;
    }
    for (const QString& key : SSHKeyScanner::scanSorted(manager().home())) {
        m_out << key << "\n";
    }
    return Success;
}

int KivoraCli::terminal(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("terminal"), args, 1)) {
        return m_status;
    }
    const auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }
    const auto launch = TerminalLauncher(manager().home()).open(*profile);
    if (!launch) {
        return fail(tr("no terminal emulator could be started; set TERMINAL to one (see kivora "
                       "terminal --help)."));
    }
    m_out << tr("Opened %1 for %2.")
                 .arg(QFileInfo(launch->program).fileName(), printable(profile->name))
          << "\n";
    return Success;
}

int KivoraCli::checkUpdates(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("check-updates"), args, 0)) {
        return m_status;
    }
    Updater updater;
    QEventLoop loop;
    QObject::connect(&updater, &Updater::checkFinished, &loop, &QEventLoop::quit);
    updater.checkForUpdates();
    loop.exec();
    switch (updater.state()) {
    case Updater::State::UpToDate:
        m_out << tr("Kivora %1 is up to date.").arg(updater.currentVersion()) << "\n";
        return Success;
    case Updater::State::UpdateFound:
        m_out << tr("Kivora %1 is available (you have %2).")
                     .arg(updater.availableVersion(), updater.currentVersion())
              << "\n";
        if (!updater.downloadUrl().isEmpty()) {
            m_out << tr("Download: %1").arg(updater.downloadUrl().toString()) << "\n";
        }
        return Success;
    default:
        return fail(updater.errorMessage().isEmpty() ? tr("the update check failed.")
                                                     : updater.errorMessage());
    }
}

int KivoraCli::autostart(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("autostart"), args, 1)) {
        return m_status;
    }
    const QString choice = parser.positionalArguments().first();
    if (choice == QLatin1String("on") || choice == QLatin1String("off")) {
        if (!Autostart::setEnabled(choice == QLatin1String("on"))) {
            return fail(
                (choice == QLatin1String("on") ? tr("cannot write %1.") : tr("cannot remove %1."))
                    .arg(Autostart::path()));
        }
    } else if (choice != QLatin1String("status")) {
        return fail(tr("autostart takes on, off or status, not \"%1\".").arg(choice), UsageError);
    }
    m_out << (Autostart::isEnabled() ? tr("Kivora starts at login.")
                                     : tr("Kivora does not start at login."))
          << "\n";
    return Success;
}

int KivoraCli::testAI(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("test-ai"), args, 1)) {
        return m_status;
    }
    const auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }
    std::optional<std::pair<bool, QString>> verdict;
    QEventLoop loop;
    AIContextManager ai;
    ai.testConnection(profile->aiConfig, [&](bool success, const QString& message) {
        verdict = std::make_pair(success, message);
        loop.quit();
    });
    if (!verdict) {
        // A request runs for at most a minute; a reply that never comes ends here too.
        QTimer::singleShot(70000, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!verdict) {
        return fail(tr("the provider gave no answer."));
    }
    if (!verdict->first) {
        return fail(verdict->second +
                    (verdict->second.endsWith(u'.') ? QString() : QStringLiteral(".")));
    }
    m_out << verdict->second << "\n";
    return Success;
}

int KivoraCli::guard(const QStringList& args)
{
    const QString action = args.value(0);
    if (action == QLatin1String("-h") || action == QLatin1String("--help")) {
        m_out << HelpText::forCommand(QStringLiteral("guard"));
        return Success;
    }
    QCommandLineParser parser;
    const bool withFolder = action == QLatin1String("status");
    if (!parse(parser, QStringLiteral("guard"), args.mid(1), 0, withFolder ? 1 : 0)) {
        return m_status;
    }
    // The hooks call this very program again for `guard check`.
    GuardCommand command(
        m_hosted ? m_hosted->home() : HomePath::home(), CommandRunner::Programs{},
        [this] { return manager().profiles(); }, m_out, m_err,
        QCoreApplication::applicationFilePath());
    if (action == QLatin1String("on")) {
        return command.on();
    }
    if (action == QLatin1String("off")) {
        return command.off();
    }
    if (withFolder) {
        return command.status(parser.positionalArguments().value(0));
    }
    if (action == QLatin1String("check")) {
        return command.check();
    }
    return fail(
        action.isEmpty()
            ? tr("guard needs on, off or status; see kivora guard --help.")
            : tr("guard takes on, off or status, not \"%1\"; see kivora guard --help.").arg(action),
        UsageError);
}

int KivoraCli::rule(const QStringList& args)
{
    const QString action = args.value(0);
    if (action == QLatin1String("-h") || action == QLatin1String("--help")) {
        m_out << HelpText::forCommand(QStringLiteral("rule"));
        return Success;
    }
    if (action == QLatin1String("list")) {
        QCommandLineParser parser;
        const QCommandLineOption json(QStringLiteral("json"));
        parser.addOption(json);
        if (!parse(parser, QStringLiteral("rule"), args.mid(1), 0)) {
            return m_status;
        }
        const QList<GitProfile>& profiles = manager().profiles();
        QString error;
        const auto rules = RuleSync(manager().home()).rules(&error);
        if (!rules) {
            return fail(error + u'.');
        }
        if (parser.isSet(json)) {
            m_out << QString::fromUtf8(IdentityReport::rulesJson(*rules, profiles));
            return Success;
        }
        if (rules->isEmpty()) {
            m_out << tr("No rules yet. Add one with: kivora rule add PROFILE --dir PATH") << "\n";
            return Success;
        }
        qsizetype width = 0;
        QStringList names;
        for (const IdentityRule& r : *rules) {
            names << printable(IdentityReport::profileName(r, profiles));
            width = std::max(width, names.last().size());
        }
        for (qsizetype i = 0; i < rules->size(); ++i) {
            const IdentityRule& r = rules->at(i);
            m_out << QStringLiteral("%1  %2  %3")
                         .arg(names[i], -int(width))
                         .arg(IdentityRule::kindText(r.kind), -6)
                         .arg(printable(r.pattern))
                  << "\n";
        }
        return Success;
    }
    if (action == QLatin1String("export") || action == QLatin1String("import")) {
        return transferRules(action, args.mid(1));
    }
    if (action != QLatin1String("add") && action != QLatin1String("remove")) {
        return fail(action.isEmpty()
                        ? tr("rule needs add, remove, list, export or import; see kivora "
                             "rule --help.")
                        : tr("rule takes add, remove, list, export or import, not \"%1\"; see "
                             "kivora rule --help.")
                              .arg(action),
                    UsageError);
    }
    const QString command = QStringLiteral("rule ") + action;
    QCommandLineParser parser;
    const QCommandLineOption dir(QStringLiteral("dir"), QString(), QStringLiteral("PATH"));
    const QCommandLineOption remote(QStringLiteral("remote"), QString(), QStringLiteral("PATTERN"));
    parser.addOptions({dir, remote});
    if (!parse(parser, QStringLiteral("rule"), args.mid(1), 1)) {
        return m_status;
    }
    if (parser.isSet(dir) == parser.isSet(remote)) {
        return fail(tr("%1 takes one of --dir PATH or --remote PATTERN.").arg(command), UsageError);
    }
    IdentityRule wanted;
    if (parser.isSet(dir)) {
        wanted.kind = IdentityRule::Kind::Dir;
        wanted.pattern = RuleSync::normalizedDir(parser.value(dir), QDir::currentPath());
        if (wanted.pattern.isEmpty()) {
            return fail(
                tr("\"%1\" cannot name a folder in a rule.").arg(printable(parser.value(dir))),
                UsageError);
        }
    } else {
        wanted.kind = IdentityRule::Kind::Remote;
        wanted.pattern = parser.value(remote);
        if (wanted.pattern.isEmpty() || wanted.pattern.contains(u'\n') ||
            wanted.pattern.contains(u'\r')) {
            return fail(tr("the remote pattern must be one line of text."), UsageError);
        }
    }
    const auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }
    wanted.profile = profile->id;
    const RuleSync sync(manager().home());
    QString error;
    auto rules = sync.rules(&error);
    if (!rules) {
        return fail(tr("%1; nothing was changed.").arg(error));
    }
    const bool existed = rules->removeAll(wanted) > 0;
    if (action == QLatin1String("remove")) {
        if (!existed) {
            return fail(
                tr("%1 has no such rule; see kivora rule list.").arg(printable(profile->name)));
        }
    } else {
        // Added again, a rule moves to the end, where it wins over the others.
        rules->append(wanted);
    }
    if (!sync.apply(*rules, manager().profiles(), &error)) {
        return fail(error + u'.');
    }
    const bool byFolder = wanted.kind == IdentityRule::Kind::Dir;
    QString done;
    if (action == QLatin1String("remove")) {
        done = byFolder ? tr("Repositories under %1 no longer use %2.")
                        : tr("Repositories with a remote matching %1 no longer use %2.");
    } else {
        done = byFolder ? tr("Repositories under %1 use %2.")
                        : tr("Repositories with a remote matching %1 use %2.");
    }
    m_out << done.arg(printable(wanted.pattern), printable(profile->name)) << "\n";
    return Success;
}

int KivoraCli::which(const QStringList& args)
{
    QCommandLineParser parser;
    const QCommandLineOption json(QStringLiteral("json"));
    parser.addOption(json);
    if (!parse(parser, QStringLiteral("which"), args, 0, 1)) {
        return m_status;
    }
    const QString dir = parser.positionalArguments().isEmpty()
                            ? QDir::currentPath()
                            : QFileInfo(parser.positionalArguments().first()).absoluteFilePath();
    ProfileManager& profiles = manager();
    QString error;
    const auto rules = RuleSync(profiles.home()).rules(&error);
    if (!rules) {
        return fail(error + u'.');
    }
    const auto report = IdentityReport::probe(profiles.home(), dir, profiles.profiles(),
                                              profiles.activeProfileID(), *rules, &error);
    if (!report) {
        return fail(error + u'.');
    }
    if (parser.isSet(json)) {
        m_out << QString::fromUtf8(report->json());
        return Success;
    }
    const auto orNotSet = [](const QString& text) {
        return text.isEmpty() ? tr("(not set)") : printable(text);
    };
    //: Keep the values of kivora which in one column.
    m_out << tr("Git name:     %1").arg(orNotSet(report->gitName)) << "\n";
    //: Keep the values of kivora which in one column.
    m_out << tr("Git email:    %1").arg(orNotSet(report->gitEmail)) << "\n";
    //: Keep the values of kivora which in one column.
    m_out << tr("SSH command:  %1")
                 .arg(report->sshCommand ? printable(*report->sshCommand) : tr("(not set)"))
          << "\n";
    //: Keep the values of kivora which in one column.
    m_out << tr("Profile:      %1")
                 .arg(report->profile ? printable(report->profile->name) : tr("none"))
          << "\n";
    QString why;
    switch (report->source) {
    case IdentityReport::Source::Rule:
        why = report->rule->kind == IdentityRule::Kind::Dir
                  ? tr("rule: repositories under %1").arg(printable(report->rule->pattern))
                  : tr("rule: a remote matches %1").arg(printable(report->rule->pattern));
        break;
    case IdentityReport::Source::Repository:
        why = tr("repository: its own configuration sets the identity");
        break;
    case IdentityReport::Source::Environment:
        why = tr("environment: GIT_AUTHOR_* or GIT_COMMITTER_* is set");
        break;
    case IdentityReport::Source::Global:
        why = tr("global: no rule applies here");
        break;
    }
    //: Keep the values of kivora which in one column.
    m_out << tr("Source:       %1").arg(why) << "\n";
    return Success;
}

int KivoraCli::clone(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("clone"), args, 1, 1)) {
        return m_status;
    }
    const QString url = parser.positionalArguments().first();
    ProfileManager& profiles = manager();
    const RuleSync sync(profiles.home());
    QString error;
    const auto rules = sync.rules(&error);
    if (!rules) {
        return fail(error + u'.');
    }
    const auto profile = sync.profileForRemote(url, *rules, profiles.profiles());
    QStringList arguments{QStringLiteral("git")};
    if (profile) {
        // Set for this run only: the first fetch already uses the profile's key, and nothing
        // is written into the new repository, whose remote the rule matches from then on.
        arguments << QStringLiteral("-c") << QStringLiteral("user.name=") + profile->gitName
                  << QStringLiteral("-c") << QStringLiteral("user.email=") + profile->gitEmail;
        if (profile->hasKey()) {
            ShellIntegration(profiles.home(), profiles.runner()).ensureSSHWrapper();
            arguments << QStringLiteral("-c")
                      << QStringLiteral("core.sshCommand=") + sync.sshCommand(*profile);
        }
        m_out << tr("Cloning as %1: %2")
                     .arg(printable(profile->name), identity(profile->gitName, profile->gitEmail))
              << "\n";
    } else {
        m_out << tr("No remote rule matches %1; cloning with the global identity.")
                     .arg(printable(url))
              << "\n";
    }
    m_out.flush();
    arguments << QStringLiteral("clone") << QStringLiteral("--") << url;
    if (!parser.positionalArguments().value(1).isEmpty()) {
        arguments << parser.positionalArguments().value(1);
    }
    const int status = profiles.runner().execute(QStringLiteral("/usr/bin/env"), arguments);
    if (status != 0) {
        return fail(tr("git clone did not succeed."));
    }
    return Success;
}

int KivoraCli::transferRules(const QString& action, const QStringList& args)
{
    QCommandLineParser parser;
    const bool exporting = action == QLatin1String("export");
    if (!parse(parser, QStringLiteral("rule"), args, exporting ? 0 : 1, exporting ? 1 : 0)) {
        return m_status;
    }
    ProfileManager& profiles = manager();
    const RuleSync sync(profiles.home());
    QString error;
    auto rules = sync.rules(&error);
    if (!rules) {
        return fail(error + u'.');
    }
    if (exporting) {
        const QByteArray json = IdentityReport::rulesJson(*rules, profiles.profiles());
        if (parser.positionalArguments().isEmpty()) {
            m_out << QString::fromUtf8(json);
            return Success;
        }
        const QString file = parser.positionalArguments().first();
        if (!AtomicFile::write(file, json, AtomicFile::privateFile)) {
            return fail(tr("cannot write %1.").arg(file));
        }
        m_out << tr("Exported %n rule(s) to %1.", nullptr, int(rules->size())).arg(file) << "\n";
        return Success;
    }
    const QString path = parser.positionalArguments().first();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(tr("cannot read %1: %2.").arg(path, file.errorString()));
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isArray()) {
        return fail(tr("%1 is not a rule export; nothing was imported.").arg(path));
    }
    // Each rule goes to the profile with its id, or else to the one with its display name, so
    // that rules move to another machine whose profiles have other ids.
    IdentityRules added;
    int skipped = 0;
    for (const QJsonValue& value : document.array()) {
        const QJsonObject object = value.toObject();
        const auto kind = IdentityRule::kindFrom(object.value(QStringLiteral("kind")).toString());
        QString pattern = object.value(QStringLiteral("pattern")).toString();
        if (kind == IdentityRule::Kind::Dir) {
            pattern = RuleSync::normalizedDir(pattern, QDir::currentPath());
        }
        const QUuid id = QUuid::fromString(object.value(QStringLiteral("profile")).toString());
        const QString name = object.value(QStringLiteral("name")).toString();
        std::optional<GitProfile> owner;
        for (const GitProfile& p : profiles.profiles()) {
            if (p.id == id) {
                owner = p;
                break;
            }
            if (!owner && !name.isEmpty() && p.name == name) {
                owner = p;
            }
        }
        if (!kind || pattern.isEmpty() || pattern.contains(u'\n') || !owner) {
            ++skipped;
            continue;
        }
        const IdentityRule rule{owner->id, *kind, pattern};
        rules->removeAll(rule);
        rules->append(rule);
        added.append(rule);
    }
    if (!added.isEmpty() && !sync.apply(*rules, profiles.profiles(), &error)) {
        return fail(error + u'.');
    }
    m_out << tr("Imported %n rule(s).", nullptr, int(added.size())) << "\n";
    if (skipped > 0) {
        return fail(tr("%n rule(s) named no profile of yours or no folder or pattern, and "
                       "(was|were) left out.",
                       nullptr, skipped));
    }
    return Success;
}
