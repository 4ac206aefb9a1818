#pragma once

#include "updates/Updater.h"

#include <QJSEngine>
#include <QQmlEngine>

// The application's update controller, as the QML singleton "Updater".
struct UpdaterForeign {
    Q_GADGET
    QML_FOREIGN(Updater)
    QML_NAMED_ELEMENT(Updater)
    QML_SINGLETON

public:
    static Updater* create(QQmlEngine*, QJSEngine*);

    // The instance the singleton hands out; the application sets it at start. Without one
    // (a test loading the views) a private, never started updater is made on first use.
    static void setInstance(Updater* updater);
    static Updater* instance();
};
