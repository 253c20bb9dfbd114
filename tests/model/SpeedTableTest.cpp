#include "model/SpeedTable.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "model/Criteria.h"
#include "platform/xtp/PropExchangeXMLNode.h"
#include "tests/support/Allocations.h"
#include "tests/support/Exchanged.h"

using namespace designspec;

using namespace QueryValue;

namespace {

constexpr int kUntouched = -12345;
constexpr QueryMode kUnknown = static_cast<QueryMode>(7);
constexpr QueryMode kModes[] = {Nearest, Upper, Lower, Interpolate, Exact, kUnknown};
constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

bool Query(const SpeedToIntValues& table, int speed, QueryMode mode, std::int32_t& value)
{
    return QueryIntValBySpeed(&table, speed, mode, value);
}

bool Query(const SpeedToDoubleValues& table, int speed, QueryMode mode, double& value)
{
    return QueryDoubleValBySpeed(&table, speed, mode, value);
}

// The answer, or kUntouched; a false answer must not have written.
template <class T> T Ask(const GrowArray<SpeedEntry<T>>& table, int speed, QueryMode mode)
{
    T value = kUntouched;
    if (!Query(table, speed, mode, value)) {
        EXPECT_EQ(value, kUntouched);
    }
    return value;
}

template <class T> bool Answers(const GrowArray<SpeedEntry<T>>& table, int speed, QueryMode mode)
{
    T value = kUntouched;
    return Query(table, speed, mode, value);
}

std::int32_t Proportion(SpeedEntry<std::int32_t> lo, SpeedEntry<std::int32_t> hi, int speed)
{
    const std::int64_t rise = std::int64_t{hi.value} - lo.value;
    const std::int64_t run = std::int64_t{speed} - lo.speed;
    // Only the low 32 bits of the product are kept.
    const auto product = static_cast<std::int32_t>(static_cast<std::uint32_t>(rise) *
                                                   static_cast<std::uint32_t>(run));
    const double result =
        product / static_cast<double>(std::int64_t{hi.speed} - lo.speed) + lo.value + 0.5;
    return static_cast<std::int32_t>(std::clamp<double>(std::trunc(result), kMin, kMax));
}

double Proportion(SpeedEntry<double> lo, SpeedEntry<double> hi, int speed)
{
    return lo.value +
           (hi.value - lo.value) * (double(speed) - lo.speed) / (double(hi.speed) - lo.speed);
}

// Every answer that sorting a copy and scanning it can give; which of two entries of one speed
// stands first after sorting is open. `answered` is what the query must return. kUntouched stands
// for an answer that leaves the value.
template <class T>
std::set<T> Scan(const GrowArray<SpeedEntry<T>>& table, int speed, QueryMode mode, bool& answered)
{
    answered = false;
    std::vector<SpeedEntry<T>> sorted(table.begin(), table.end());
    std::sort(sorted.begin(), sorted.end(),
              [](const auto& a, const auto& b) { return a.speed < b.speed; });
    const auto valuesAt = [&](std::int32_t at) {
        std::set<T> values;
        for (const auto& entry : sorted)
            if (entry.speed == at) values.insert(entry.value);
        return values;
    };
    if (sorted.empty()) return {kUntouched};
    size_t i = 0;
    for (; i < sorted.size() && sorted[i].speed <= speed; ++i) {
        if (sorted[i].speed == speed) {
            answered = true;
            return valuesAt(speed);
        }
    }
    if (mode == Exact || (i == 0 && mode == Lower) || (i == sorted.size() && mode == Upper))
        return {kUntouched};
    answered = true;
    if (i == 0) return valuesAt(sorted.front().speed);
    if (i == sorted.size()) return valuesAt(sorted.back().speed);
    const SpeedEntry<T> lo = sorted[i - 1];
    const SpeedEntry<T> hi = sorted[i];
    if (mode == Nearest) {
        const bool lower =
            std::int64_t{hi.speed} - speed > std::int64_t{speed} - std::int64_t{lo.speed};
        return valuesAt(lower ? lo.speed : hi.speed);
    }
    if (mode == Upper) return valuesAt(hi.speed);
    if (mode == Lower) return valuesAt(lo.speed);
    if (mode != Interpolate) return {kUntouched};
    std::set<T> all;
    for (const T low : valuesAt(lo.speed))
        for (const T high : valuesAt(hi.speed))
            all.insert(
                Proportion(SpeedEntry<T>{lo.speed, low}, SpeedEntry<T>{hi.speed, high}, speed));
    return all;
}

int RandomSpeed(std::mt19937& engine)
{
    static constexpr int kEnds[] = {kMin, kMin + 1, -1, 0, 1, kMax - 1, kMax};
    switch (engine() % 8) {
    case 0:
        return kEnds[engine() % std::size(kEnds)];
    case 1:
        return static_cast<int>(engine());
    default:
        return static_cast<int>(engine() % 30);
    }
}

void Fill(std::int32_t& value, std::mt19937& engine)
{
    value = engine() % 2 ? static_cast<int>(engine() % 2000) - 500 : RandomSpeed(engine);
}

void Fill(double& value, std::mt19937& engine)
{
    value = std::uniform_real_distribution<double>(-1e6, 1e6)(engine);
}

template <class T> void CompareWithScan(unsigned seed)
{
    std::mt19937 engine(seed);
    for (int round = 0; round < 20000; ++round) {
        GrowArray<SpeedEntry<T>> table;
        for (auto left = engine() % 12; left > 0; --left) {
            T value{};
            Fill(value, engine);
            AddSpeed(table, RandomSpeed(engine), value);
        }
        const auto before = table;
        const int speed = RandomSpeed(engine);
        for (const QueryMode mode : kModes) {
            bool mustAnswer = false;
            const std::set<T> allowed = Scan(table, speed, mode, mustAnswer);
            ASSERT_EQ(Answers(table, speed, mode), mustAnswer) << round << " mode " << mode;
            ASSERT_TRUE(allowed.contains(Ask(table, speed, mode))) << round << " mode " << mode;
        }
        ASSERT_EQ(table, before);
    }
}

// A table under the key "T" of an element.
struct IntHolder {
    SpeedToIntValues table;
    void DoPropExchange(CXTPPropExchange* pPX) { PX_SpeedToIntValues(pPX, L"T", table); }
};

struct DoubleHolder {
    SpeedToDoubleValues table;
    void DoPropExchange(CXTPPropExchange* pPX) { PX_SpeedToDoubleValues(pPX, L"T", table); }
};

} // namespace

