// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Prints the memory that work on very many files in one directory takes.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/Tree.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_listTarget = 120; // bytes for each file, beside its name
constexpr double s_hostTarget = 1.5; // of the library

struct Paths
{
    fs::path source;
    fs::path copy;
};

struct Work
{
    const char *name;
    std::vector<std::string> (*command)(const Paths &paths);
    double bytes = 0; // for each file

    double memoryOf(const Paths &paths) const
    {
        const double memory = runParticipant(command(paths)).memory;
        fs::remove_all(paths.copy);
        return memory;
    }
};

std::string host()
{
    return siblingProgram("../fieldhost/cli/ovo-fieldhost");
}

double averageNameLength(const fs::path &directory, unsigned files)
{
    double sum = 0;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(directory)) {
        sum += entry.is_regular_file()
            ? static_cast<double>(entry.path().filename().string().size())
            : 0;
    }
    return sum / files;
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned files = argc == 3 ? std::strtoul(argv[2], nullptr, 10) : 0;
    if (files == 0) {
        fail(std::string("usage: ") + argv[0] + " DIRECTORY FILES\n"
             + "DIRECTORY is created, filled and removed again.");
    }
    const fs::path directory = argv[1];
    const Paths many = {directory / "many", directory / "copy"};
    const Paths one = {directory / "one", directory / "copy"};
    fs::create_directory(directory);
    createTree(many.source, 1, files, 1);
    createTree(one.source, 1, 1, 1);
    const double name = averageNameLength(many.source, files);

    Work works[] = {
        {"copy by the library",
         [](const Paths &paths) -> std::vector<std::string> {
             return {siblingProgram("copy_with_library"), paths.source, paths.copy};
         }},
        {"ovo-fieldhost export",
         [](const Paths &paths) -> std::vector<std::string> {
             return {host(), "export", paths.source / "", paths.copy};
         }},
        {"ovo-fieldhost export --verify",
         [](const Paths &paths) -> std::vector<std::string> {
             return {host(), "export", "--verify", paths.source / "", paths.copy};
         }},
        {"size by the library",
         [](const Paths &paths) -> std::vector<std::string> {
             return {siblingProgram("size_with_library"), paths.source};
         }},
        {"deletion by the library", // comes last
         [](const Paths &paths) -> std::vector<std::string> {
             return {siblingProgram("delete_with_library"), paths.source};
         }},
    };
    for (Work &work : works) {
        // what a process takes in any case counts as that of none
        work.bytes = (work.memoryOf(many) - work.memoryOf(one)) / files;
    }
    fs::remove_all(directory);

    const double copy = works[0].bytes;
    std::printf("### Memory for %u files in one directory\n\n"
                "The names have %.0f bytes.\n\n",
                files, name);
    Table table({"", "bytes a file", "beside the copy by the library"});
    for (const Work &work : works) {
        table.addRow({work.name, fixed(work.bytes, 0), ratio(work.bytes, copy)});
    }
    table.print();
    std::printf("\n");
    printVerdict("copy by the library, beside the name", copy - name, s_listTarget,
                 " bytes a file");
    printVerdict("deletion by the library, beside the name", std::end(works)[-1].bytes - name,
                 s_listTarget, " bytes a file");
    printVerdict("ovo-fieldhost export / copy by the library", works[1].bytes / copy, s_hostTarget,
                 "");
    printVerdict("ovo-fieldhost export --verify / copy by the library", works[2].bytes / copy,
                 s_hostTarget, "");
    std::printf("\n");
    return EXIT_SUCCESS;
}
