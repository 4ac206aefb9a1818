#include "Descendants.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <QThread>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QList<pid_t> children()
{
    QList<pid_t> found;
    const QString self = QString::number(::getpid());
    const QDir tasks(QStringLiteral("/proc/") + self + QStringLiteral("/task"));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(tasks.filePath(task + QStringLiteral("/children")));
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        for (const QByteArray& pid : file.readAll().split(' ')) {
            bool ok = false;
            const int value = pid.trimmed().toInt(&ok);
            if (ok && value > 0) {
                found << pid_t(value);
            }
        }
    }
    return found;
}

void reap()
{
    while (::waitpid(-1, nullptr, WNOHANG) > 0) {
    }
}

} // namespace

void Descendants::adopt()
{
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void Descendants::end()
{
    // Children may start children while they go: a few rounds.
    for (int round = 0; round < 5; ++round) {
        const QList<pid_t> living = children();
        if (living.isEmpty()) {
            break;
        }
        for (const pid_t pid : living) {
            ::kill(pid, SIGTERM);
        }
        for (int wait = 0; wait < 30 && !children().isEmpty(); ++wait) {
            reap();
            QThread::msleep(100);
        }
        for (const pid_t pid : children()) {
            ::kill(pid, SIGKILL);
        }
        QThread::msleep(100);
        reap();
    }
}
