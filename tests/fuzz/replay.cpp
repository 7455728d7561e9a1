// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Gives a fuzzer every file of the folders among its arguments, once, where there is no libFuzzer.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

std::vector<std::uint8_t> contentOf(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

int main(int argc, char **argv)
{
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        if (argv[i][0] == '-') {
            continue; // libFuzzer's options
        }
        for (const fs::directory_entry &file : fs::directory_iterator(argv[i])) {
            const std::vector<std::uint8_t> content = contentOf(file.path());
            LLVMFuzzerTestOneInput(content.data(), content.size());
            ++inputs;
        }
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
