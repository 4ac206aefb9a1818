#pragma once

#include "prefs/SettingsManager.h"

#include <QJSEngine>
#include <QQmlEngine>

// The shared preferences, as the QML singleton "SettingsManager".
struct SettingsManagerForeign {
    Q_GADGET
    QML_FOREIGN(SettingsManager)
    QML_NAMED_ELEMENT(SettingsManager)
    QML_SINGLETON

public:
    static SettingsManager* create(QQmlEngine*, QJSEngine*)
    {
        SettingsManager* settings = &SettingsManager::shared();
        QJSEngine::setObjectOwnership(settings, QJSEngine::CppOwnership);
        return settings;
    }
};
