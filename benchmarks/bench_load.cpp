// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Loads the library and one of like size into a program that is linked with the Qt libraries they
// need, in turn, round after round, and says what is in both files.

#include "benchmarks/HiddenInitialisers.h"
#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <vector>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_target = 1.10;
constexpr double s_linkingTarget = 1.20; // more classes have more tables of functions

// what the dynamic linker reads of a file, in bytes and in numbers
struct Image
{
    size_t code = 0;
    size_t constants = 0; // with the tables of the dynamic linker
    size_t writable = 0;
    size_t readOnlyOnceLoaded = 0; // of the writable bytes
    size_t relocations = 0;
    size_t relocationsByName = 0;
    size_t initialisers = 0;
};

struct Contestant
{
    const char *name;
    fs::path path;
    Image image = {};
    Series linking = {};
    Series initialising = {};
    size_t ownBytes = 0;
    size_t heapBytes = 0;
};

double kibibytes(size_t bytes)
{
    return static_cast<double>(bytes) / 1024;
}

template<typename Object> Object objectAt(const std::string &bytes, size_t offset)
{
    Object object = {};
    if (bytes.copy(reinterpret_cast<char *>(&object), sizeof object, offset) < sizeof object) {
        fail("This is not a library of this machine");
    }
    return object;
}

// Hides the initialisers in @p bytes.
void readDynamicSection(std::string &bytes, size_t offset, Image &image)
{
    size_t relocationBytes = 0;
    size_t relative = 0;
    size_t entrySize = sizeof(ElfW(Rela));
    for (;; offset += sizeof(ElfW(Dyn))) {
        const auto entry = objectAt<ElfW(Dyn)>(bytes, offset);
        const size_t value = entry.d_un.d_val;
        switch (entry.d_tag) {
        case DT_RELASZ:
        case DT_RELSZ:
        case DT_PLTRELSZ:
            relocationBytes += value;
            break;
        case DT_RELAENT:
        case DT_RELENT:
            entrySize = value;
            break;
        case DT_RELACOUNT:
        case DT_RELCOUNT:
            relative = value;
            break;
        case DT_INIT_ARRAY:
            std::memcpy(&bytes[offset], &s_hiddenInitialisersTag, sizeof entry.d_tag);
            break;
        case DT_INIT_ARRAYSZ:
            image.initialisers = value / sizeof(void *);
            break;
        case DT_NULL:
            image.relocations = relocationBytes / entrySize;
            image.relocationsByName = image.relocations - relative;
            return;
        }
    }
}

// Copies @p from and hides the initialisers of the copy.
Image copyImage(const fs::path &from, const fs::path &to)
{
    std::ifstream in(from, std::ios::binary);
    if (!in) {
        fail("Cannot read " + from.string());
    }
    std::string bytes(std::istreambuf_iterator<char>(in), {});
    const auto header = objectAt<ElfW(Ehdr)>(bytes, 0);
    Image image;
    for (size_t i = 0; i < header.e_phnum; ++i) {
        const auto segment = objectAt<ElfW(Phdr)>(bytes, header.e_phoff + i * header.e_phentsize);
        if (segment.p_type == PT_DYNAMIC) {
            readDynamicSection(bytes, segment.p_offset, image);
        } else if (segment.p_type == PT_GNU_RELRO) {
            image.readOnlyOnceLoaded += segment.p_memsz;
        } else if (segment.p_type == PT_LOAD) {
            const bool isCode = (segment.p_flags & PF_X) != 0;
            const bool isWritable = (segment.p_flags & PF_W) != 0;
            (isCode           ? image.code
                 : isWritable ? image.writable
                              : image.constants) += segment.p_memsz;
        }
    }
    if (!(std::ofstream(to, std::ios::binary) << bytes)) {
        fail("Cannot copy " + from.string());
    }
    return image;
}

