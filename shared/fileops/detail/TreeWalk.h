#pragma once

#include "shared/fileops/CFileEntry.h"

#include <QList>
#include <QSet>
#include <QStringList>

namespace Tavro::Shared::detail {

/** What a walk found below a directory. */
struct TreeListing
{
    QStringList directories; // relative to the directory, breadth first
    QList<CFileEntry> files; // the directory's own first, then each subdirectory's in that order
    QSet<QString> specialFiles; // paths of those that are no regular files: links to FIFOs, devices
    qint64 bytes = 0; // sum of the files' sizes
};

/** What a walk does with links. */
enum class Links {
    Follow, // as if what they point to stood in their place
    LeaveOut, // neither they nor what they point to lie in the tree
};

/**
 * Lists the tree below @p root, an absolute clean path with or without a final "/".
 *
 * Entry for entry, and in the same order, what QDir answers when it is asked for each directory's
 * QDir::Files and its QDir::AllDirs | QDir::NoDotAndDotDot with the sort order QDir::NoSort:
 * hidden entries left out, links followed, by name ignoring case. So a link to something that is
 * neither file nor directory (a FIFO, a device) is listed as both.
 *
 * With links left out, what QDir answers with QDir::NoSymLinks added.
 *
 * One pass over each directory instead of two listings and an examination of every full path.
 * Directories that cannot be read are empty.
 */
TreeListing listTree(const QString &root, Links links = Links::Follow);

} // namespace Tavro::Shared::detail
