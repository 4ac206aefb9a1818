#include "XSession.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

QStringList XSession::missingPrograms(StatusArea area)
{
    QStringList missing;
    for (const char* program : {"Xvfb", "trayer", "xdotool", "import"}) {
        if (area == StatusArea::None && qstrcmp(program, "trayer") == 0) {
            continue;
        }
        if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty()) {
            missing << QString::fromLatin1(program);
        }
    }
    return missing;
}

XSession::XSession(StatusArea area) : m_area(area) {}

XSession::~XSession()
{
    stop(m_trayer);
    stop(m_xvfb);
}

void XSession::stop(std::unique_ptr<QProcess>& process)
{
    if (process && process->state() != QProcess::NotRunning) {
        process->terminate();
        if (!process->waitForFinished(3000)) {
            process->kill();
            process->waitForFinished(3000);
        }
    }
    process.reset();
}

bool XSession::start(QString* problem)
{
    // Xvfb picks a display number nobody uses and writes it to its standard output
    // (-displayfd 1); a number chosen here could collide with a server started in parallel.
    m_xvfb = std::make_unique<QProcess>();
    m_xvfb->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_xvfb->start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                   QStringLiteral("0"), QStringLiteral("1400x900x24"), QStringLiteral("-nolisten"),
                   QStringLiteral("tcp"),
                   // No reset when the last client goes: the readiness probe below is such a
                   // client, and a server resetting just then turns the next one away.
                   QStringLiteral("-noreset")});
    if (!m_xvfb->waitForStarted(5000)) {
        *problem = QStringLiteral("Xvfb did not start");
        return false;
    }
    QByteArray announced;
    QElapsedTimer announcing;
    announcing.start();
    while (!announced.contains('\n') && announcing.elapsed() < 15000 &&
           m_xvfb->state() == QProcess::Running) {
        m_xvfb->waitForReadyRead(500);
        announced += m_xvfb->readAllStandardOutput();
    }
    bool numeric = false;
    const int number = announced.trimmed().toInt(&numeric);
    if (!numeric) {
        *problem = QStringLiteral("Xvfb did not report its display");
        return false;
    }
    m_display = QStringLiteral(":%1").arg(number);
    // The server is up once a client can ask it something.
    QElapsedTimer waited;
    waited.start();
    int code = -1;
    while (waited.elapsed() < 10000) {
        run(QStringLiteral("xdotool"), {QStringLiteral("getdisplaygeometry")}, &code, 2000);
        if (code == 0) {
            break;
        }
        QThread::msleep(100);
    }
    if (code != 0) {
        *problem = QStringLiteral("Xvfb did not answer");
        return false;
    }

    if (m_area == StatusArea::None) {
        return true;
    }
    m_trayer = std::make_unique<QProcess>();
    m_trayer->setProcessEnvironment(environment());
    m_trayer->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_trayer->start(QStringLiteral("trayer"),
                    {QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"),
                     QStringLiteral("right"), QStringLiteral("--widthtype"),
                     QStringLiteral("pixel"), QStringLiteral("--width"), QStringLiteral("120"),
                     QStringLiteral("--heighttype"), QStringLiteral("pixel"),
                     QStringLiteral("--height"), QStringLiteral("28"),
                     QStringLiteral("--SetDockType"), QStringLiteral("true")});
    if (!m_trayer->waitForStarted(5000)) {
        *problem = QStringLiteral("trayer did not start");
        return false;
    }
    if (!waitForWindow(QStringLiteral("^panel$"), 10000)) {
        *problem = QStringLiteral("trayer shows no panel");
        return false;
    }
    return true;
}

QProcessEnvironment XSession::environment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), m_display);
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    return env;
}

QString XSession::run(const QString& program, const QStringList& arguments, int* exitCode,
                      int timeoutMs) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
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

void XSession::click(int x, int y, int button) const
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QString::number(x), QString::number(y),
         QStringLiteral("click"), QString::number(button)});
}

void XSession::move(int x, int y) const
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QString::number(x), QString::number(y)});
}

std::optional<QString> XSession::waitForWindow(const QString& namePattern, int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < timeoutMs) {
        int code = -1;
        const QString found = run(QStringLiteral("xdotool"),
                                  {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                   QStringLiteral("--name"), namePattern},
                                  &code, 3000);
        if (code == 0 && !found.isEmpty()) {
            return found.split(QLatin1Char('\n')).first().trimmed();
        }
        QThread::msleep(100);
    }
    return std::nullopt;
}

QRect XSession::geometry(const QString& window) const
{
    const QString text = run(QStringLiteral("xdotool"), {QStringLiteral("getwindowgeometry"),
                                                         QStringLiteral("--shell"), window});
    int x = 0, y = 0, width = 0, height = 0;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const QString key = line.section(QLatin1Char('='), 0, 0);
        const int value = line.section(QLatin1Char('='), 1).toInt();
        if (key == u"X") {
            x = value;
        } else if (key == u"Y") {
            y = value;
        } else if (key == u"WIDTH") {
            width = value;
        } else if (key == u"HEIGHT") {
            height = value;
        }
    }
    return QRect(x, y, width, height);
}

QRect XSession::trayIconArea(const QString& className) const
{
    const QString ids = run(QStringLiteral("xdotool"),
                            {QStringLiteral("search"), QStringLiteral("--classname"), className});
    constexpr int largestIcon = 64;
    for (const QString& id : ids.split(u'\n', Qt::SkipEmptyParts)) {
        const QRect area = geometry(id);
        if (!area.isEmpty() && area.width() <= largestIcon && area.height() <= largestIcon) {
            return area;
        }
    }
    return {};
}

double XSession::meanGray(const QImage& image, const QRect& area)
{
    const QRect inside = area.intersected(image.rect());
    if (inside.isEmpty()) {
        return -1;
    }
    double sum = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            sum += qGray(image.pixel(x, y));
        }
    }
    return sum / (inside.width() * inside.height());
}

QImage XSession::captureScreen() const
{
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("screen.png"));
    run(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"), file});
    return QImage(file);
}

QImage XSession::capture(const QRect& area) const
{
    return captureScreen().copy(area);
}
