// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "benchmarks/Tree.h"

#include "benchmarks/Measurement.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace Tavro::Benchmarks {

namespace fs = std::filesystem;

namespace {

class Descriptor
{
public:
    explicit Descriptor(const fs::path &path)
        : m_fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
        if (m_fd < 0) {
            fail("Cannot open " + path.string() + ": " + std::strerror(errno));
        }
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() { ::close(m_fd); }

    int handle() const { return m_fd; }

private:
    int m_fd;
};

std::string numbered(const char *prefix, unsigned number)
{
    char name[32];
    std::snprintf(name, sizeof name, "%s%05u", prefix, number);
    return name;
}

std::string contentOf(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

bool haveEqualBytes(const fs::path &a, const fs::path &b)
{
    if (fs::file_size(a) != fs::file_size(b)) {
        return false;
    }
    std::ifstream first(a, std::ios::binary);
    std::ifstream second(b, std::ios::binary);
    std::vector<char> firstPart(1 << 20);
    std::vector<char> secondPart(firstPart.size());
    while (first && second) {
        first.read(firstPart.data(), static_cast<std::streamsize>(firstPart.size()));
        second.read(secondPart.data(), static_cast<std::streamsize>(secondPart.size()));
        if (first.gcount() != second.gcount()
            || !std::equal(firstPart.begin(), firstPart.begin() + first.gcount(),
                           secondPart.begin())) {
            return false;
        }
    }
    return first.eof() && second.eof();
}

} // namespace

Contents contentsOf(const fs::path &path)
{
    if (!fs::is_directory(path)) {
        return {1, fs::file_size(path)};
    }
    Contents contents;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(path)) {
        if (entry.is_regular_file()) {
            ++contents.files;
            contents.bytes += entry.file_size();
        }
    }
    return contents;
}

void createFile(const fs::path &path, std::uintmax_t bytes)
{
    static std::mt19937_64 random(20); // the same bytes in every run
    std::ofstream stream(path, std::ios::binary);
    std::vector<std::uint64_t> block(8192);
    while (bytes > 0 && stream) {
        const std::uintmax_t part = std::min<std::uintmax_t>(bytes, block.size() * sizeof block[0]);
        // no more than is needed: a tree may have a million small files
        std::generate_n(block.begin(), (part - 1) / sizeof block[0] + 1, std::ref(random));
        stream.write(reinterpret_cast<const char *>(block.data()),
                     static_cast<std::streamsize>(part));
        bytes -= part;
    }
    stream.close();
    if (!stream) {
        fail("Cannot create " + path.string());
    }
}

void createTree(const fs::path &root, unsigned folders, unsigned files, std::uintmax_t bytesPerFile)
{
    if (folders == 0) {
        fail("A tree without folders has no place for files");
    }
    for (unsigned folder = 0; folder < folders; ++folder) {
        fs::create_directories(root / numbered("folder-", folder));
    }
    for (unsigned file = 0; file < files; ++file) {
        createFile(root / numbered("folder-", file % folders) / numbered("file-", file),
                   bytesPerFile);
    }
}

void requireEqual(const fs::path &source, const fs::path &copy)
{
    if (!(contentsOf(source) == contentsOf(copy))) {
        fail(copy.string() + " does not hold what " + source.string() + " holds");
    }
    if (!fs::is_directory(source)) {
        if (!haveEqualBytes(source, copy)) {
            fail(copy.string() + " differs from " + source.string());
        }
        return;
    }
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(source)) {
        const fs::path counterpart = copy / entry.path().lexically_relative(source);
        if (entry.is_regular_file() && contentOf(entry.path()) != contentOf(counterpart)) {
            fail(counterpart.string() + " differs from " + entry.path().string());
        }
    }
}

void evict(const fs::path &file)
{
    const Descriptor descriptor(file);
    ::fsync(descriptor.handle()); // pages not written yet would stay
    ::posix_fadvise(descriptor.handle(), 0, 0, POSIX_FADV_DONTNEED);

    const size_t size = fs::file_size(file);
    void *map = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor.handle(), 0);
    if (map == MAP_FAILED) {
        fail("Cannot map " + file.string() + ": " + std::strerror(errno));
    }
    const size_t pageSize = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
    std::vector<unsigned char> pages((size + pageSize - 1) / pageSize);
    const int result = ::mincore(map, size, pages.data());
    ::munmap(map, size);
    if (result != 0
        || std::any_of(pages.begin(), pages.end(), [](unsigned char page) { return page & 1; })) {
        fail(file.string() + " stays in the page cache: it is no cold source");
    }
}

double syncFileSystem(const fs::path &path)
{
    const Descriptor descriptor(path);
    const double begin = now();
    ::syncfs(descriptor.handle());
    return now() - begin;
}

} // namespace Tavro::Benchmarks
