// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace Tavro::Benchmarks {

/** What a participant's process did. */
struct Outcome
{
    double seconds = 0; /**< at work, from just before it was started until it was gone */
    double stopped = 0; /**< between its turns: what it measures by itself contains this, too */
    double memory = 0; /**< bytes of memory that it had resident at its largest */
    std::string output; /**< its standard output */
};

/**
 * The process of a participant, which can be stopped and go on later. What it has started itself
 * is not stopped.
 *
 * It is killed when this program ends. And it ends this program with a message when it cannot be
 * started or fails: the time of a failed copy means nothing.
 */
class RunningParticipant
{
public:
    /** Of @p command, found on PATH, with its arguments; the first turn starts it. */
    explicit RunningParticipant(std::vector<std::string> command);
    RunningParticipant(RunningParticipant &&) = default;

    /** Lets it work for @p seconds and stops it. True when it is over. */
    bool takeTurn(double seconds);
    bool isOver() const { return m_isOver; }
    /** Complete when it is over. */
    const Outcome &outcome() const { return m_outcome; }

private:
    void start();
    bool readUntil(double end);
    void waitUntil(int change);

    std::vector<std::string> m_command;
    Outcome m_outcome;
    double m_stoppedAt = 0;
    int m_process = 0; // none yet
    int m_outputEnd = -1; // of a pipe
    bool m_isOver = false;
};

/** Runs @p command from its start to its end. */
Outcome runParticipant(const std::vector<std::string> &command);

/** Seconds until @p command has written @p bytes, at which it is killed. */
double secondsUntilWritten(const std::vector<std::string> &command, long long bytes);

/** Path of @p name in the directory of the running program, where the build puts all of them. */
std::string siblingProgram(const std::string &name);

} // namespace Tavro::Benchmarks