TEST(QueryMode, HasTheNumbersThatOtherModulesPass)
{
    EXPECT_EQ(Nearest, 0);
    EXPECT_EQ(Upper, 1);
    EXPECT_EQ(Lower, 2);
    EXPECT_EQ(Interpolate, 3);
    EXPECT_EQ(Exact, 4);
}

TEST(SpeedQuery, BetweenTwoSpeedsInAnyOrder)
{
    SpeedToIntValues table{{60, 150}, {80, 200}, {100, 250}};
    do {
        EXPECT_EQ(Ask(table, 70, Nearest), 200); // a tie goes to the higher speed
        EXPECT_EQ(Ask(table, 70, Upper), 200);
        EXPECT_EQ(Ask(table, 70, Lower), 150);
        EXPECT_EQ(Ask(table, 70, Interpolate), 175);
        EXPECT_FALSE(Answers(table, 70, Exact));
        EXPECT_EQ(Ask(table, 69, Nearest), 150);
        EXPECT_EQ(Ask(table, 71, Nearest), 200);
        EXPECT_EQ(Ask(table, 65, Nearest), 150);
        EXPECT_EQ(Ask(table, 65, Interpolate), 163);
        EXPECT_EQ(Ask(table, 61, Interpolate), 153);
    } while (std::next_permutation(table.begin(), table.end(),
                                   [](const auto& a, const auto& b) { return a.speed < b.speed; }));
}

