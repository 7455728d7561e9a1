// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Adds up the sizes in one tree by the library, a plain C program and du in turn, round after
// round.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/Tree.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <vector>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_target = 1.05;

// the time that the program measured itself: its start is no part of the question
double timeOf(const std::string &program, const fs::path &tree)
{
    std::istringstream figures(runParticipant({siblingProgram(program), tree}).output);
    double seconds = 0;
    if (!(figures >> seconds)) {
        fail(program + " printed no figures");
    }
    return seconds;
}

struct Contestant
{
    const char *name;
    double (*run)(const fs::path &tree);
    Series seconds = {};
};

} // namespace

int main(int argc, char **argv)
{
    const unsigned folders = argc == 5 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const unsigned files = argc == 5 ? std::strtoul(argv[3], nullptr, 10) : 0;
    const unsigned rounds = argc == 5 ? std::strtoul(argv[4], nullptr, 10) : 0;
    if (folders == 0 || files == 0 || rounds == 0) {
        fail(std::string("usage: ") + argv[0] + " DIRECTORY FOLDERS FILES ROUNDS\n"
             + "DIRECTORY is created, filled and removed again.");
    }
    const fs::path tree = argv[1];
    createTree(tree, folders, files, 100);

    std::vector<Contestant> contestants = {
        {"raw walk in C", [](const fs::path &path) { return timeOf("walk_raw", path); }},
        {"library", [](const fs::path &path) { return timeOf("size_with_library", path); }},
        {"du -sb",
         [](const fs::path &path) {
             return runParticipant({"du", "-sb", path}).seconds;
         }},
    };
    for (unsigned round = 0; round < rounds; ++round) {
        // by turns, so that nobody always gains by its place
        for (size_t i = 0; i < contestants.size(); ++i) {
            Contestant &contestant = contestants[(i + round) % contestants.size()];
            contestant.seconds.add(contestant.run(tree));
        }
    }
    fs::remove_all(tree);

    std::printf("### Size of %u files in %u folders\n\n%u rounds, everything cached\n\n", files,
                folders, rounds);
    Table table({"", "median s", "minimum s", "median / raw", "minimum / raw", "spread"});
    const Series &raw = contestants.front().seconds;
    for (const Contestant &contestant : contestants) {
        const Series &series = contestant.seconds;
        table.addRow({contestant.name, fixed(series.median(), 4), fixed(series.minimum(), 4),
                      ratio(series.median(), raw.median()), ratio(series.minimum(), raw.minimum()),
                      fixed(series.spread() * 100, 0) + " %"});
    }
    table.print();
    std::printf("\n");
    printVerdict("size, median / raw", contestants[1].seconds.median() / raw.median(), s_target,
                 "");
    std::printf("\n");
    return EXIT_SUCCESS;
}
