// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

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
constexpr double s_hostTarget = 1.10; // of the library's median

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
    bool areNamesFlushed = false;
    bool hasPeers = true;
    bool hasHost = false;
    double turn = 0; // seconds; none: one after the other
};

enum class Kind { Floor, Library, Host, Peer };

struct Participant
{
    std::string name;
    Kind kind;
    std::vector<std::string> command; // at its end, source and copy
    fs::path copy = {}; // of its own: others may be at work, too
    Series whole = {}; // the process, from its start to its end
    Series request = {}; // the library: from the request to the signal that ends it
    Series memory = {}; // bytes
    Series remainder = {}; // what a sync of the file system still took afterwards
};

// @p script has the source as $1 and the copy as $2
std::vector<std::string> shell(const std::string &script)
{
    return {"sh", "-c", "set -e; " + script, "sh"};
}

// programs that do not flush by themselves are followed by sync: the same is asked of all
std::vector<Participant> participants(const Options &options)
{
    const bool isTree = options.folders > 0;
    // it copies no trees by itself, but many files at a time
    const char *const gioTree = "mkdir \"$2\"; for folder in \"$1\"/*; do"
                                " mkdir \"$2/${folder##*/}\";"
                                " gio copy \"$folder\"/* \"$2/${folder##*/}\"; done; exec sync";
    const std::vector<std::string> withoutNames = {siblingProgram("floor_copy")};
    std::vector<std::string> floor = withoutNames;
    if (options.areNamesFlushed) {
        floor.emplace_back("--names");
    }
    std::vector<Participant> all = {
        {"floor", Kind::Floor, floor},
        {"library", Kind::Library, {siblingProgram("copy_with_library")}},
        {"cp -r, sync", Kind::Peer, shell("cp -r \"$1\" \"$2\"; exec sync")},
        {"rsync --fsync", Kind::Peer,
         shell(isTree ? "exec rsync -r --fsync \"$1/\" \"$2\""
                      : "exec rsync --fsync \"$1\" \"$2\"")},
        {"gio copy, sync", Kind::Peer,
         shell(isTree ? gioTree : "gio copy \"$1\" \"$2\"; exec sync")},
        {"std::filesystem::copy, sync", Kind::Peer, {siblingProgram("copy_with_filesystem")}},
    };
    if (options.hasHost) {
        all.push_back({"ovo-fieldhost export",
                       Kind::Host,
                       {siblingProgram("../fieldhost/cli/ovo-fieldhost"), "export"}});
    }
    if (options.areNamesFlushed) {
        all.push_back({"floor, names not flushed", Kind::Floor, withoutNames});
    }
    if (options.isFloorDoubled) {
        all.push_back({"floor, a second time", Kind::Floor, floor});
    }
    if (!options.hasPeers) {
        const auto isPeer = [](const Participant &one) { return one.kind == Kind::Peer; };
        all.erase(std::remove_if(all.begin(), all.end(), isPeer), all.end());
    }
    for (size_t i = 0; i < all.size(); ++i) {
        all[i].copy = options.destination / ("copy" + std::to_string(i));
        // with "/" at the end the host copies what is inside, as the others do
        const bool isHost = all[i].kind == Kind::Host;
        all[i].command.insert(all[i].command.end(),
                              {isHost ? options.source / "" : options.source, all[i].copy});
    }
    return all;
}

void prepare(const Options &options)
{
    if (options.isSourceCold) {
        evict(options.source);
    }
    ::sync(); // what others on this machine have left to write is not the participants'
}

void record(Participant &participant, const Outcome &outcome, const Options &options)
{
    participant.remainder.add(syncFileSystem(options.destination));
    participant.whole.add(outcome.seconds);
    participant.memory.add(outcome.memory);
    if (participant.kind == Kind::Library) {
        participant.request.add(std::strtod(outcome.output.c_str(), nullptr) - outcome.stopped);
    }
}

void takeCopyBack(const Participant &participant, const Options &options)
{
    requireEqual(options.source, participant.copy);
    fs::remove_all(participant.copy);
}

void runAlone(Participant &participant, const Options &options)
{
    prepare(options);
    record(participant, runParticipant(participant.command), options);
    takeCopyBack(participant, options);
}

