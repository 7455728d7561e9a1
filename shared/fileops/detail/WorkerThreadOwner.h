// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QThread>

#include <memory>

namespace Tavro::Shared::detail {

/**
 * The worker thread of a controller, for the controller's whole life, and the worker in it.
 *
 * Letting go of it never waits for a run and never destroys a running thread: where a run is
 * still in progress, thread and worker go by themselves when it has ended.
 */
class WorkerThreadOwner
{
public:
    /** Takes the parentless @p worker and moves it to a new thread, which is not started. */
    explicit WorkerThreadOwner(QObject *worker);
    ~WorkerThreadOwner();

    WorkerThreadOwner(const WorkerThreadOwner &) = delete;
    WorkerThreadOwner &operator=(const WorkerThreadOwner &) = delete;

    /** The thread; owned by this object. */
    QThread *thread() const { return m_thread; }

private:
    struct Link;

    void leaveToApplication();

    QThread *m_thread;
    QObject *m_worker;
    std::shared_ptr<Link> m_link;
};

} // namespace Tavro::Shared::detail
