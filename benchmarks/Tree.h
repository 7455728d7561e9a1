// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>

namespace Tavro::Benchmarks {

/** What a file or directory holds in all. */
struct Contents
{
    std::uintmax_t files = 0;
    std::uintmax_t bytes = 0;

    bool operator==(const Contents &other) const
    {
        return files == other.files && bytes == other.bytes;
    }
};

Contents contentsOf(const std::filesystem::path &path);

/** Creates one file of @p bytes that no compression and no hole makes smaller. */
void createFile(const std::filesystem::path &path, std::uintmax_t bytes);

/** Creates @p folders directories below @p root with @p files files among them. */
void createTree(const std::filesystem::path &root, unsigned folders, unsigned files,
                std::uintmax_t bytesPerFile);

/** Ends the program unless both hold the same files with the same bytes in them. */
void requireEqual(const std::filesystem::path &source, const std::filesystem::path &copy);

/** Takes @p file out of the page cache, and ends the program if it does not go. */
void evict(const std::filesystem::path &file);

/** Writes back what the file system holding @p path has in memory; seconds that it took. */
double syncFileSystem(const std::filesystem::path &path);

} // namespace Tavro::Benchmarks
