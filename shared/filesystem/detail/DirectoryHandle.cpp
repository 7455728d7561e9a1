// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/filesystem/detail/DirectoryHandle.h"

#include "shared/filesystem/detail/SystemCall.h"

#include <fcntl.h>

namespace Tavro::Shared::detail {

DirectoryHandle DirectoryHandle::open(const char *path, Links links)
{
    return openBelow(AT_FDCWD, path, links);
}

DirectoryHandle DirectoryHandle::openBelow(int directory, const char *name, Links links)
{
    const int flags =
        O_RDONLY | O_DIRECTORY | O_CLOEXEC | (links == Links::Refuse ? O_NOFOLLOW : 0);
    return DirectoryHandle(uninterrupted([=] { return ::openat(directory, name, flags); }));
}

} // namespace Tavro::Shared::detail
