// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Copies a file or a directory with std::filesystem::copy, followed by one sync.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <unistd.h>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s SOURCE DESTINATION\n", argv[0]);
        return EXIT_FAILURE;
    }
    std::error_code error;
    std::filesystem::copy(argv[1], argv[2], std::filesystem::copy_options::recursive, error);
    if (error) {
        std::fprintf(stderr, "%s: %s\n", argv[1], error.message().c_str());
        return EXIT_FAILURE;
    }
    ::sync();
    return EXIT_SUCCESS;
}