TEST(SpeedQuery, AboveAndBelowTheTable)
{
    const SpeedToIntValues table{{100, 250}, {80, 200}, {60, 150}};
    EXPECT_FALSE(Answers(table, 120, Upper));
    EXPECT_FALSE(Answers(table, 120, Exact));
    for (const QueryMode mode : {Nearest, Lower, Interpolate, kUnknown})
        EXPECT_EQ(Ask(table, 120, mode), 250);
    EXPECT_FALSE(Answers(table, 40, Lower));
    EXPECT_FALSE(Answers(table, 40, Exact));
    for (const QueryMode mode : {Nearest, Upper, Interpolate, kUnknown})
        EXPECT_EQ(Ask(table, 40, mode), 150);
}

TEST(SpeedQuery, DecimalsAreNotRounded)
{
    const SpeedToDoubleValues table{{80, 0.5}, {60, 1.0}};
    EXPECT_EQ(Ask(table, 70, Interpolate), 0.75);
    EXPECT_EQ(Ask(table, 65, Interpolate), 0.875);
    EXPECT_EQ(Ask(table, 70, Nearest), 0.5);
    EXPECT_FALSE(Answers(table, 70, Exact));
}

TEST(SpeedQuery, OneEntryAnswersEverySpeed)
{
    const SpeedToIntValues table{{60, 7}};
    for (const QueryMode mode : kModes)
        EXPECT_EQ(Ask(table, 60, mode), 7);
    for (const QueryMode mode : {Nearest, Lower, Interpolate})
        EXPECT_EQ(Ask(table, 61, mode), 7);
    for (const QueryMode mode : {Nearest, Upper, Interpolate})
        EXPECT_EQ(Ask(table, 59, mode), 7);
    EXPECT_FALSE(Answers(table, 61, Upper));
    EXPECT_FALSE(Answers(table, 59, Lower));
    EXPECT_FALSE(Answers(table, 61, Exact));
    EXPECT_FALSE(Answers(table, 59, Exact));
}

TEST(SpeedQuery, ASpeedOfTheTableAnswersInEveryMode)
{
    const SpeedToIntValues table{{100, 250}, {80, 200}, {60, 150}};
    for (const QueryMode mode : kModes)
        for (const auto& entry : table)
            EXPECT_EQ(Ask(table, entry.speed, mode), entry.value);
}

TEST(SpeedQuery, AnUnknownModeBetweenTwoSpeedsIsTrueAndLeavesTheValue)
{
    const SpeedToIntValues ints{{100, 250}, {60, 150}};
    int value = 42;
    EXPECT_TRUE(QueryIntValBySpeed(&ints, 70, kUnknown, value));
    EXPECT_EQ(value, 42);
    const SpeedToDoubleValues doubles{{100, 250}, {60, 150}};
    double decimal = 42;
    EXPECT_TRUE(QueryDoubleValBySpeed(&doubles, 70, kUnknown, decimal));
    EXPECT_EQ(decimal, 42);
    EXPECT_EQ(Ask(ints, 120, kUnknown), 250);
    EXPECT_EQ(Ask(ints, 20, kUnknown), 150);
}

TEST(SpeedQuery, AnEmptyTableNeverAnswers)
{
    for (const QueryMode mode : kModes) {
        EXPECT_EQ(Ask(SpeedToIntValues(), 60, mode), kUntouched);
        EXPECT_FALSE(Answers(SpeedToIntValues(), 60, mode));
        EXPECT_EQ(Ask(SpeedToDoubleValues(), 60, mode), kUntouched);
        EXPECT_FALSE(Answers(SpeedToDoubleValues(), 60, mode));
    }
}

TEST(SpeedQuery, HalvesOfNegativeResultsAreCutOffTowardsZero)
{
    const SpeedToIntValues table{{80, -10}, {60, -20}};
    EXPECT_EQ(Ask(table, 70, Interpolate), -14); // -15 + 0.5 = -14.5
    EXPECT_EQ(Ask(table, 61, Interpolate), -19); // -19.5 + 0.5 = -19
    const SpeedToIntValues around{{4, 1}, {0, -1}};
    EXPECT_EQ(Ask(around, 1, Interpolate), 0); // -0.5 + 0.5
    EXPECT_EQ(Ask(around, 3, Interpolate), 1); // 0.5 + 0.5
}

