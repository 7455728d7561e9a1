// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/WorkerThreadOwner.h"

#include <QCoreApplication>

#include <mutex>

namespace Tavro::Shared::detail {

/** What owner and thread know of each other; outlives whichever goes first. */
struct WorkerThreadOwner::Link
{
    std::mutex mutex; // guards orphaned
    bool orphaned = false;
};

WorkerThreadOwner::WorkerThreadOwner(QObject *worker)
    : m_thread(new QThread)
    , m_worker(worker)
    , m_link(std::make_shared<Link>())
{
    m_worker->moveToThread(m_thread);
    // direct: runs in the thread itself as its last act, whoever is left to hear of it
    QObject::connect(
        m_thread, &QThread::finished, m_thread,
        [link = m_link, thread = m_thread, object = m_worker] {
            const std::lock_guard<std::mutex> lock(link->mutex);
            if (link->orphaned) {
                object->deleteLater();
                thread->deleteLater();
            }
        },
        Qt::DirectConnection);
}

WorkerThreadOwner::~WorkerThreadOwner()
{
    m_thread->exit(0);
    {
        const std::lock_guard<std::mutex> lock(m_link->mutex);
        // a thread still running here has not reported its end yet: it will find itself orphaned
        m_link->orphaned = m_thread->isRunning();
        if (m_link->orphaned) {
            leaveToApplication();
            return;
        }
    }
    m_thread->wait(); // at most the few instructions between its last report and its end
    delete m_worker;
    delete m_thread;
}

// The caller's thread deletes it otherwise, and may itself have ended by then.
void WorkerThreadOwner::leaveToApplication()
{
    const QCoreApplication *const application = QCoreApplication::instance();
    if (application && m_thread->thread() == QThread::currentThread()) {
        m_thread->moveToThread(application->thread());
    }
}

} // namespace Tavro::Shared::detail
