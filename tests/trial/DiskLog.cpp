// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/trial/DiskLog.h"

#include <fcntl.h>
#include <linux/dm-ioctl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace Trial {

namespace {

// the layout and the flags of drivers/md/dm-log-writes.c
constexpr std::uint64_t s_magic = 0x6a736677736872;
constexpr std::uint64_t s_version = 1;

enum Flag : std::uint64_t {
    Flush = 1,
    Forced = 2,
    Discard = 4,
    Mark = 8,
};

struct SuperBlock
{
    std::uint64_t magic;
    std::uint64_t version;
    std::uint64_t requests;
    std::uint32_t sectorSize;
};

struct RequestHeader
{
    std::uint64_t sector;
    std::uint64_t sectors;
    std::uint64_t flags;
    std::uint64_t markLength;
};

void readAt(int file, std::uint64_t offset, void *data, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = ::pread(file, static_cast<char *>(data) + done, size - done,
                                      static_cast<off_t>(offset + done));
        if (count <= 0) {
            fail("cannot read the log");
        }
        done += static_cast<std::size_t>(count);
    }
}

} // namespace

bool DiskRequest::isFlush() const
{
    return flags & Flush;
}

bool DiskRequest::isForced() const
{
    return flags & Forced;
}

bool DiskRequest::isDiscard() const
{
    return flags & Discard;
}

bool DiskRequest::isMark() const
{
    return flags & Mark;
}

bool DiskRequest::isWrite() const
{
    return sectors > 0 && !isDiscard();
}

DiskLog::DiskLog(const std::string &path)
    : m_file(::open(path.c_str(), O_RDONLY | O_CLOEXEC))
{
    if (m_file < 0) {
        fail(path);
    }
    SuperBlock super = {};
    readAt(m_file, 0, &super, sizeof(super));
    if (super.magic != s_magic || super.version != s_version || super.sectorSize != s_sectorSize) {
        errno = EINVAL;
        fail(path + " is no log of a disk");
    }
    m_requests.reserve(super.requests);
    std::uint64_t offset = s_sectorSize;
    for (std::uint64_t i = 0; i < super.requests; ++i) {
        RequestHeader header = {};
        readAt(m_file, offset, &header, sizeof(header));
        DiskRequest request;
        request.sector = header.sector;
        request.sectors = header.sectors;
        request.flags = header.flags;
        request.dataOffset = offset + s_sectorSize;
        if (header.markLength > 0) { // the text stands behind the header, in its sector
            request.mark.resize(header.markLength);
            readAt(m_file, offset + sizeof(header), &request.mark[0], header.markLength);
        }
        offset = request.dataOffset + (request.isWrite() ? request.sectors * s_sectorSize : 0);
        m_requests.push_back(std::move(request));
    }
}

DiskLog::~DiskLog()
{
    ::close(m_file);
}

std::vector<char> DiskLog::dataOf(const DiskRequest &request) const
{
    std::vector<char> data(request.sectors * s_sectorSize);
    readAt(m_file, request.dataOffset, data.data(), data.size());
    return data;
}

void mark(const std::string &disk, const std::string &text)
{
    static const int control = ::open("/dev/mapper/control", O_RDWR | O_CLOEXEC);
    std::string message = "mark ";
    for (const char character : text) { // one argument, whatever the kernel takes for a blank
        message += '\\';
        message += character;
    }
    alignas(dm_ioctl) char buffer[1024] = {}; // a header, then a dm_target_msg with its text
    auto *header = static_cast<dm_ioctl *>(static_cast<void *>(buffer)); // which is aligned
    header->version[0] = DM_VERSION_MAJOR;
    header->data_size = sizeof(buffer);
    header->data_start = sizeof(dm_ioctl);
    disk.copy(header->name, sizeof(header->name) - 1);
    char *const begin = buffer + sizeof(dm_ioctl) + sizeof(dm_target_msg);
    message.copy(begin, static_cast<std::size_t>(buffer + sizeof(buffer) - begin) - 1);
    if (control < 0 || ::ioctl(control, DM_TARGET_MSG, buffer) != 0) {
        fail("cannot mark " + disk);
    }
}

void fail(const std::string &what)
{
    std::fprintf(stderr, "trial: %s: %s\n", what.c_str(), std::strerror(errno));
    std::exit(EXIT_FAILURE);
}

} // namespace Trial
