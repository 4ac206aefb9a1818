#pragma once

#include "ai/AIContextManager.h"

#include <QJSEngine>
#include <QQmlEngine>

// The process's shared AIContextManager, as the QML singleton "AIContextManager".
struct AIContextManagerForeign {
    Q_GADGET
    QML_FOREIGN(AIContextManager)
    QML_NAMED_ELEMENT(AIContextManager)
    QML_SINGLETON

public:
    static AIContextManager* create(QQmlEngine*, QJSEngine*)
    {
        AIContextManager* context = &AIContextManager::shared();
        QJSEngine::setObjectOwnership(context, QJSEngine::CppOwnership);
        return context;
    }
};
