// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/fileops/detail/FileDescriptor.h"

#include <QString>
#include <QStringList>

#include <sys/stat.h>

#include <map>
#include <utility>

namespace Tavro::Shared::detail {

/**
 * What an abort never removes: the sources of a request, the directories that hold one, and the
 * root of the file system. Known by device and inode, whatever the path that leads there; and
 * held on to, as FAT numbers a file anew when nobody does.
 */
class KeptSources
{
public:
    /** @p sources are absolute paths; those that are not there need not be kept. */
    explicit KeptSources(const QStringList &sources);

    bool contains(const struct stat &info) const;
    /** True when an abort leaves @p destination as it is. */
    bool contains(const QString &destination) const;

private:
    bool insert(const QByteArray &path);
    void insertWithAncestors(const QByteArray &directory);

    std::map<std::pair<dev_t, ino_t>, FileDescriptor> m_files;
    bool m_isComplete = true; // otherwise anything may be a source
};

/**
 * Removes a destination: a directory with all that is in it, or a file. A destination that is a
 * link to a directory loses what is in the directory, and stays. What @p sources contains stays
 * as well, wherever it comes up. What cannot be removed is left.
 */
void removeDestination(const QString &destination, const KeptSources &sources);

} // namespace Tavro::Shared::detail
