#include "fieldhost/cli/FolderListing.h"

#include <QFile>

#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tavro::FieldHost {

namespace {

struct CloseDirectory
{
    void operator()(DIR *directory) const { ::closedir(directory); }
};

// the size of what is no folder; an errno is left when that cannot be told
qint64 sizeOf(int folder, const char *name)
{
    struct stat info = {};
    if (::fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW) != 0) {
        errno = errno == ENOENT ? 0 : errno; // gone
        return 0;
    }
    errno = 0;
    return S_ISREG(info.st_mode) ? info.st_size : 0;
}

void look(int fd, const QByteArray &path, Depth depth, FolderListing &found)
{
    const std::unique_ptr<DIR, CloseDirectory> directory(fd < 0 ? nullptr : ::fdopendir(fd));
    if (!directory || ::faccessat(fd, ".", X_OK, AT_EACCESS) != 0) {
        found.unreadable.append({path, errno});
        if (fd >= 0 && !directory) {
            ::close(fd);
        }
        return;
    }
    errno = 0;
    while (const dirent *entry = ::readdir(directory.get())) {
        const QByteArray name(entry->d_name);
        const bool mayBeFolder = entry->d_type == DT_DIR || entry->d_type == DT_UNKNOWN;
        if (depth == Depth::Tree && mayBeFolder && name != "." && name != "..") {
            const int below =
                ::openat(fd, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            // no folder after all, or gone
            if (below >= 0 || (errno != ENOTDIR && errno != ELOOP && errno != ENOENT)) {
                look(below, path + '/' + name, depth, found);
            }
        }
        found.bytes += sizeOf(fd, name.constData());
        if (errno != 0) {
            found.unreadable.append({path, errno});
        }
        errno = 0;
    }
    if (errno != 0) {
        found.unreadable.append({path, errno});
    }
}

} // namespace

FolderListing listFolder(const QString &folder, Depth depth)
{
    FolderListing found;
    const QByteArray path = QFile::encodeName(folder);
    look(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), path, depth, found);
    return found;
}

} // namespace Tavro::FieldHost
