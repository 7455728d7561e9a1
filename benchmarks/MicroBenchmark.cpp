// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#include "benchmarks/MicroBenchmark.h"

#include "benchmarks/Measurement.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace Tavro::Benchmarks {

namespace {

// takes down each round and prints nothing by itself
class Recorder : public benchmark::BenchmarkReporter
{
public:
    explicit Recorder(MicroBenchmark::Time time)
        : m_time(time)
    {
    }

    bool ReportContext(const Context &context) override
    {
        static_cast<void>(context);
        return true;
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && run.iterations > 0) {
                const double total = m_time == MicroBenchmark::Time::Processor
                    ? run.cpu_accumulated_time
                    : run.real_accumulated_time;
                m_series[run.run_name.function_name].add(total
                                                         / static_cast<double>(run.iterations));
            }
        }
    }

    const Series &series(const std::string &name) { return m_series[name]; }

private:
    const MicroBenchmark::Time m_time;
    std::map<std::string, Series> m_series;
};

std::string nanoseconds(double seconds)
{
    return fixed(seconds * 1e9, 1);
}

} // namespace

MicroBenchmark::MicroBenchmark(std::string heading, Time time)
    : m_heading(std::move(heading))
    , m_time(time)
{
}

int MicroBenchmark::run(int argc, char **argv)
{
    const std::string rounds = argc > 1 ? argv[1] : "9";
    std::string repetitions = "--benchmark_repetitions=" + rounds;
    std::string shortest = std::string("--benchmark_min_time=") + (argc > 2 ? argv[2] : "0.05");
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::array<char *, 4> arguments = {argv[0], repetitions.data(), shortest.data(),
                                       interleaving.data()};
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (argc > 3 || count > 1) {
        std::fprintf(stderr, "usage: %s [ROUNDS [SECONDS]]\n", argv[0]);
        return EXIT_FAILURE;
    }

    const auto measure = [this](const std::string &name, const Body &body) {
        auto *benchmark = benchmark::RegisterBenchmark(name.c_str(), body);
        if (m_time == Time::Clock) {
            benchmark->UseRealTime();
        }
    };
    // numbered, since names tell the results apart and two rows may have the same peer
    for (size_t i = 0; i < m_rows.size(); ++i) {
        measure("call" + std::to_string(i), m_rows[i].call);
        if (m_rows[i].peer) {
            measure("peer" + std::to_string(i), m_rows[i].peer);
        }
    }
    Recorder recorder(m_time);
    // row by row: what the machine does besides changes within seconds, and has to hit both alike
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const std::string both = "^(call|peer)" + std::to_string(i) + "(/real_time)?$";
        const size_t expected = m_rows[i].peer ? 2 : 1;
        if (benchmark::RunSpecifiedBenchmarks(&recorder, both) != expected) {
            fail("nothing was measured for " + m_rows[i].name);
        }
    }
    benchmark::Shutdown();

    std::printf("### %s\n\n%s rounds\n\n", m_heading.c_str(), rounds.c_str());
    Table table({"", "ns", "spread", "beside", "ns", "spread", "median / peer", "minimum / peer"});
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const Series &call = recorder.series("call" + std::to_string(i));
        const Series &peer = recorder.series("peer" + std::to_string(i));
        const bool alone = m_rows[i].peerName.empty();
        table.addRow({m_rows[i].name, nanoseconds(call.median()),
                      fixed(call.spread() * 100, 0) + " %", alone ? "-" : m_rows[i].peerName,
                      alone ? "-" : nanoseconds(peer.median()),
                      alone ? "-" : fixed(peer.spread() * 100, 0) + " %",
                      ratio(call.median(), peer.median()), ratio(call.minimum(), peer.minimum())});
    }
    table.print();
    std::printf("\n");
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const Row &row = m_rows[i];
        const double time = recorder.series("call" + std::to_string(i)).median();
        if (row.peerName.empty()) {
            printVerdict(row.name, time * 1e9, row.target, " ns");
        } else {
            const double least = recorder.series("peer" + std::to_string(i)).median();
            printVerdict(row.name + " / " + row.peerName, least > 0 ? time / least : 0, row.target,
                         "");
        }
    }
    std::printf("\n");
    return EXIT_SUCCESS;
}

} // namespace Tavro::Benchmarks
