#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/fileops/CFileDeleteController.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Tavro::Shared {

/**
 * Deletes directory trees; the work behind CFileDeleteController.
 *
 * The owner loads a request with deleteDirectory() or deleteDirectories(), moves the worker to a
 * thread and has doWork() run there. A run works on its own copy of what was loaded: loading or
 * reset() during a run concerns the next one.
 *
 * The files that the walk has found are removed one by one, with progress; then what is left of
 * each directory: hidden entries, links, pipes and the directories themselves. Links are never
 * followed.
 *
 * Loading belongs to the owner's thread. pause(), resume(), cancelWork(), reset() and the
 * readers may be called from any thread. Signals are emitted on the thread that works, those of
 * loading and reset() on the caller's.
 */
class OVO_SHARED_EXPORT CFileDeleteWorker : public QObject
{
    Q_OBJECT

public:
    explicit CFileDeleteWorker(QObject *parent = nullptr);
    ~CFileDeleteWorker() override;

    /** Current step. */
    int state() const;
    /** True from cancelWork() on, until the next reset() or the end of the run. */
    bool isCanceled() const;

    /**
     * Loads one directory, in place of what was loaded before. A relative path counts from the
     * current directory of this moment; an empty one holds nothing to delete.
     */
    void deleteDirectory(const QString &path);
    /** Loads directories, to be deleted in this order. */
    void deleteDirectories(const QStringList &paths);

    /**
     * Halts the run before its next step. While directories are being deleted, files are passed
     * over instead: the directory is removed with them.
     */
    void pause();
    /** Lets a halted run go on. */
    void resume();
    /** Forgets what is loaded: idle, not canceled, not paused, counters 0. */
    void reset();

    /** Stores the step; stateChanged() only when it differs. */
    void setState(CFileDeleteController::State state);
    /** Adds @p n bytes to those processed and announces the sum. */
    void updateProcessedBytes(qint64 n);
    /** Walks the loaded directories: fills their lists and adds up the bytes to delete. */
    void enumerateFiles();

public Q_SLOTS:
    /**
     * Runs what is loaded and ends with finished(). Returns at once, and emits nothing, when
     * called while a run is in progress.
     */
    void doWork();
    /**
     * Ends the run before its next step, a paused one too. Directories that are being deleted
     * already are removed whole.
     */
    void cancelWork();

Q_SIGNALS:
    /** The run is over, whether or not all of it succeeded. Exactly once for each doWork(). */
    void finished();
    /** @p newState is a CFileDeleteController::State. */
    void stateChanged(int newState);
    /**
     * @p errorCode is a CFileDeleteController::Error. A file that cannot be deleted ends the run;
     * after a directory the next one follows.
     */
    void errorOccurred(int errorCode);
    /** Bytes deleted so far; once for each file, and 0 after reset() and at the end of a run. */
    void processedBytesChanged(qlonglong value);
    /** Bytes to delete; once a run, and 0 after reset() and at its end. */
    void totalBytesChanged(qlonglong value);

private:
    friend class CFileDeleteController; // loads requests, and hears of their runs
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
