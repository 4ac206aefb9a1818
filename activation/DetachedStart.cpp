// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/DetachedStart.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// What the watching process reports through the pipe.
struct Report {
    int running = 0;
    int status = -1;
};

long long nowMs()
{
    timespec ts{};
    ::clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<long long>(ts.tv_sec) * 1000 + ts.tv_nsec / 1000000;
}

void sleepMs(long long ms)
{
    timespec ts{static_cast<time_t>(ms / 1000), static_cast<long>((ms % 1000) * 1000000)};
    while (::nanosleep(&ts, &ts) == -1 && errno == EINTR) {
    }
}

bool writeAll(int fd, const void* data, size_t size)
{
    const auto* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(fd, bytes, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

int decodedStatus(int waitStatus)
{
    if (WIFEXITED(waitStatus)) {
        return WEXITSTATUS(waitStatus);
    }
    if (WIFSIGNALED(waitStatus)) {
        return 128 + WTERMSIG(waitStatus);
    }
    return -1;
}

} // namespace

DetachedStart::Result DetachedStart::run(const QString& program, const QStringList& arguments,
                                         const QString& workingDirectory,
                                         std::chrono::milliseconds watch)
{
    // Everything the children need is prepared here: after fork() only async-signal-safe
    // calls are made.
    const QByteArray path = QFile::encodeName(program);
    std::vector<QByteArray> argBytes;
    argBytes.push_back(path);
    for (const QString& argument : arguments) {
        argBytes.push_back(argument.toLocal8Bit());
    }
    std::vector<char*> argv;
    for (QByteArray& bytes : argBytes) {
        argv.push_back(bytes.data());
    }
    argv.push_back(nullptr);
    const QByteArray folder = QFile::encodeName(workingDirectory);
    const long long watchMs = watch.count();

    int reportPipe[2];
    if (::pipe2(reportPipe, O_CLOEXEC) != 0) {
        return {};
    }
    const int devNull = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (devNull < 0) {
        ::close(reportPipe[0]);
        ::close(reportPipe[1]);
        return {};
    }

    const pid_t watcher = ::fork();
    if (watcher < 0) {
        ::close(reportPipe[0]);
        ::close(reportPipe[1]);
        ::close(devNull);
        return {};
    }
    if (watcher == 0) {
        // The watcher: starts the program, waits for the watch to pass or the program to
        // end, reports, and exits. The program is then adopted by init (or the nearest
        // subreaper), so it is never left as our zombie.
        ::close(reportPipe[0]);
        const pid_t child = ::fork();
        if (child < 0) {
            _exit(1);
        }
        if (child == 0) {
            ::setsid();
            ::dup2(devNull, STDIN_FILENO);
            ::dup2(devNull, STDOUT_FILENO);
            ::dup2(devNull, STDERR_FILENO);
            if (!folder.isEmpty() && ::chdir(folder.constData()) != 0) {
                // The home folder is only a courtesy; the window opens anyway.
            }
            // Signals the parent ignores or blocks would be inherited by the emulator.
            sigset_t none;
            sigemptyset(&none);
            ::sigprocmask(SIG_SETMASK, &none, nullptr);
            ::signal(SIGPIPE, SIG_DFL);
            ::execv(argv[0], argv.data());
            _exit(127);
        }
        Report report;
        const long long until = nowMs() + watchMs;
        report.running = 1;
        while (nowMs() < until) {
            int waitStatus = 0;
            const pid_t done = ::waitpid(child, &waitStatus, WNOHANG);
            if (done == child) {
                report.running = 0;
                report.status = decodedStatus(waitStatus);
                break;
            }
            if (done < 0 && errno != EINTR) {
                break;
            }
            sleepMs(20);
        }
        writeAll(reportPipe[1], &report, sizeof report);
        _exit(0);
    }

    ::close(reportPipe[1]);
    ::close(devNull);
    Report report;
    size_t received = 0;
    auto* into = reinterpret_cast<char*>(&report);
    while (received < sizeof report) {
        const ssize_t got = ::read(reportPipe[0], into + received, sizeof report - received);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            break;
        }
        received += static_cast<size_t>(got);
    }
    ::close(reportPipe[0]);
    int watcherStatus = 0;
    while (::waitpid(watcher, &watcherStatus, 0) < 0 && errno == EINTR) {
    }

    Result result;
    if (received != sizeof report) {
        return result;
    }
    if (report.running) {
        result.outcome = Outcome::Running;
        return result;
    }
    result.status = report.status;
    result.outcome = report.status == 0 ? Outcome::ExitedOkay : Outcome::Failed;
    return result;
}
