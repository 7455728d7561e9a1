#pragma once

#include "shared/fileops/detail/EventPoll.h"
#include "shared/fileops/detail/PauseGate.h"
#include "shared/fileops/detail/RequestLine.h"
#include "shared/fileops/detail/RunControl.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * What the workers have in common: loading, pause and cancellation, the steps of a run, and the
 * signals that tell of them.
 *
 * A Request derives from RunRequest. A Worker has the signals finished(), stateChanged(int),
 * processedBytesChanged(qlonglong) and totalBytesChanged(qlonglong). run() and advance() belong
 * to the thread that works, the rest may be called from any thread.
 */
template<typename Worker, typename Request> class WorkerCore : public RunControl
{
    Q_DISABLE_COPY(WorkerCore)

public:
    using RequestPointer = std::shared_ptr<Request>;

    explicit WorkerCore(Worker *worker)
        : m_worker(*worker)
    {
    }

    RequestLine<Request> &requests() { return m_requests; }
    const RequestLine<Request> &requests() const { return m_requests; }
    PauseGate &gate() { return m_gate; }

    /**
     * Puts a request in place of the loaded one, as a clean slate. A run in progress keeps its
     * own, with its own counters and its own cancellation, and is let out of a pause.
     */
    void load(int step, RequestPointer request)
    {
        load(step, std::move(request), std::exchange(m_isNextClaimed, false));
    }

    /** Forgets what is loaded; what was claimed stays. */
    void reset() { load(0, std::make_shared<Request>(), false); }

    /** Forgets @p request at the end of its run; what was loaded meanwhile stays, its pause too. */
    void resetAfter(const RequestPointer &request)
    {
        if (m_requests.unload(request)) {
            m_gate.open();
        }
        showCleanSlate();
    }

    void cancel()
    {
        m_requests.forEach([](Request &request) { request.canceled = true; });
        m_gate.open(); // a paused run has to wake up to see it
    }

    void onResult(std::function<void(const CFileOperationResult &)> receive) override
    {
        m_receiveResult = std::move(receive);
    }
    int loadedStep() const override { return m_requests.loaded()->step; }
    void claimNextRequest() override { m_isNextClaimed = true; }
    bool hasClaimedRequest() const override { return m_requests.hasClaims(); }
    void dropClaimedRequests() override { m_requests.dropClaims(); }
    void abandonWork() override
    {
        m_requests.forEach([](Request &request) { request.abandoned = true; });
        cancel();
    }

    /** The step that was last announced. */
    int shownState() const { return m_shownState; }

    void setState(int state)
    {
        m_requests.active()->step = state;
        show(state);
    }

    void advance(Request &request, int step)
    {
        request.step = step;
        show(step);
    }

    void updateProcessedBytes(qint64 n)
    {
        const qint64 processed = m_requests.active()->processedBytes += n;
        Q_EMIT m_worker.processedBytesChanged(processed);
    }

    void processEvents() { m_poll.processEvents(m_worker); }

    /**
     * Runs the next request: @p takeStep(request) for each pass, until it answers false or the
     * request is canceled, then @p end(request) and the signal finished(). Does nothing when a
     * run is in progress already, as when an event that is delivered here asks for another.
     */
    template<typename TakeStep, typename End> void run(TakeStep takeStep, End end)
    {
        const RequestPointer request = m_requests.beginRun();
        if (!request) {
            return;
        }
        // the end of an older run may have shown another state since this request was loaded
        show(request->step);
        do {
            processEvents();
            m_gate.pass();
        } while (!request->canceled && takeStep(*request));
        request->result.canceled = request->canceled;
        if (m_receiveResult) {
            m_receiveResult(request->result);
        }
        end(request);
        m_requests.endRun();
        Q_EMIT m_worker.finished();
    }

private:
    void load(int step, RequestPointer request, bool isClaimed)
    {
        request->step = step;
        m_requests.load(std::move(request), isClaimed);
        m_gate.open();
        showCleanSlate();
        show(step);
    }

    void show(int state)
    {
        if (m_shownState.exchange(state) != state) {
            Q_EMIT m_worker.stateChanged(state);
        }
    }

    void showCleanSlate()
    {
        show(0);
        Q_EMIT m_worker.processedBytesChanged(0);
        Q_EMIT m_worker.totalBytesChanged(0);
    }

    Worker &m_worker;
    PauseGate m_gate;
    RequestLine<Request> m_requests;
    bool m_isNextClaimed = false; // the owner's thread alone
    std::function<void(const CFileOperationResult &)> m_receiveResult; // set before any run
    std::atomic<int> m_shownState{0};
    EventPoll m_poll;
};

} // namespace Tavro::Shared::detail
