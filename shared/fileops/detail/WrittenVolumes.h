// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/filesystem/detail/DirectoryHandle.h"

#include <sys/types.h>

#include <map>

namespace Tavro::Shared::detail {

/**
 * True when fsync() of a file puts its name on the device as well: the directory entry, and those
 * of directories made before it. FAT and exFAT write the file's own entry only, without the
 * sectors beside it that hold a long name, and without the entry of a new directory.
 */
bool fsyncCoversName(int fd);

/** Flushes a directory; true as well where the file system has nothing to flush for one. */
bool flushDirectory(int directory);

/**
 * The file systems that a run writes to, kept open for its last flushes.
 *
 * An open directory keeps a drive from being unmounted: this does not outlive the run.
 */
class WrittenVolumes
{
public:
    /** Adds the volume @p device of the directory @p directory, once; false when it cannot. */
    bool add(int directory, dev_t device);

    /**
     * Flushes the drives' own caches where sync() does not: it sends no flush to a FAT drive,
     * and fsync() of a directory does. False when a drive did not take it.
     */
    bool flushDrives() const;
    /** Puts all that was written on the devices, names and empty files too. */
    bool sync() const;

private:
    std::map<dev_t, DirectoryHandle> m_volumes; // a directory of each
};

} // namespace Tavro::Shared::detail
