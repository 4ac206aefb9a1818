#pragma once

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRect>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

// A private X display for one test: Xvfb at 1400 × 900 with the trayer status area docked
// at the top right (unless the test brings its own panel), plus the xdotool and ImageMagick
// helpers the test drives it with. Every process it starts is ended when it goes.
class XSession {
public:
    enum class StatusArea { Trayer, None };

    // The programs a session needs that are not installed; empty when all are there.
    static QStringList missingPrograms(StatusArea area = StatusArea::Trayer);

    explicit XSession(StatusArea area = StatusArea::Trayer);
    ~XSession();
    XSession(const XSession&) = delete;
    XSession& operator=(const XSession&) = delete;

    bool start(QString* problem);
    QString display() const { return m_display; }
    // The current process environment with DISPLAY pointing at this session.
    QProcessEnvironment environment() const;

    // Runs a helper on the display and returns its trimmed standard output.
    QString run(const QString& program, const QStringList& arguments, int* exitCode = nullptr,
                int timeoutMs = 10000) const;
    static constexpr int leftButton = 1;
    void click(int x, int y, int button = leftButton) const;
    void move(int x, int y) const;
    // The first visible window whose name matches the pattern, waiting for it.
    std::optional<QString> waitForWindow(const QString& namePattern, int timeoutMs) const;
    QRect geometry(const QString& window) const;
    // Where the XEmbed status area shows the icon of the application with this X class
    // name: the small window the application embeds there. Empty when there is none.
    QRect trayIconArea(const QString& className) const;
    QImage capture(const QRect& area) const;
    QImage captureScreen() const;
    // The mean brightness (0 to 255) of `area` in `image`; -1 when the area lies outside it.
    static double meanGray(const QImage& image, const QRect& area);

private:
    void stop(std::unique_ptr<QProcess>& process);

    StatusArea m_area;
    QString m_display;
    std::unique_ptr<QProcess> m_xvfb;
    std::unique_ptr<QProcess> m_trayer;
};
