// history_bench: what versions cost, with as many specifications as doubles and fifty versions of
// each, and with as many versions as doubles.
#include "bench/Bench.h"
#include "bench/Doubling.h"
#include "bench/VersionedProject.h"
#include "library/SpecificationFolder.h"
#include "library/SpecificationHistory.h"

using namespace designspec;

namespace {

constexpr int kVersions = 50;

// One that is loaded, of the project.
class Loaded {
public:
    Loaded(std::int64_t specifications, std::int64_t versions)
        : m_project(specifications, versions), folder(m_project.Path())
    {
        Require(folder.Load().done && folder.Count() == specifications, "one is missing");
    }
    CDesignSpecification& One() const { return *folder.Item(folder.Count() / 2); }

private:
    VersionedProject m_project;

public:
    SpecificationFolder folder;
};

void Save(benchmark::State& state, Loaded& loaded, const char* name)
{
    double mark = 1000;
    MeasureGrowth(state, name, [&] {
        for (int i = 0; i < 20; ++i) {
            loaded.One().BeelineLen.MaxLen = ++mark;
            const Outcome outcome = loaded.folder.Save(loaded.One());
            Require(outcome.done && outcome.problems.empty(), "it could not be saved");
        }
    });
}

void SaveAmongMany(benchmark::State& state)
{
    Loaded loaded(state.range(0), kVersions);
    Save(state, loaded, "among many");
}

void SaveWithMany(benchmark::State& state)
{
    Loaded loaded(1, state.range(0));
    Save(state, loaded, "with many");
}

void List(benchmark::State& state)
{
    const Loaded loaded(state.range(0), kVersions);
    MeasureGrowth(state, "list", [&] {
        Problems problems;
        const auto versions = VersionsOf(loaded.folder, loaded.One().ID(), problems);
        Require(versions.size() == kVersions && problems.empty(), "a version is missing");
    });
}

void Tell(benchmark::State& state)
{
    const Loaded loaded(state.range(0), kVersions);
    MeasureGrowth(state, "tell", [&] {
        Problems problems;
        const auto states = StatesOf(loaded.folder, loaded.One().ID(), problems);
        Require(states.size() == kVersions + 1 && problems.empty(), "a version is missing");
        Require(states[5].changes.size() == 1, "another list of differences");
    });
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    RegisterGrowth("History/20 saves, so many specifications", 64, 512, SaveAmongMany);
    RegisterGrowth("History/20 saves, so many versions", 8, 64, SaveWithMany);
    RegisterGrowth("History/50 versions listed, so many specifications", 64, 512, List);
    RegisterGrowth("History/50 versions with changes, so many specifications", 64, 512, Tell);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
