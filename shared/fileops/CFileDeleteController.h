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
 * Deletes directory trees in the background, with progress in bytes.
 *
 * Call every function on the thread that created the controller. Signals are emitted on that
 * thread, through its event loop. The controller owns one worker thread.
 *
 * When a run ends, state returns to StateIdle and both counters to 0. By then the removal has been
 * flushed to the device. **Failures do not show in the signals**: check lastResult() after the
 * change to idle.
 *
 * A request made while another one runs returns at once and is carried out afterwards.
 *
 * Do not destroy the controller while a deletion runs. If it happens, a tree whose deletion has
 * begun is still removed in the background, and requests that have not begun are dropped. The
 * destructor does not wait. A slot connected to any signal may delete the controller.
 */
class OVO_SHARED_EXPORT CFileDeleteController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(qlonglong processedBytes READ processedBytes NOTIFY processedBytesChanged)
    Q_PROPERTY(qlonglong totalBytes READ totalBytes NOTIFY totalBytesChanged)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)

public:
    /** What the worker is doing. */
    enum State {
        StateIdle = 0, /**< No request runs. */
        StateEnumeratingFiles = 1, /**< A request was made: its directories are walked. */
        StateDeleting = 2, /**< The walk has ended; totalBytes is known. */
    };
    Q_ENUM(State)

    /** Why something was not deleted. */
    enum Error {
        ErrorNone = 0, /**< It was deleted. */
        ErrorInternal = 1, /**< Nothing was loaded, or no thread could be created. */
        ErrorFileDeletionFailed = 2, /**< A file is still there, or was gone before its turn. */
        ErrorDirectoryDeletionFailed = 3, /**< A directory, or something in it, is still there. */
    };
    Q_ENUM(Error)

    explicit CFileDeleteController(QObject *parent = nullptr);
    ~CFileDeleteController() override;

    /** Bytes of the files that the current run has deleted so far; 0 when no request runs. */
    qlonglong processedBytes() const;
    /** Bytes of the files to delete in the current run; 0 before the walk ends and when idle. */
    qlonglong totalBytes() const;
    /** State of the worker, as of the last stateChanged(). */
    State state() const;

    /**
     * Result of the run whose end was announced last. It is set before the change to idle. It is
     * default-constructed before the first end. For C++ hosts only: QML sees only the state.
     *
     * isWhole() means that the directories are gone and that this is on the device. A directory
     * that did not exist counts as gone. A directory that cannot be reached, and a file in its
     * place, are failures. After abort() the result is not whole, even if the deletion was already
     * complete. If no thread could be created, it holds ErrorInternal and EAGAIN.
     *
     * files and bytes count what processedBytes counted. Hidden files, and files that were passed
     * over because of pause() or abort(), are removed without being counted.
     */
    CFileOperationResult lastResult() const;

    /** Packed error word for Base::CErrorCode: 0x000B0200 | @p error. */
    static quint32 createErrorCode(Error error);

    /**
     * Deletes the directory @p path with everything in it, hidden entries included. Returns at
     * once. A relative path is resolved against the current directory at the time of the call.
     *
     * Symbolic links are removed, their targets stay; this also holds if @p path itself is a link
     * to a directory. A file, an empty path, a path that does not exist and the root of the file
     * system are left alone. Entries whose names are not UTF-8 stay, and so do the directories
     * that contain them.
     */
    Q_INVOKABLE void deleteDirectory(const QString &path);

    /** Deletes several directories in one run, in this order, as deleteDirectory() does. */
    Q_INVOKABLE void deleteDirectories(const QStringList &path);

    /**
     * Halts the run before its next step. **A deletion that has begun is not halted**: the
     * remaining files are removed with their directory, without being counted. Returns at once.
     */
    Q_INVOKABLE void pause();
    /** Continues after pause(). A new request does so as well. */
    Q_INVOKABLE void resume();
    /**
     * Ends the run, and all requests that have not begun. Nothing is deleted if the walk has not
     * ended yet. **Once the deletion has begun, all directories of the request are removed as a
     * whole.** Returns at once.
     */
    Q_INVOKABLE void abort();

Q_SIGNALS:
    /** Emitted when `state` changes. */
    void stateChanged();
    /** Emitted when `processedBytes` changes: at most once for each file. */
    void processedBytesChanged();
    /** Emitted when `totalBytes` changes. */
    void totalBytesChanged();
    /** Declared for QML; never emitted by a run of this class. */
    void errorOccurred(Error errorCode); // clazy:exclude=fully-qualified-moc-types

private Q_SLOTS:
    void setProcessedBytes(qlonglong processedBytes);
    void setTotalBytes(qlonglong totalBytes);
    void setState(int newState);
    void onErrorOccurred(int errorCode);

private:
    class Private;

    std::unique_ptr<Private> d;
};

} // namespace Tavro::Shared
