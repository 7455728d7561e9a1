// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/jobs/Progress.h"

#include <chrono>
#include <cmath>

namespace Tavro::FieldHost {

namespace {

constexpr qint64 s_rateWindow = 5000; // ms; shorter and the figure jumps with every flush
constexpr qint64 s_rateMinimum = 500; // ms; before that it is a guess
constexpr qint64 s_bytesMinimum = 4 << 20; // a chunk; a few small files say nothing of the rest

qint64 systemClock()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

Progress::Progress(Clock clock)
    : m_clock(clock ? std::move(clock) : systemClock)
{
}

void Progress::start(qint64 totalBytes)
{
    m_total = totalBytes;
    m_bytes = 0;
    m_before = 0;
    m_samples = {{0, 0}};
    resume();
}

void Progress::update(qint64 bytes)
{
    const qint64 now = elapsed();
    m_bytes = bytes;
    m_samples.push_back({now, bytes});
    while (m_samples.size() > 2 && m_samples.at(1).time < now - s_rateWindow) {
        m_samples.pop_front();
    }
}

void Progress::pause()
{
    m_before = elapsed();
    m_running = false;
}

void Progress::resume()
{
    m_started = m_clock();
    m_running = true;
}

qint64 Progress::elapsed() const
{
    return m_running ? m_before + m_clock() - m_started : m_before;
}

int Progress::percent() const
{
    return m_total > 0 ? static_cast<int>(qMin<qint64>(m_bytes * 100 / m_total, 100)) : 100;
}

double Progress::rate() const
{
    const Sample first = m_samples.empty() ? Sample{0, 0} : m_samples.front();
    const qint64 time = elapsed() - first.time;
    const bool isGuess = time < s_rateMinimum || m_bytes < qMin(m_total / 100, s_bytesMinimum);
    if (!m_running || isGuess) {
        return 0;
    }
    return static_cast<double>(m_bytes - first.bytes) * 1000 / static_cast<double>(time);
}

qint64 Progress::timeLeft() const
{
    const double bytesPerSecond = rate();
    const double left = static_cast<double>(m_total - m_bytes) * 1000 / bytesPerSecond;
    // files may grow while they are copied; a day and more is no forecast
    return bytesPerSecond > 0 && left >= 0 && left < 86'400'000 ? std::llround(left) : -1;
}

} // namespace Tavro::FieldHost
