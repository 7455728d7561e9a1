// Copies one source by every participant in turn, round after round, and prints what each took
// beside the least that a durable copy takes.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"
#include "benchmarks/Tree.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_durabilityTarget = 0.03; // seconds

struct Options
{
    std::string title;
    fs::path source; // created here
    fs::path destination; // a directory on the device under test
    unsigned folders = 0; // none: the source is a single file
    unsigned files = 1;
    std::uintmax_t bytesPerFile = 0;
    unsigned rounds = 3;
    double target = 0; // of the library's median to the floor's
    bool isSourceCold = false;
    bool isFloorDoubled = false;
};

struct Participant
{
    std::string name;
    std::vector<std::string> command;
    bool isLibrary = false;
    Series whole = {}; // the process, from its start to its end
    Series request = {}; // the library: from the request to the signal that ends it
    Series remainder = {}; // what a sync of the file system still took afterwards
};

// for programs that do not flush by themselves, so that all are asked for the same: the last
// arguments are source and destination
std::vector<std::string> thenSync(const std::string &command, const Options &options,
                                  const std::string &copy)
{
    return {"sh", "-c", "set -e; " + command + "; exec sync", "sh", options.source, copy};
}

std::vector<Participant> participants(const Options &options)
{
    const bool isTree = options.folders > 0;
    const std::string source = options.source;
    const std::string copy = options.destination / "copy";
    // it copies no trees by itself, but many files at a time
    const char *const gioTree = "mkdir \"$2\"; for folder in \"$1\"/*; do"
                                " mkdir \"$2/${folder##*/}\";"
                                " gio copy \"$folder\"/* \"$2/${folder##*/}\"; done";
    const std::vector<std::string> floor = {siblingProgram("floor_copy"), source, copy};
    std::vector<Participant> all = {
        {"floor", floor},
        {"library", {siblingProgram("copy_with_library"), source, copy}, true},
        {"cp -r, sync", thenSync("cp -r \"$1\" \"$2\"", options, copy)},
        {"rsync --fsync", {"rsync", "-r", "--fsync", isTree ? source + '/' : source, copy}},
        {"gio copy, sync", thenSync(isTree ? gioTree : "gio copy \"$1\" \"$2\"", options, copy)},
        {"std::filesystem::copy, sync", {siblingProgram("copy_with_filesystem"), source, copy}},
    };
    if (options.isFloorDoubled) {
        all.push_back({"floor, a second time", floor});
    }
    return all;
}

void runOnce(Participant &participant, const Options &options)
{
    if (options.isSourceCold) {
        evict(options.source);
    }
    ::sync(); // what others on this machine have left to write is not this participant's

    const Outcome outcome = runParticipant(participant.command);
    participant.remainder.add(syncFileSystem(options.destination));
    participant.whole.add(outcome.seconds);
    if (participant.isLibrary) {
        participant.request.add(std::strtod(outcome.output.c_str(), nullptr));
    }

    requireEqual(options.source, options.destination / "copy");
    fs::remove_all(options.destination / "copy");
}

void addRow(Table &table, const std::string &name, const Series &series, const Series &floor,
            const Series &remainder)
{
    table.addRow({name, fixed(series.median(), 3), fixed(series.minimum(), 3),
                  ratio(series.median(), floor.median()), ratio(series.minimum(), floor.minimum()),
                  fixed(series.spread() * 100, 0) + " %", fixed(remainder.median(), 3)});
}

