#pragma once

#include "XSession.h"
#include "support/AtSpiClient.h"
#include "support/DBusSession.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class TestHome;

// A small real desktop for one test, all of it private: an X display, a D-Bus session bus
// whose services (accessibility bus, XDG portal, dconf, …) start on demand, the user's
// folders inside the test's home, and optionally the XFCE panel as the status area.
// Everything it started, and everything those started, ends with it.
class DesktopSession {
public:
    struct Options {
        // The XFCE panel along the top edge, with its status tray (a StatusNotifierItem
        // host and an XEmbed tray), under XFCE's window manager; otherwise no status area
        // and no window manager at all.
        bool xfcePanel = false;
        // trayer as an XEmbed status area (the system tray of older and lighter desktops).
        bool trayer = false;
        // The D-Bus services that may start; nothing means all the system offers.
        std::optional<QStringList> onlyServices;
    };

    // The programs the session needs that are not installed.
    static QStringList missingPrograms(const Options& options);

    DesktopSession();
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    bool start(const TestHome& home, const Options& options, QString* problem);

    // For the programs of the test: DISPLAY, the session bus, HOME and the XDG folders,
    // accessibility on, GSettings through dconf.
    QProcessEnvironment environment() const;
    XSession& x() { return *m_x; }
    DBusSession& bus() { return m_bus; }
    // The accessibility bus (connected on first use).
    AtSpiClient& accessibility();

    // Runs a program on this desktop (its display, bus and folders) and returns its trimmed
    // standard output.
    QString run(const QString& program, const QStringList& arguments, int* exitCode = nullptr,
                int timeoutMs = 30000) const;
    // Starts a program of the test on this desktop; it is ended with the session.
    QProcess* startProgram(const QString& program, const QStringList& arguments,
                           const QProcessEnvironment& environment);

private:
    bool startWindowManager(QString* problem);
    bool startPanel(const TestHome& home, QString* problem);

    std::unique_ptr<XSession> m_x;
    DBusSession m_bus;
    QProcessEnvironment m_environment;
    std::unique_ptr<AtSpiClient> m_accessibility;
    std::vector<std::unique_ptr<QProcess>> m_programs;
};
