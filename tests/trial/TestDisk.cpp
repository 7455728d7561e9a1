// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "tests/trial/TestDisk.h"

#include "tests/trial/DiskLog.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>

namespace Trial {

namespace {

constexpr std::size_t s_pieceSize = 256UL * 1024;

void writeAt(int file, std::uint64_t offset, const char *data, std::size_t size)
{
    if (::pwrite(file, data, size, static_cast<off_t>(offset)) != static_cast<ssize_t>(size)) {
        fail("cannot write to the image");
    }
}

} // namespace

TestDisk::TestDisk(const std::string &image, const std::string &device)
    : m_device(device)
    , m_statistics("/sys/block/" + device.substr(device.rfind('/') + 1) + "/stat")
    , m_image(::open(image.c_str(), O_RDWR | O_CLOEXEC))
{
    struct stat info = {};
    if (m_image < 0 || ::fstat(m_image, &info) != 0) {
        fail(image);
    }
    m_size = static_cast<std::size_t>(info.st_size);
    // pages that are never written take no memory
    void *memory =
        ::mmap(nullptr, m_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        fail("no memory for the disk");
    }
    m_durable = static_cast<char *>(memory);
    m_writesBefore = writesOfTheKernel();
}

TestDisk::~TestDisk()
{
    ::munmap(m_durable, m_size);
    ::close(m_image);
}

void TestDisk::write(std::uint64_t offset, const char *data, std::size_t size)
{
    std::memcpy(m_durable + offset, data, size);
    writeAt(m_image, offset, data, size);
}

void TestDisk::writeForNow(std::uint64_t offset, const char *data, std::size_t size)
{
    writeAt(m_image, offset, data, size);
    m_forNow.emplace_back(offset, size);
}

void TestDisk::takeBack()
{
    const std::uint64_t writes = writesOfTheKernel();
    if (writes != m_writesBefore) { // a journal was replayed: nobody says where it wrote
        m_writesBefore = writes;
        m_forNow.assign(1, {0, m_size});
    }
    for (const auto &[offset, size] : m_forNow) {
        restore(offset, size);
    }
    m_forNow.clear();
}

std::uint64_t TestDisk::writesOfTheKernel() const
{
    std::ifstream statistics(m_statistics);
    std::uint64_t value = 0;
    for (int field = 0; field < 5; ++field) {
        statistics >> value;
    }
    if (!statistics) {
        fail(m_statistics);
    }
    return value;
}

void TestDisk::restore(std::uint64_t offset, std::size_t size)
{
    char piece[s_pieceSize];
    const std::uint64_t end = offset + size;
    while (offset < end) {
        const auto length =
            static_cast<std::size_t>(std::min<std::uint64_t>(s_pieceSize, end - offset));
        if (::pread(m_image, piece, length, static_cast<off_t>(offset))
            != static_cast<ssize_t>(length)) {
            fail("cannot read the image");
        }
        if (std::memcmp(piece, m_durable + offset, length) != 0) {
            writeAt(m_image, offset, m_durable + offset, length);
        }
        offset += length;
    }
}

Mount::Mount(const std::string &device, const std::string &point, const std::string &type,
             const std::string &options)
    : m_point(point)
    , m_isMounted(::mount(device.c_str(), point.c_str(), type.c_str(), MS_RDONLY, options.c_str())
                  == 0)
{
}

Mount::~Mount()
{
    if (m_isMounted && ::umount(m_point.c_str()) != 0) {
        fail("cannot unmount " + m_point);
    }
}

} // namespace Trial
