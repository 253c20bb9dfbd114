// The two exported speed queries, asked at random speeds of random tables among the built-in ones,
// beside other ways to ask the same tables.
#include <benchmark/benchmark.h>

#include "bench/Bench.h"
#include "bench/SpeedTableWays.h"
#include "model/Criteria.h"

using namespace designspec;

using QueryValue::QueryMode;

namespace {

constexpr std::pair<QueryMode, const char*> kModes[] = {
    {QueryValue::Nearest, "Nearest"}, {QueryValue::Upper, "Upper"},
    {QueryValue::Lower, "Lower"},     {QueryValue::Interpolate, "Interpolate"},
    {QueryValue::Exact, "Exact"},
};

template <class T> class Exported {
public:
    explicit Exported(const SpeedTable<T>& table) : m_table(&table) {}
    bool Query(int speed, QueryMode mode, T& value) const
    {
        if constexpr (std::is_same_v<T, int>)
            return QueryValue::QueryIntValBySpeed(m_table, speed, mode, value);
        else
            return QueryValue::QueryDoubleValBySpeed(m_table, speed, mode, value);
    }

private:
    const SpeedTable<T>* m_table;
};

// The built-in tables of that kind that hold anything.
template <class T> std::vector<const SpeedTable<T>*> BuiltInTables(CDesignSpecification& builtIn)
{
    constexpr FieldKind kind =
        std::is_same_v<T, int> ? FieldKind::IntTable : FieldKind::DoubleTable;
    std::vector<const SpeedTable<T>*> tables;
    for (const CriterionInfo& criterion : Criteria()) {
        for (const Field& field : criterion.fields) {
            if (field.kind != kind) continue;
            const auto& table = field.Of<SpeedTable<T>>(criterion.get(builtIn));
            if (!table.IsEmpty()) tables.push_back(&table);
        }
    }
    return tables;
}

// A way to ask for each table.
template <class Way, class T>
const std::vector<Way>& WaysOf(const std::vector<const SpeedTable<T>*>& tables)
{
    static const std::vector<Way> ways = [&tables] {
        std::vector<Way> made;
        for (const auto* table : tables)
            made.emplace_back(*table);
        return made;
    }();
    return ways;
}

// A module that lays out a road asks one table again and again.
constexpr size_t kQuestionsAtOneTable = 512;

template <class T> class Asking {
public:
    explicit Asking(const char* group) : m_group(group), m_tables(BuiltInTables<T>(m_builtIn))
    {
        m_speeds = MakeQuestions([](auto number) { return number(20, 120); });
    }

    // Many questions at a time, as far as the processor can: none needs the answer of another.
    template <class Way> void Add(const char* wayName) const
    {
        AddEach<Way>(m_group, wayName, [this](auto& state, const auto& ways, QueryMode mode) {
            Measure(state, ways, mode, [](int speed, T) { return speed; });
        });
    }
    // Each question waits for the answer of the one before.
    template <class Way> void AddDependent(const char* wayName) const
    {
        const std::string group = std::string(m_group) + ", each after the other";
        AddEach<Way>(group, wayName, [this](auto& state, const auto& ways, QueryMode mode) {
            int none = 0; // what nobody knows before it runs
            benchmark::DoNotOptimize(none);
            Measure(state, ways, mode, [none](int speed, T value) {
                return speed + (static_cast<int>(value) & none);
            });
        });
    }

private:
    template <class Way, class Run>
    void AddEach(const std::string& group, const char* wayName, Run run) const
    {
        const auto& ways = WaysOf<Way, T>(m_tables);
        for (const auto& [mode, modeName] : kModes) {
            CheckAnswers(ways, mode, wayName);
            const std::string name = group + '/' + modeName + '/' + wayName;
            benchmark::RegisterBenchmark(
                name.c_str(), [run, &ways, mode = mode](auto& state) { run(state, ways, mode); });
        }
    }

    template <class Ways>
    void CheckAnswers(const Ways& ways, QueryMode mode, const char* wayName) const
    {
        const auto& exported = WaysOf<Exported<T>, T>(m_tables);
        for (size_t table = 0; table < ways.size(); ++table) {
            for (int speed = 0; speed <= 200; ++speed) {
                T expected = -1;
                T value = -1;
                const bool answers = exported[table].Query(speed, mode, expected);
                const bool same =
                    ways[table].Query(speed, mode, value) == answers && value == expected;
                Require(same, std::string(m_group) + ": " + wayName + " answers something else");
            }
        }
    }

    // Each pass asks the next table at the next speeds; `speedAfter` makes the speed to ask for of
    // the one that is next and the answer before.
    template <class Ways, class SpeedAfter>
    void Measure(benchmark::State& state, const Ways& ways, QueryMode mode,
                 SpeedAfter speedAfter) const
    {
        T before = 0;
        size_t table = 0;
        size_t first = 0;
        while (state.KeepRunningBatch(kQuestionsAtOneTable)) {
            const auto& way = ways[table];
            for (size_t i = first; i < first + kQuestionsAtOneTable; ++i) {
                T value = 0;
                bool answered = way.Query(speedAfter(m_speeds[i], before), mode, value);
                benchmark::DoNotOptimize(answered);
                benchmark::DoNotOptimize(value);
                before = value;
            }
            table = (table + 1) % ways.size();
            first = (first + kQuestionsAtOneTable) % kQuestions;
        }
    }

    const char* m_group;
    CDesignSpecification m_builtIn;
    std::vector<const SpeedTable<T>*> m_tables;
    std::vector<int> m_speeds; // km/h
};

template <class T> void AddGroup(const char* group)
{
    static const Asking<T> asking(group);
    asking.template Add<Exported<T>>("designspec");
    asking.template Add<CopyAndSort<T, QuickSort>>("copy and qsort");
    asking.template Add<CopyAndSort<T, StdSort>>("copy and std::sort");
    asking.template Add<SpeedMap<T>>("std::map");
    asking.template Add<SortedVector<T>>("sorted vector");
    asking.template Add<BranchFreeSearch<T>>("branch-free search");
    asking.template Add<SqlTable<T>>("SQLite");
    asking.template AddDependent<Exported<T>>("designspec");
    asking.template AddDependent<BranchFreeSearch<T>>("branch-free search");
}

} // namespace

void AddSpeedQueries()
{
    AddGroup<int>("QueryIntValBySpeed");
    AddGroup<double>("QueryDoubleValBySpeed");
}
