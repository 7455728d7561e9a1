// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "fieldhost/cli/DirectoryListing.h"

#include "fieldhost/jobs/Paths.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

// the size of what is no directory; an errno is left when that cannot be told
qint64 sizeOf(int directory, const char *name)
{
    struct stat info = {};
    if (::fstatat(directory, name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
        errno = errno == ENOENT ? 0 : errno; // gone
        return 0;
    }
    errno = 0;
    return S_ISREG(info.st_mode) ? info.st_size : 0;
}

void look(int fd, const QByteArray &path, Depth depth, DirectoryListing &found)
{
    const auto note = [&found, &path](int error) {
        if (error != 0) {
            found.unreadable.append({path, error});
        }
    };
    if (fd >= 0 && ::faccessat(fd, ".", X_OK, AT_EACCESS) != 0) {
        note(errno);
        ::close(fd);
        return;
    }
    note(visitEntries(fd, [&](const dirent &entry) {
        const bool mayBeDirectory = entry.d_type == DT_DIR || entry.d_type == DT_UNKNOWN;
        if (depth == Depth::Tree && mayBeDirectory) {
            const int below =
                ::openat(fd, entry.d_name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            // no directory after all, or gone
            if (below >= 0 || (errno != ENOTDIR && errno != ELOOP && errno != ENOENT)) {
                look(below, path + '/' + entry.d_name, depth, found);
            }
        }
        found.bytes += sizeOf(fd, entry.d_name);
        note(errno);
    }));
}

} // namespace

DirectoryListing listDirectory(const QString &directory, Depth depth)
{
    DirectoryListing found;
    look(openDirectory(directory), QFile::encodeName(directory), depth, found);
    return found;
}

} // namespace Tavro::FieldHost
