#include "DesktopSession.h"

#include "support/Descendants.h"
#include "support/TestHome.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDir>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>

namespace {

// One panel along the top edge: a spacer, the status tray and a clock. Written as the
// panel's own settings, so it starts with them instead of asking how to set itself up.
const char panelSettings[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="true"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=6;x=0;y=0"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="icon-size" type="uint" value="16"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="separator">
      <property name="expand" type="bool" value="true"/>
      <property name="style" type="uint" value="0"/>
    </property>
    <property name="plugin-2" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
    <property name="plugin-3" type="string" value="clock"/>
  </property>
</channel>
)";

} // namespace

QStringList DesktopSession::missingPrograms(const Options& options)
{
    QStringList missing = XSession::missingPrograms(options.trayer ? XSession::StatusArea::Trayer
                                                                   : XSession::StatusArea::None);
    QStringList wanted{QStringLiteral("dbus-daemon")};
    if (options.xfcePanel) {
        wanted << QStringLiteral("xfce4-panel") << QStringLiteral("xfwm4")
               << QStringLiteral("xprop");
    }
    for (const QString& program : wanted) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            missing << program;
        }
    }
    if (!QFile::exists(QStringLiteral("/usr/share/dbus-1/services/org.a11y.Bus.service"))) {
        missing << QStringLiteral("at-spi-bus-launcher (at-spi2-core)");
    }
    return missing;
}

DesktopSession::DesktopSession()
{
    Descendants::adopt();
}

DesktopSession::~DesktopSession()
{
    m_accessibility.reset();
    for (auto& program : m_programs) {
        if (program->state() != QProcess::NotRunning) {
            program->terminate();
            if (!program->waitForFinished(5000)) {
                program->kill();
                program->waitForFinished(3000);
            }
        }
    }
    m_programs.clear();
    m_bus.stop();
    m_x.reset();
    // Whatever was started on the bus or the display, and left running, is ended here.
    Descendants::end();
}

bool DesktopSession::start(const TestHome& home, const Options& options, QString* problem)
{
    m_x = std::make_unique<XSession>(options.trayer ? XSession::StatusArea::Trayer
                                                    : XSession::StatusArea::None);
    if (!m_x->start(problem)) {
        return false;
    }
    m_environment = m_x->environment();
    const QString runtime = home.filePath(QStringLiteral(".run"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("HOME"), home.path());
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.configHome());
    m_environment.insert(QStringLiteral("XDG_CACHE_HOME"), home.filePath(QStringLiteral(".cache")));
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"),
                         home.filePath(QStringLiteral(".local/share")));
    m_environment.insert(QStringLiteral("XDG_STATE_HOME"),
                         home.filePath(QStringLiteral(".local/state")));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    m_environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("dconf"));
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    m_environment.remove(QStringLiteral("NO_AT_BRIDGE"));
    m_environment.remove(QStringLiteral("XDG_CURRENT_DESKTOP"));
    m_environment.remove(QStringLiteral("DESKTOP_SESSION"));
    m_environment.remove(QStringLiteral("SESSION_MANAGER"));
    // The bus daemon hands this environment to every service it starts.
    if (!m_bus.start(m_environment, problem, options.onlyServices)) {
        return false;
    }
    m_environment = m_bus.environment(m_environment);
    return !options.xfcePanel || (startWindowManager(problem) && startPanel(home, problem));
}

QProcessEnvironment DesktopSession::environment() const
{
    return m_environment;
}

AtSpiClient& DesktopSession::accessibility()
{
    if (!m_accessibility) {
        m_accessibility = std::make_unique<AtSpiClient>(m_bus.connectionName());
    }
    return *m_accessibility;
}

QString DesktopSession::run(const QString& program, const QStringList& arguments, int* exitCode,
                            int timeoutMs) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    const bool finished = process.waitForFinished(timeoutMs);
    if (!finished) {
        process.kill();
        process.waitForFinished(2000);
    }
    if (exitCode) {
        *exitCode =
            finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QProcess* DesktopSession::startProgram(const QString& program, const QStringList& arguments,
                                       const QProcessEnvironment& environment)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(program, arguments);
    process->waitForStarted(10000);
    m_programs.push_back(std::move(process));
    return m_programs.back().get();
}

bool DesktopSession::startWindowManager(QString* problem)
{
    // A window manager announces itself on the root window. One that gave up at once (it
    // lost a race for the display with a server starting beside it) is started again.
    for (int attempt = 0; attempt < 3; ++attempt) {
        QProcess* manager = startProgram(
            QStringLiteral("xfwm4"),
            {QStringLiteral("--compositor=off"), QStringLiteral("--sm-client-disable")},
            m_environment);
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < 30000 && manager->state() == QProcess::Running) {
            if (m_x->run(QStringLiteral("xprop"),
                         {QStringLiteral("-root"), QStringLiteral("_NET_SUPPORTING_WM_CHECK")})
                    .contains(QStringLiteral("window id"))) {
                return true;
            }
            QThread::msleep(200);
        }
        if (manager->state() == QProcess::Running) {
            break;
        }
        QThread::msleep(500);
    }
    *problem = QStringLiteral("xfwm4 did not take over the display");
    return false;
}

bool DesktopSession::startPanel(const TestHome& home, QString* problem)
{
    home.write(QStringLiteral(".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"),
               panelSettings);
    QProcess* panel = startProgram(QStringLiteral("xfce4-panel"), {}, m_environment);
    if (panel->state() != QProcess::Running) {
        *problem = QStringLiteral("xfce4-panel did not start");
        return false;
    }
    // The panel's tray is ready once it runs the StatusNotifierWatcher and says a host is
    // registered with it.
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 60000) {
        QDBusInterface watcher(QStringLiteral("org.kde.StatusNotifierWatcher"),
                               QStringLiteral("/StatusNotifierWatcher"),
                               QStringLiteral("org.kde.StatusNotifierWatcher"),
                               QDBusConnection(m_bus.connectionName()));
        if (watcher.isValid() && watcher.property("IsStatusNotifierHostRegistered").toBool()) {
            return true;
        }
        QThread::msleep(200);
    }
    *problem = QStringLiteral("the XFCE panel registered no StatusNotifierItem host");
    return false;
}
