#include "cli/KivoraCli.h"

#include "activation/InstanceChannel.h"
#include "activation/ProfileEdits.h"
#include "activation/ProfileManager.h"
#include "activation/SSHKeyScanner.h"
#include "activation/TerminalLauncher.h"
#include "ai/AIContextManager.h"
#include "cli/GitIdentity.h"
#include "cli/HelpText.h"
#include "cli/ProfileJson.h"
#include "cli/ProfileResolver.h"
#include "model/AtomicFile.h"
#include "model/HomePath.h"
#include "model/ProfileCodec.h"
#include "prefs/Autostart.h"
#include "updates/Updater.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
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
        return QStringLiteral("Not configured");
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
            return fail(QStringLiteral("there is no command \"%1\"; see kivora --help.").arg(topic),
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
    };
    for (const auto& [name, handler] : handlers) {
        if (command == name) {
            return (this->*handler)(rest);
        }
    }
    if (command.startsWith(u'-')) {
        return fail(QStringLiteral("unknown option \"%1\"; see kivora --help.").arg(command),
                    UsageError);
    }
    return fail(QStringLiteral("unknown command \"%1\"; see kivora --help.").arg(command),
                UsageError);
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
        m_status =
            fail(QStringLiteral("%1; see kivora %2 --help.").arg(error, command), UsageError);
        return false;
    }
    if (parser.isSet(help)) {
        m_out << HelpText::forCommand(command);
        m_status = Success;
        return false;
    }
    const qsizetype given = parser.positionalArguments().size();
    if (given < positionals || given > positionals + optionalPositionals) {
        const QString usage = HelpText::forCommand(command).section(u'\n', 0, 0).mid(7);
        m_status =
            fail(given < positionals
                     ? QStringLiteral("%1 is missing an argument; usage: %2.").arg(command, usage)
                     : QStringLiteral("%1 takes no more arguments than: %2.").arg(command, usage),
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
        m_manager = std::make_unique<ProfileManager>(options);
        if (m_manager->startedFresh() && !m_manager->preservedFilePath().isEmpty()) {
            m_err << "kivora: " << m_manager->loadError() << "; it was kept as "
                  << m_manager->preservedFilePath() << " and new profiles were set up.\n";
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

std::optional<int> KivoraCli::handOn(const QString& command, const QStringList& args)
{
    static const QStringList changing{QStringLiteral("use"), QStringLiteral("add"),
                                      QStringLiteral("edit"), QStringLiteral("remove"),
                                      QStringLiteral("import")};
    if (m_hosted || !changing.contains(command) || args.contains(QLatin1String("--help")) ||
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
    const auto reply = InstanceChannel::send(request, 60000);
    if (!reply) {
        return std::nullopt;
    }
    if (!reply->value(QStringLiteral("ok")).toBool()) {
        return fail(QStringLiteral("the running Kivora did not take the command: %1.")
                        .arg(reply->value(QStringLiteral("error")).toString()));
    }
    m_out << reply->value(QStringLiteral("out")).toString();
    m_err << reply->value(QStringLiteral("err")).toString();
    return reply->value(QStringLiteral("status")).toInt(Failure);
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
                QStringLiteral("cannot start %1: %2.")
                    .arg(info.canonicalFilePath(), QString::fromLocal8Bit(std::strerror(errno))));
        }
    }
    return fail(QStringLiteral("the tray application is not installed; the commands work "
                               "without it, see kivora --help."));
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
        m_out << QString::fromUtf8(ProfileJson::list(profiles.profiles(), active));
        return Success;
    }
    if (parser.isSet(names)) { // one display name a line, for shell completion
        for (const GitProfile& p : profiles.profiles()) {
            m_out << printable(p.name) << "\n";
        }
        return Success;
    }
    if (profiles.profiles().isEmpty()) {
        m_out << "No profiles yet. Add one with: kivora add NAME --git-name N --git-email E\n";
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
        line += QStringLiteral("  %1").arg(p.sshKeyPath.isEmpty() ? QStringLiteral("no key")
                                                                  : printable(p.sshKeyPath));
        if (p.aiConfig.isEnabled && p.aiConfig.isConfigured()) {
            line += QStringLiteral("  AI: ") + aiSummary(p.aiConfig);
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
                                                        profiles.needsProfileSetup()));
        return Success;
    }
    const auto orNotSet = [](const QString& text) {
        return text.isEmpty() ? QStringLiteral("(not set)") : printable(text);
    };
    m_out << "Profile:    " << (profile ? printable(profile->name) : QStringLiteral("none"))
          << "\n";
    m_out << "Git name:   " << orNotSet(global.name) << "\n";
    m_out << "Git email:  " << orNotSet(global.email) << "\n";
    if (profile) {
        m_out << "SSH key:    "
              << (profile->sshKeyPath.isEmpty() ? QStringLiteral("none")
                                                : printable(profile->sshKeyPath))
              << "\n";
    }
    m_out << "AI:         "
          << (profile ? aiSummary(profile->aiConfig) : QStringLiteral("Not configured")) << "\n";
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
    profiles.applyGlobally(*profile);
    if (profiles.globalGitName() != profile->gitName.trimmed() ||
        profiles.globalGitEmail() != profile->gitEmail.trimmed()) {
        m_out << "Switched to " << printable(profile->name) << ".\n";
        return fail(QStringLiteral("git did not take the new identity (it reports %1); is git "
                                   "installed and ~/.gitconfig writable?")
                        .arg(identity(profiles.globalGitName(), profiles.globalGitEmail())));
    }
    m_out << "Switched to " << printable(profile->name) << ": "
          << identity(profiles.globalGitName(), profiles.globalGitEmail()) << "\n";
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
        return fail(QStringLiteral("the profile name is empty."), UsageError);
    }
    if (parser.value(gitName).isEmpty() || parser.value(gitEmail).isEmpty()) {
        return fail(QStringLiteral("add needs a git name and e-mail: --git-name N --git-email E."),
                    UsageError);
    }
    const GitProfile added = manager().addProfile(name, parser.value(gitName),
                                                  parser.value(gitEmail), parser.value(sshKey));
    m_out << "Added profile " << printable(added.name) << ".\n";
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
    parser.addOptions({name, gitName, gitEmail, sshKey, ai, provider, model, baseUrl, keyStdin});
    if (!parse(parser, QStringLiteral("edit"), args, 1)) {
        return m_status;
    }
    for (const auto* required : {&name, &gitName, &gitEmail}) {
        if (parser.isSet(*required) && parser.value(*required).isEmpty()) {
            return fail(QStringLiteral("--%1 cannot be empty.").arg(required->names().first()),
                        UsageError);
        }
    }
    std::optional<bool> aiEnabled;
    if (parser.isSet(ai)) {
        const QString value = parser.value(ai).toLower();
        if (value != QLatin1String("on") && value != QLatin1String("off")) {
            return fail(QStringLiteral("--ai takes on or off, not \"%1\".").arg(parser.value(ai)),
                        UsageError);
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
            return fail(QStringLiteral("\"%1\" is not an AI provider; choose one of %2.")
                            .arg(parser.value(provider), known.join(QStringLiteral(", "))),
                        UsageError);
        }
    }
    auto profile = resolve(parser.positionalArguments().first());
    if (!profile) {
        return m_status;
    }

    if (parser.isSet(name)) {
        profile->name = parser.value(name);
    }
    if (parser.isSet(gitName)) {
        profile->gitName = parser.value(gitName);
    }
    if (parser.isSet(gitEmail)) {
        profile->gitEmail = parser.value(gitEmail);
    }
    if (parser.isSet(sshKey)) {
        profile->sshKeyPath = parser.value(sshKey);
    }
    // Saved as the profile editor saves: a fresh AI configuration without custom headers.
    AIConfig config = profile->aiConfig;
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
    profile->aiConfig = config;

    if (!ProfileEdits::replaceProfile(manager(), *profile)) {
        return fail(QStringLiteral("the profile is gone; nothing was saved."));
    }
    m_out << "Saved profile " << printable(profile->name) << ".\n";
    if (parser.isSet(keyStdin) && config.apiKey.isEmpty() && config.provider != AIProvider::Local) {
        m_out << "The API key is empty, so its AI context stays off.\n";
    }
    if (manager().activeProfileID() == profile->id) {
        m_out << "It is the active profile: run kivora use \"" << printable(profile->name)
              << "\" to apply the changes.\n";
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
    const QStringList removed =
        ProfileEdits::deleteProfile(manager(), *profile, parser.isSet(deleteKey));
    m_out << "Removed profile " << printable(profile->name) << ".\n";
    for (const QString& file : removed) {
        m_out << "Deleted " << file << "\n";
    }
    if (parser.isSet(deleteKey) && !profile->sshKeyPath.isEmpty() && removed.size() < 2) {
        m_out << "Not every key file was there to delete.\n";
    }
    return Success;
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
        return fail(QStringLiteral("cannot write %1.").arg(file));
    }
    m_out << "Exported " << manager().profiles().size() << " profile"
          << (manager().profiles().size() == 1 ? "" : "s") << " to " << file << ".\n";
    return Success;
}

