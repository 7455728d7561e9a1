// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/CFileOperationResult.h"

#include <QtGlobal>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * What one run works on, from loading to its end.
 *
 * Each run has its own, so that loading the next request, or a reset, changes nothing for a run
 * in progress. The jobs that a derived request adds are filled in before it is loaded and belong
 * to the run from then on. The atomic members may be touched by any thread.
 */
struct RunRequest
{
    std::atomic<int> step{0}; // a State of the controller; idle is 0 for all of them
    std::atomic<qint64> processedBytes{0};
    std::atomic<qint64> totalBytes{0};
    std::atomic<bool> canceled{false}; // polled all the time
    std::atomic<bool> abandoned{false}; // canceled, and nobody is left to hear of it
    CFileOperationResult result; // the run's own until its end
};

/**
 * The requests of a worker: the one loaded last, those that wait for a run of their own, and the
 * one being run; and the pause, which concerns whichever is run.
 *
 * A Request derives from RunRequest. Every function may be called from any thread.
 */
template<typename Request> class RunQueue
{
    Q_DISABLE_COPY(RunQueue)

public:
    using RequestPointer = std::shared_ptr<Request>;

    /** What becomes of a request that is loaded. */
    enum class Claim {
        None, /**< the next one takes its place */
        OwnRun, /**< it waits for a run of its own as well, whatever is loaded before that begins */
    };

    RunQueue() = default;

    /** What was loaded last; never null. */
    RequestPointer loaded() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_loaded;
    }

    /** The request being run, or what is loaded when there is none. */
    RequestPointer active() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_running ? m_running : m_loaded;
    }

    /** Whether a request waits for a run of its own. */
    bool hasClaims() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return !m_claimed.empty();
    }

    /** Gives up the runs that have not begun, and returns what they were to work on. */
    std::deque<RequestPointer> takeClaims()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::exchange(m_claimed, {});
    }

    void pause() { m_isPaused = true; }
    void resume()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        endPause();
    }
    bool isPaused() const { return m_isPaused; }
    /** Returns when there is no pause; without a time-out. */
    void waitWhilePaused()
    {
        if (m_isPaused) { // asked for each file and each chunk: nearly always without the lock
            std::unique_lock<std::mutex> lock(m_mutex);
            m_resumed.wait(lock, [this] { return !m_isPaused; });
        }
    }

    /** Cancels every request, and ends the pause: a paused run has to wake up to see it. */
    void cancel()
    {
        cancelEach([](Request & /*request*/) {});
    }
    /** The same, because nobody is left to hear of the runs. */
    void abandon()
    {
        cancelEach([](Request &request) { request.abandoned = true; });
    }

protected:
    /** Puts @p request in place of what is loaded, and ends the pause. */
    void put(RequestPointer request, Claim claim)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_loaded = std::move(request);
        if (claim == Claim::OwnRun) {
            m_claimed.push_back(m_loaded);
        }
        endPause();
    }

    /** Leaves nothing loaded and ends the pause, unless something else than @p request is loaded.
     */
    void unload(const RequestPointer &request)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_loaded == request) {
            m_loaded = std::make_shared<Request>();
            endPause();
        }
    }

    /** What the run that begins now is to work on; null when one is in progress already. */
    RequestPointer beginRun()
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

private:
    template<typename Mark> void cancelEach(Mark mark)
    {
        const auto cancel = [mark](Request &request) {
            mark(request);
            request.canceled = true;
        };
        const std::lock_guard<std::mutex> lock(m_mutex);
        cancel(*m_loaded);
        for (const RequestPointer &request : m_claimed) {
            cancel(*request);
        }
        if (m_running) {
            cancel(*m_running);
        }
        endPause();
    }

    // with the mutex held
    void endPause()
    {
        m_isPaused = false;
        m_resumed.notify_all();
    }

    mutable std::mutex m_mutex; // guards the requests, not what is in them, and the end of a pause
    RequestPointer m_loaded = std::make_shared<Request>();
    std::deque<RequestPointer> m_claimed; // first in, first out
    RequestPointer m_running; // null outside a run
    std::condition_variable m_resumed;
    std::atomic<bool> m_isPaused{false};
};

} // namespace Tavro::Shared::detail
