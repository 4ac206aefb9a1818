#include "settings/profiles/ProfileForm.h"

#include "model/AIProvider.h"

ProfileForm::ProfileForm(QObject* parent) : QObject(parent) {}

QStringList ProfileForm::providers() const
{
    QStringList names;
    for (AIProvider provider : AIProviders::all()) {
        names << AIProviders::rawValue(provider);
    }
    return names;
}

QStringList ProfileForm::models(const QString& provider) const
{
    const auto known = AIProviders::fromRawValue(provider);
    return known ? AIProviders::models(*known) : QStringList();
}

QString ProfileForm::defaultModel(const QString& provider) const
{
    const QStringList list = models(provider);
    return list.isEmpty() ? QString() : list.first();
}

GitProfile ProfileForm::compose(const GitProfile& profile, const QString& name,
                                const QString& gitName, const QString& gitEmail,
                                const QString& sshKeyPath, bool aiEnabled,
                                const QString& aiProvider, const QString& aiModel,
                                const QString& aiAPIKey, const QString& aiBaseURL) const
{
    GitProfile saved = profile;
    saved.name = name;
    saved.gitName = gitName;
    saved.gitEmail = gitEmail;
    saved.sshKeyPath = sshKeyPath;
    AIConfig config;
    config.isEnabled = aiEnabled;
    config.provider = AIProviders::fromRawValue(aiProvider).value_or(AIProvider::OpenAI);
    config.model = aiModel;
    config.apiKey = aiAPIKey;
    config.baseURL = aiBaseURL;
    saved.aiConfig = config;
    return saved;
}
