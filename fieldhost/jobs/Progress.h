#pragma once

#include <QString>

#include <deque>
#include <functional>

namespace Tavro::FieldHost {

/** Follows the bytes of a copy through time and puts its progress into words. */
class Progress
{
public:
    /** Milliseconds since some moment, never going back. */
    using Clock = std::function<qint64()>;

    /** Tells the time by @p clock; an empty one stands for the system's. */
    explicit Progress(Clock clock = {});

    /** Begins a copy of @p totalBytes. */
    void start(qint64 totalBytes);
    /** Takes note of @p bytes copied by now. */
    void update(qint64 bytes);
    /** Halts the clock; what passes until resume() is no time of the copy. */
    void pause();
    /** Lets the clock go on. */
    void resume();

    /** Time of the copy so far, in milliseconds, without pauses. */
    qint64 elapsed() const;

    /** "12.3 MiB of 56.3 MiB  21 %  45.2 MiB/s  0:03 left", as far as it is known. */
    QString text() const;

private:
    struct Sample
    {
        qint64 time;
        qint64 bytes;
    };

    double rate() const;

    Clock m_clock;
    qint64 m_started = 0; // by the clock, or when the last pause ended
    qint64 m_before = 0; // ms of the copy before that
    bool m_running = false;
    qint64 m_total = 0;
    qint64 m_bytes = 0;
    std::deque<Sample> m_samples; // of the last few seconds
};

} // namespace Tavro::FieldHost
