// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/filesystem/detail/DirectoryHandle.h"

#include <QString>
#include <QStringList>

namespace Tavro::Shared::detail {

/** True when @p root is a directory that may be gone through: no link, and not the root of all. */
bool isRemovableTree(const QString &root);

/** What came of removing a tree. */
struct TreeRemoval
{
    enum class Outcome {
        Gone, // it is not there any more, or was not
        NoDirectory, // a file, or a link to none: left alone
        Failed, // it, or part of it, is still there
    };

    Outcome outcome = Outcome::Gone;
    int systemError = 0; // of the first failure, 0 when it is gone or nobody knows
    QString path; // absolute, where that was; empty when it is gone
    QStringList unreadableDirectories; // absolute; those that are still there
    bool wasThere = false; // there was something to remove
};

/**
 * Removes what is left below the directory @p root, and itself. What cannot be removed stays, the
 * rest goes all the same.
 *
 * Links are removed, never followed; so is @p root, where it is a link to a directory. The root
 * of all is not removed.
 */
TreeRemoval removeTree(const QString &root);

/** Removes single files below a directory; files of the same directory in a row cost the least. */
class FileRemoval
{
public:
    /** @p root is a directory; each file's path begins with it. */
    explicit FileRemoval(const QString &root);
    ~FileRemoval();

    FileRemoval(const FileRemoval &) = delete;
    FileRemoval &operator=(const FileRemoval &) = delete;

    /** The errno of what keeps the file; ENOENT when it was gone before, 0 when it is gone now. */
    int remove(const QString &path);

private:
    int enterDirectory(const QString &path, int length);
    void leaveDirectory();

    const QString m_prefix; // the root, ending in "/"
    DirectoryHandle m_root;
    DirectoryHandle m_directory;
    QString m_directoryPath; // of the open directory, ending in "/"
    int m_error = 0; // of opening it
    bool m_isOnOtherVolume = false; // than the root is
};

/** What kept a removal from being written to the device. */
struct FlushFailure
{
    int systemError = 0; // 0 when nothing did
    QString path; // the directory, absolute
};

/** Writes to the device what was removed at @p roots: the directories that they were in, and all
 * of these volumes. */
FlushFailure flushRemovals(const QStringList &roots);

} // namespace Tavro::Shared::detail
