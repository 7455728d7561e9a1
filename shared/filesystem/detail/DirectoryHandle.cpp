#include "shared/filesystem/detail/DirectoryHandle.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

constexpr int s_flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

int flags(DirectoryHandle::Links links)
{
    return links == DirectoryHandle::Links::Follow ? s_flags : s_flags | O_NOFOLLOW;
}

int openDirectory(int base, const char *path, int flags)
{
    int fd = -1;
    do {
        fd = ::openat(base, path, flags);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

} // namespace

DirectoryHandle DirectoryHandle::open(const char *path, Links links)
{
    return DirectoryHandle(openDirectory(AT_FDCWD, path, flags(links)));
}

DirectoryHandle DirectoryHandle::openBelow(int directory, const char *name, Links links)
{
    return DirectoryHandle(openDirectory(directory, name, flags(links)));
}

void DirectoryHandle::close()
{
    if (isOpen()) {
        ::close(std::exchange(m_fd, -1));
    }
}

} // namespace Tavro::Shared::detail
