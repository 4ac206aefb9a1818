// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "activation/ProfileManager.h"
#include "ai/AIContextManager.h"
#include "app/KivoraApp.h"
#include "app/RelativeTime.h"
#include "app/SystemColorScheme.h"
#include "app/SystemFont.h"
#include "app/WindowRegistry.h"
#include "menubar/ProfileListModel.h"
#include "prefs/SettingsManager.h"
#include "settings/AIProviderCatalogue.h"
#include "settings/ProfileTransfer.h"
#include "settings/SettingsProgress.h"
#include "settings/SettingsTab.h"
#include "settings/profiles/ProfileActions.h"
#include "updates/Updater.h"

#include <QJSEngine>
#include <QQmlEngine>
#include <QtQml/qqml.h>

// The module's singletons, all made one way: each is one of the long-lived objects of the
// KivoraApp attached to the engine (KivoraApp::attach), never an instance of its own. The
// classes themselves carry no QML registration, so the core stays free of QtQml.
#define KIVORA_SINGLETON(Type, QmlName, getter)                                                    \
    struct QmlName##Singleton {                                                                    \
        Q_GADGET                                                                                   \
        QML_FOREIGN(Type)                                                                          \
        QML_NAMED_ELEMENT(QmlName)                                                                 \
        QML_SINGLETON                                                                              \
    public:                                                                                        \
        static Type* create(QQmlEngine* engine, QJSEngine*)                                        \
        {                                                                                          \
            return &KivoraApp::from(engine).getter();                                              \
        }                                                                                          \
    };

KIVORA_SINGLETON(SettingsManager, SettingsManager, settings)
KIVORA_SINGLETON(AIContextManager, AIContextManager, aiContext)
KIVORA_SINGLETON(ProfileManager, ProfileManager, profileManager)
KIVORA_SINGLETON(Updater, Updater, updater)
KIVORA_SINGLETON(WindowRegistry, Windows, windows)
KIVORA_SINGLETON(SystemColorScheme, SystemColorScheme, colorScheme)
KIVORA_SINGLETON(SystemFont, SystemFont, font)
KIVORA_SINGLETON(RelativeTime, RelativeTime, relativeTime)
KIVORA_SINGLETON(SettingsTab, SettingsTab, settingsTabs)
KIVORA_SINGLETON(SettingsProgress, SettingsProgress, settingsProgress)
KIVORA_SINGLETON(ProfileListModel, Profiles, profileList)
KIVORA_SINGLETON(ProfileActions, ProfileActions, profileActions)
KIVORA_SINGLETON(ProfileTransfer, ProfileTransfer, profileTransfer)
KIVORA_SINGLETON(AIProviderCatalogue, AIProviderCatalogue, providerCatalogue)

#undef KIVORA_SINGLETON
