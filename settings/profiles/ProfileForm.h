#pragma once

#include "model/GitProfile.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

// The profile editor's rules that are not layout: the providers and their models, and the
// profile a save makes from the typed fields.
class ProfileForm : public QObject {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit ProfileForm(QObject* parent = nullptr);

    // Every provider's name, in picker order.
    Q_INVOKABLE QStringList providers() const;
    // The models offered for a provider, its default first; none for an unknown name.
    Q_INVOKABLE QStringList models(const QString& provider) const;
    // The model a provider starts with: the first of its list, or empty.
    Q_INVOKABLE QString defaultModel(const QString& provider) const;

    // A copy of `profile` (its id kept) with the fields as typed, untrimmed, and a new AI
    // configuration from the AI fields, stored even when it is switched off. Custom headers
    // are not carried over.
    Q_INVOKABLE GitProfile compose(const GitProfile& profile, const QString& name,
                                   const QString& gitName, const QString& gitEmail,
                                   const QString& sshKeyPath, bool aiEnabled,
                                   const QString& aiProvider, const QString& aiModel,
                                   const QString& aiAPIKey, const QString& aiBaseURL) const;
};
