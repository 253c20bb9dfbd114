// search_bench: what a keystroke in a search field costs, with one specification and with many.
#include <benchmark/benchmark.h>

#include "base/Text.h"
#include "bench/Bench.h"
#include "search/SpecificationIndexes.h"

using namespace designspec;

namespace {

// As they are typed: by the letter, in Chinese, a number, and what is nowhere.
constexpr const wchar_t* kQueries[] = {L"z",   L"cgzx",    L"超高", L"设超高最小半径",
                                       L"250", L"半径 60", L"没有"};

std::vector<CDesignSpecification> Make(std::int64_t count)
{
    std::vector<CDesignSpecification> made(static_cast<std::size_t>(count));
    int mark = 0;
    for (CDesignSpecification& one : made)
        one.CircularCurveRad.MaxRad = 10000 + mark++;
    return made;
}

void Name(benchmark::State& state, const wchar_t* query)
{
    state.SetLabel(ToUtf8(query));
}

// The editor: what the pages hold is indexed anew, and all hits are told.
void InTheEditor(benchmark::State& state)
{
    const wchar_t* const query = kQueries[state.range(0)];
    const CDesignSpecification one;
    for (auto _ : state)
        benchmark::DoNotOptimize(SpecificationIndex(one).Find(SearchWords(query)));
    Name(state, query);
}

// The manager: which of five hundred, and where first.
void InTheManager(benchmark::State& state)
{
    const wchar_t* const query = kQueries[state.range(0)];
    const auto all = Make(500);
    SpecificationIndexes indexes;
    for (const CDesignSpecification& one : all)
        indexes.Of(one);
    for (auto _ : state)
        for (const CDesignSpecification& one : all)
            benchmark::DoNotOptimize(indexes.First(one, SearchWords(query)));
    Name(state, query);
}

// The first keystroke there.
void AtFirst(benchmark::State& state)
{
    const auto all = Make(500);
    for (auto _ : state) {
        SpecificationIndexes indexes;
        for (const CDesignSpecification& one : all)
            Require(indexes.First(one, SearchWords(L"z")).has_value(), "nothing is found");
    }
}

} // namespace

BENCHMARK(InTheEditor)->DenseRange(0, 6)->Unit(benchmark::kMillisecond);
BENCHMARK(InTheManager)->DenseRange(0, 6)->Unit(benchmark::kMillisecond);
BENCHMARK(AtFirst)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
