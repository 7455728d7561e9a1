#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * The requests of a worker: the one loaded last, those set aside for runs to come, and the one
 * being run. Every function from any thread.
 */
template<typename Request> class RequestLine
{
public:
    using Pointer = std::shared_ptr<Request>;

    /** What was loaded last; never null. */
    Pointer loaded() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_loaded;
    }

    /** What the helpers work on: the run they are part of, or what is loaded. */
    Pointer active() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_running ? m_running : m_loaded;
    }

    /**
     * Puts @p request in place of what is loaded. Claimed, it is set aside for a run of its own as
     * well: loading another request before that run begins must not take its place.
     */
    void load(Pointer request, bool isClaimed)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_loaded = std::move(request);
        if (isClaimed) {
            m_claimed.push_back(m_loaded);
        }
    }

    /** Leaves nothing loaded, unless something else than @p request is. */
    bool unload(const Pointer &request)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_loaded != request) {
            return false;
        }
        m_loaded = std::make_shared<Request>();
        return true;
    }

    bool hasClaims() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return !m_claimed.empty();
    }

    void dropClaims()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_claimed.clear();
    }

    /** What the run that begins now is to work on; null when one is in progress already. */
    Pointer beginRun()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_running) {
            return {};
        }
        m_running = m_loaded;
        if (!m_claimed.empty()) {
            m_running = std::move(m_claimed.front());
            m_claimed.pop_front();
        }
        return m_running;
    }

    void endRun()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_running.reset();
    }

    template<typename Function> void forEach(Function function) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        function(*m_loaded);
        for (const Pointer &request : m_claimed) {
            function(*request);
        }
        if (m_running) {
            function(*m_running);
        }
    }

private:
    mutable std::mutex m_mutex; // guards the requests, not what is in them
    Pointer m_loaded = std::make_shared<Request>();
    std::deque<Pointer> m_claimed; // first in, first out
    Pointer m_running; // null outside a run
};

} // namespace Tavro::Shared::detail
