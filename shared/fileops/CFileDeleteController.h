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
 * The object belongs to the thread that created it, and so does every call. It keeps one worker
 * thread for its whole life; progress arrives through that thread's event loop.
 *
 * The end of a run shows as state returning to StateIdle, and both counters to 0. **What went
 * wrong does not show**: ask lastResult() then. What was removed is flushed to the device before.
 *
 * A request made while another one runs returns at once and is carried out after it.
 *
 * Destroying the controller while a deletion runs is not meant to happen. Where it does, a tree
 * whose deletion has begun is still removed, in the background; the destructor does not wait.
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
        StateIdle = 0, /**< nothing runs */
        StateEnumeratingFiles = 1, /**< directories are loaded; the worker walks them */
        StateDeleting = 2, /**< the walk is over and totalBytes known */
    };
    Q_ENUM(State)

    /** Why something was not deleted. */
    enum Error {
        ErrorNone = 0, /**< it was deleted */
        ErrorInternal = 1, /**< nothing was loaded, or the system had no thread to give */
        ErrorFileDeletionFailed = 2, /**< a file is still there, or was gone before its turn */
        ErrorDirectoryDeletionFailed = 3, /**< a directory, or something in it, is still there */
    };
    Q_ENUM(Error)

    explicit CFileDeleteController(QObject *parent = nullptr);
    ~CFileDeleteController() override;

    /** Bytes of the files deleted so far by the run in progress; 0 when there is none. */
    qlonglong processedBytes() const;
    /** Bytes of the files to delete in the run in progress; 0 before the walk and after the end. */
    qlonglong totalBytes() const;
    /** What the worker is doing, as last delivered. */
    State state() const;

    /**
     * How the run ended whose end was announced last; set before the change to idle, and a default
     * one before the first. For C++ hosts: QML sees the state only.
     *
     * Whole: the directories are gone, and that is on the device. A directory that was not there
     * is gone; one that cannot be reached, and a file in its place, are not. files and bytes are
     * those that processedBytes counted: files that a pause or an abort in mid-deletion passed over
     * are removed and not among them, nor are hidden ones. After an abort the result is not whole,
     * also when it came too late. Without a thread to run on: ErrorInternal, EAGAIN.
     */
    CFileOperationResult lastResult() const;

    /** The word by which a CErrorCode carries @p error: 0x000B0200 and the error's own number. */
    static quint32 createErrorCode(Error error);

    /**
     * Deletes the directory @p path with all that is in it, hidden entries too. A relative path
     * counts from the current directory of this moment. Links are removed, what they point to
     * stays, also where @p path itself is a link to a directory. A file, an empty path, and one
     * that means nothing are left alone; so is the root of the file system.
     *
     * Entries whose names are not UTF-8 stay, and with them the directories that they are in.
     */
    Q_INVOKABLE void deleteDirectory(const QString &path);

    /** Deletes several directories in one run, one after the other, as deleteDirectory() does. */
    Q_INVOKABLE void deleteDirectories(const QStringList &path);

    /**
     * Halts the run before its next step. **A deletion that has begun is not halted**: it passes
     * over the files that it would have counted, and removes the directory with them.
     */
    Q_INVOKABLE void pause();
    /** Goes on after pause(). */
    Q_INVOKABLE void resume();
    /**
     * Ends the run, and those that were asked for and have not begun. Before the walk is over
     * nothing is deleted then; **directories whose deletion has begun are removed whole**, the
     * request's other ones too.
     */
    Q_INVOKABLE void abort();

Q_SIGNALS:
    /** state answers something new. */
    void stateChanged();
    /** processedBytes answers something new: at most once for each file. */
    void processedBytesChanged();
    /** totalBytes answers something new. */
    void totalBytesChanged();
    /** Declared for QML; no run of this class emits it. */
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
