#include "shared/filesystem/detail/FolderHandle.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

constexpr int s_flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

int flags(FolderHandle::Links links)
{
    return links == FolderHandle::Links::Follow ? s_flags : s_flags | O_NOFOLLOW;
}

int openFolder(int base, const char *path, int flags)
{
    int fd = -1;
    do {
        fd = ::openat(base, path, flags);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

} // namespace

FolderHandle FolderHandle::open(const char *path, Links links)
{
    return FolderHandle(openFolder(AT_FDCWD, path, flags(links)));
}

FolderHandle FolderHandle::openBelow(int folder, const char *name, Links links)
{
    return FolderHandle(openFolder(folder, name, flags(links)));
}

void FolderHandle::close()
{
    if (isOpen()) {
        ::close(std::exchange(m_fd, -1));
    }
}

} // namespace Tavro::Shared::detail
