// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProfilesFixture.h"

#include "activation/ProfileManager.h"
#include "app/KivoraApp.h"
#include "model/ProfileCodec.h"
#include "support/LocalHttpServer.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QQmlEngine>
#include <QTcpServer>

#include <sys/stat.h>

namespace {

void registerProfilesFixture()
{
    qmlRegisterSingletonType<ProfilesFixture>(
        "KivoraTest", 1, 0, "ProfilesFixture", [](QQmlEngine* engine, QJSEngine*) -> QObject* {
            return new ProfilesFixture(KivoraApp::from(engine).profileManager());
        });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(registerProfilesFixture)

ProfilesFixture::ProfilesFixture(ProfileManager& manager) : m_manager(manager)
{
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openUrl");
}

ProfilesFixture::~ProfilesFixture()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

void ProfilesFixture::openUrl(const QUrl& url)
{
    m_openedUrls << url.toString();
}

QString ProfilesFixture::homePath() const
{
    // The shared fixture's temporary home, never the user's.
    return m_manager.home();
}

QString ProfilesFixture::homeFile(const QString& relative) const
{
    const QString home = homePath();
    Q_ASSERT(!home.isEmpty() && home == QDir::homePath());
    return home + u'/' + relative;
}

bool ProfilesFixture::writeHomeFile(const QString& relative, const QString& text) const
{
    const QString path = homeFile(relative);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(text.toUtf8()) == text.toUtf8().size();
}

QString ProfilesFixture::homeFileText(const QString& relative) const
{
    QFile file(homeFile(relative));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool ProfilesFixture::homeFileExists(const QString& relative) const
{
    return QFileInfo::exists(homeFile(relative));
}

bool ProfilesFixture::replaceFolderWithFile(const QString& relative) const
{
    return removeHomeFolder(relative) && writeHomeFile(relative, QStringLiteral("not a folder\n"));
}

bool ProfilesFixture::replaceFileWithFolder(const QString& relative) const
{
    if (relative.isEmpty() || relative.contains(QLatin1String(".."))) {
        return false;
    }
    const QString path = homeFile(relative);
    if (QFileInfo(path).isFile() && !QFile::remove(path)) {
        return false;
    }
    return QDir().mkpath(path);
}

bool ProfilesFixture::removeHomeFolder(const QString& relative) const
{
    if (relative.isEmpty() || relative.contains(QLatin1String(".."))) {
        return false;
    }
    QDir folder(homeFile(relative));
    return !folder.exists() || folder.removeRecursively();
}

bool ProfilesFixture::makeHomeFolder(const QString& relative) const
{
    const QString path = homeFile(relative);
    return QDir().mkpath(path) &&
           QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

bool ProfilesFixture::makeHomeFifo(const QString& relative) const
{
    const QString path = homeFile(relative);
    QDir().mkpath(QFileInfo(path).path());
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

void ProfilesFixture::arrangeProfiles(const QVariantList& entries, int activeIndex)
{
    ProfileManager* manager = &m_manager;
    QList<GitProfile> profiles;
    for (const QVariant& entry : entries) {
        const QVariantMap fields = entry.toMap();
        GitProfile profile =
            GitProfile::create(fields.value(QStringLiteral("name")).toString(),
                               fields.value(QStringLiteral("gitName")).toString(),
                               fields.value(QStringLiteral("gitEmail")).toString(),
                               fields.value(QStringLiteral("sshKeyPath")).toString());
        AIConfig& config = profile.aiConfig;
        config.isEnabled = fields.value(QStringLiteral("aiEnabled")).toBool();
        if (const auto provider =
                AIProviders::fromRawValue(fields.value(QStringLiteral("aiProvider")).toString())) {
            config.provider = *provider;
        }
        if (fields.contains(QStringLiteral("aiModel"))) {
            config.model = fields.value(QStringLiteral("aiModel")).toString();
        }
        config.apiKey = fields.value(QStringLiteral("aiAPIKey")).toString();
        config.baseURL = fields.value(QStringLiteral("aiBaseURL")).toString();
        const QVariantMap headers = fields.value(QStringLiteral("customHeaders")).toMap();
        for (auto it = headers.cbegin(); it != headers.cend(); ++it) {
            config.customHeaders.insert(it.key(), it.value().toString());
        }
        profiles << profile;
    }
    manager->setProfiles(profiles);
    manager->setActiveProfileID(activeIndex >= 0 && activeIndex < profiles.size()
                                    ? std::optional<QUuid>(profiles.at(activeIndex).id)
                                    : std::nullopt);
    manager->setNeedsProfileSetup(false);
    manager->save();
}

QVariantMap ProfilesFixture::profileAt(int index) const
{
    const QList<GitProfile>& profiles = m_manager.profiles();
    if (index < 0 || index >= profiles.size()) {
        return {};
    }
    const GitProfile& profile = profiles.at(index);
    return {
        {QStringLiteral("id"), profile.idText()},
        {QStringLiteral("name"), profile.name},
        {QStringLiteral("gitName"), profile.gitName},
        {QStringLiteral("gitEmail"), profile.gitEmail},
        {QStringLiteral("sshKeyPath"), profile.sshKeyPath},
        {QStringLiteral("aiEnabled"), profile.aiConfig.isEnabled},
        {QStringLiteral("aiProvider"), profile.aiConfig.providerName()},
        {QStringLiteral("aiModel"), profile.aiConfig.model},
        {QStringLiteral("aiAPIKey"), profile.aiConfig.apiKey},
        {QStringLiteral("aiBaseURL"), profile.aiConfig.baseURL},
        {QStringLiteral("customHeaderCount"), int(profile.aiConfig.customHeaders.size())},
    };
}

int ProfilesFixture::profileCount() const
{
    return int(m_manager.profiles().size());
}

QStringList ProfilesFixture::savedProfileNames() const
{
    QFile file(homeFile(QStringLiteral(".git-switcher/profiles.json")));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const auto stored = ProfileCodec::decodeStore(file.readAll());
    QStringList names;
    if (stored) {
        for (const GitProfile& profile : stored->profiles) {
            names << profile.name;
        }
    }
    return names;
}

void ProfilesFixture::setGlobalGitName(const QString& name) const
{
    QProcess git;
    git.start(QStringLiteral("/usr/bin/env"),
              {QStringLiteral("git"), QStringLiteral("config"), QStringLiteral("--global"),
               QStringLiteral("user.name"), name});
    git.waitForFinished(30000);
}

QString ProfilesFixture::clipboardText() const
{
    return QGuiApplication::clipboard()->text();
}

void ProfilesFixture::setClipboardText(const QString& text) const
{
    QGuiApplication::clipboard()->setText(text);
}

int ProfilesFixture::runSSHKeygen(const QStringList& arguments) const
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QStringLiteral("/usr/bin/ssh-keygen"), arguments);
    if (!process.waitForFinished(30000)) {
        return -1;
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QString ProfilesFixture::startModelServer(int status)
{
    m_server = std::make_unique<LocalHttpServer>();
    m_server->route("/api/tags", {status, R"({"models":[{"name":"llama"}]})"});
    return m_server->url().toString(QUrl::StripTrailingSlash);
}

QString ProfilesFixture::startSilentServer()
{
    m_silentServer = std::make_unique<QTcpServer>();
    m_silentServer->listen(QHostAddress::LocalHost);
    // Connections are accepted and left waiting.
    return QStringLiteral("http://127.0.0.1:%1").arg(m_silentServer->serverPort());
}

QStringList ProfilesFixture::modelServerRequests() const
{
    QStringList requests;
    if (m_server) {
        for (const auto& request : m_server->requests()) {
            requests << QString::fromLatin1(request.method + ' ' + request.target);
        }
    }
    return requests;
}
