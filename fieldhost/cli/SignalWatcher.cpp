// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/SignalWatcher.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

// a signal handler reaches nothing but globals
std::array<int, 2> s_selfPipe = {-1, -1};
std::atomic<bool> s_endWasRequested{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler must not wait");

void handleSignal(int signal)
{
    const int savedErrno = errno;
    if (signal != SIGTSTP) {
        s_endWasRequested = true;
    }
    const auto byte = static_cast<char>(signal);
    // a full pipe holds enough signals already
    if (::write(s_selfPipe[1], &byte, 1) < 0) { }
    errno = savedErrno;
}

} // namespace

SignalWatcher::SignalWatcher(QObject *parent)
    : QObject(parent)
{
    s_endWasRequested = false;
    if (::pipe2(s_selfPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // without one, a signal ends the program as it ends any other
    }
    m_notifier = new QSocketNotifier(s_selfPipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &SignalWatcher::readPipe);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP}) {
        watch(signal);
    }
}

SignalWatcher::~SignalWatcher()
{
    for (const Watched &watched : m_watched) {
        ::sigaction(watched.signal, &watched.before, nullptr);
    }
    for (int &fd : s_selfPipe) {
        if (fd >= 0) {
            ::close(std::exchange(fd, -1));
        }
    }
}

bool SignalWatcher::endRequested()
{
    return s_endWasRequested;
}

void SignalWatcher::watch(int signal)
{
    struct sigaction before
    {
    };
    ::sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action
    {
    };
    action.sa_handler = handleSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
    m_watched.push_back({signal, before});
}

void SignalWatcher::readPipe()
{
    char byte = 0;
    bool end = false;
    bool stop = false;
    while (::read(s_selfPipe[0], &byte, 1) == 1) {
        stop = stop || byte == SIGTSTP;
        end = end || byte != SIGTSTP;
    }
    if (end) {
        Q_EMIT endSignal();
    } else if (stop) {
        suspend();
    }
}

void SignalWatcher::suspend()
{
    Q_EMIT aboutToSuspend();
    // raise() returns when the program is continued
    struct sigaction ours
    {
    };
    struct sigaction plain
    {
    };
    plain.sa_handler = SIG_DFL;
    sigemptyset(&plain.sa_mask);
    ::sigaction(SIGTSTP, &plain, &ours);
    ::raise(SIGTSTP);
    ::sigaction(SIGTSTP, &ours, nullptr);
    Q_EMIT continued();
}

} // namespace Tavro::FieldHost
