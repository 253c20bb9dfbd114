// The queries with more than one key, beside SQLite and the standard containers on the same
// numbers.
#include <algorithm>
#include <map>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "base/NoCase.h"
#include "base/Text.h"
#include "bench/Bench.h"
#include "bench/Sql.h"
#include "model/DesignSpecification.h"

using namespace designspec;

namespace {

// Times `ask(question)` over the questions, and checks that it answers what `reference` does.
template <class Question, class Ask, class Reference>
void AddWay(const std::string& name, const std::vector<Question>& questions, Ask ask,
            Reference reference)
{
    for (size_t i = 0; i < 2000; ++i)
        Require(ask(questions[i]) == reference(questions[i]), name + " answers something else");
    benchmark::RegisterBenchmark(name.c_str(), [&questions, ask](benchmark::State& state) {
        size_t i = 0;
        for (auto _ : state)
            benchmark::DoNotOptimize(ask(questions[i++ % kQuestions]));
    });
}

const CDesignSpecification& BuiltIn()
{
    static const CDesignSpecification specification;
    return specification;
}

// ---- The maximum length of a grade. Speeds and gradients that stand in the table.

struct Grade {
    double grad;
    int speed; // km/h
};

// -1 stands for no answer.
int AskMaxLen(const Grade& grade)
{
    int value = -1;
    BuiltIn().LonGradMaxLen.QueryVal(grade.grad, grade.speed, QueryValue::Exact, value);
    return value;
}

class GradeMaps {
public:
    GradeMaps()
    {
        for (const GradientRow& row : BuiltIn().LonGradMaxLen.rows)
            for (const auto& entry : row.lengths)
                m_lengths[row.Grad][entry.speed] = entry.value;
    }
    [[gnu::noinline]] int Ask(const Grade& grade) const
    {
        const auto row = m_lengths.lower_bound(grade.grad - 0.01);
        if (row == m_lengths.end() || row->first >= grade.grad + 0.01) return -1;
        const auto entry = row->second.find(grade.speed);
        return entry == row->second.end() ? -1 : entry->second;
    }

private:
    std::map<double, std::map<int, int>> m_lengths;
};

// A statement that answers with one number.
template <class Bind> class SqlNumber {
public:
    SqlNumber(const SqlDatabase& database, const std::string& sql, Bind bind)
        : m_statement(Prepare(database, sql)), m_bind(bind)
    {
    }
    template <class Question> [[gnu::noinline]] double Ask(const Question& question) const
    {
        m_bind(m_statement.get(), question);
        const double value = sqlite3_step(m_statement.get()) == SQLITE_ROW
                                 ? sqlite3_column_double(m_statement.get(), 0)
                                 : -1;
        sqlite3_reset(m_statement.get());
        return value;
    }

private:
    SqlStatement m_statement;
    Bind m_bind;
};

const SqlDatabase& Database()
{
    static const SqlDatabase database = [] {
        SqlDatabase made = OpenInMemory();
        Run(made, "CREATE TABLE lengths(grad REAL, speed INT, length INT, PRIMARY KEY(grad, speed))"
                  " WITHOUT ROWID");
        for (const GradientRow& row : BuiltIn().LonGradMaxLen.rows)
            for (const auto& entry : row.lengths)
                Run(made, fmt::format("INSERT INTO lengths VALUES({}, {}, {})", row.Grad,
                                      entry.speed, entry.value));
        Run(made, "CREATE TABLE elevations(most INT, speed INT, low INT, high INT, elevation INT,"
                  " PRIMARY KEY(most, speed, low)) WITHOUT ROWID");
        for (const auto& definition : BuiltIn().SuperElevation.definitions)
            for (const auto& row : definition.rows)
                for (const auto& range : row.ranges)
                    Run(made, fmt::format("INSERT INTO elevations VALUES({}, {}, {}, {}, {})",
                                          definition.maxSuperElev, row.speed, range.minRadius,
                                          range.maxRadius, range.superElev));
        Run(made, "CREATE TABLE widenings(high INT, low INT, car TEXT COLLATE NOCASE, widening"
                  " REAL, PRIMARY KEY(high, car)) WITHOUT ROWID");
        for (const auto& range : BuiltIn().CurveWidening.ranges)
            for (const auto& one : range.widenings)
                Run(made, fmt::format("INSERT INTO widenings VALUES({}, {}, '{}', {})", range.max,
                                      range.min, ToUtf8(one.carType), one.widening));
        return made;
    }();
    return database;
}

void AddMaxLen()
{
    static const auto questions = MakeQuestions([](auto number) {
        const auto& rows = BuiltIn().LonGradMaxLen.rows;
        return Grade{rows[number(0, rows.count - 1)].Grad, number(4, 8) * 10};
    });
    static const GradeMaps maps;
    static const SqlNumber sql(
        Database(), "SELECT length FROM lengths WHERE grad > ?1 AND grad < ?2 AND speed = ?3",
        [](sqlite3_stmt* statement, const Grade& grade) {
            sqlite3_bind_double(statement, 1, grade.grad - 0.01);
            sqlite3_bind_double(statement, 2, grade.grad + 0.01);
            sqlite3_bind_int(statement, 3, grade.speed);
        });
    const std::string row = "Compound queries/QueryVal/";
    AddWay(row + "designspec", questions, AskMaxLen, AskMaxLen);
    AddWay(
        row + "std::map", questions, [](const Grade& g) { return maps.Ask(g); }, AskMaxLen);
    AddWay(
        row + "SQLite", questions, [](const Grade& g) { return static_cast<int>(sql.Ask(g)); },
        AskMaxLen);
}

// ---- The superelevation of a curve. Speeds that have a row.

struct Curve {
    int most;   // %
    int speed;  // km/h
    int radius; // m
};

int AskElevation(const Curve& curve)
{
    int value = -1;
    BuiltIn().SuperElevation.QuerySuperElevation(curve.most, curve.speed, QueryValue::Nearest, 0,
                                                 curve.radius, value);
    return value;
}

class ElevationMaps {
public:
    ElevationMaps()
    {
        for (const auto& definition : BuiltIn().SuperElevation.definitions)
            for (const auto& row : definition.rows)
                for (const auto& range : row.ranges)
                    m_ranges[{definition.maxSuperElev, row.speed}][range.minRadius] = range;
    }
    [[gnu::noinline]] int Ask(const Curve& curve) const
    {
        const auto row = m_ranges.find({curve.most, curve.speed});
        if (row == m_ranges.end()) return -1;
        auto range = row->second.upper_bound(curve.radius);
        if (range == row->second.begin()) return -1;
        --range;
        return curve.radius < range->second.maxRadius ? range->second.superElev : -1;
    }

private:
    std::map<std::pair<int, int>, std::map<int, SuperElevRange>> m_ranges;
};

void AddElevation()
{
    static const auto questions = MakeQuestions([](auto number) {
        const auto& definitions = BuiltIn().SuperElevation.definitions;
        const auto& definition = definitions[number(0, definitions.count - 1)];
        const auto& row = definition.rows[number(0, definition.rows.count - 1)];
        return Curve{definition.maxSuperElev, row.speed, number(10, 1100)};
    });
    static const ElevationMaps maps;
    static const SqlNumber sql(
        Database(),
        "SELECT elevation FROM elevations WHERE most = ?1 AND speed = ?2 AND low <= ?3 AND"
        " high > ?3 LIMIT 1",
        [](sqlite3_stmt* statement, const Curve& curve) {
            sqlite3_bind_int(statement, 1, curve.most);
            sqlite3_bind_int(statement, 2, curve.speed);
            sqlite3_bind_int(statement, 3, curve.radius);
        });
    const std::string row = "Compound queries/QuerySuperElevation/";
    AddWay(row + "designspec", questions, AskElevation, AskElevation);
    AddWay(
        row + "std::map", questions, [](const Curve& c) { return maps.Ask(c); }, AskElevation);
    AddWay(
        row + "SQLite", questions, [](const Curve& c) { return static_cast<int>(sql.Ask(c)); },
        AskElevation);
}

// ---- The widening of a lane.

struct Lane {
    const wchar_t* car;
    const char* carUtf8;
    int radius; // m
};

double AskWidening(const Lane& lane)
{
    double value = -1;
    BuiltIn().CurveWidening.QueryWidening(lane.car, lane.radius, value);
    return value;
}

class WideningMaps {
public:
    WideningMaps()
    {
        for (const auto& range : BuiltIn().CurveWidening.ranges)
            for (const auto& one : range.widenings) {
                m_ranges[range.max].min = range.min;
                m_ranges[range.max].widenings[one.carType] = one.widening;
            }
    }
    [[gnu::noinline]] double Ask(const Lane& lane) const
    {
        const auto range = m_ranges.lower_bound(lane.radius);
        if (range == m_ranges.end() || lane.radius <= range->second.min) return -1;
        const auto found = range->second.widenings.find(std::wstring_view(lane.car));
        return found == range->second.widenings.end() ? -1 : found->second;
    }

private:
    struct NoCase {
        using is_transparent = void;
        bool operator()(std::wstring_view a, std::wstring_view b) const
        {
            return CompareNoCase(a, b) < 0;
        }
    };
    struct Range {
        int min = 0;
        std::map<CString, double, NoCase> widenings;
    };
    std::map<int, Range> m_ranges;
};

void AddWidening()
{
    static constexpr std::pair<const wchar_t*, const char*> kCars[] = {
        {L"小型汽车", "小型汽车"}, {L"普通汽车", "普通汽车"}, {L"铰接车", "铰接车"}};
    static const auto questions = MakeQuestions([](auto number) {
        const auto& [car, carUtf8] = kCars[number(0, 2)];
        return Lane{car, carUtf8, number(10, 260)};
    });
    static const WideningMaps maps;
    static const SqlNumber sql(
        Database(),
        "SELECT widening FROM widenings WHERE high >= ?1 AND low < ?1 AND car = ?2 LIMIT 1",
        [](sqlite3_stmt* statement, const Lane& lane) {
            sqlite3_bind_int(statement, 1, lane.radius);
            sqlite3_bind_text(statement, 2, lane.carUtf8, -1, SQLITE_STATIC);
        });
    const std::string row = "Compound queries/QueryWidening/";
    AddWay(row + "designspec", questions, AskWidening, AskWidening);
    AddWay(
        row + "std::map", questions, [](const Lane& l) { return maps.Ask(l); }, AskWidening);
    AddWay(
        row + "SQLite", questions, [](const Lane& l) { return sql.Ask(l); }, AskWidening);
}

} // namespace

void AddCompoundQueries()
{
    AddMaxLen();
    AddElevation();
    AddWidening();
}
