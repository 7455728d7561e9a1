// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

// Collects and writes the samples of one long clip by the library and by the floor in turn, round
// after round, and compares what they have written.

#include "benchmarks/Measurement.h"
#include "benchmarks/Participant.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>

using namespace Tavro::Benchmarks;
namespace fs = std::filesystem;

namespace {

constexpr double s_timeTarget = 3.0;
constexpr double s_memoryTarget = 100; // bytes a sample

struct Collector
{
    std::string name;
    std::string program;
    fs::path file; // what it writes
    Series sampling = {};
    Series stopping = {};
    Series whole = {};
    double memory = 0; // most that it took in any round, in bytes

    void run(const std::vector<std::string> &arguments)
    {
        std::vector<std::string> command{siblingProgram(program)};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const Outcome outcome = runParticipant(command);
        std::istringstream figures(outcome.output);
        double samples = 0;
        double stop = 0;
        double bytes = 0;
        if (!(figures >> samples >> stop >> longest >> bytes)) {
            fail(program + " printed no figures");
        }
        sampling.add(samples);
        stopping.add(stop);
        whole.add(samples + stop);
        memory = std::max(memory, bytes);
    }

    double longest = 0; // sample of the last round, in seconds
};

std::string contentOf(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// in the library's file the samples stand below a header, and in the order of texts
void compareSamples(const fs::path &library, const fs::path &floor)
{
    const auto sortedSamples = [](const std::string &content) {
        std::vector<std::string_view> lines;
        for (size_t begin = content.find("Val"); begin < content.size();) {
            const size_t end = std::min(content.find('\n', begin), content.size() - 1) + 1;
            lines.push_back(std::string_view(content).substr(begin, end - begin));
            begin = end;
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    };
    const std::string written = contentOf(library);
    const std::string expected = contentOf(floor);
    if (sortedSamples(written) != sortedSamples(expected)) {
        fail("the library and the floor have written different samples");
    }
}

} // namespace

int main(int argc, char **argv)
{
    const unsigned long samples = argc == 4 ? std::strtoul(argv[2], nullptr, 10) : 0;
    const unsigned long rounds = argc == 4 ? std::strtoul(argv[3], nullptr, 10) : 0;
    if (samples == 0 || rounds == 0) {
        fail(std::string("usage: ") + argv[0] + " DIRECTORY SAMPLES ROUNDS");
    }
    const fs::path folder = argv[1];
    const std::string count = std::to_string(samples);
    const fs::path video = folder / "library.mp4";
    Collector floor{"floor", "floor_clipinfo", folder / "floor.txt"};
    Collector library{"library", "clipinfo_with_library", folder / "library.txt"};
    Series longest;
    for (unsigned long round = 0; round < rounds; ++round) {
        fs::remove(library.file); // or it would be continued
        if (round % 2 == 0) {
            floor.run({floor.file, count});
            library.run({video, count, "all"});
        } else {
            library.run({video, count, "all"});
            floor.run({floor.file, count});
        }
        compareSamples(library.file, floor.file);

        fs::remove(library.file);
        Collector each = library;
        each.run({video, count, "each"});
        longest.add(each.longest);
    }
    fs::remove(library.file);
    fs::remove(floor.file);

    const auto perSample = [samples](double seconds) {
        return fixed(seconds * 1e9 / static_cast<double>(samples), 0);
    };
    const auto bytesPerSample = [samples](double bytes) {
        return bytes / static_cast<double>(samples);
    };
    std::printf("### Clip information of %lu samples\n\n%lu rounds\n\n", samples, rounds);
    Table table({"", "ns a sample", "stop s", "in all s", "minimum s", "median / floor",
                 "minimum / floor", "spread", "bytes a sample"});
    for (const Collector &collector : {floor, library}) {
        table.addRow({collector.name, perSample(collector.sampling.median()),
                      fixed(collector.stopping.median(), 3), fixed(collector.whole.median(), 3),
                      fixed(collector.whole.minimum(), 3),
                      ratio(collector.whole.median(), floor.whole.median()),
                      ratio(collector.whole.minimum(), floor.whole.minimum()),
                      fixed(collector.whole.spread() * 100, 0) + " %",
                      fixed(bytesPerSample(collector.memory), 0)});
    }
    table.print();
    for (const Collector &collector : {floor, library}) {
        recordCost(collector.name, static_cast<double>(samples), collector.whole.median(),
                   collector.memory);
    }
    std::printf(
        "\nOne sample held the thread for at most %s ms (median of the rounds; least: %s ms)."
        "\n\n",
        fixed(longest.median() * 1e3, 3).c_str(), fixed(longest.minimum() * 1e3, 3).c_str());
    printVerdict("clip information, median / floor", library.whole.median() / floor.whole.median(),
                 s_timeTarget, "");
    printVerdict("clip information, memory", bytesPerSample(library.memory), s_memoryTarget,
                 " bytes a sample");
    std::printf("\n");
    return EXIT_SUCCESS;
}
