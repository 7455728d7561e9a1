// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/base/detail/ChildProcess.h"

#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <mutex>
#include <thread>
#include <vector>

namespace Tavro::Shared::detail {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds s_nap(2);
constexpr milliseconds s_patienceWithKilled(1000);

/** How a program is started: silent, and with the signals as a program expects them. */
class SpawnSetup
{
public:
    SpawnSetup()
    {
        ::posix_spawn_file_actions_init(&m_actions);
        for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            ::posix_spawn_file_actions_addopen(&m_actions, fd, "/dev/null", O_RDWR, 0);
        }
        sigset_t signalSet;
        ::posix_spawnattr_init(&m_attributes);
        ::sigemptyset(&signalSet);
        ::posix_spawnattr_setsigmask(&m_attributes, &signalSet);
        // what the host ignores would stay ignored, by Qt's own doing in the case of SIGPIPE
        ::sigaddset(&signalSet, SIGCHLD);
        ::sigaddset(&signalSet, SIGPIPE);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signalSet);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSetup()
    {
        ::posix_spawnattr_destroy(&m_attributes);
        ::posix_spawn_file_actions_destroy(&m_actions);
    }
    SpawnSetup(const SpawnSetup &) = delete;
    SpawnSetup &operator=(const SpawnSetup &) = delete;

    const posix_spawn_file_actions_t *actions() const { return &m_actions; }
    const posix_spawnattr_t *attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_actions;
    posix_spawnattr_t m_attributes;
};

/**
 * Makes the system keep the exit status of children, also in a host that ignores SIGCHLD.
 *
 * Other children of the host that end meanwhile stay zombies.
 */
class KeptEnds
{
public:
    KeptEnds()
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        if (s_count++ > 0) {
            return;
        }
        ::sigaction(SIGCHLD, nullptr, &s_before);
        s_isChanged = throwsEndsAway(s_before);
        if (s_isChanged) {
            struct sigaction keeping = s_before;
            keeping.sa_flags &= ~SA_NOCLDWAIT;
            if (keeping.sa_handler == SIG_IGN) {
                keeping.sa_handler = SIG_DFL;
            }
            s_handler = keeping.sa_handler;
            ::sigaction(SIGCHLD, &keeping, nullptr);
        }
    }
    ~KeptEnds()
    {
        const std::lock_guard<std::mutex> lock(s_mutex);
        if (--s_count > 0 || !s_isChanged) {
            return;
        }
        struct sigaction now = {};
        ::sigaction(SIGCHLD, nullptr, &now);
        if (now.sa_handler == s_handler) { // otherwise the host has set another since
            ::sigaction(SIGCHLD, &s_before, nullptr);
        }
    }
    KeptEnds(const KeptEnds &) = delete;
    KeptEnds &operator=(const KeptEnds &) = delete;

private:
    static bool throwsEndsAway(const struct sigaction &action)
    {
        return action.sa_handler == SIG_IGN || (action.sa_flags & SA_NOCLDWAIT) != 0;
    }

    static std::mutex s_mutex; // guards what follows
    static int s_count;
    static bool s_isChanged;
    static struct sigaction s_before;
    static void (*s_handler)(int);
};

std::mutex KeptEnds::s_mutex;
int KeptEnds::s_count = 0;
bool KeptEnds::s_isChanged = false;
struct sigaction KeptEnds::s_before = {};
void (*KeptEnds::s_handler)(int) = nullptr;

using Words = std::vector<QByteArray>;

// 0, or the error of the system
int spawn(pid_t &child, Words words)
{
    const SpawnSetup setup;
    std::vector<char *> arguments;
    for (QByteArray &word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    return ::posix_spawnp(&child, arguments.front(), setup.actions(), setup.attributes(),
                          arguments.data(), environ);
}

int start(pid_t &child, const QString &program, const QStringList &arguments)
{
    Words words = {QFile::encodeName(program)};
    for (const QString &argument : arguments) {
        words.push_back(argument.toLocal8Bit());
    }
    const int error = spawn(child, words);
    if (error != ENOEXEC) {
        return error;
    }
    // unlike execvp(), posix_spawnp() leaves it at that
    words.front() = QFile::encodeName(QStandardPaths::findExecutable(program));
    words.insert(words.begin(), "/bin/sh");
    return spawn(child, words);
}

ChildEnd endOf(int status)
{
    if (WIFEXITED(status)) {
        return {ChildEnd::Exited, WEXITSTATUS(status)};
    }
    return {ChildEnd::Died, WTERMSIG(status)};
}

ChildEnd waitFor(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return {ChildEnd::Unknown, errno};
        }
    }
    return endOf(status);
}

ChildEnd waitFor(pid_t child, milliseconds patience)
{
    const Clock::time_point deadline = Clock::now() + patience;
    for (;;) {
        int status = 0;
        const pid_t ended = ::waitpid(child, &status, WNOHANG);
        if (ended == child) {
            return endOf(status);
        }
        if (ended < 0 && errno != EINTR) {
            return {ChildEnd::Unknown, errno};
        }
        if (Clock::now() >= deadline) {
            return {ChildEnd::OutOfTime, 0};
        }
        std::this_thread::sleep_for(s_nap);
    }
}

} // namespace

// Not QProcess: where the system refuses a new process, that of Qt 5.15 takes it for started as
// number -1. It waits for it without end, and its destructor kills every process there is.
ChildEnd runProgram(const QString &program, const QStringList &arguments, int patience)
{
    const KeptEnds kept;
    pid_t child = -1;
    const int error = start(child, program, arguments);
    if (error != 0) {
        return {ChildEnd::NotStarted, error};
    }
    if (patience < 0) {
        return waitFor(child);
    }
    const ChildEnd end = waitFor(child, milliseconds(patience));
    if (end.kind == ChildEnd::OutOfTime) {
        ::kill(child, SIGKILL);
        // a process that hangs in the kernel does not end
        waitFor(child, s_patienceWithKilled);
    }
    return end;
}

int exitCodeOf(const QString &program, const QStringList &arguments)
{
    const ChildEnd end = runProgram(program, arguments);
    if (end.kind == ChildEnd::Exited) {
        return end.code;
    }
    return end.kind == ChildEnd::NotStarted ? -2 : -1;
}

} // namespace Tavro::Shared::detail
