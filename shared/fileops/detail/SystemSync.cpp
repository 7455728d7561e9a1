#include "shared/fileops/detail/SystemSync.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace Tavro::Shared::detail {

namespace {

/** How the command is started: silent, and with no signal blocked for it. */
class SpawnSetup
{
public:
    SpawnSetup()
    {
        ::posix_spawn_file_actions_init(&m_actions);
        for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            ::posix_spawn_file_actions_addopen(&m_actions, fd, "/dev/null", O_RDWR, 0);
        }
        sigset_t none;
        sigemptyset(&none);
        ::posix_spawnattr_init(&m_attributes);
        ::posix_spawnattr_setsigmask(&m_attributes, &none);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK);
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

void waitFor(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) { }
}

} // namespace

// Not QProcess: where the system refuses a new process, that of Qt 5.15 takes it for started as
// number -1. It waits for it without end, and its destructor kills every process there is.
void syncSystem()
{
    const SpawnSetup setup;
    std::array<char, 5> command = {"sync"};
    const std::array<char *, 2> arguments = {command.data(), nullptr};
    pid_t child = -1;
    if (::posix_spawnp(&child, command.data(), setup.actions(), setup.attributes(),
                       arguments.data(), environ)
        == 0) {
        waitFor(child);
    } else {
        ::sync(); // the new files' names must reach the device all the same
    }
}

} // namespace Tavro::Shared::detail
