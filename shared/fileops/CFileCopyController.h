// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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
 * Call every function on the thread that created the controller. Signals are emitted on that
 * thread, through its event loop. The controller owns one worker thread.
 *
 * Every background request ends with exactly one operationCompleted() or operationCanceled().
 * **A copy that fails also ends with operationCompleted()**: check lastResult() before reporting
 * success to the user.
 *
 * A request made while another one runs blocks the caller until the running one has ended. Then
 * the new request starts.
 *
 * Do not destroy the controller while a copy runs. If it happens, the run stops after the chunk in
 * flight, or during the walk over the sources. The incomplete file is removed, complete files
 * stay. The destructor does not wait. A slot connected to any signal may delete the controller.
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
        StateIdle = 0, /**< No request runs. */
        StateEnumeratingFiles = 1, /**< A request for directories: the sources are walked. */
        StateCheckingSize = 2, /**< The walk has ended; totalBytes is known. */
        StateCopying = 3, /**< The files of the directories are copied. */
        StateCopyingLargeFile = 4, /**< The file of copyDatabaseFile() is copied. */
    };
    Q_ENUM(State)

    /** Why a file was not copied. */
    enum Error {
        ErrorNone = 0, /**< The file was copied. */
        ErrorSourceFileOpenFailed = 1, /**< Missing, not readable, or not a regular file. */
        ErrorSourceFileReadFailed = 2, /**< Reading the source failed. */
        ErrorDestinationFileOpenFailed = 3, /**< Cannot be created, or is the source itself. */
        ErrorDestinationFileWriteFailed = 4, /**< Writing, flushing or closing failed. */
        ErrorDestinationFileDeletionFailed = 5, /**< Never produced. */
    };
    Q_ENUM(Error)

    explicit CFileCopyController(QObject *parent = nullptr);
    ~CFileCopyController() override;

    /** Bytes copied by the current run, or by the last one. */
    qlonglong processedBytes() const;
    /** Name, without path, of the destination directory that is being filled. */
    QString processingDirectory() const;
    /** Bytes to copy in the current run, or in the last one; 0 until the walk has ended. */
    qlonglong totalBytes() const;
    /** State of the worker, as of the last stateChanged(). */
    State state() const;

    /**
     * Result of the run whose end was announced last. It is set before the end is announced. It is
     * default-constructed before the first end. For C++ hosts only: QML sees only the signals.
     *
     * bytes has the final value of processedBytes. A source that is missing, or is not a directory
     * where one is required, fails with ErrorSourceFileOpenFailed.
     */
    CFileOperationResult lastResult() const;

    /** Packed error word for Base::CErrorCode: 0x000B0100 | @p error. */
    static quint32 createErrorCode(Error error);

    /**
     * Copies the contents of @p sourcePath into @p destinationPath, which is created if there is
     * anything to copy. Returns at once unless another request runs.
     *
     * Hidden entries are not copied, symbolic links are followed. Blanks and tabs at the end of
     * @p destinationPath are removed. An empty path copies nothing. Relative paths are resolved
     * against the current directory at the time of the call. A source may be a resource,
     * ":/name".
     *
     * The destination is added to those that abort() removes; destinations of earlier calls
     * remain among them.
     *
     * If the path of a source file contains @p sourcePath again further on, that part is removed
     * from the name at the destination as well.
     */
    Q_INVOKABLE void copyDirectory(const QString &sourcePath, const QString &destinationPath);

    /**
     * Copies each source directory into the destination at the same index, as copyDirectory()
     * does. Entries without a counterpart are not copied. abort() removes all entries of
     * @p destinationPath and no destination of an earlier call.
     */
    Q_INVOKABLE void copyDirectories(const QStringList &sourcePath,
                                     const QStringList &destinationPath);

    /**
     * Copies one file on the calling thread. Blocks until the copy is on the device; the events of
     * the thread are processed between chunks. A failure is logged at level Error, category
     * "CFileCopyController", with both paths and the packed error word. Emits no signal and
     * changes no property.
     */
    Q_INVOKABLE void copyFile(const QString &sourcePath, const QString &destinationPath);

    /**
     * Copies one file in the background. The directory of @p destinationPath must exist. Blanks
     * and tabs at the end of @p destinationPath are removed. abort() removes @p destinationPath
     * and no destination of an earlier call.
     */
    Q_INVOKABLE void copyDatabaseFile(const QString &sourcePath, const QString &destinationPath);

    /** Halts the copy before its next chunk of at most 4 MiB or its next step. Returns at once. */
    Q_INVOKABLE void pause();
    /** Continues after pause(). A new request does so as well. */
    Q_INVOKABLE void resume();
    /**
     * Ends the copy before its next chunk, paused or not, and removes its destinations:
     * **directories as a whole, with everything they held before the copy began**. Never removed
     * are a source of the request, a directory that contains a source, and the root of the file
     * system. An abort counts until the end of the run has been announced. Returns at once.
     */
    Q_INVOKABLE void abort();
    /** Sets the counters to 0 and the state to idle. A copy in progress continues to its end. */
    Q_INVOKABLE void reset();

Q_SIGNALS:
    /** Emitted when `state` changes. */
    void stateChanged();
    /** Emitted when `processedBytes` changes: once for each chunk of at most 4 MiB. */
    void processedBytesChanged();
    /** Emitted for each destination directory that is begun, also if its name is the same. */
    void processingDirectoryChanged();
    /** Emitted when `totalBytes` changes. */
    void totalBytesChanged();
    /** Declared for QML; never emitted by this class. */
    void errorOccurred(Error errorCode); // clazy:exclude=fully-qualified-moc-types
    /** Emitted when a run has ended that was not aborted, with or without errors. */
    void operationCompleted();
    /** Emitted when an aborted run has ended and its destinations have been removed. */
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
