#pragma once

#include "prefs/Autostart.h"

#include <QJSEngine>
#include <QObject>
#include <QQmlEngine>
#include <QString>

// "Start at login" for the views, as the QML singleton "Autostart": whether the autostart
// entry is in place, switching it on and off, and what went wrong when a switch failed.
// The entry can also be changed from outside (the command line, the desktop's own
// settings), so views call refresh() when they are shown.
class AutostartForeign : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Autostart)
    QML_SINGLETON
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString path READ path CONSTANT)
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)

public:
    // Takes an argument on purpose: Qt 6.4 makes its own instance of a default-constructible
    // singleton instead of calling create().
    explicit AutostartForeign(QObject* parent) : QObject(parent), m_enabled(Autostart::isEnabled())
    {
    }

    static AutostartForeign* create(QQmlEngine* engine, QJSEngine*)
    {
        return new AutostartForeign(engine);
    }

    bool enabled() const { return m_enabled; }
    QString path() const { return Autostart::path(); }
    QString errorMessage() const { return m_errorMessage; }

    void setEnabled(bool enabled)
    {
        if (Autostart::setEnabled(enabled)) {
            setErrorMessage(QString());
        } else {
            setErrorMessage(
                (enabled ? QStringLiteral("Could not turn on start at login: %1 could not be "
                                          "written.")
                         : QStringLiteral("Could not turn off start at login: %1 could not be "
                                          "removed."))
                    .arg(Autostart::path()));
        }
        refresh();
    }

    // Reads the entry again.
    Q_INVOKABLE void refresh()
    {
        const bool enabled = Autostart::isEnabled();
        if (enabled != m_enabled) {
            m_enabled = enabled;
            emit enabledChanged();
        }
    }

signals:
    void enabledChanged();
    void errorMessageChanged();

private:
    void setErrorMessage(const QString& message)
    {
        if (message != m_errorMessage) {
            m_errorMessage = message;
            emit errorMessageChanged();
        }
    }

    bool m_enabled;
    QString m_errorMessage;
};
