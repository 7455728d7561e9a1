// SPDX-FileCopyrightText: The OvoSharedBase contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavro::Benchmarks {

/**
 * Short calls of the library, each beside the least that does the same work. Google Benchmark
 * measures them row by row, call and peer several times in random order; the table gives medians
 * and minima.
 *
 *     MicroBenchmark page("Formatters");
 *     page.compare("SizeFormater", [&] { return formatter.format(1000); },
 *                  "QLocale::toString", [&] { return locale.toString(1000); }, 1.5);
 *     return page.run(argc, argv);
 */
class MicroBenchmark
{
public:
    /** What time counts: the processor's for what happens in one thread, else the clock's. */
    enum class Time { Processor, Clock };

    /** @p heading stands above the table. */
    explicit MicroBenchmark(std::string heading, Time time = Time::Processor);

    /** The median of @p call is to be at most @p target times that of @p peer. */
    template<typename Call, typename Peer>
    void compare(std::string name, Call call, std::string peerName, Peer peer, double target)
    {
        add({std::move(name), repeated(std::move(call)), std::move(peerName),
             repeated(std::move(peer)), target});
    }

    /** The median of @p call is to be at most @p target nanoseconds. */
    template<typename Call> void limit(std::string name, Call call, double target)
    {
        add({std::move(name), repeated(std::move(call)), {}, {}, target});
    }

    /**
     * Measures everything and prints the page in Markdown. The arguments, both optional: the
     * number of rounds and the shortest time of a measurement in seconds. Returns the program's
     * exit code.
     */
    int run(int argc, char **argv);

private:
    using Body = std::function<void(benchmark::State &)>;

    struct Row
    {
        std::string name;
        Body call;
        std::string peerName; // empty: the target is in nanoseconds
        Body peer;
        double target;
    };

    template<typename Call> static Body repeated(Call call)
    {
        return [call = std::move(call)](benchmark::State &state) mutable {
            for (auto _ : state) {
                if constexpr (std::is_void_v<decltype(call())>) {
                    call();
                    benchmark::ClobberMemory();
                } else {
                    benchmark::DoNotOptimize(call());
                }
            }
        };
    }

    void add(Row row) { m_rows.push_back(std::move(row)); }

    const std::string m_heading;
    const Time m_time;
    std::vector<Row> m_rows;
};

} // namespace Tavro::Benchmarks