TEST(SpeedQuery, TheProductOfWholeNumbersWrapsAt32Bits)
{
    const SpeedToIntValues table{{100, 100'000'000}, {0, 0}};
    // 100,000,000 x 50 = 5,000,000,000, of which the low 32 bits are 705,032,704.
    EXPECT_EQ(Ask(table, 50, Interpolate), 7'050'327);
    // 100,000,000 x 30 = 3,000,000,000, as a signed number -1,294,967,296.
    EXPECT_EQ(Ask(table, 30, Interpolate), -12'949'672);
    // -1 x 2^31 wraps to -2^31, half of the span below the lower value.
    EXPECT_EQ(Ask(SpeedToIntValues{{kMax, kMax}, {kMin, kMin}}, 0, Interpolate), kMin);
}

TEST(SpeedQuery, ExtremeSpeedsHaveNeighboursLikeAnyOther)
{
    const SpeedToIntValues table{{kMin, 1}, {kMax, 2}};
    EXPECT_EQ(Ask(table, -1, Nearest), 1); // 2^31 - 1 from below, 2^31 from above
    EXPECT_EQ(Ask(table, 0, Nearest), 2);
    EXPECT_EQ(Ask(table, kMin, Exact), 1);
    EXPECT_EQ(Ask(table, kMax, Exact), 2);
    EXPECT_EQ(Ask(table, 0, Upper), 2);
    EXPECT_EQ(Ask(table, 0, Lower), 1);
    const SpeedToDoubleValues wide{{kMin, 0.0}, {kMax, 1.0}};
    EXPECT_NEAR(Ask(wide, 0, Interpolate), 0.5, 1e-9);
}

TEST(SpeedQuery, OfTwoEntriesOfOneSpeedOneAnswers)
{
    const SpeedToIntValues table{{60, 1}, {80, 3}, {60, 2}, {80, 4}};
    for (const QueryMode mode : kModes) {
        const int value = Ask(table, 60, mode);
        EXPECT_TRUE(value == 1 || value == 2);
    }
    const int upper = Ask(table, 70, Upper);
    EXPECT_TRUE(upper == 3 || upper == 4);
}

TEST(SpeedQuery, OfWholeNumbersIsWhatSortingACopyAndScanningItGives)
{
    CompareWithScan<std::int32_t>(20240501);
}

TEST(SpeedQuery, OfDecimalsIsWhatSortingACopyAndScanningItGives)
{
    CompareWithScan<double>(19990703);
}

TEST(SpeedQuery, AllocatesNothing)
{
    const CDesignSpecification specification;
    int whole = 0;
    double decimal = 0;
    const int before = Allocations();
    for (int speed = 0; speed < 130; ++speed) {
        for (const QueryMode mode : kModes) {
            QueryIntValBySpeed(&specification.CircularCurveRad.noSuperelevationMinRad, speed, mode,
                               whole);
            QueryDoubleValBySpeed(&specification.LonGrad.MaxGradLimitedValues, speed, mode,
                                  decimal);
            specification.LonGradMaxLen.QueryVal(speed / 10.0, speed, mode, whole);
            specification.SuperElevation.QuerySuperElevation(4, speed, mode, 5, 3 * speed, whole);
        }
        specification.CurveWidening.QueryWidening(L"普通汽车", 2 * speed, decimal);
    }
    EXPECT_EQ(Allocations(), before);
    EXPECT_EQ(CDesignSpecification().CurveWidening.ranges.count, 9);
    EXPECT_GT(Allocations(), before); // the count does count
}

TEST(TruncateToInt, CutsOffAndStaysWithin32Bits)
{
    EXPECT_EQ(TruncateToInt(2.9), 2);
    EXPECT_EQ(TruncateToInt(-2.9), -2);
    EXPECT_EQ(TruncateToInt(1e300), kMax);
    EXPECT_EQ(TruncateToInt(-1e300), kMin);
    EXPECT_EQ(TruncateToInt(std::nan("")), 0);
}

