// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "benchmarks/Participant.h"

#include "benchmarks/Measurement.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tavro::Benchmarks {

namespace {

constexpr double s_forever = std::numeric_limits<double>::infinity();

// in the child; it stays in the terminal's group, and Ctrl-C reaches it
[[noreturn]] void become(const std::vector<std::string> &command, int output)
{
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string &argument : command) {
        arguments.push_back(const_cast<char *>(argument.c_str()));
    }
    arguments.push_back(nullptr);

    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(output, STDOUT_FILENO);
    ::execvp(arguments.front(), arguments.data());
    ::perror(arguments.front());
    ::_exit(EXIT_FAILURE);
}

// what poll() takes: milliseconds, rounded up, or -1 for ever
int timeoutUntil(double end)
{
    const double milliseconds = std::ceil((end - now()) * 1e3);
    return milliseconds < std::numeric_limits<int>::max()
        ? std::max(0, static_cast<int>(milliseconds))
        : -1;
}

// what it has handed to the system, whether that is on a device or not
long long bytesWrittenBy(int process)
{
    std::ifstream counters("/proc/" + std::to_string(process) + "/io");
    std::string name;
    long long bytes = 0;
    while (counters >> name >> bytes) {
        if (name == "wchar:") {
            return bytes;
        }
    }
    return 0;
}

} // namespace

std::string siblingProgram(const std::string &name)
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

Outcome runParticipant(const std::vector<std::string> &command)
{
    RunningParticipant participant(command);
    participant.takeTurn(s_forever);
    return participant.outcome();
}

double secondsUntilWritten(const std::vector<std::string> &command, long long bytes)
{
    const double begin = now();
    const int process = ::fork();
    if (process == 0) {
        become(command, ::open("/dev/null", O_WRONLY | O_CLOEXEC));
    }
    if (process < 0) {
        fail("Cannot run " + command.front() + ": " + std::strerror(errno));
    }
    while (bytesWrittenBy(process) < bytes) {
        int status = 0;
        if (::waitpid(process, &status, WNOHANG) != 0) {
            fail(command.front() + " wrote less than " + std::to_string(bytes) + " bytes");
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    const double seconds = now() - begin;
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    return seconds;
}

RunningParticipant::RunningParticipant(std::vector<std::string> command)
    : m_command(std::move(command))
{
}

bool RunningParticipant::takeTurn(double seconds)
{
    const double begin = now();
    if (m_process == 0) {
        start();
    } else {
        m_outcome.stopped += begin - m_stoppedAt;
        ::kill(m_process, SIGCONT);
    }
    if (readUntil(begin + seconds)) {
        waitUntil(0);
    } else {
        ::kill(m_process, SIGSTOP);
        waitUntil(WUNTRACED); // all threads have halted: a flush in flight is its own time
    }
    m_stoppedAt = now();
    m_outcome.seconds += m_stoppedAt - begin;
    return m_isOver;
}

void RunningParticipant::start()
{
    int pipeEnds[2];
    if (::pipe2(pipeEnds, O_CLOEXEC) != 0) {
        fail(std::string("No pipe: ") + std::strerror(errno));
    }
    m_process = ::fork();
    if (m_process == 0) {
        become(m_command, pipeEnds[1]);
    }
    if (m_process < 0) {
        fail("Cannot run " + m_command.front() + ": " + std::strerror(errno));
    }
    ::close(pipeEnds[1]);
    m_outputEnd = pipeEnds[0];
}

// true when nobody is left to write
bool RunningParticipant::readUntil(double end)
{
    struct pollfd output = {m_outputEnd, POLLIN, 0};
    while (::poll(&output, 1, timeoutUntil(end)) > 0) {
        char buffer[4096];
        const ssize_t n = ::read(m_outputEnd, buffer, sizeof buffer);
        if (n <= 0) {
            return true;
        }
        m_outcome.output.append(buffer, static_cast<size_t>(n));
    }
    return false;
}

// @p change is one that waitpid() knows, or 0 for the end
void RunningParticipant::waitUntil(int change)
{
    int status = 0;
    struct rusage usage = {};
    ::wait4(m_process, &status, change, &usage);
    if (WIFSTOPPED(status)) {
        return;
    }
    m_outcome.memory = static_cast<double>(usage.ru_maxrss) * 1024;
    m_isOver = true;
    readUntil(s_forever); // where it has ended before it was told to stop
    ::close(m_outputEnd);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        fail(m_command.front() + " failed (wait status " + std::to_string(status) + ')');
    }
}

} // namespace Tavro::Benchmarks
