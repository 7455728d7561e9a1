// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Deletes trees of one shape by the library and by rm -rf in turn, round after round.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/Tree.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_target = 1.3;

struct Shape
{
    unsigned folders;
    unsigned files;
};

// each participant gets a tree of its own, on a device that has nothing left to write
void createAnew(const fs::path &tree, Shape shape)
{
    createTree(tree, shape.folders, shape.files, 100);
    syncFileSystem(tree);
}

void requireGone(const fs::path &tree)
{
    if (fs::exists(tree)) {
        fail(tree.string() + " is still there");
    }
}

Outcome deleteWithRm(const fs::path &tree, Shape shape)
{
    createAnew(tree, shape);
    Outcome outcome = runParticipant({"rm", "-rf", tree});
    requireGone(tree);
    return outcome;
}

Outcome deleteWithLibrary(const fs::path &tree, Shape shape)
{
    createAnew(tree, shape);
    Outcome outcome = runParticipant({siblingProgram("delete_with_library"), tree});
    requireGone(tree);
    std::istringstream figures(outcome.output);
    unsigned signalCount = 0;
    if (!(figures >> outcome.seconds >> signalCount)) { // from the request to the end
        fail("delete_with_library printed no figures");
    }
    if (signalCount < shape.files) { // one for each file; that of the end may come too late
        fail("delete_with_library heard " + std::to_string(signalCount) + " signals");
    }
    return outcome;
}

struct Participant
{
    const char *name;
    Outcome (*run)(const fs::path &tree, Shape shape);
    Series seconds = {};
    Series memory = {}; // bytes
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
    const Shape shape = {folders, files};

    Participant rm{"rm -rf", deleteWithRm};
    Participant library{"library", deleteWithLibrary};
    for (unsigned round = 0; round < rounds; ++round) {
        // by turns, so that nobody always gains by its place
        for (Participant *participant :
             {round % 2 == 0 ? &rm : &library, round % 2 == 0 ? &library : &rm}) {
            const Outcome outcome = participant->run(tree, shape);
            participant->seconds.add(outcome.seconds);
            participant->memory.add(outcome.memory);
        }
    }

    std::printf("### Deletion of %u files in %u folders\n\n%u rounds, everything cached, one "
                "signal for each file\n\n",
                files, folders, rounds);
    Table table({"", "median s", "minimum s", "median / rm", "minimum / rm", "spread"});
    for (const Participant *participant : {&rm, &library}) {
        const Series &series = participant->seconds;
        table.addRow({participant->name, fixed(series.median(), 4), fixed(series.minimum(), 4),
                      ratio(series.median(), rm.seconds.median()),
                      ratio(series.minimum(), rm.seconds.minimum()),
                      fixed(series.spread() * 100, 0) + " %"});
        recordCost(participant->name, files, series.median(), participant->memory.median());
    }
    table.print();
    std::printf("\n");
    printVerdict("deletion, median / rm -rf", library.seconds.median() / rm.seconds.median(),
                 s_target, "");
    std::printf("\n");
    return EXIT_SUCCESS;
}
