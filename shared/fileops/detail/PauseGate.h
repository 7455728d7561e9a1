#pragma once

#include <condition_variable>
#include <mutex>

namespace Tavro::Shared::detail {

/** The place where a worker halts while it is paused. Every function from any thread. */
class PauseGate
{
public:
    void close()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_closed = true;
    }

    void open()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_closed = false;
        }
        m_opened.notify_all();
    }

    bool isClosed() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_closed;
    }

    /** Returns when the gate is open; waits without time-out. */
    void pass()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_opened.wait(lock, [this] { return !m_closed; });
    }

private:
    mutable std::mutex m_mutex; // guards m_closed
    std::condition_variable m_opened;
    bool m_closed = false;
};

} // namespace Tavro::Shared::detail
