// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/detail/EventPoll.h"
#include "shared/fileops/detail/RunQueue.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * What the workers have in common: the queue of their requests, the passes of a run, and the
 * signals that tell of both.
 *
 * A Worker has the signals finished(), stateChanged(int), processedBytesChanged(qlonglong) and
 * totalBytesChanged(qlonglong). run(), advance() and processEvents() belong to the thread that
 * works, the rest may be called from any thread.
 */
template<typename Worker, typename Request> class WorkerCore : public RunQueue<Request>
{
public:
    using Queue = RunQueue<Request>;
    using RequestPointer = typename Queue::RequestPointer;
    using Claim = typename Queue::Claim;
    using Receiver = std::function<void(const RequestPointer &)>;

    explicit WorkerCore(Worker *worker)
        : q(*worker)
    {
    }
    virtual ~WorkerCore() = default;

    /**
     * Puts a request in place of the loaded one, as a clean slate. A run in progress keeps its
     * own, with its own counters and its own cancellation, and is let out of a pause.
     */
    void load(RequestPointer request, Claim claim = Claim::None)
    {
        const int step = request->step;
        this->put(std::move(request), claim);
        showCleanSlate();
        show(step);
    }

    /** Forgets what is loaded; what waits for a run of its own stays. */
    void reset() { load(std::make_shared<Request>()); }

    /** The step that was last announced. */
    int shownState() const { return m_shownState; }

    void advance(Request &request, int step)
    {
        request.step = step;
        show(step);
    }

    void addProcessedBytes(Request &request, qint64 n)
    {
        Q_EMIT q.processedBytesChanged(request.processedBytes += n);
    }

    void processEvents() { m_poll.processEvents(q); }

    /**
     * Has @p receive called on the working thread for each run, before its end shows. To be set
     * before the first run.
     */
    void onResult(Receiver receive) { m_receiveResult = std::move(receive); }
    /** The same when the run is over. */
    void onEnd(Receiver receive) { m_receiveEnd = std::move(receive); }

    /**
     * Runs the next request, pass by pass, until it is done or canceled, and ends with the signal
     * finished(). Does nothing when a run is in progress already, as when an event that is
     * delivered here asks for another.
     */
    void run()
    {
        const RequestPointer request = this->beginRun();
        if (!request) {
            return;
        }
        // the end of an older run may have shown another state since this request was loaded
        show(request->step);
        do {
            processEvents();
            this->waitWhilePaused();
        } while (!request->canceled && takeStep(*request));
        request->result.canceled = request->canceled;
        m_receiveResult(request);
        close(request);
        this->endRun();
        m_receiveEnd(request);
        Q_EMIT q.finished();
    }

protected:
    /** One pass of a run; false when it was the last. */
    virtual bool takeStep(Request &request) = 0;
    /** Shows the end of a run. */
    virtual void close(const RequestPointer &request) = 0;

    void showCleanSlate()
    {
        show(0);
        Q_EMIT q.processedBytesChanged(0);
        Q_EMIT q.totalBytesChanged(0);
    }

    Worker &q;

private:
    void show(int state)
    {
        if (m_shownState.exchange(state) != state) {
            Q_EMIT q.stateChanged(state);
        }
    }

    Receiver m_receiveResult = [](const RequestPointer & /*request*/) {};
    Receiver m_receiveEnd = m_receiveResult;
    std::atomic<int> m_shownState{0};
    EventPoll m_poll;
};

} // namespace Tavro::Shared::detail
