// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/system/detail/TaskCounter.h"

#include <QRunnable>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

class QThread;

namespace Tavro::Shared::detail {

/** The threads that run the tasks of all owners. Every function from any thread. */
class TaskPool
{
    Q_DISABLE_COPY(TaskPool)

public:
    /** Created at first use. At the exit of the process it waits for the tasks that still run. */
    static TaskPool &instance();

    /**
     * Has @p task run by one of at most 8 threads, in the order of these calls, and deleted
     * afterwards if it is one that deletes itself. It counts in @p counter until then.
     *
     * The caller runs helpOut() next, without a lock that a task might want.
     */
    void start(QRunnable *task, const std::shared_ptr<TaskCounter> &counter);
    /** Runs the tasks that wait in the caller's thread, if there is no other. */
    void helpOut();

private:
    struct Entry
    {
        QRunnable *task;
        std::shared_ptr<TaskCounter> counter; // the owner may be gone before the last look at it
    };
    using Lock = std::unique_lock<std::mutex>;

    TaskPool() = default;
    ~TaskPool();

    void addThread();
    void work();
    void runNext(Lock &lock);

    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed; // there is a task for an idle thread, or the end has come
    std::deque<Entry> m_entries;
    std::vector<std::unique_ptr<QThread>> m_threads; // those that have begun; they stay
    std::size_t m_idle = 0; // threads that wait for m_changed, or have not yet seen it
    bool m_isHelpedOut = false;
    bool m_isEnding = false;
    std::atomic<bool> m_hasThread{false}; // from the first one on; read without the mutex
};

} // namespace Tavro::Shared::detail
