// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Prints how long an export by the example host has run when it has written the first file, beside
// the walk that the library needs before it can copy one.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/Tree.h"

#include <cstdio>
#include <cstdlib>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr long long s_fileSize = 4096;
constexpr double s_target = 0.1; // seconds beside the walk

// what the program prints first, its start being no part of the question
double walkByLibrary(const fs::path &tree)
{
    return std::strtod(runParticipant({siblingProgram("walk_with_library"), tree}).output.c_str(),
                       nullptr);
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned folders = argc == 6 ? std::strtoul(argv[3], nullptr, 10) : 0;
    const unsigned files = argc == 6 ? std::strtoul(argv[4], nullptr, 10) : 0;
    const unsigned rounds = argc == 6 ? std::strtoul(argv[5], nullptr, 10) : 0;
    if (folders == 0 || files == 0 || rounds == 0) {
        fail(std::string("usage: ") + argv[0] + " SOURCE DESTINATION FOLDERS FILES ROUNDS\n"
             + "Both directories are created, and removed again.");
    }
    const fs::path source = argv[1];
    const fs::path destination = argv[2];
    createTree(source, folders, files, s_fileSize);

    struct
    {
        const char *name;
        std::vector<std::string> command;
        Series seconds = {};
    } copies[] = {
        {"copy by the library", {siblingProgram("copy_with_library"), source, destination}},
        {"ovo-fieldhost export",
         {siblingProgram("../fieldhost/cli/ovo-fieldhost"), "export", source / "", destination}},
    };
    Series walk;
    for (unsigned round = 0; round < rounds; ++round) {
        walk.add(walkByLibrary(source));
        for (auto &copy : copies) {
            copy.seconds.add(secondsUntilWritten(copy.command, s_fileSize));
            fs::remove_all(destination);
            syncFileSystem(source);
        }
    }
    fs::remove_all(source);

    std::printf("### From the start to the first file, of %u in %u folders\n\n"
                "%u rounds, everything cached\n\n",
                files, folders, rounds);
    Table table({"", "median s", "minimum s", "beside the walk s", "spread"});
    const auto addRow = [&](const char *name, const Series &series) {
        table.addRow({name, fixed(series.median(), 3), fixed(series.minimum(), 3),
                      fixed(series.median() - walk.median(), 3),
                      fixed(series.spread() * 100, 0) + " %"});
    };
    addRow("walk by the library", walk);
    for (const auto &copy : copies) {
        addRow(copy.name, copy.seconds);
    }
    table.print();
    std::printf("\n");
    printVerdict("export by the host, from the start to the first file, beside the walk",
                 std::end(copies)[-1].seconds.median() - walk.median(), s_target, " s");
    std::printf("\n");
    return EXIT_SUCCESS;
}
