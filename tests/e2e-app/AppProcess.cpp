#include "AppProcess.h"

#include <QDebug>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>

std::unique_ptr<QProcess> AppProcess::launch(const QString& program, QProcessEnvironment env)
{
    env.insert(QStringLiteral("KIVORA_TRACE"), QStringLiteral("1"));
    // Qt's messages (QML warnings among them) on standard error, where the test can show
    // them, rather than in the system journal.
    env.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    if (!env.contains(QStringLiteral("KIVORA_UPDATE_FEED_URL"))) {
        env.insert(QStringLiteral("KIVORA_UPDATE_FEED_URL"), QStringLiteral("http://127.0.0.1:9/"));
    }
    auto app = std::make_unique<QProcess>();
    app->setProcessEnvironment(env);
    app->start(program, {});
    if (!app->waitForStarted(5000) || !waitForTray(*app)) {
        stop(app);
        return nullptr;
    }
    return app;
}

bool AppProcess::waitForTray(QProcess& app)
{
    QElapsedTimer waited;
    waited.start();
    QByteArray err;
    while (waited.elapsed() < 15000) {
        app.waitForReadyRead(200);
        err += app.readAllStandardError();
        if (err.contains("kivora-trace: tray-shown")) {
            // Give trayer a moment to embed and draw the icon.
            QThread::msleep(700);
            return true;
        }
        if (app.state() == QProcess::NotRunning) {
            break;
        }
    }
    qWarning().noquote() << err;
    return false;
}

void AppProcess::stop(std::unique_ptr<QProcess>& app)
{
    if (app && app->state() != QProcess::NotRunning) {
        app->terminate();
        if (!app->waitForFinished(5000)) {
            app->kill();
            app->waitForFinished(3000);
        }
    }
    app.reset();
}

bool AppProcess::saveScreenshot(const QImage& image, const QString& name)
{
    const QString folder = qEnvironmentVariableIntValue("KIVORA_UPDATE_SCREENSHOTS") == 1
                               ? QStringLiteral(KIVORA_SOURCE_SCREENSHOTS)
                               : QStringLiteral(KIVORA_BUILD_SCREENSHOTS);
    QDir().mkpath(folder);
    return image.save(folder + QLatin1Char('/') + name);
}
