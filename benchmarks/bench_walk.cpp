// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Walks one tree by the library and by a plain C program in turn, round after round.

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

constexpr double s_timeTarget = 1.10;
constexpr double s_memoryTarget = 30; // MiB

struct Walk
{
    std::string name;
    std::string program;
    Series seconds = {};
    double memory = 0; // most that it took in any round, in MiB

    void run(const fs::path &tree)
    {
        const Outcome outcome = runParticipant({siblingProgram(program), tree});
        std::istringstream figures(outcome.output);
        double time = 0;
        double bytes = 0;
        if (!(figures >> time >> bytes)) {
            fail(program + " printed no figures");
        }
        seconds.add(time);
        memory = std::max(memory, bytes / (1 << 20));
    }
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

    Walk raw{"raw walk in C", "walk_raw"};
    Walk library{"library", "walk_with_library"};
    for (unsigned round = 0; round < rounds; ++round) {
        // by turns, so that nobody always gains by its place
        (round % 2 == 0 ? raw : library).run(tree);
        (round % 2 == 0 ? library : raw).run(tree);
    }
    fs::remove_all(tree);

    std::printf("### Walk over %u files in %u folders\n\n%u rounds, everything cached\n\n", files,
                folders, rounds);
    Table table(
        {"", "median s", "minimum s", "median / raw", "minimum / raw", "spread", "memory MiB"});
    for (const Walk &walk : {raw, library}) {
        table.addRow({walk.name, fixed(walk.seconds.median(), 4), fixed(walk.seconds.minimum(), 4),
                      ratio(walk.seconds.median(), raw.seconds.median()),
                      ratio(walk.seconds.minimum(), raw.seconds.minimum()),
                      fixed(walk.seconds.spread() * 100, 0) + " %", fixed(walk.memory, 1)});
    }
    table.print();
    for (const Walk &walk : {raw, library}) {
        recordCost(walk.name, files, walk.seconds.median(), walk.memory * (1 << 20));
    }
    std::printf("\n");
    printVerdict("walk, median / raw", library.seconds.median() / raw.seconds.median(),
                 s_timeTarget, "");
    printVerdict("walk, memory", library.memory, s_memoryTarget, " MiB");
    std::printf("\n");
    return EXIT_SUCCESS;
}
