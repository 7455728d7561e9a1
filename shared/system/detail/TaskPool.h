#pragma once

#include "shared/system/detail/TaskCounter.h"

#include <QRunnable>
#include <QThreadPool>

#include <deque>
#include <memory>
#include <mutex>

namespace Tavro::Shared::detail {

/** The threads that run the tasks of all owners. Every function from any thread. */
class TaskPool
{
    Q_DISABLE_COPY(TaskPool)

public:
    /** Made at first use; at the process's exit it waits for the tasks that still run. */
    static TaskPool &instance();

    /**
     * Has @p task run by one of at most 8 threads, in the order of these calls, and deleted
     * afterwards if it is one that deletes itself. It counts in @p counter until then.
     */
    void start(QRunnable *task, const std::shared_ptr<TaskCounter> &counter);

private:
    /** Has no data of its own, so the one object stands on the pool as often as there are tasks. */
    class Turn : public QRunnable
    {
    public:
        Turn() { setAutoDelete(false); }
        void run() override { TaskPool::instance().runNext(); }
    };

    struct Entry
    {
        QRunnable *task;
        std::shared_ptr<TaskCounter> counter; // the owner may be gone before the last look at it
    };

    TaskPool() = default;
    void runNext();

    std::mutex m_mutex; // guards m_entries
    std::deque<Entry> m_entries; // as many as there are turns still to come
    Turn m_turn;
    QThreadPool m_threads; // last, so first to go: its threads use the others
};

} // namespace Tavro::Shared::detail
