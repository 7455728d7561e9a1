// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/support/RefusedProcesses.h"

#include <dlfcn.h>
#include <sched.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <mutex>

namespace {

std::atomic<int> s_error{0};
std::atomic<int> s_left{0};
std::atomic<int> s_refused{0};

// of one program, whose end destroys it
// clazy:excludeall=non-pod-global-static
std::mutex s_mutex; // guards s_killed
std::vector<pid_t> s_killed;

template<typename Function> Function *next(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

// 0 when the process may be made
int refusal()
{
    if (s_left <= 0) {
        return 0;
    }
    --s_left;
    ++s_refused;
    return s_error;
}

// What the caller left uninitialised where the descriptor of the process goes is, at the worst, one
// that is open and tells of nothing.
int neverReadable()
{
    return ::eventfd(0, EFD_CLOEXEC);
}

using Spawn = int(pid_t *, const char *, const posix_spawn_file_actions_t *,
                  const posix_spawnattr_t *, char *const[], char *const[]);

} // namespace

// these take the place of the system's in all of the program

// QProcess makes its processes by it; waiting for a mutex comes here, too
extern "C" long syscall(long number, ...) noexcept
{
    // no static local: what guards it may wait by this very function
    static std::atomic<long (*)(long, ...)> original{nullptr};
    if (!original) {
        original = next<long(long, ...)>("syscall");
    }
    va_list list;
    va_start(list, number);
    long a[6] = {};
    for (long &argument : a) {
        argument = va_arg(list, long); // NOLINT(clang-analyzer-valist.Uninitialized)
    }
    va_end(list);
    if (number == SYS_clone) {
        const int error = refusal();
        if (error != 0) {
            if ((a[0] & CLONE_PIDFD) != 0) {
                // NOLINTNEXTLINE(performance-no-int-to-ptr): where a descriptor shall go
                *reinterpret_cast<int *>(a[2]) = neverReadable();
            }
            errno = error;
            return -1;
        }
    }
    return original.load()(number, a[0], a[1], a[2], a[3], a[4], a[5]);
}

extern "C" int posix_spawn(pid_t *child, const char *path,
                           const posix_spawn_file_actions_t *actions,
                           const posix_spawnattr_t *attributes, char *const arguments[],
                           char *const environment[])
{
    const int error = refusal();
    return error != 0
        ? error
        : next<Spawn>("posix_spawn")(child, path, actions, attributes, arguments, environment);
}

extern "C" int posix_spawnp(pid_t *child, const char *file,
                            const posix_spawn_file_actions_t *actions,
                            const posix_spawnattr_t *attributes, char *const arguments[],
                            char *const environment[])
{
    const int error = refusal();
    return error != 0
        ? error
        : next<Spawn>("posix_spawnp")(child, file, actions, attributes, arguments, environment);
}

extern "C" int kill(pid_t process, int signal) noexcept
{
    if (process > 0) {
        return next<int(pid_t, int)>("kill")(process, signal);
    }
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_killed.push_back(process);
    errno = ESRCH;
    return -1;
}

namespace Test {

RefusedProcesses::RefusedProcesses(int error, int times)
{
    s_error = error;
    s_refused = 0;
    s_left = times;
}

RefusedProcesses::~RefusedProcesses()
{
    s_left = 0;
}

int RefusedProcesses::count() const
{
    return s_refused;
}

std::vector<pid_t> RefusedProcesses::killedGroups()
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    return s_killed;
}

} // namespace Test
