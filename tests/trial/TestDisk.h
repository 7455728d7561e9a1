// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Trial {

/**
 * The disk as it is found after a cut: an image below a loop device.
 *
 * Holds what is durable by then, and for one look at a time some of the writes that are not.
 */
class TestDisk
{
public:
    /** @p device is a loop device over @p image, and nobody has it open. */
    TestDisk(const std::string &image, const std::string &device);
    ~TestDisk();

    TestDisk(const TestDisk &) = delete;
    TestDisk &operator=(const TestDisk &) = delete;

    /** Writes what stays. */
    void write(std::uint64_t offset, const char *data, std::size_t size);
    /** Writes what takeBack() undoes. */
    void writeForNow(std::uint64_t offset, const char *data, std::size_t size);
    /** Undoes writeForNow(), and what a file system has written while it was mounted. */
    void takeBack();

    const std::string &device() const { return m_device; }

private:
    std::uint64_t writesOfTheKernel() const;
    void restore(std::uint64_t offset, std::size_t size);

    const std::string m_device;
    const std::string m_statistics;
    int m_image;
    std::size_t m_size = 0;
    char *m_durable = nullptr;
    std::vector<std::pair<std::uint64_t, std::size_t>> m_forNow;
    std::uint64_t m_writesBefore = 0;
};

/** A mounted file system; unmounted with the object. */
class Mount
{
public:
    Mount(const std::string &device, const std::string &point, const std::string &type,
          const std::string &options);
    ~Mount();

    Mount(const Mount &) = delete;
    Mount &operator=(const Mount &) = delete;

    /** False when the volume could not be mounted. */
    bool isMounted() const { return m_isMounted; }

private:
    const std::string m_point;
    bool m_isMounted;
};

} // namespace Trial
