#include "DBusSession.h"

#include <QDBusConnection>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QUuid>

DBusSession::DBusSession() = default;

DBusSession::~DBusSession()
{
    stop();
}

void DBusSession::stop()
{
    if (!m_connectionName.isEmpty()) {
        QDBusConnection::disconnectFromBus(m_connectionName);
        m_connectionName.clear();
    }
    if (m_daemon && m_daemon->state() != QProcess::NotRunning) {
        m_daemon->terminate();
        if (!m_daemon->waitForFinished(5000)) {
            m_daemon->kill();
            m_daemon->waitForFinished(3000);
        }
    }
    m_daemon.reset();
}

bool DBusSession::start(const QProcessEnvironment& environment, QString* problem,
                        const std::optional<QStringList>& onlyServices)
{
    QStringList arguments{QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                          QStringLiteral("--print-address=1")};
    if (onlyServices) {
        const QString services = m_config.filePath(QStringLiteral("services"));
        QDir().mkpath(services);
        for (const QString& name : *onlyServices) {
            const QString file = name + QStringLiteral(".service");
            if (!QFile::copy(QStringLiteral("/usr/share/dbus-1/services/") + file,
                             services + QLatin1Char('/') + file)) {
                *problem = QStringLiteral("no D-Bus service file for ") + name;
                return false;
            }
        }
        const QString config = m_config.filePath(QStringLiteral("session.conf"));
        QFile file(config);
        if (!file.open(QIODevice::WriteOnly)) {
            *problem = QStringLiteral("cannot write the bus configuration");
            return false;
        }
        file.write("<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration "
                   "1.0//EN\" \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                   "<busconfig>\n  <type>session</type>\n"
                   "  <listen>unix:tmpdir=/tmp</listen>\n  <servicedir>" +
                   services.toUtf8() +
                   "</servicedir>\n"
                   "  <policy context=\"default\">\n"
                   "    <allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
                   "    <allow eavesdrop=\"true\"/>\n    <allow own=\"*\"/>\n"
                   "  </policy>\n</busconfig>\n");
        file.close();
        arguments << QStringLiteral("--config-file=") + config;
    } else {
        arguments << QStringLiteral("--session");
    }

    m_daemon = std::make_unique<QProcess>();
    m_daemon->setProcessEnvironment(environment);
    m_daemon->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_daemon->start(QStringLiteral("dbus-daemon"), arguments);
    if (!m_daemon->waitForStarted(5000)) {
        *problem = QStringLiteral("dbus-daemon did not start");
        return false;
    }
    QByteArray printed;
    QElapsedTimer waited;
    waited.start();
    while (!printed.contains('\n') && waited.elapsed() < 15000 &&
           m_daemon->state() == QProcess::Running) {
        m_daemon->waitForReadyRead(500);
        printed += m_daemon->readAllStandardOutput();
    }
    m_address = QString::fromUtf8(printed).trimmed();
    if (m_address.isEmpty()) {
        *problem = QStringLiteral("dbus-daemon did not report its address");
        return false;
    }
    m_connectionName =
        QStringLiteral("kivora-test-session-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!QDBusConnection::connectToBus(m_address, m_connectionName).isConnected()) {
        *problem = QStringLiteral("cannot connect to the private session bus");
        return false;
    }
    return true;
}

QProcessEnvironment DBusSession::environment(QProcessEnvironment environment) const
{
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    return environment;
}
