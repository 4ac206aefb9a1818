#include "app/QmlHost.h"

#include "app/SymbolImageProvider.h"

#include <QCoreApplication>
#include <QIcon>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QUrl>

QmlHost::QmlHost(QObject* parent) : QObject(parent) {}

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
        prepare(*m_engine);
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
        qWarning().noquote() << component.errorString();
        return nullptr;
    }
    auto* window = qobject_cast<QQuickWindow*>(object);
    if (!window) {
        qWarning().noquote() << modulePath << "is not a window";
        delete object;
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(window, QQmlEngine::CppOwnership);
    return window;
}
