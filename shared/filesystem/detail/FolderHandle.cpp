#include "shared/filesystem/detail/FolderHandle.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Tavro::Shared::detail {

namespace {

constexpr int s_flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

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
    return FolderHandle(
        openFolder(AT_FDCWD, path, links == Links::Follow ? s_flags : s_flags | O_NOFOLLOW));
}

FolderHandle FolderHandle::openIn(int folder, const char *name)
{
    return FolderHandle(openFolder(folder, name, s_flags | O_NOFOLLOW));
}

void FolderHandle::close()
{
    if (isOpen()) {
        ::close(std::exchange(m_fd, -1));
    }
}

} // namespace Tavro::Shared::detail
