#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>

// A private D-Bus session bus for one test: what the test starts talks to it instead of the
// user's session. Services are started on demand from the system's service files, as on a
// desktop, or only from a chosen few (to try a desktop without, say, the XDG portal).
//
// The bus daemon gets the environment handed to start(), and so does every service it
// starts: give it the test's HOME, XDG folders and DISPLAY.
class DBusSession {
public:
    DBusSession();
    ~DBusSession();
    DBusSession(const DBusSession&) = delete;
    DBusSession& operator=(const DBusSession&) = delete;

    // `onlyServices`: the well-known names (file names of /usr/share/dbus-1/services without
    // ".service") that may be started on demand; nothing means all of them.
    bool start(const QProcessEnvironment& environment, QString* problem,
               const std::optional<QStringList>& onlyServices = std::nullopt);
    // Ends the bus daemon (its services lose the bus and go, or are ended by the test).
    void stop();
    QString address() const { return m_address; }
    // `environment` with DBUS_SESSION_BUS_ADDRESS pointing at this bus.
    QProcessEnvironment environment(QProcessEnvironment environment) const;
    // The name under which this process's own QDBusConnection to the bus is registered.
    QString connectionName() const { return m_connectionName; }

private:
    std::unique_ptr<QProcess> m_daemon;
    QTemporaryDir m_config;
    QString m_address;
    QString m_connectionName;
};