TEST(SpeedTableExchange, StoresTheItemsInTheirOrder)
{
    EXPECT_EQ(Stored(IntHolder{{{60, 1}, {100, -2}, {80, 3}}}),
              "<Root>\n" + TableXml("T", {{"60", "1"}, {"100", "-2"}, {"80", "3"}}) + "</Root>\n");
    EXPECT_EQ(Stored(DoubleHolder{{{60, 0.1}, {100, 5.5}, {80, 7}}}),
              "<Root>\n" + TableXml("T", {{"60", "0.1"}, {"100", "5.5"}, {"80", "7"}}) +
                  "</Root>\n");
}

TEST(SpeedTableExchange, StoringReplacesWhatStoodUnderTheKey)
{
    CXTPPropExchangeXMLNode root(false, L"Root");
    SpeedToIntValues table{{80, 1}};
    PX_SpeedToIntValues(&root, L"T", table);
    table = {{60, 2}};
    PX_SpeedToIntValues(&root, L"T", table);
    const std::string xml = root.SaveToBytes();
    EXPECT_EQ(xml.substr(xml.find('\n') + 1),
              "<Root>\n" + TableXml("T", {{"60", "2"}}) + "</Root>\n");
}

TEST(SpeedTableExchange, LoadsHighestSpeedFirst)
{
    const auto holder = Loaded<IntHolder>(
        "<Root>" + TableXml("T", {{"20", "1"}, {"80", "2"}, {"40", "3"}}) + "</Root>");
    EXPECT_EQ(holder.table, (SpeedToIntValues{{80, 2}, {40, 3}, {20, 1}}));
    EXPECT_EQ(Stored(holder),
              "<Root>\n" + TableXml("T", {{"80", "2"}, {"40", "3"}, {"20", "1"}}) + "</Root>\n");
    const auto doubles = Loaded<DoubleHolder>(
        "<Root>" + TableXml("T", {{"60", "1"}, {"100", "2"}, {"80", "3"}}) + "</Root>");
    EXPECT_EQ(doubles.table, (SpeedToDoubleValues{{100, 2}, {80, 3}, {60, 1}}));
}

TEST(SpeedTableExchange, AMissingElementLeavesTheTableEmpty)
{
    EXPECT_TRUE(Loaded<IntHolder>("<Root><Other/></Root>").table.IsEmpty());
    EXPECT_TRUE(Loaded<DoubleHolder>("<Root/>").table.IsEmpty());
    EXPECT_TRUE(Loaded<IntHolder>("<Root><T/></Root>").table.IsEmpty());
}

TEST(SpeedTableExchange, AMissingNumberIsZero)
{
    const auto holder = Loaded<IntHolder>(
        "<Root><T><Item speed='80' value='5'/><Item speed='60'/><Item value='7'/><Item/></T>"
        "</Root>");
    EXPECT_EQ(holder.table, (SpeedToIntValues{{80, 5}, {60, 0}, {0, 7}, {0, 0}}));
    const auto doubles =
        Loaded<DoubleHolder>("<Root><T><Item speed='80' value='5'/><Item speed='60'/></T></Root>");
    EXPECT_EQ(doubles.table, (SpeedToDoubleValues{{80, 5}, {60, 0}}));
}

TEST(SpeedTableExchange, ReadsNothingButItems)
{
    const auto holder = Loaded<IntHolder>(
        "<Root><T><!-- a --><Row speed='1' value='1'/><Item speed='80' value='5'/></T></Root>");
    EXPECT_EQ(holder.table, (SpeedToIntValues{{80, 5}}));
}

TEST(SpeedTableExchange, DecimalsReadBackToTheSameValue)
{
    DoubleHolder holder;
    std::mt19937_64 engine(7);
    for (int i = 0; i < 2000; ++i) {
        const auto bits = engine();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) AddSpeed(holder.table, 3000 - i, value);
    }
    EXPECT_EQ(Loaded<DoubleHolder>(Stored(holder)).table, holder.table);
}
