// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ObservationDataResults.h"
#include "host/SqlResult.h"
#include "shared/OvoSharedBaseExport.h"

#include <QObject>

#include <memory>

class QRunnable;

namespace Tavro::Shared {

/**
 * Runs tasks in the background: in parallel, one after the other, or only the latest of those that
 * wait.
 *
 * The tasks of all Async objects share a pool of at most 8 threads, which is not
 * QThreadPool::globalInstance(). If the system cannot create a single thread, a task runs in the
 * thread that starts it, within that call. Slots that are connected to this object then run
 * within the call, too. They must not wait for a task and must not destroy this object.
 *
 * The host writes the tasks. When its work is done, a task does three things on its thread, in this
 * order:
 * -# it emits the matching taskDone(), which a queued connection delivers to the owner's thread;
 * -# it calls startNext() exactly once, also when its work has failed. Without that call the next
 *    task of the queue does not start, and waitDone() and the destructor do not return;
 * -# it calls asyncDeleteLater() if the owner wants that.
 *
 * QRunnable::autoDelete() decides whether a task is deleted after its run. Start a task with
 * autoDelete() only once. A task that is discarded while it waits is always deleted. A null task is
 * ignored: it does not run, wait or count. startTask() treats the other tasks as usual.
 *
 * startTask(), addToQueue(), startFromQueue(), clearQueue() and runInThread() are for the thread
 * that the object lives in. All other functions may be called from any thread.
 */
class OVO_SHARED_EXPORT Async : public QObject
{
    Q_OBJECT

public:
    /** When startTask() runs a task. */
    enum Mode : int {
        Sequential = 0, /**< after the tasks given to it before have finished */
        Parallel = 1, /**< at once */
        SequentialLatest = 2, /**< as Sequential; the tasks that wait are deleted */
    };

    /** Creates an object without a parent. For an unknown @p mode startTask() does nothing. */
    explicit Async(Mode mode);
    /**
     * Blocks without limit until every task that runs, or waits for a thread of the pool, has
     * called startNext(), has returned from run() and, with autoDelete(), is deleted. Tasks in the
     * queue are neither started nor deleted; call clearQueue() before. A task must not call the
     * destructor.
     */
    ~Async() override;

    /**
     * Starts @p task, at once or later depending on the mode. Takes ownership according to
     * QRunnable::autoDelete(). If the mode is unknown, it does nothing and the caller keeps the
     * task. Does not block, unless there is no thread.
     */
    void startTask(QRunnable *task);
    /**
     * Passes @p task to the pool, whatever the mode is and whichever tasks run. Does not block,
     * unless there is no thread.
     */
    void runInThread(QRunnable *task);
    /**
     * Appends @p task to the queue. It starts when a task before it finishes, in the modes with a
     * queue, or by startFromQueue().
     */
    void addToQueue(QRunnable *task);
    /** Passes the first task of the queue to the pool. Does nothing when the queue is empty. */
    void startFromQueue();
    /** Deletes the tasks in the queue. */
    void clearQueue();
    /**
     * Records that a task has finished, starts the first task of the queue in the modes with a
     * queue, and wakes waitDone() and the destructor. Each task calls it exactly once.
     */
    void startNext();

    /**
     * Blocks without limit until the next call of startNext(), **even if other tasks still run or
     * wait then**. Returns at once when no task is running.
     */
    void waitDone();
    /** True from the moment a task is passed to the pool until it calls startNext(). */
    bool isRunning() const;

    /** Sets whether asyncDeleteLater() has an effect. Default: false. */
    void setDeleteLater(bool deleteLater);
    /** Calls deleteLater() if setDeleteLater() was set to true, else does nothing. */
    void asyncDeleteLater();

    /** True for Sequential and SequentialLatest. */
    static bool isQueueMode(Mode mode);

    // one name for all results: hosts connect by it
    // clazy:excludeall=overloaded-signal
Q_SIGNALS:
    /**
     * A task without a result is done. Like all overloads, it is emitted by the task, on the task's
     * thread.
     */
    void taskDone();
    /** A task is done; @p result is true when it succeeded. */
    void taskDone(const bool &result);
    /** A task is done; @p result is that of a database query. */
    void taskDone(const Tavro::Database::SqlResult &result);
    /** A task that loads an observation is done. */
    void taskDone(const LoadObservationDataResult &result);
    /** A task that removes an observation is done. */
    void taskDone(const RemoveObservationDataResult &result);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
