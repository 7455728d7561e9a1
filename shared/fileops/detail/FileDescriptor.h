// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "shared/filesystem/detail/Descriptor.h"

#include <QString>

#include <sys/stat.h>

namespace Tavro::Shared::detail {

/**
 * An open file.
 *
 * Calls that a signal interrupted are made again; no call blocks on a pipe or a device. What
 * fails leaves the reason in errno.
 */
class FileDescriptor : public Descriptor
{
public:
    FileDescriptor() = default;

    /**
     * Opens a regular file, links followed, for reading. Anything else is not even opened: a
     * FIFO would wait for a writer, and some devices act on being opened. A resource of the
     * program is a regular file, too. @p info describes the file.
     */
    static FileDescriptor openRegularFile(const QString &path, struct stat &info);
    /** The same for what a walk has just found to be a regular file, and with one question less. */
    static FileDescriptor openFoundFile(const QString &path, struct stat &info);

    /** Holds on to whatever @p path means, without any right to it. */
    static FileDescriptor openForHolding(const char *path);
    /** Opens the file @p name in @p directory for writing, or creates it. */
    static FileDescriptor openOrCreate(int directory, const char *name);
    /** Creates the file @p name in @p directory; fails with EEXIST when there is one. */
    static FileDescriptor createNew(int directory, const char *name);

    /** Describes the file; false when it is not open. */
    bool examine(struct stat &info) const;
    /** Reads until @p size bytes, or @p expected of them, are there, or the file ends. -1: error.
     */
    qint64 read(char *data, qint64 size, qint64 expected);
    /** Cuts off all that is in the file. */
    bool truncate();
    /** True when all of it was written. */
    bool write(const char *data, qint64 size);
    /** True when what was written so far is on the device. */
    bool flush();

private:
    using Descriptor::Descriptor;

    static FileDescriptor openResource(const QString &path);
    FileDescriptor ifRegular(struct stat &info);
};

} // namespace Tavro::Shared::detail
