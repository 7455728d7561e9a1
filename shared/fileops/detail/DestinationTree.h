// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/detail/FileDescriptor.h"
#include "shared/filesystem/detail/DirectoryHandle.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <sys/stat.h>

#include <unordered_set>

namespace Tavro::Shared::detail {

class WrittenVolumes;

/**
 * The directory that a copy goes into, and those below it, held open while it lasts.
 *
 * Files are created by their name in an open directory, and what was written is removed the same
 * way: a directory that is replaced by a link meanwhile leads nowhere else. Before each file,
 * what the paths mean is compared with what is open, so that a destination that was removed,
 * moved or unmounted is noticed.
 *
 * What fails leaves the reason in errno.
 */
class DestinationTree
{
    Q_DISABLE_COPY(DestinationTree)

public:
    enum class Root { MadeWhenMissing, MustExist };

    /**
     * @p root is an absolute path ending in "/", or empty: nothing can be written there then.
     * The volumes that are written to are added to @p volumes.
     */
    DestinationTree(const QString &root, Root whenMissing, WrittenVolumes &volumes);

    /**
     * Makes @p directories, relative to the root, in order, and the root before them. Returns the
     * number of those that are there; the ones behind the first that cannot be made are not tried.
     */
    int makeDirectories(const QStringList &directories);

    /**
     * Enters the directory of the file @p path, which begins with the root, and makes the root
     * where it is missing. False when there is none to be entered: it is missing, behind a link
     * that was not there before, or not on the same volume any more.
     */
    bool enterDirectoryOf(const QString &path);

    /** A file for writing in the directory entered; @p isNew when it was not there before. */
    FileDescriptor openFile(const char *name, bool &isNew) const;
    /**
     * False when the file was noted before, since its directory was entered: two names of the
     * source mean one file here, as "a" and "A" do on FAT.
     */
    bool noteWritten(const struct stat &file);
    /**
     * Flushes what fsync() of a file in the directory entered does not cover: the file's name, and
     * the names of the directories above it. Nothing where fsync() covers them.
     */
    bool flushNames(bool isNewFile);
    /**
     * Removes the file or link @p name, if that still means the file @p written; never a device
     * node.
     */
    void removeFile(const char *name, const struct stat &written) const;

private:
    bool openRoot();
    bool isRootUsable();
    bool mayMakeRootAgain() const;
    bool descendTo(const QString &path);
    DirectoryHandle openBelow(const DirectoryHandle &directory, const QString &path, int begin,
                              int end) const;
    bool flushWay();
    bool flushVolumeAboveRoot() const;

    const QString m_rootPath; // ends in "/"
    const Root m_whenMissing;
    WrittenVolumes &m_volumes;
    DirectoryHandle m_root;
    struct stat m_rootInfo = {};
    QString m_canonicalRoot; // where the root was found first, links resolved
    dev_t m_device = 0; // on which it was found first

    DirectoryHandle m_directory; // the directory entered last
    struct stat m_directoryInfo = {};
    QString m_directoryPath; // ends in "/"
    bool m_coversNames = true; // fsync() of a file in it
    bool m_isDirectoryFlushed = false;
    std::unordered_set<ino_t> m_written; // files in it

    // links and mount points among the directories that were there before, and where they lead
    QHash<QString, struct stat> m_waysOut;
    QSet<QString> m_flushed; // directories whose subdirectories' names are on the device
};

} // namespace Tavro::Shared::detail
