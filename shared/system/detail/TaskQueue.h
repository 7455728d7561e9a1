// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QRunnable>

#include <mutex>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * Tasks that wait to be started, oldest first. Every function from any thread.
 *
 * The tasks that are left at the end are not deleted.
 */
class TaskQueue
{
public:
    /** @p task is not null. */
    void append(QRunnable *task)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_tasks.append(task);
    }

    /** Removes the oldest; null when the queue is empty. */
    QRunnable *takeFirst()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_tasks.isEmpty() ? nullptr : m_tasks.takeFirst();
    }

    /** Deletes all of them. */
    void clear()
    {
        QList<QRunnable *> tasks;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            std::swap(tasks, m_tasks);
        }
        // outside the lock: what a host's destructor does is not known here
        qDeleteAll(tasks);
    }

private:
    std::mutex m_mutex; // guards m_tasks
    QList<QRunnable *> m_tasks;
};

} // namespace Tavro::Shared::detail
