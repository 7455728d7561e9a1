// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <deque>
#include <functional>

namespace Tavro::FieldHost {

/** Follows the bytes of a job through time. */
class Progress
{
public:
    /** Milliseconds since some moment, never going back. */
    using Clock = std::function<qint64()>;

    /** Tells the time by @p clock; an empty one stands for the system's. */
    explicit Progress(Clock clock = {});

    /** Begins a job of @p totalBytes. */
    void start(qint64 totalBytes);
    /** Takes note of @p bytes done by now. */
    void update(qint64 bytes);
    /** Halts the clock; what passes until resume() is no time of the job. */
    void pause();
    /** Lets the clock go on. */
    void resume();

    qint64 bytes() const { return m_bytes; }
    qint64 totalBytes() const { return m_total; }
    /** 0 to 100; 100 when there is nothing to do. */
    int percent() const;
    /** Time of the job so far, in milliseconds, without pauses. */
    qint64 elapsed() const;
    /**
     * Bytes a second in the last few seconds; 0 in a pause, and while too little is done to know
     * it: less than a hundredth, or of a large job less than a chunk.
     */
    double rate() const;
    /** Milliseconds to go at that rate; -1 when there is no forecast. */
    qint64 timeLeft() const;

private:
    struct Sample
    {
        qint64 time;
        qint64 bytes;
    };

    Clock m_clock;
    qint64 m_started = 0; // by the clock, or when the last pause ended
    qint64 m_before = 0; // ms of the job before that
    bool m_running = false;
    qint64 m_total = 0;
    qint64 m_bytes = 0;
    std::deque<Sample> m_samples; // of the last few seconds
};

} // namespace Tavro::FieldHost
