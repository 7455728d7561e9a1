// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace Tavro::Shared {

/**
 * Result of a background copy or deletion, for C++ hosts.
 *
 * The signals of the controllers do not tell whether everything was copied or deleted. Returned by
 * CFileCopyController::lastResult() and CFileDeleteController::lastResult().
 */
struct CFileOperationResult
{
    /**
     * The first failure, packed by the controller's createErrorCode(), for Base::CErrorCode. The
     * low byte is 0 if nothing failed.
     */
    quint32 errorCode = 0;
    /** The errno of the system call that failed; 0 if nothing failed or it is unknown. */
    int systemError = 0;
    /** Absolute path of the file or directory that failed; empty if nothing failed. */
    QString path;
    /**
     * Absolute paths of the directories that could not be listed completely. Their contents are
     * missing in a copy, and still there after a deletion.
     */
    QStringList unreadableDirectories;
    /** Number of files that were copied completely, or deleted. */
    qint64 files = 0;
    /** Bytes that were copied, or the sum of the sizes of the deleted files. */
    qint64 bytes = 0;
    /** True if the run was ended by abort(), or because its controller was destroyed. */
    bool canceled = false;

    /** True if nothing failed, every directory was listed completely and nobody ended the run. */
    bool isWhole() const
    {
        const quint32 detail = errorCode & 0xFFU;
        return detail == 0 && unreadableDirectories.isEmpty() && !canceled;
    }
};

} // namespace Tavro::Shared
