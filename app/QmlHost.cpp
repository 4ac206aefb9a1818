// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QmlHost.h"

#include "app/Logging.h"
#include "app/SymbolImageProvider.h"

#include <QCoreApplication>
#include <QIcon>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QUrl>

QmlHost::QmlHost(std::function<void(QQmlEngine&)> attach, QObject* parent)
    : QObject(parent), m_attach(std::move(attach))
{
}

QmlHost::~QmlHost()
{
    delete m_engine;
}

void QmlHost::prepare(QQmlEngine& engine)
{
    // Without a desktop that names its icon theme, look for the symbolic icons in Adwaita;
    // the symbols Kivora packages cover whatever is still missing.
    if (QIcon::fallbackThemeName().isEmpty() || QIcon::fallbackThemeName() == u"hicolor") {
        QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    }
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
}

QQmlEngine& QmlHost::engine()
{
    if (!m_engine) {
        m_engine = new QQmlEngine;
        m_attach(*m_engine);
        connect(m_engine, &QQmlEngine::quit, QCoreApplication::instance(), &QCoreApplication::quit,
                Qt::QueuedConnection);
    }
    return *m_engine;
}

QQuickWindow* QmlHost::createWindow(const QString& modulePath)
{
    QQmlComponent component(&engine(), QUrl(QStringLiteral("qrc:/qt/qml/Kivora/") + modulePath));
    QObject* object = component.create();
    if (!object) {
        qCWarning(lcQml).noquote() << component.errorString();
        return nullptr;
    }
    auto* window = qobject_cast<QQuickWindow*>(object);
    if (!window) {
        qCWarning(lcQml).noquote() << modulePath << "is not a window";
        delete object;
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(window, QQmlEngine::CppOwnership);
    return window;
}
