#include "shared/system/Async.h"

#include "shared/system/detail/TaskCounter.h"
#include "shared/system/detail/TaskPool.h"
#include "shared/system/detail/TaskQueue.h"

namespace Tavro::Shared {

Async::Async(Mode mode)
    : m_mode(mode)
    , m_queue(std::make_unique<detail::TaskQueue>())
    , m_onPool(std::make_shared<detail::TaskCounter>())
{
}

Async::~Async()
{
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        // a task that finishes now must not start another, which would outlive this object
        m_closing = true;
        m_finished.wait(lock, [this] { return m_runningCount < 1; });
    }
    // after its startNext() a task may still call asyncDeleteLater()
    m_onPool->waitForNone();
}

void Async::startTask(QRunnable *task)
{
    if (m_mode == Parallel) {
        runInThread(task);
        return;
    }
    if (!isQueueMode(m_mode)) {
        return;
    }
    if (m_mode == SequentialLatest) {
        clearQueue();
    }
    // First append, then check: a task that finishes in between finds the new one in the queue. In
    // the other order no thread would start it.
    addToQueue(task);
    if (!isRunning()) {
        startFromQueue();
    }
}

void Async::runInThread(QRunnable *task)
{
    handToPool(task);
    detail::TaskPool::instance().helpOut();
}

void Async::handToPool(QRunnable *task)
{
    if (!task) {
        return; // it would call startNext() as little as it would run
    }
    // without the mutex: startNext() comes here with it
    ++m_runningCount;
    detail::TaskPool::instance().start(task, m_onPool);
}

void Async::addToQueue(QRunnable *task)
{
    if (task) {
        m_queue->append(task);
    }
}

void Async::startFromQueue()
{
    runInThread(m_queue->takeFirst());
}

void Async::clearQueue()
{
    m_queue->clear();
}

void Async::startNext()
{
    // Held throughout: otherwise isRunning() could be false in between, although the next task is
    // about to start, and the owner would start another one beside it.
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        --m_runningCount;
        ++m_finishedCount;
        if (isQueueMode(m_mode) && !m_closing) {
            handToPool(m_queue->takeFirst());
        }
        m_finished.notify_all();
    }
    // this object may be gone
    detail::TaskPool::instance().helpOut();
}

void Async::waitDone()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_runningCount < 1) {
        return;
    }
    const unsigned int before = m_finishedCount;
    m_finished.wait(lock, [this, before] { return m_finishedCount != before; });
}

bool Async::isRunning() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_runningCount != 0;
}

void Async::setDeleteLater(bool deleteLater)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_deleteLater = deleteLater;
}

void Async::asyncDeleteLater()
{
    bool wanted = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        wanted = m_deleteLater;
    }
    if (wanted) {
        deleteLater();
    }
}

bool Async::isQueueMode(Mode mode)
{
    return mode == Sequential || mode == SequentialLatest;
}

} // namespace Tavro::Shared
