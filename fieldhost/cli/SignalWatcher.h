// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <csignal>
#include <vector>

namespace Tavro::FieldHost {

/**
 * Brings the signals that end or suspend a program into the event loop.
 *
 * At most one exists at a time. A signal that was ignored when the program started, as nohup
 * has it, stays ignored.
 */
class SignalWatcher : public QObject
{
    Q_OBJECT

public:
    explicit SignalWatcher(QObject *parent = nullptr);
    ~SignalWatcher() override;

    /** True as soon as a signal asked the program to end, whether or not an event loop runs. */
    static bool endRequested();

Q_SIGNALS:
    /** SIGINT, SIGTERM, SIGHUP or SIGQUIT has arrived. */
    void endSignal();
    /** The program is about to stop, after Ctrl-Z; the terminal must be as it was found. */
    void aboutToSuspend();
    /** The program runs again. */
    void continued();

private:
    void watch(int signal);
    void readPipe();
    void suspend();

    struct Watched
    {
        int signal;
        struct sigaction before;
    };

    std::vector<Watched> m_watched;
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace Tavro::FieldHost
