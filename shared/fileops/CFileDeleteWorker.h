// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/fileops/CFileDeleteController.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Tavro::Shared {

/**
 * Deletes directory trees. CFileDeleteController runs one.
 *
 * The owner loads a request with deleteDirectory() or deleteDirectories(), moves the worker to a
 * thread and has doWork() called there. A run keeps the request it began with: loading or reset()
 * during a run affects the next run.
 *
 * First the files that the walk has found are removed one by one, with progress. Then the rest of
 * each directory is removed: hidden entries, links, pipes and the directories themselves. Links
 * are never followed.
 *
 * Load requests on the owner's thread. pause(), resume(), cancelWork(), reset() and the readers
 * may be called from any thread. Loading and reset() emit signals on the calling thread, all
 * others are emitted on the thread that runs doWork().
 */
class OVO_SHARED_EXPORT CFileDeleteWorker : public QObject
{
    Q_OBJECT

public:
    explicit CFileDeleteWorker(QObject *parent = nullptr);
    ~CFileDeleteWorker() override;

    /** Current step, a CFileDeleteController::State. */
    int state() const;
    /**
     * True after cancelWork(), until the run ends, reset() is called or the next request is
     * loaded.
     */
    bool isCanceled() const;

    /**
     * Loads one directory; it replaces what was loaded before and ends a pause. A relative path is
     * resolved against the current directory at the time of the call. With an empty path there is
     * nothing to delete.
     */
    void deleteDirectory(const QString &path);
    /** Loads directories, which are deleted in this order. */
    void deleteDirectories(const QStringList &paths);

    /**
     * Halts the run before its next step. A deletion that has begun is not halted: the remaining
     * files are removed with their directory, without being counted. Returns at once.
     */
    void pause();
    /** Continues a halted run. */
    void resume();
    /** Unloads the request: idle, not canceled, not paused, counters 0. */
    void reset();

    /** Sets the current step. Emits stateChanged() if it differs. */
    void setState(CFileDeleteController::State state);
    /** Adds @p n bytes to the processed ones. Emits processedBytesChanged() with the sum. */
    void updateProcessedBytes(qint64 n);
    /** Walks the loaded directories, fills their lists and adds up the bytes to delete. */
    void enumerateFiles();

public Q_SLOTS:
    /**
     * Runs the loaded request and ends with finished(). Blocks until then. Returns at once and
     * emits nothing if a run is in progress.
     */
    void doWork();
    /**
     * Ends the run before its next step, paused or not. Once the deletion has begun, all
     * directories of the request are removed as a whole. Returns at once.
     */
    void cancelWork();

Q_SIGNALS:
    /** Emitted exactly once for each run: completed, failed or canceled. */
    void finished();
    /** Emitted when the step changes; @p newState is a CFileDeleteController::State. */
    void stateChanged(int newState);
    /**
     * Emitted for a failure; @p errorCode is a CFileDeleteController::Error. A file that cannot be
     * deleted ends the run. After a directory that cannot be deleted, the next one follows.
     */
    void errorOccurred(int errorCode);
    /** Bytes deleted so far. Emitted for each file; with 0 by loading, reset() and each end. */
    void processedBytesChanged(qlonglong value);
    /** Bytes to delete. Emitted once in each run; with 0 by loading, reset() and each end. */
    void totalBytesChanged(qlonglong value);

private:
    friend class CFileDeleteController; // loads requests and is told of their runs
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