void load(Contestant &contestant)
{
    const Outcome outcome = runParticipant({siblingProgram("load_library"), contestant.path});
    std::istringstream figures(outcome.output);
    double linking = 0;
    double initialising = 0;
    if (!(figures >> linking >> initialising >> contestant.ownBytes >> contestant.heapBytes)) {
        fail("load_library printed no figures");
    }
    contestant.linking.add(linking);
    contestant.initialising.add(initialising);
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned rounds = argc == 5 ? std::strtoul(argv[4], nullptr, 10) : 0;
    if (rounds == 0) {
        std::fprintf(stderr,
                     "usage: %s DIRECTORY LIBRARY PEER ROUNDS\n\n"
                     "Loads LIBRARY and PEER from copies in DIRECTORY.\n",
                     argv[0]);
        return EXIT_FAILURE;
    }

    const fs::path directory = argv[1];
    std::vector<Contestant> contestants = {
        {"library", directory / "library"},
        {"KCoreAddons", directory / "peer"},
    };
    for (size_t i = 0; i < contestants.size(); ++i) {
        contestants[i].image = copyImage(argv[2 + i], contestants[i].path);
    }
    Series qtAlone;
    for (unsigned round = 0; round < rounds; ++round) {
        // by turns, so that nobody always gains by its place
        for (size_t i = 0; i < contestants.size(); ++i) {
            load(contestants[(i + round) % contestants.size()]);
        }
        qtAlone.add(runParticipant({siblingProgram("load_library")}).seconds);
    }

    std::printf("### Loading beside KCoreAddons\n\n%u rounds, everything cached\n\n", rounds);
    const Contestant &library = contestants[0];
    const Contestant &peer = contestants[1];
    Table table({"", library.name, peer.name, "library / KCoreAddons"});
    const auto addRow = [&](const char *name, auto valueOf, int digits = 0) {
        const auto ours = static_cast<double>(valueOf(library));
        const auto theirs = static_cast<double>(valueOf(peer));
        table.addRow({name, fixed(ours, digits), fixed(theirs, digits), ratio(ours, theirs)});
        return ours / theirs;
    };
    using C = const Contestant &;
    const double linking =
        addRow("dynamic linker, median us", [](C c) { return c.linking.median() * 1e6; });
    addRow("dynamic linker, minimum us", [](C c) { return c.linking.minimum() * 1e6; });
    addRow("relocations", [](C c) { return c.image.relocations; });
    const double byName =
        addRow("relocations by name", [](C c) { return c.image.relocationsByName; });
    const double initialising = addRow(
        "initialisers, median us", [](C c) { return c.initialising.median() * 1e6; }, 1);
    addRow("initialisers, number", [](C c) { return c.image.initialisers; });
    addRow("initialisers, heap bytes", [](C c) { return c.heapBytes; });
    const double memory =
        addRow("memory of its own, KiB", [](C c) { return kibibytes(c.ownBytes); });
    addRow(
        "code, KiB", [](C c) { return kibibytes(c.image.code); }, 1);
    addRow(
        "constants and tables, KiB", [](C c) { return kibibytes(c.image.constants); }, 1);
    addRow(
        "writable data, KiB", [](C c) { return kibibytes(c.image.writable); }, 1);
    addRow(
        "of these read-only once loaded, KiB",
        [](C c) { return kibibytes(c.image.readOnlyOnceLoaded); }, 1);
    table.print();
    std::printf(
        "\nA program that is linked with the Qt libraries alone takes %.1f ms (median).\n\n",
        qtAlone.median() * 1e3);
    printVerdict("dynamic linker, median / KCoreAddons", linking, s_linkingTarget, "");
    printVerdict("relocations by name / KCoreAddons", byName, s_target, "");
    printVerdict("initialisers, median / KCoreAddons", initialising, s_target, "");
    printVerdict("memory of its own / KCoreAddons", memory, s_target, "");
    std::printf("\n");
    return EXIT_SUCCESS;
}