void report(const std::vector<Participant> &all, const Options &options)
{
    const Participant &floor = all.front();
    const Contents contents = contentsOf(options.source);
    std::printf("### %s\n\n%ju file(s), %.1f MiB in all, %u round(s)%s\n\n", options.title.c_str(),
                contents.files, static_cast<double>(contents.bytes) / (1 << 20), options.rounds,
                options.isSourceCold ? ", source not cached" : "");

    Table table({"", "median s", "minimum s", "median / floor", "minimum / floor", "spread",
                 "not durable yet s"});
    for (const Participant &participant : all) {
        if (participant.isLibrary) {
            addRow(table, participant.name + ", request to end signal", participant.request,
                   floor.whole, participant.remainder);
            addRow(table, participant.name + ", whole process", participant.whole, floor.whole,
                   participant.remainder);
        } else {
            addRow(table, participant.name, participant.whole, floor.whole, participant.remainder);
        }
    }
    table.print();

    std::printf("\n");
    for (const Participant &participant : all) {
        if (participant.isLibrary && options.target > 0) {
            printVerdict(options.title + ", request to end signal, median / floor",
                         participant.request.median() / floor.whole.median(), options.target, "");
            printVerdict(options.title + ", end signal to durable", participant.remainder.median(),
                         s_durabilityTarget, " s");
        }
    }
    if (options.isFloorDoubled) {
        std::printf("- noise: the floor's second median is %s of its first\n",
                    ratio(all.back().whole.median(), floor.whole.median()).c_str());
    }
    std::printf("\n");
}

[[noreturn]] void usage(const char *program)
{
    fail(
        std::string("usage: ") + program
        + " TITLE SOURCE DESTINATION_DIRECTORY --file BYTES | --tree FOLDERS FILES BYTES_EACH\n"
          "    [--rounds N] [--target RATIO] [--cold] [--floor-twice]\n"
          "SOURCE is created, and removed at the end.\n"
          "--cold         takes the source, a single file, out of the page cache before each copy\n"
          "--floor-twice  the floor takes part twice: what lies between the two is noise");
}

double number(const char *text)
{
    char *end = nullptr;
    const double value = std::strtod(text, &end);
    if (end == text || *end != '\0' || !(value > 0)) {
        fail(std::string(text) + " is not a positive number");
    }
    return value;
}

Options parse(int argc, char **argv)
{
    if (argc < 4) {
        usage(argv[0]);
    }
    Options options;
    options.title = argv[1];
    options.source = argv[2];
    options.destination = argv[3];
    for (int i = 4; i < argc; ++i) {
        const std::string argument = argv[i];
        const int values = argc - 1 - i;
        if (argument == "--cold") {
            options.isSourceCold = true;
        } else if (argument == "--floor-twice") {
            options.isFloorDoubled = true;
        } else if (argument == "--rounds" && values >= 1) {
            options.rounds = static_cast<unsigned>(number(argv[++i]));
        } else if (argument == "--target" && values >= 1) {
            options.target = number(argv[++i]);
        } else if (argument == "--file" && values >= 1) {
            options.bytesPerFile = static_cast<std::uintmax_t>(number(argv[++i]));
        } else if (argument == "--tree" && values >= 3) {
            options.folders = static_cast<unsigned>(number(argv[++i]));
            options.files = static_cast<unsigned>(number(argv[++i]));
            options.bytesPerFile = static_cast<std::uintmax_t>(number(argv[++i]));
        } else {
            usage(argv[0]);
        }
    }
    if (options.bytesPerFile == 0 || options.rounds == 0
        || (options.isSourceCold && options.folders > 0)) {
        usage(argv[0]);
    }
    return options;
}

} // namespace

int main(int argc, char **argv)
{
    const Options options = parse(argc, argv);
    if (options.folders > 0) {
        createTree(options.source, options.folders, options.files, options.bytesPerFile);
    } else {
        createFile(options.source, options.bytesPerFile);
    }

    std::vector<Participant> all = participants(options);
    for (unsigned round = 0; round < options.rounds; ++round) {
        // each round begins with another one, so that nobody always gains by its place
        for (size_t i = 0; i < all.size(); ++i) {
            runOnce(all[(round + i) % all.size()], options);
        }
    }
    report(all, options);
    fs::remove_all(options.source);
    return EXIT_SUCCESS;
}
