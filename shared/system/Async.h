#pragma once

#include "host/ObservationDataResults.h"
#include "host/SqlResult.h"
#include "shared/OvoSharedBaseExport.h"

#include <QObject>

#include <memory>

class QRunnable;

namespace Tavro::Shared {

/**
 * Runs an owner's tasks in the background: all at once, one after the other, or only the latest
 * of those that wait.
 *
 * The tasks of all owners share one pool of at most 8 threads, which is not Qt's global one. Where
 * the system does not create a single one, a task runs in the thread that starts it, within that
 * call, and so do the slots there: they must not wait for a task or destroy this object then.
 *
 * A task is the host's. A null one is passed over, wherever it is given: it neither counts nor
 * waits, and startTask() does with the others what it always does. On its thread a task does three
 * things, in this order, when its work is done:
 * -# it emits the fitting taskDone(), which a queued connection brings to the owner's thread;
 * -# it calls startNext(), exactly once, also when its work failed: a task that leaves it out
 *    blocks its queue and whoever waits;
 * -# it calls asyncDeleteLater(), where the owner wants that.
 *
 * What QRunnable::autoDelete() says decides who deletes a task that has run; one that deletes
 * itself is started once. Tasks that are discarded while they wait are deleted either way.
 *
 * startTask(), addToQueue(), startFromQueue(), clearQueue() and runInThread() are the owner's, on
 * its thread. Everything else may be called from any thread.
 */
class OVO_SHARED_EXPORT Async : public QObject
{
    Q_OBJECT

public:
    /** What becomes of a task that is started while others run. */
    enum Mode : int {
        Sequential = 0, /**< it waits until those started before have finished */
        Parallel = 1, /**< it runs at once */
        SequentialLatest = 2, /**< it waits, and those that have been waiting are deleted */
    };

    /** Has no parent. A value that is no Mode makes an object that takes no task. */
    explicit Async(Mode mode);
    /**
     * Blocks until every task that is running, or waits for a thread of the pool, has returned
     * from its run() and is deleted if it deletes itself. Tasks in the queue are neither started
     * nor deleted: clearQueue() does away with them before. Never called by a task.
     */
    ~Async() override;

    /**
     * Starts @p task, now or later, as the mode has it, and takes it over. An object whose mode is
     * unknown does nothing with it: it stays the caller's.
     */
    void startTask(QRunnable *task);
    /**
     * Hands @p task to the pool without regard to the mode and to what runs. Does not block, unless
     * there is no thread.
     */
    void runInThread(QRunnable *task);
    /** Has @p task wait, behind all others. It starts when a task finishes, or is told to. */
    void addToQueue(QRunnable *task);
    /** Hands the task that has been waiting longest to the pool, if there is one. */
    void startFromQueue();
    /** Deletes the tasks that wait. */
    void clearQueue();
    /**
     * Takes note that a task has finished, starts the next one if the mode has it wait, and wakes
     * whoever waits. Called by each task, once.
     */
    void startNext();

    /**
     * Blocks, without time limit, until the next task has called startNext(), **even if others
     * are still running or waiting then**. Returns at once when nothing is running.
     */
    void waitDone();
    /** True from the start of a task on the pool until its startNext(). */
    bool isRunning() const;

    /** Sets whether asyncDeleteLater() does anything; it does not until then. */
    void setDeleteLater(bool deleteLater);
    /** Has the owner's thread delete this object, if setDeleteLater() allows it. */
    void asyncDeleteLater();

    /** True for the modes in which a task may have to wait. */
    static bool isQueueMode(Mode mode);

    // one name for all results: hosts connect by it
    // clazy:excludeall=overloaded-signal
Q_SIGNALS:
    /** A task without a result is done. Emitted, as all of these, by the task, on its thread. */
    void taskDone();
    /** A task is done that says whether it succeeded. */
    void taskDone(const bool &result);
    /** A task is done with a result of the database. */
    void taskDone(const Tavro::Database::SqlResult &result);
    /** A task is done that has loaded an observation. */
    void taskDone(const LoadObservationDataResult &result);
    /** A task is done that has removed an observation. */
    void taskDone(const RemoveObservationDataResult &result);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