int KivoraCli::importProfiles(const QStringList& args)
{
    QCommandLineParser parser;
    if (!parse(parser, QStringLiteral("import"), args, 1)) {
        return m_status;
    }
    const QString path = parser.positionalArguments().first();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(QStringLiteral("cannot read %1: %2.").arg(path, file.errorString()));
    }
    QString why;
    const auto profiles = ProfileCodec::decodeProfileArray(file.readAll(), &why);
    if (!profiles) {
        return fail(QStringLiteral("%1 is not a profile export (%2); nothing was imported.")
                        .arg(path, why));
    }
    ProfileManager& target = manager();
    for (const GitProfile& p : *profiles) {
        target.addProfile(p.name, p.gitName, p.gitEmail, p.sshKeyPath);
    }
    m_out << "Imported " << profiles->size() << " profile" << (profiles->size() == 1 ? "" : "s")
          << ".\n";
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
        return fail(QStringLiteral("no terminal emulator could be started; set TERMINAL to one "
                                   "(see kivora terminal --help)."));
    }
    m_out << "Opened " << QFileInfo(launch->program).fileName() << " for "
          << printable(profile->name) << ".\n";
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
        m_out << "Kivora " << updater.currentVersion() << " is up to date.\n";
        return Success;
    case Updater::State::UpdateFound:
        m_out << "Kivora " << updater.availableVersion() << " is available (you have "
              << updater.currentVersion() << ").\n";
        if (!updater.downloadUrl().isEmpty()) {
            m_out << "Download: " << updater.downloadUrl().toString() << "\n";
        }
        return Success;
    default:
        return fail(updater.errorMessage().isEmpty() ? QStringLiteral("the update check failed.")
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
            return fail(QStringLiteral("cannot %1 %2.")
                            .arg(choice == QLatin1String("on") ? QStringLiteral("write")
                                                               : QStringLiteral("remove"),
                                 Autostart::path()));
        }
    } else if (choice != QLatin1String("status")) {
        return fail(QStringLiteral("autostart takes on, off or status, not \"%1\".").arg(choice),
                    UsageError);
    }
    m_out << (Autostart::isEnabled() ? "Kivora starts at login.\n"
                                     : "Kivora does not start at login.\n");
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
        return fail(QStringLiteral("the provider gave no answer."));
    }
    if (!verdict->first) {
        return fail(verdict->second +
                    (verdict->second.endsWith(u'.') ? QString() : QStringLiteral(".")));
    }
    m_out << verdict->second << "\n";
    return Success;
}
