#pragma once

#include <QString>
#include <QStringList>

namespace Tavro::Shared {

/**
 * How a background copy or deletion ended.
 *
 * A plain value for C++ hosts: the signals of the controllers do not tell whether everything was
 * copied or deleted. See CFileCopyController::lastResult() and
 * CFileDeleteController::lastResult().
 */
struct CFileOperationResult
{
    /**
     * What failed, as the controller's createErrorCode() packs it, for a Base::CErrorCode. Its
     * low byte is 0 when nothing failed.
     */
    quint32 errorCode = 0;
    /** The errno of the system call that failed; 0 when nothing failed or no call is known. */
    int systemError = 0;
    /** Absolute path of the file or directory at which it failed; empty when nothing failed. */
    QString path;
    /**
     * Absolute paths of the directories that could not be listed, or only in part. What they hold
     * is missing in a copy, and still there after a deletion.
     */
    QStringList unreadableDirectories;
    /** Files that were copied or deleted whole. */
    qint64 files = 0;
    /** Bytes that were copied, or the sizes of the files that were deleted. */
    qint64 bytes = 0;
    /** True when the run was ended by abort() or by the end of its controller. */
    bool canceled = false;

    /** True when nothing failed, every directory could be listed, and nobody ended the run. */
    bool isWhole() const
    {
        const quint32 detail = errorCode & 0xFFU;
        return detail == 0 && unreadableDirectories.isEmpty() && !canceled;
    }
};

} // namespace Tavro::Shared
