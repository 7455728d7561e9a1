#pragma once

#include "shared/OvoSharedBaseExport.h"
#include "shared/fileops/CFileOperationResult.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Tavro::Shared {

/**
 * Copies directory trees and single files in the background, with progress in bytes.
 *
 * The object belongs to the thread that created it, and so does every call. It keeps one worker
 * thread for its whole life; progress arrives through that thread's event loop.
 *
 * Every background request ends with exactly one of operationCompleted() and
 * operationCanceled(). **A copy that fails ends with operationCompleted() too**: ask lastResult()
 * before telling anybody that the copy is whole.
 *
 * A request made while another one runs blocks the caller until the running one has come to
 * its own end, and is carried out then.
 *
 * Do not destroy the controller while a copy runs. If it happens, the walk over the sources or
 * the copy stops after the chunk in flight, the file that is not whole is removed, files that are
 * whole stay, and the destructor does not wait. A slot of any of the signals may delete the
 * controller.
 */
class OVO_SHARED_EXPORT CFileCopyController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(qlonglong processedBytes READ processedBytes NOTIFY processedBytesChanged)
    Q_PROPERTY(
        QString processingDirectory READ processingDirectory NOTIFY processingDirectoryChanged)
    Q_PROPERTY(qlonglong totalBytes READ totalBytes NOTIFY totalBytesChanged)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)

public:
    /** What the worker is doing. */
    enum State {
        StateIdle = 0, /**< nothing runs */
        StateEnumeratingFiles = 1, /**< directories are loaded; the worker walks the sources */
        StateCheckingSize = 2, /**< the walk is over and totalBytes known */
        StateCopying = 3, /**< the files of the directories are being copied */
        StateCopyingLargeFile = 4, /**< the file of copyDatabaseFile() is being copied */
    };
    Q_ENUM(State)

    /** Why a file was not copied. */
    enum Error {
        ErrorNone = 0, /**< it was copied */
        ErrorSourceFileOpenFailed = 1, /**< missing, not readable, or no regular file */
        ErrorSourceFileReadFailed = 2, /**< the source broke off while it was read */
        ErrorDestinationFileOpenFailed = 3, /**< not creatable, or the source itself */
        ErrorDestinationFileWriteFailed = 4, /**< not written, not flushed or not closed */
        ErrorDestinationFileDeletionFailed = 5, /**< never produced */
    };
    Q_ENUM(Error)

    explicit CFileCopyController(QObject *parent = nullptr);
    ~CFileCopyController() override;

    /** Bytes written by the current run, or by the last one. */
    qlonglong processedBytes() const;
    /** Name, without path, of the destination directory being filled. */
    QString processingDirectory() const;
    /** Bytes to write in the current run, or in the last one; 0 until the sources are walked. */
    qlonglong totalBytes() const;
    /** What the worker is doing, as last delivered. */
    State state() const;

    /**
     * How the run ended whose end was announced last; set before that announcement, and a default
     * one before the first. For C++ hosts: QML sees the signals only.
     *
     * bytes is what processedBytes counted. A source that is missing, or no directory where one is
     * asked for, has failed with ErrorSourceFileOpenFailed.
     */
    CFileOperationResult lastResult() const;

    /** The word by which a CErrorCode carries @p error: 0x000B0100 and the error's own number. */
    static quint32 createErrorCode(Error error);

    /**
     * Copies what is below @p sourcePath into @p destinationPath, which is created when there is
     * something to copy into it. Hidden entries are left out, links are followed. Blanks and
     * tabs at the end of @p destinationPath are not part of its name; an empty path copies
     * nothing. Relative paths count from the current directory of this moment; a source may be a
     * resource, ":/name".
     *
     * Adds to the destinations that an abort removes: those of earlier calls stay among them.
     *
     * Where the path of a source file holds @p sourcePath a second time, that part is cut out of
     * the file's name in the destination as well.
     */
    Q_INVOKABLE void copyDirectory(const QString &sourcePath, const QString &destinationPath);

    /**
     * Copies each source directory into the destination of the same position, as copyDirectory()
     * does; entries without a counterpart are ignored. The destinations that an abort removes
     * are these and no others.
     */
    Q_INVOKABLE void copyDirectories(const QStringList &sourcePath,
                                     const QStringList &destinationPath);

    /**
     * Copies one file at once, on the caller's thread, whose events are processed between
     * chunks. Blocks until the copy is durable. A failure is logged at level Error under
     * "CFileCopyController" with both paths and the packed code; no signal, no property changes.
     */
    Q_INVOKABLE void copyFile(const QString &sourcePath, const QString &destinationPath);

    /** Copies one file in the background. An abort removes @p destinationPath and nothing else. */
    Q_INVOKABLE void copyDatabaseFile(const QString &sourcePath, const QString &destinationPath);

    /** Halts the copy before the next chunk of at most 4 MiB, or before the next step. */
    Q_INVOKABLE void pause();
    /** Goes on after pause(). */
    Q_INVOKABLE void resume();
    /**
     * Ends the copy before its next chunk and removes its destinations: **directories whole,
     * with everything they held before the copy began**. A source of the request, a directory
     * that holds one, and the root of the file system are never removed. Also ends a paused copy,
     * and one whose end has not been announced yet.
     */
    Q_INVOKABLE void abort();
    /** Sets the counters to 0 and the state to idle; a copy in progress still runs to its end. */
    Q_INVOKABLE void reset();

Q_SIGNALS:
    /** state answers something new. */
    void stateChanged();
    /** processedBytes answers something new: once for each chunk of at most 4 MiB. */
    void processedBytesChanged();
    /** A destination directory is begun, whether or not its name differs from the last one's. */
    void processingDirectoryChanged();
    /** totalBytes answers something new. */
    void totalBytesChanged();
    /** Declared for QML; no operation of this class emits it. */
    void errorOccurred(Error errorCode); // clazy:exclude=fully-qualified-moc-types
    /** A run has ended that nobody aborted, with or without errors. */
    void operationCompleted();
    /** A run has ended early, and the destinations of an aborted one are gone. */
    void operationCanceled();

private Q_SLOTS:
    void setProcessedBytes(qlonglong processedBytes);
    void setProcessingDirectory(const QString &processingDirectory);
    void setTotalBytes(qlonglong totalBytes);
    void setState(int newState);
    void onWorkerFinished();

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
