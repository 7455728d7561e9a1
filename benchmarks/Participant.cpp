#include "benchmarks/Participant.h"

#include "benchmarks/Measurement.h"

#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tavro::Benchmarks {

namespace {

std::string readAll(int fd)
{
    std::string text;
    char buffer[4096];
    ssize_t n = 0;
    while ((n = ::read(fd, buffer, sizeof buffer)) > 0) {
        text.append(buffer, static_cast<size_t>(n));
    }
    return text;
}

} // namespace

std::string siblingProgram(const std::string &name)
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

Outcome runParticipant(const std::vector<std::string> &command)
{
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string &argument : command) {
        arguments.push_back(const_cast<char *>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    int pipeEnds[2];
    if (::pipe2(pipeEnds, O_CLOEXEC) != 0) {
        fail(std::string("No pipe: ") + std::strerror(errno));
    }
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);

    Outcome outcome;
    const double begin = now();
    pid_t process = 0;
    const int error =
        ::posix_spawnp(&process, arguments.front(), &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(pipeEnds[1]);
    if (error != 0) {
        fail("Cannot run " + command.front() + ": " + std::strerror(error));
    }
    outcome.output = readAll(pipeEnds[0]);
    int status = 0;
    ::waitpid(process, &status, 0);
    outcome.seconds = now() - begin;
    ::close(pipeEnds[0]);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        fail(command.front() + " failed (wait status " + std::to_string(status) + ')');
    }
    return outcome;
}

} // namespace Tavro::Benchmarks