// Side by side, one at a time at work. A machine that is slower for minutes is so for all of
// them. Programs of several processes, and those that leave much for later, cannot be stopped
// without others paying for them.
void runInTurns(const std::vector<Participant *> &all, const Options &options)
{
    prepare(options);
    std::vector<RunningParticipant> running;
    running.reserve(all.size());
    for (const Participant *participant : all) {
        running.emplace_back(participant->command);
    }
    for (size_t over = 0; over < all.size();) {
        for (size_t i = 0; i < all.size(); ++i) {
            if (!running[i].isOver() && running[i].takeTurn(options.turn)) {
                record(*all[i], running[i].outcome(), options);
                ++over;
            }
        }
    }
    for (const Participant *participant : all) {
        takeCopyBack(*participant, options);
    }
}

// each round begins with another one, so that nobody always gains by its place
void runRound(std::vector<Participant> &all, unsigned round, const Options &options)
{
    std::vector<Participant *> inTurns;
    for (size_t i = 0; i < all.size(); ++i) {
        Participant &participant = all[(round + i) % all.size()];
        if (options.turn > 0 && participant.kind != Kind::Peer) {
            inTurns.push_back(&participant);
        } else {
            runAlone(participant, options);
        }
    }
    if (!inTurns.empty()) {
        runInTurns(inTurns, options);
    }
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
    std::printf("### %s\n\n%ju file(s), %.1f MiB in all, %u round(s)%s", options.title.c_str(),
                contents.files, static_cast<double>(contents.bytes) / (1 << 20), options.rounds,
                options.isSourceCold ? ", source not cached" : "");
    if (options.turn > 0) {
        std::printf(", floor and library side by side in turns of %g s", options.turn);
    }
    std::printf("\n\n");

    Table table({"", "median s", "minimum s", "median / floor", "minimum / floor", "spread",
                 "not durable yet s"});
    for (const Participant &participant : all) {
        if (participant.kind == Kind::Library) {
            addRow(table, participant.name + ", request to end signal", participant.request,
                   floor.whole, participant.remainder);
            addRow(table, participant.name + ", whole process", participant.whole, floor.whole,
                   participant.remainder);
        } else {
            addRow(table, participant.name, participant.whole, floor.whole, participant.remainder);
        }
        const Series &time =
            participant.kind == Kind::Library ? participant.request : participant.whole;
        recordCost(participant.name, options.files, time.median(), participant.memory.median());
    }
    table.print();

    std::printf("\n");
    for (const Participant &participant : all) {
        if (participant.kind == Kind::Library && options.target > 0) {
            printVerdict(options.title + ", request to end signal, median / floor",
                         participant.request.median() / floor.whole.median(), options.target, "");
            printVerdict(options.title + ", end signal to durable", participant.remainder.median(),
                         s_durabilityTarget, " s");
        }
    }
    if (options.hasHost) {
        const auto medianOf = [&all](Kind kind) {
            return std::find_if(all.begin(), all.end(),
                                [kind](const Participant &one) { return one.kind == kind; })
                ->whole.median();
        };
        printVerdict("export by the host / copy by the library",
                     medianOf(Kind::Host) / medianOf(Kind::Library), s_hostTarget, "");
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
          "    [--rounds N] [--target RATIO] [--cold] [--floor-twice] [--names]\n"
          "    [--no-peers] [--host] [--turns SECONDS]\n"
          "SOURCE is created, and removed at the end.\n"
          "--cold         takes the source, a single file, out of the page cache before each copy\n"
          "--floor-twice  the floor takes part twice: what lies between the two is noise\n"
          "--names        the floor flushes names, too; one that does not takes part beside it\n"
          "--no-peers     floor and library alone take part\n"
          "--host         the example host takes part, too\n"
          "--turns        floor and library copy side by side, by turns of so many seconds; not\n"
          "               with --cold, as the first to read warms the source for the others");
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
        } else if (argument == "--names") {
            options.areNamesFlushed = true;
        } else if (argument == "--no-peers") {
            options.hasPeers = false;
        } else if (argument == "--host") {
            options.hasHost = true;
        } else if (argument == "--rounds" && values >= 1) {
            options.rounds = static_cast<unsigned>(number(argv[++i]));
        } else if (argument == "--target" && values >= 1) {
            options.target = number(argv[++i]);
        } else if (argument == "--turns" && values >= 1) {
            options.turn = number(argv[++i]);
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
        || (options.isSourceCold && (options.folders > 0 || options.turn > 0))) {
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
        runRound(all, round, options);
    }
    report(all, options);
    fs::remove_all(options.source);
    return EXIT_SUCCESS;
}
