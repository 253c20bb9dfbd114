// How a time grows with what it is spent on: a benchmark runs for one size after the other, each
// twice the one before.
#pragma once

#include <cmath>
#include <ctime>
#include <functional>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

// Runs `turn` in each iteration of `state`, whose first argument is the size. The counter
// "exponent" is 1 where the processor time has doubled since the size before, 2 where it is four
// times as long; the target is at most 1.15. `name` is the benchmark's own.
inline void MeasureGrowth(benchmark::State& state, const std::string& name,
                          const std::function<void()>& turn)
{
    struct Run {
        double size, time;
    };
    static std::map<std::string, Run> before;
    const std::clock_t start = std::clock();
    for (auto _ : state)
        turn();
    const Run run{static_cast<double>(state.range(0)), static_cast<double>(std::clock() - start) /
                                                           static_cast<double>(state.iterations())};
    const auto last = before.find(name);
    if (last != before.end() && last->second.size < run.size)
        state.counters["exponent"] =
            std::log(run.time / last->second.time) / std::log(run.size / last->second.size);
    before[name] = run;
}

// Registers a benchmark of sizes that double from the first on.
inline void RegisterGrowth(const char* name, int from, int to, void (*function)(benchmark::State&))
{
    auto* const added = benchmark::RegisterBenchmark(name, function);
    for (int size = from; size <= to; size *= 2)
        added->Arg(size);
    added->Iterations(3)->Unit(benchmark::kMillisecond);
}
