// Runs a piece of work in a child process, so that a process exit inside it harms nothing here.
#include "IsolatedRun.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <sys/wait.h>
#include <unistd.h>

namespace epromtool {

namespace {

// Exit status of a child whose work returned but whose result could not be handed back.
constexpr int LostResult = 125;

bool writeAll(int fd, const char* data, size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(fd, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

void flushStreams() {
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
}

[[noreturn]] void runChild(int fd, const std::function<QByteArray()>& work) {
    const QByteArray result = work();
    const bool handedBack = writeAll(fd, result.constData(), static_cast<size_t>(result.size()));
    ::close(fd);
    flushStreams();
    ::_exit(handedBack ? 0 : LostResult);
}

} // namespace

IsolatedRun::Outcome IsolatedRun::run(const std::function<QByteArray()>& work) {
    Outcome outcome;
    int fds[2];
    if (::pipe(fds) != 0) {
        outcome.error = QStringLiteral("cannot create a pipe: %1").arg(strerror(errno));
        return outcome;
    }
    // Pending output would otherwise be written twice, once by each process.
    flushStreams();
    const pid_t child = ::fork();
    if (child < 0) {
        outcome.error = QStringLiteral("cannot start a child process: %1").arg(strerror(errno));
        ::close(fds[0]);
        ::close(fds[1]);
        return outcome;
    }
    if (child == 0) {
        ::close(fds[0]);
        runChild(fds[1], work);
    }
    ::close(fds[1]);
    char buffer[4096];
    for (;;) {
        const ssize_t got = ::read(fds[0], buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        outcome.result.append(buffer, static_cast<int>(got));
    }
    ::close(fds[0]);

    int status = 0;
    pid_t waited = 0;
    do
        waited = ::waitpid(child, &status, 0);
    while (waited < 0 && errno == EINTR);
    if (waited < 0) {
        outcome.result.clear();
        outcome.error = QStringLiteral("lost the child process: %1").arg(strerror(errno));
        return outcome;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        outcome.completed = true;
        return outcome;
    }
    outcome.result.clear();
    if (WIFSIGNALED(status)) {
        outcome.signal = WTERMSIG(status);
        outcome.error = QStringLiteral("it was killed by signal %1").arg(outcome.signal);
    } else {
        outcome.exitStatus = WEXITSTATUS(status);
        outcome.error =
            QStringLiteral("it ended the process with status %1").arg(outcome.exitStatus);
    }
    return outcome;
}

} // namespace epromtool
