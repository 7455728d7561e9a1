// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/detail/ReportQueue.h"
#include "shared/fileops/detail/WorkerThreadOwner.h"

#include <memory>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * A controller's worker, the thread that it works on, and the way by which its signals come back.
 *
 * Belongs to the controller and to its thread. Letting go of it does not wait: a run in progress
 * is abandoned, and nothing of it is reported any more.
 */
template<typename Worker, typename Core> class WorkerHandle
{
    Q_DISABLE_COPY(WorkerHandle)

public:
    using RequestPointer = typename Core::RequestPointer;

    /** @p coreOf(worker) is the core of the worker that is made here. */
    template<typename CoreOf>
    WorkerHandle(QObject *controller, CoreOf coreOf)
        : m_worker(new Worker)
        , m_core(coreOf(*m_worker))
        , m_thread(m_worker)
        , m_reports(ReportQueue::create(controller))
    {
        QObject::connect(thread(), &QThread::started, m_worker, &Worker::doWork);
        // direct: the next request may be waiting for the thread's end in the thread that would
        // have to deliver a queued call
        QObject::connect(m_worker, &Worker::finished, thread(), &QThread::quit,
                         Qt::DirectConnection);
    }
    ~WorkerHandle() { letGo(); }

    /**
     * To be called by the destructor of the controller, whose functions may keep the handle for a
     * moment longer: while they load a request, a slot may be the controller's end.
     */
    void letGo()
    {
        if (std::exchange(m_isOwned, false)) {
            m_reports->close();
            m_core.abandon();
        }
    }
    /** False once the controller is gone. */
    bool isOwned() const { return m_isOwned; }

    Core &core() const { return m_core; }
    QThread *thread() const { return m_thread.thread(); }
    const std::shared_ptr<ReportQueue> &reports() const { return m_reports; }

    /** Has @p receive(arguments...) called in the controller's thread for each @p signal. */
    template<typename... Arguments, typename Receive>
    void onReport(void (Worker::*signal)(Arguments...), Receive receive)
    {
        // the worker may outlive the controller: it reports into a queue that is closed by then
        QObject::connect(
            m_worker, signal, m_worker,
            [reports = m_reports, receive](Arguments... arguments) {
                reports->report([receive, arguments...] { receive(arguments...); });
            },
            Qt::DirectConnection);
    }

    /** Has @p receive(request) called there for each run, before anything tells of its end. */
    template<typename Receive> void onResult(Receive receive)
    {
        m_core.onResult([reports = m_reports, receive](const RequestPointer &request) {
            reports->report([receive, request] { receive(request); });
        });
    }

    /** The same when the run is over, without waiting for the next look. */
    template<typename Receive> void onRunEnd(Receive receive)
    {
        m_core.onEnd([reports = m_reports, receive](const RequestPointer &request) {
            reports->reportUrgently([receive, request] { receive(request); });
        });
    }

    /** Has @p receive() called when the thread has ended, or is about to in a few instructions. */
    template<typename Receive> void onThreadEnd(Receive receive)
    {
        QObject::connect(
            thread(), &QThread::finished, m_worker,
            [reports = m_reports, receive] { reports->reportUrgently(receive); },
            Qt::DirectConnection);
    }

    /**
     * Starts the next run; the last one must have ended. False when the system has no thread to
     * give.
     */
    bool startThread()
    {
        thread()->start(QThread::InheritPriority);
        return thread()->isRunning() || thread()->isFinished();
    }

private:
    Worker *m_worker; // owned by m_thread, lives in it
    Core &m_core; // part of the worker
    WorkerThreadOwner m_thread;
    std::shared_ptr<ReportQueue> m_reports;
    bool m_isOwned = true;
};

} // namespace Tavro::Shared::detail
