// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/system/detail/TaskPool.h"

#include <QThread>

namespace Tavro::Shared::detail {

namespace {
constexpr std::size_t s_maxThreads = 8;
}

TaskPool &TaskPool::instance()
{
    static TaskPool pool;
    return pool;
}

TaskPool::~TaskPool()
{
    {
        const Lock lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    // none is added any more
    for (const auto &thread : m_threads) {
        thread->wait();
    }
}

void TaskPool::start(QRunnable *task, const std::shared_ptr<TaskCounter> &counter)
{
    counter->add();
    const Lock lock(m_mutex);
    m_entries.push_back({task, counter});
    if (m_entries.size() <= m_idle) {
        m_changed.notify_one();
    } else if (m_threads.size() < s_maxThreads && !m_isEnding) {
        addThread();
    }
}

// Not QThreadPool: that of Qt 5.15 loses the task for which it cannot create a thread, and waits
// for it when the process ends.
void TaskPool::addThread()
{
    std::unique_ptr<QThread> thread(QThread::create([this] { work(); }));
    thread->start();
    if (thread->isRunning() || thread->isFinished()) {
        m_threads.push_back(std::move(thread));
        m_hasThread = true;
    }
}

void TaskPool::helpOut()
{
    if (m_hasThread) {
        return;
    }
    Lock lock(m_mutex);
    if (m_isHelpedOut) {
        return;
    }
    m_isHelpedOut = true;
    while (!m_entries.empty() && !m_hasThread) {
        runNext(lock);
    }
    m_isHelpedOut = false;
}

void TaskPool::work()
{
    Lock lock(m_mutex);
    for (;;) {
        ++m_idle;
        m_changed.wait(lock, [this] { return !m_entries.empty() || m_isEnding; });
        --m_idle;
        if (m_entries.empty()) {
            return;
        }
        runNext(lock);
    }
}

void TaskPool::runNext(Lock &lock)
{
    const Entry entry = std::move(m_entries.front());
    m_entries.pop_front();
    lock.unlock();
    // asked before: a task that does not delete itself may be gone after its run
    const bool autoDelete = entry.task->autoDelete();
    entry.task->run();
    if (autoDelete) {
        delete entry.task;
    }
    entry.counter->remove();
    lock.lock();
}

} // namespace Tavro::Shared::detail
