// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Trial {

constexpr std::uint64_t s_sectorSize = 512;

/** What a disk was asked for, as the kernel's target "log-writes" of the device mapper keeps it. */
struct DiskRequest
{
    std::uint64_t sector = 0;
    std::uint64_t sectors = 0;
    std::uint64_t flags = 0;
    std::uint64_t dataOffset = 0; /**< in the log */
    std::string mark; /**< what a program had the disk note down, else empty */

    bool isFlush() const;
    /** A write that is durable by itself when it returns. */
    bool isForced() const;
    bool isDiscard() const;
    bool isMark() const;
    /** True when it brought data. */
    bool isWrite() const;
};

/**
 * The requests of one disk, in order, with what was written.
 *
 * The target logs a write with the flush that makes it durable, not before: between two flushes
 * the marks come first, then the writes. That loses nothing. Until the second flush returns, any
 * of these writes may be missing, and all of these marks have been made.
 */
class DiskLog
{
public:
    /** Ends the program when @p path holds no such log. */
    explicit DiskLog(const std::string &path);
    ~DiskLog();

    DiskLog(const DiskLog &) = delete;
    DiskLog &operator=(const DiskLog &) = delete;

    const std::vector<DiskRequest> &requests() const { return m_requests; }
    /** What @p request wrote. */
    std::vector<char> dataOf(const DiskRequest &request) const;

private:
    int m_file;
    std::vector<DiskRequest> m_requests;
};

/** Has the disk with the device-mapper name @p disk note down @p text; ends the program if not. */
void mark(const std::string &disk, const std::string &text);

/** Ends the program with a message, and with the meaning of errno. */
[[noreturn]] void fail(const std::string &what);

} // namespace Trial
