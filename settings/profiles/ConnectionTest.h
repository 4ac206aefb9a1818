#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

// Runs the AI connection test of the process's AIContextManager for the editor's AI fields and
// hands the verdict back as `finished(success, message)`, on the interface thread. A
// configuration that is not usable gets "API key not configured" before `run` returns.
class ConnectionTest : public QObject {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit ConnectionTest(QObject* parent = nullptr);

    Q_INVOKABLE void run(bool aiEnabled, const QString& provider, const QString& model,
                         const QString& apiKey, const QString& baseURL);

signals:
    void finished(bool success, const QString& message);
};
