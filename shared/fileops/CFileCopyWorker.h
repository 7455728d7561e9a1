#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/fileops/CFileCopyController.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Tavro::Shared {

/**
 * Copies directory trees or single files chunk by chunk; the work behind CFileCopyController.
 *
 * The owner loads a request with one of the copy functions, moves the worker to a thread and has
 * doWork() run there. A run works on its own copy of what was loaded: loading or reset() during
 * a run concerns the next one.
 *
 * Every chunk of at most 4 MiB is flushed to the device before it counts as processed, with the
 * name of its file, and the command "sync", found on PATH, runs with the chunk that completes the
 * request. So a drive pulled out loses at most the chunk in flight.
 *
 * Loading belongs to the owner's thread. pause(), resume(), cancelWork(), reset() and the
 * readers may be called from any thread. Signals are emitted on the thread that works, those of
 * loading and reset() on the caller's.
 */
class OVO_SHARED_EXPORT CFileCopyWorker : public QObject
{
    Q_OBJECT

public:
    explicit CFileCopyWorker(QObject *parent = nullptr);
    ~CFileCopyWorker() override;

    /** Current step. */
    int state() const;
    /** A CFileCopyController::Error: the result of the last file that doWork() copied. */
    int error() const;
    /** True from cancelWork() on, or from a run with nothing loaded, until the next reset(). */
    bool isCanceled() const;

    /**
     * Loads one directory, in place of what was loaded before. @p sourcePath may lack its final
     * "/"; relative paths count from the current directory of this moment. Blanks and tabs at
     * the end of @p destinationPath are removed. An empty source holds nothing to copy, an empty
     * destination cannot be written to.
     */
    void copyDirectory(const QString &sourcePath, const QString &destinationPath);
    /** Loads pairs of directories; surplus entries of the longer list are ignored. */
    void copyDirectories(const QStringList &sourcePaths, const QStringList &destinationPaths);
    /** Loads a single file. The destination's directory must exist when the copy runs. */
    void copyLargeFile(const QString &sourcePath, const QString &destinationPath);

    /** Halts the run before its next chunk or step; returns at once. */
    void pause();
    /** Lets a halted run go on. */
    void resume();
    /** Forgets what is loaded: idle, no error, not canceled, not paused, counters 0. */
    void reset();

    /** Stores the step; stateChanged() only when it differs. */
    void setState(CFileCopyController::State state);
    /** Adds @p n bytes to those processed and announces the sum. */
    void updateProcessedBytes(qint64 n);
    /** Stores and announces the name of the directory being filled, each time. */
    void updateProcessingDirectory(const QString &processingDirectory);

    /**
     * Creates @p directories, relative to @p root, in order. False at the first that cannot be
     * created; the rest are not tried then.
     */
    bool createFolderStructure(const QString &root, const QStringList &directories);
    /** Takes the size of the first loaded source as the number of bytes to copy. */
    void prepareFile();
    /** Walks the loaded sources: fills their lists and adds up the bytes to copy. */
    void enumerateFiles();

    /**
     * Copies one file and returns a CFileCopyController::Error as int. Blocks until every chunk
     * is on the device; processes the calling thread's events between chunks when the worker
     * lives there.
     *
     * The source must be a regular file once links are followed, and not the destination itself:
     * neither a pipe nor a device is waited for or opened. After a failure the destination is
     * removed. A cancelled copy leaves it truncated and returns ErrorNone.
     *
     * The destination gets the nine permission bits of the source.
     */
    int copyFile(const QString &sourcePath, const QString &destinationPath);

public Q_SLOTS:
    /**
     * Runs what is loaded and ends with finished(). Returns at once, and emits nothing, when
     * called while a run is in progress.
     */
    void doWork();
    /** Ends the run before its next chunk or step, a paused one too. */
    void cancelWork();

Q_SIGNALS:
    /** The run is over: completed, failed or canceled. Exactly once for each doWork(). */
    void finished();
    /** @p newState is a CFileCopyController::State. */
    void stateChanged(int newState);
    /** A file was not copied, and the run stops; @p errorCode is a CFileCopyController::Error. */
    void errorOccurred(int errorCode);
    /** Bytes written so far; once for each chunk, and 0 after reset(). */
    void processedBytesChanged(qlonglong value);
    /** Name, without path, of the destination directory being filled. */
    void processingDirectoryChanged(const QString &processingDirectory);
    /** Bytes to copy; once a run, and 0 after reset(). */
    void totalBytesChanged(qlonglong value);

private:
    friend class CFileCopyController; // loads requests, and hears of their runs
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
