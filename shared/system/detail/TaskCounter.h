// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <condition_variable>
#include <mutex>

namespace Tavro::Shared::detail {

/**
 * Counts the tasks of one owner from their start on the pool until nothing of them is left, which
 * is later than what they report themselves. Every function from any thread.
 */
class TaskCounter
{
public:
    void add()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_count;
    }

    void remove()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        --m_count;
        m_removed.notify_all();
    }

    void waitForNone()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_removed.wait(lock, [this] { return m_count == 0; });
    }

private:
    std::mutex m_mutex; // guards m_count
    std::condition_variable m_removed;
    int m_count = 0;
};

} // namespace Tavro::Shared::detail
