// A query by the name of a specification, in libraries of several sizes, beside indexes of names
// kept at hand.
#include <map>
#include <unordered_map>

#include <benchmark/benchmark.h>

#include "base/NoCase.h"
#include "bench/TemporaryProject.h"

using namespace designspec;

namespace {

struct NoCase {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const
    {
        return CompareNoCase(a, b) < 0;
    }
};
using Index = std::map<CString, const CDesignSpecification*, NoCase>;

// Knows names as they are once their case is folded, and is asked for such: it folds nothing.
struct Hash : std::hash<std::wstring_view> {
    using is_transparent = void;
};
using FoldedIndex = std::unordered_map<CString, const CDesignSpecification*, Hash, std::equal_to<>>;

// Fills the library with so many specifications, none of which has a file.
CDesignSpecifications& Fill(int count)
{
    CDesignSpecifications::Destroy();
    auto& library = *CDesignSpecifications::GetInstance();
    for (int i = 0; i < count; ++i) {
        auto* made = new CDesignSpecification;
        made->SetName(TemporaryProject::NameOf(i).c_str());
        library.Add(made);
    }
    return library;
}

template <class Find> void Measure(benchmark::State& state, int count, Find find)
{
    const auto names = MakeQuestions(
        [count](auto number) { return TemporaryProject::NameOf(number(0, count - 1)); });
    const auto speeds = MakeQuestions([](auto number) { return number(20, 120); });
    size_t i = 0;
    for (auto _ : state) {
        const CDesignSpecification* found = find(names[i % kQuestions].c_str());
        Require(found != nullptr, "a specification was not found by its name");
        int value = 0;
        QueryValue::QueryIntValBySpeed(&found->CircularCurveRad.SuperelevationMinRad,
                                       speeds[i % kQuestions], QueryValue::Nearest, value);
        benchmark::DoNotOptimize(value);
        ++i;
    }
}

void AskLibrary(benchmark::State& state, int count)
{
    const auto& library = Fill(count);
    Measure(state, count, [&](const wchar_t* name) { return library.Item(name); });
}

void AskIndex(benchmark::State& state, int count)
{
    const auto& library = Fill(count);
    Index index;
    for (int i = 0; i < count; ++i)
        index[library.Item(i)->Name()] = library.Item(i);
    Measure(state, count, [&](const wchar_t* name) {
        const auto found = index.find(std::wstring_view(name));
        return found == index.end() ? nullptr : found->second;
    });
}

void AskFoldedIndex(benchmark::State& state, int count)
{
    const auto& library = Fill(count);
    FoldedIndex index;
    for (int i = 0; i < count; ++i)
        index[NoCaseKey(library.Item(i)->Name()).Folded()] = library.Item(i);
    Measure(state, count, [&](const wchar_t* name) {
        const auto found = index.find(std::wstring_view(name));
        return found == index.end() ? nullptr : found->second;
    });
}

} // namespace

void AddNamedQueries()
{
    for (int count : {1, 10, 1000, 10000}) {
        const std::string row = "Query by name/library of " + std::to_string(count) + '/';
        benchmark::RegisterBenchmark((row + "designspec").c_str(),
                                     [count](auto& state) { AskLibrary(state, count); });
        benchmark::RegisterBenchmark((row + "std::map of names").c_str(),
                                     [count](auto& state) { AskIndex(state, count); });
        benchmark::RegisterBenchmark((row + "std::unordered_map of folded names").c_str(),
                                     [count](auto& state) { AskFoldedIndex(state, count); });
    }
}
