// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Compares two equal files by the library, by md5sum on each, and by cmp in turn, round after
// round.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/Tree.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_timeTarget = 0.12;
constexpr double s_memoryTarget = 12; // MiB

struct Figures
{
    double seconds = 0;
    double memory = 0; // in MiB
};

Figures compareWithLibrary(const fs::path &a, const fs::path &b)
{
    std::istringstream output(
        runParticipant({siblingProgram("compare_with_library"), a, b}).output);
    Figures figures;
    double bytes = 0;
    std::string answer;
    if (!(output >> figures.seconds >> bytes >> answer) || answer != "equal") {
        fail("compare_with_library did not find the files equal");
    }
    figures.memory = bytes / (1 << 20);
    return figures;
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned long bytes = argc == 4 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const unsigned rounds = argc == 4 ? std::strtoul(argv[3], nullptr, 10) : 0;
    if (bytes == 0 || rounds == 0) {
        fail(std::string("usage: ") + argv[0] + " DIRECTORY BYTES ROUNDS\n"
             + "DIRECTORY is created, filled and removed again.");
    }
    const fs::path folder = argv[1];
    fs::create_directory(folder);
    const fs::path a = folder / "a";
    const fs::path b = folder / "b";
    createFile(a, bytes);
    fs::copy_file(a, b);

    Series md5sum;
    Series library;
    Series cmp;
    double memory = 0;
    for (unsigned round = 0; round < rounds; ++round) {
        for (unsigned i = 0; i < 3; ++i) { // by turns, so that nobody always gains by its place
            switch ((i + round) % 3) {
            case 0:
                md5sum.add(runParticipant({"md5sum", a}).seconds
                           + runParticipant({"md5sum", b}).seconds);
                break;
            case 1: {
                const Figures figures = compareWithLibrary(a, b);
                library.add(figures.seconds);
                memory = std::max(memory, figures.memory);
                break;
            }
            default:
                cmp.add(runParticipant({"cmp", a, b}).seconds);
                break;
            }
        }
    }
    fs::remove_all(folder);

    std::printf("### Comparison of two equal files of %lu MiB\n\n%u rounds, everything cached\n\n",
                bytes >> 20, rounds);
    Table table({"", "median s", "minimum s", "median / md5sum", "minimum / md5sum", "spread"});
    const auto addRow = [&](const char *name, const Series &series) {
        table.addRow({name, fixed(series.median(), 4), fixed(series.minimum(), 4),
                      ratio(series.median(), md5sum.median()),
                      ratio(series.minimum(), md5sum.minimum()),
                      fixed(series.spread() * 100, 0) + " %"});
    };
    addRow("md5sum twice", md5sum);
    addRow("library", library);
    addRow("cmp", cmp);
    table.print();
    std::printf("\n");
    printVerdict("comparison, median / md5sum twice", library.median() / md5sum.median(),
                 s_timeTarget, "");
    printVerdict("comparison, memory", memory, s_memoryTarget, " MiB");
    std::printf("\n");
    return EXIT_SUCCESS;
}
