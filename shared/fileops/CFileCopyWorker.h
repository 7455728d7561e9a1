// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/fileops/CFileCopyController.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Tavro::Shared {

/**
 * Copies directory trees or single files chunk by chunk. CFileCopyController runs one.
 *
 * The owner loads a request with one of the copy functions, moves the worker to a thread and has
 * doWork() called there. A run keeps the request it began with: loading or reset() during a run
 * affects the next run.
 *
 * Every chunk of at most 4 MiB, and the name of its file, is flushed to the device before it
 * counts as processed. The command "sync", found through PATH, runs with the chunk that completes
 * the request. A drive that is pulled out loses at most the chunk in flight.
 *
 * Load requests on the owner's thread. pause(), resume(), cancelWork(), reset() and the readers
 * may be called from any thread. Loading and reset() emit signals on the calling thread, all
 * others are emitted on the thread that runs doWork().
 */
class OVO_SHARED_EXPORT CFileCopyWorker : public QObject
{
    Q_OBJECT

public:
    explicit CFileCopyWorker(QObject *parent = nullptr);
    ~CFileCopyWorker() override;

    /** Current step, a CFileCopyController::State. */
    int state() const;
    /** Result of the last file that doWork() copied, a CFileCopyController::Error. */
    int error() const;
    /**
     * True after cancelWork(), and after a run without a request, until reset() is called or the
     * next request is loaded.
     */
    bool isCanceled() const;

    /**
     * Loads one directory; it replaces what was loaded before and ends a pause. @p sourcePath may
     * lack its final "/". Relative paths are resolved against the current directory at the time
     * of the call. Blanks and tabs at the end of @p destinationPath are removed. With an empty
     * source there is nothing to copy; an empty destination cannot be written to.
     */
    void copyDirectory(const QString &sourcePath, const QString &destinationPath);
    /** Loads pairs of directories. Surplus entries of the longer list are ignored. */
    void copyDirectories(const QStringList &sourcePaths, const QStringList &destinationPaths);
    /** Loads one file. The directory of @p destinationPath must exist when the copy runs. */
    void copyLargeFile(const QString &sourcePath, const QString &destinationPath);

    /** Halts the run before its next chunk or step. Returns at once. */
    void pause();
    /** Continues a halted run. */
    void resume();
    /** Unloads the request: idle, no error, not canceled, not paused, counters 0. */
    void reset();

    /** Sets the current step. Emits stateChanged() if it differs. */
    void setState(CFileCopyController::State state);
    /** Adds @p n bytes to the processed ones. Emits processedBytesChanged() with the sum. */
    void updateProcessedBytes(qint64 n);
    /** Emits processingDirectoryChanged(), also if the name is the same as before. */
    void updateProcessingDirectory(const QString &processingDirectory);

    /**
     * Creates @p directories, relative to @p root, in order. Returns false at the first one that
     * cannot be created; the rest are not tried.
     */
    bool createFolderStructure(const QString &root, const QStringList &directories);
    /** Sets the number of bytes to copy to the size of the first loaded source. */
    void prepareFile();
    /** Walks the loaded sources, fills their lists and adds up the bytes to copy. */
    void enumerateFiles();

    /**
     * Copies one file and returns a CFileCopyController::Error as int. Blocks until every chunk is
     * on the device. Between chunks it processes the events of the calling thread if the worker
     * lives there.
     *
     * The source, links followed, must be a regular file and not the destination itself. Pipes and
     * devices are never opened. After a failure the destination is removed. A canceled copy leaves
     * it truncated and returns ErrorNone. The destination gets the nine permission bits of the
     * source.
     */
    int copyFile(const QString &sourcePath, const QString &destinationPath);

public Q_SLOTS:
    /**
     * Runs the loaded request and ends with finished(). Blocks until then. Returns at once and
     * emits nothing if a run is in progress.
     */
    void doWork();
    /** Ends the run before its next chunk or step, paused or not. Returns at once. */
    void cancelWork();

Q_SIGNALS:
    /** Emitted exactly once for each run: completed, failed or canceled. */
    void finished();
    /** Emitted when the step changes; @p newState is a CFileCopyController::State. */
    void stateChanged(int newState);
    /** Emitted when a file was not copied and the run stops; a CFileCopyController::Error. */
    void errorOccurred(int errorCode);
    /** Bytes copied so far. Emitted for each chunk, and with 0 by loading and reset(). */
    void processedBytesChanged(qlonglong value);
    /** Name, without path, of the destination directory. Emitted for each one that is begun. */
    void processingDirectoryChanged(const QString &processingDirectory);
    /** Bytes to copy. Emitted once in each run, and with 0 by loading and reset(). */
    void totalBytesChanged(qlonglong value);

private:
    friend class CFileCopyController; // loads requests and is told of their runs
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
