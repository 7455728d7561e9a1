#include "shared/system/detail/TaskPool.h"

namespace Tavro::Shared::detail {

namespace {
constexpr int s_maxThreads = 8;
}

TaskPool &TaskPool::instance()
{
    static TaskPool pool;
    return pool;
}

void TaskPool::start(QRunnable *task, const std::shared_ptr<TaskCounter> &counter)
{
    counter->add();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_entries.push_back({task, counter});
    }
    m_threads.setMaxThreadCount(s_maxThreads);
    m_threads.start(&m_turn, 0);
}

void TaskPool::runNext()
{
    Entry entry;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        entry = std::move(m_entries.front());
        m_entries.pop_front();
    }
    // asked before: a task that does not delete itself may be gone after its run
    const bool autoDelete = entry.task->autoDelete();
    entry.task->run();
    if (autoDelete) {
        delete entry.task;
    }
    entry.counter->remove();
}

} // namespace Tavro::Shared::detail
