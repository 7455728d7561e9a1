// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "shared/fileops/detail/WrittenVolumes.h"

#include "shared/filesystem/detail/SystemCall.h"

#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace Tavro::Shared::detail {

namespace {

// Tried with cuts of power at every flush, see docs/durability.md. The first is ext2, ext3 and
// ext4. On f2fs a flush of the directory saves nothing and loses more: its driver does not wait
// for the first file flushed after each of its checkpoints, which that flush makes. Nothing of a
// tmpfs is on any device.
constexpr std::array<unsigned, 5> s_coveringFileSystems = {
    EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, TMPFS_MAGIC,
};

} // namespace

bool fsyncCoversName(int fd)
{
    struct statfs info = {};
    return ::fstatfs(fd, &info) == 0
        && std::find(s_coveringFileSystems.begin(), s_coveringFileSystems.end(),
                     static_cast<unsigned>(info.f_type))
        != s_coveringFileSystems.end();
}

bool flushDirectory(int directory)
{
    return uninterrupted([=] { return ::fsync(directory); }) == 0 || errno == EINVAL
        || errno == EROFS || errno == ENOTSUP || errno == ENOSYS;
}

bool WrittenVolumes::add(int directory, dev_t device)
{
    if (m_volumes.count(device) != 0) {
        return true;
    }
    DirectoryHandle volume = DirectoryHandle::openBelow(directory, ".");
    return volume.isOpen() && m_volumes.emplace(device, std::move(volume)).second;
}

// each volume, also behind one that fails

bool WrittenVolumes::flushDrives() const
{
    bool isFlushed = true;
    for (const auto &[device, directory] : m_volumes) {
        const bool isDone = fsyncCoversName(directory.get()) || flushDirectory(directory.get());
        isFlushed = isFlushed && isDone;
    }
    return isFlushed;
}

bool WrittenVolumes::sync() const
{
    bool isWritten = true;
    for (const auto &[device, directory] : m_volumes) {
        isWritten = ::syncfs(directory.get()) == 0 && isWritten;
    }
    return flushDrives() && isWritten;
}

} // namespace Tavro::Shared::detail
