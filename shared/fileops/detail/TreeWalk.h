// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/detail/FileList.h"
#include "shared/filesystem/detail/DirectoryHandle.h"

#include <QStringList>

#include <atomic>

namespace Tavro::Shared::detail {

/** What a walk found below a directory. */
struct TreeListing
{
    QStringList directories; // relative to the directory, breadth first
    FileList files; // the directory's own first, then each subdirectory's in that order
    qint64 bytes = 0; // sum of the files' sizes
    QStringList unreadableDirectories; // absolute, in the order of the walk: see listTree()
    int systemError = 0; // the errno of the first of them
};

/**
 * Lists the tree below @p root, an absolute clean path with or without a final "/".
 *
 * Entry for entry, and in the same order, what QDir answers when it is asked for each directory's
 * QDir::Files and its QDir::AllDirs | QDir::NoDotAndDotDot with the sort order QDir::NoSort:
 * hidden entries left out, links followed, by name ignoring case. So a link to something that is
 * neither file nor directory (a FIFO, a device) is listed as both.
 *
 * With links refused, what QDir answers with QDir::NoSymLinks added.
 *
 * One pass over each directory instead of two listings and an examination of every full path.
 *
 * A directory that cannot be opened or read to its end, and one with an entry that cannot be
 * examined or named (no UTF-8), is listed as far as it goes and is among the
 * unreadableDirectories; so is @p root when it does not exist. A link that leads nowhere, or back
 * to where it came from until the system refuses it, hides nothing.
 *
 * @p root may be a directory of resources, ":/name".
 *
 * Ends soon, with what it has, when @p abandoned becomes true.
 */
TreeListing listTree(const QString &root, Links links = Links::Follow,
                     const std::atomic<bool> *abandoned = nullptr);

} // namespace Tavro::Shared::detail
