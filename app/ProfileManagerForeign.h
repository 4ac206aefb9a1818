#pragma once

#include "activation/ProfileManager.h"

#include <QJSEngine>
#include <QQmlEngine>

// The application's one ProfileManager, as the QML singleton "ProfileManager".
struct ProfileManagerForeign {
    Q_GADGET
    QML_FOREIGN(ProfileManager)
    QML_NAMED_ELEMENT(ProfileManager)
    QML_SINGLETON

public:
    static ProfileManager* create(QQmlEngine*, QJSEngine*);
};
