// A million speeds asked at once, beside a call of the exported query for each. Python's figures
// are taken by a script of its own.
#include <benchmark/benchmark.h>

#include "bench/Bench.h"
#include "c/designspec.h"
#include "model/DesignSpecification.h"
#include "model/SpeedArrays.h"

using namespace designspec;

using QueryValue::QueryMode;

namespace {

constexpr size_t kSpeeds = 1000000;

constexpr std::pair<QueryMode, const char*> kModes[] = {
    {QueryValue::Nearest, "nearest"}, {QueryValue::Upper, "upper"},
    {QueryValue::Lower, "lower"},     {QueryValue::Interpolate, "interpolate"},
    {QueryValue::Exact, "exact"},
};

struct Answers {
    std::vector<double> values = std::vector<double>(kSpeeds);
    std::vector<std::uint8_t> found = std::vector<std::uint8_t>(kSpeeds);

    bool operator==(const Answers&) const = default;
};

const std::vector<std::int32_t>& Speeds()
{
    static const std::vector<std::int32_t> speeds = [] {
        std::vector<std::int32_t> made(kSpeeds);
        const auto questions = MakeQuestions([](auto number) { return number(20, 80); });
        for (size_t i = 0; i < kSpeeds; ++i)
            made[i] = questions[i % kQuestions];
        return made;
    }();
    return speeds;
}

const CDesignSpecification& BuiltIn()
{
    static const CDesignSpecification builtIn;
    return builtIn;
}

void AskMany(QueryMode mode, Answers& answers)
{
    QueryMany(BuiltIn().CircularCurveRad.SuperelevationMinRad, Speeds(), mode, 0,
              answers.values.data(), answers.found.data());
}

const designspec_table* TableInC()
{
    static designspec_table* const table = [] {
        designspec_specification* specification = nullptr;
        designspec_table* made = nullptr;
        const bool done =
            designspec_specification_new("A", &specification) == DESIGNSPEC_OK &&
            designspec_table_of(specification, "CircularCurveRad.SuperelevationMinRad", &made) ==
                DESIGNSPEC_OK;
        Require(done, "no table in C");
        return made;
    }();
    return table;
}

void AskInC(QueryMode mode, Answers& answers)
{
    const auto status = designspec_query_many(TableInC(), Speeds().data(), kSpeeds,
                                              static_cast<designspec_mode>(mode),
                                              answers.values.data(), answers.found.data());
    Require(status == DESIGNSPEC_OK, "the C interface does not answer");
}

void AskEach(QueryMode mode, Answers& answers)
{
    const auto& table = BuiltIn().CircularCurveRad.SuperelevationMinRad;
    for (size_t i = 0; i < kSpeeds; ++i) {
        int value = 0;
        answers.found[i] = QueryValue::QueryIntValBySpeed(&table, Speeds()[i], mode, value);
        answers.values[i] = value;
    }
}

using Ask = void (*)(QueryMode, Answers&);

void Measure(benchmark::State& state, Ask ask, QueryMode mode)
{
    Answers answers;
    for (auto _ : state) {
        ask(mode, answers);
        benchmark::DoNotOptimize(answers.values.data());
        benchmark::ClobberMemory();
    }
}

#ifdef PYTHON
// The script takes the time itself: starting the interpreter is not asking.
void AskInPython(benchmark::State& state, const std::string& mode)
{
    const std::string command = "PYTHONPATH='" BINARY_DIR "/../python' '" PYTHON "' '" SOURCE_DIR
                                "/bench/arrays.py' '" BINARY_DIR "/libdesignspec-c.so' " +
                                mode;
    for (auto _ : state) {
        FILE* output = popen(command.c_str(), "r");
        double seconds = 0;
        const bool read = output && std::fscanf(output, "%lf", &seconds) == 1;
        Require(output && pclose(output) == 0 && read, "Python does not answer");
        state.SetIterationTime(seconds);
    }
}
#endif

} // namespace

void AddArrays()
{
    constexpr std::pair<const char*, Ask> kWays[] = {
        {"designspec", AskMany}, {"C interface", AskInC}, {"a call for each", AskEach}};
    for (const auto& [mode, name] : kModes) {
        Answers expected;
        AskEach(mode, expected);
        const std::string row = std::string("Arrays of speeds/") + name + '/';
        for (const auto& [way, ask] : kWays) {
            Answers answers;
            ask(mode, answers);
            Require(answers == expected, row + way + " answers something else");
            benchmark::RegisterBenchmark((row + way).c_str(), Measure, ask, mode)
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        }
#ifdef PYTHON
        benchmark::RegisterBenchmark((row + "Python").c_str(), AskInPython, std::string(name))
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1);
#endif
    }
#ifdef PYTHON
    benchmark::RegisterBenchmark("Arrays of speeds/interpolate/a loop of np.interp", AskInPython,
                                 std::string("loop"))
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1);
#endif
}
