// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/Async.h"

#include "shared/system/detail/TaskCounter.h"
#include "shared/system/detail/TaskPool.h"
#include "shared/system/detail/TaskQueue.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace Tavro::Shared {

class Q_DECL_HIDDEN Async::Private
{
public:
    explicit Private(Mode modeOfStart)
        : mode(modeOfStart)
    {
    }

    void handToPool(QRunnable *task)
    {
        if (!task) {
            return; // it would never call startNext()
        }
        // without the mutex: startNext() holds it during this call
        ++runningCount;
        detail::TaskPool::instance().start(task, onPool);
    }

    const Mode mode;
    std::mutex mutex; // guards what follows but the count, which a start only adds to
    std::condition_variable finished;
    std::atomic<int> runningCount{0}; // handed to the pool, startNext() not called yet
    unsigned int finishedCount = 0; // calls of startNext(), to tell a wake-up from a false one
    bool deleteLater = false;
    bool closing = false;
    detail::TaskQueue queue; // has a lock of its own
    const std::shared_ptr<detail::TaskCounter> onPool = std::make_shared<detail::TaskCounter>();
};

Async::Async(Mode mode)
    : d(std::make_unique<Private>(mode))
{
}

Async::~Async()
{
    {
        std::unique_lock<std::mutex> lock(d->mutex);
        // a task that finishes now must not start another, which would outlive this object
        d->closing = true;
        d->finished.wait(lock, [this] { return d->runningCount < 1; });
    }
    // after its startNext() a task may still call asyncDeleteLater()
    d->onPool->waitForNone();
}

void Async::startTask(QRunnable *task)
{
    if (d->mode == Parallel) {
        runInThread(task);
        return;
    }
    if (!isQueueMode(d->mode)) {
        return;
    }
    if (d->mode == SequentialLatest) {
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
    d->handToPool(task);
    detail::TaskPool::instance().helpOut();
}

void Async::addToQueue(QRunnable *task)
{
    if (task) {
        d->queue.append(task);
    }
}

void Async::startFromQueue()
{
    runInThread(d->queue.takeFirst());
}

void Async::clearQueue()
{
    d->queue.clear();
}

void Async::startNext()
{
    // Held throughout: otherwise isRunning() could be false in between, although the next task is
    // about to start, and the owner would start another one beside it.
    {
        const std::lock_guard<std::mutex> lock(d->mutex);
        --d->runningCount;
        ++d->finishedCount;
        if (isQueueMode(d->mode) && !d->closing) {
            d->handToPool(d->queue.takeFirst());
        }
        d->finished.notify_all();
    }
    // this object may be gone
    detail::TaskPool::instance().helpOut();
}

void Async::waitDone()
{
    std::unique_lock<std::mutex> lock(d->mutex);
    if (d->runningCount < 1) {
        return;
    }
    const unsigned int before = d->finishedCount;
    d->finished.wait(lock, [this, before] { return d->finishedCount != before; });
}

bool Async::isRunning() const
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return d->runningCount != 0;
}

void Async::setDeleteLater(bool deleteLater)
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    d->deleteLater = deleteLater;
}

void Async::asyncDeleteLater()
{
    std::unique_lock<std::mutex> lock(d->mutex);
    const bool wanted = d->deleteLater;
    lock.unlock();
    if (wanted) {
        deleteLater();
    }
}

bool Async::isQueueMode(Mode mode)
{
    return mode == Sequential || mode == SequentialLatest;
}

} // namespace Tavro::Shared
