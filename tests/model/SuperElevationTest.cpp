#include "model/SuperElevation.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

using namespace QueryValue;

namespace {

constexpr int kUntouched = -12345;
constexpr QueryMode kUnknown = static_cast<QueryMode>(7);

struct Answer {
    int code;
    int superElev;
    bool operator==(const Answer&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Answer& answer)
{
    return out << "code " << answer.code << ", superelevation " << answer.superElev;
}

Answer Ask(const CDSSuperElevation& criterion, int maxSuperElev, int speed, QueryMode mode,
           int tolerance, int radius)
{
    Answer answer{0, kUntouched};
    answer.code = criterion.QuerySuperElevation(maxSuperElev, speed, mode, tolerance, radius,
                                                answer.superElev);
    return answer;
}

constexpr Answer Refused(int code)
{
    return {code, kUntouched};
}

// The question asked step by step; numbers wide enough not to wrap.
Answer Walk(const CDSSuperElevation& criterion, int maxSuperElev, std::int64_t speed,
            QueryMode mode, int tolerance, int radius)
{
    if (mode == Interpolate) return Refused(-1);
    const SuperElevDefinition* definition = nullptr;
    for (const auto& one : criterion.definitions)
        if (!definition && one.maxSuperElev == maxSuperElev) definition = &one;
    if (!definition || definition->rows.count == 0) return Refused(-2);
    const auto& rows = definition->rows;
    const auto& first = rows[0];
    const auto& last = rows[rows.count - 1];
    const SuperElevSpeedRow* row = nullptr;
    if (speed >= first.speed) {
        if (speed - first.speed > tolerance || mode == Upper) return Refused(-3);
        row = &first;
    } else if (speed <= last.speed) {
        if (mode == Lower) return Refused(-3);
        if (last.speed - speed > tolerance) return Refused(-4);
        row = &last;
    } else {
        for (int i = 0; i < rows.count; ++i) {
            if (rows[i].speed == speed) {
                row = &rows[i];
                break;
            }
            if (rows[i].speed > speed) continue;
            if (mode == Nearest)
                row = speed - rows[i].speed > rows[i - 1].speed - speed ? &rows[i - 1] : &rows[i];
            else if (mode == Upper)
                row = &rows[i - 1];
            else if (mode == Lower)
                row = &rows[i];
            else
                return Refused(0);
        }
    }
    for (const auto& range : row->ranges)
        if (range.minRadius <= radius && radius < range.maxRadius) return {0, range.superElev};
    return Refused(-5);
}

} // namespace

TEST(SuperElevation, ANewOneHoldsTheBuiltInDefinitions)
{
    EXPECT_EQ(Stored(CDSSuperElevation()), R"(<Root>
  <Criterion></Criterion>
  <SuperElevDefs>
    <SuperElevDef maxSuperElev="6">
      <Items speed="80">
        <Item superElev="6" minRadius="200" maxRadius="300" />
        <Item superElev="5" minRadius="300" maxRadius="430" />
        <Item superElev="4" minRadius="430" maxRadius="570" />
        <Item superElev="3" minRadius="570" maxRadius="810" />
        <Item superElev="2" minRadius="810" maxRadius="1000" />
      </Items>
    </SuperElevDef>
    <SuperElevDef maxSuperElev="4">
      <Items speed="60">
        <Item superElev="4" minRadius="150" maxRadius="230" />
        <Item superElev="3" minRadius="230" maxRadius="360" />
        <Item superElev="2" minRadius="360" maxRadius="600" />
      </Items>
      <Items speed="50">
        <Item superElev="4" minRadius="110" maxRadius="150" />
        <Item superElev="3" minRadius="150" maxRadius="230" />
        <Item superElev="2" minRadius="230" maxRadius="400" />
      </Items>
    </SuperElevDef>
    <SuperElevDef maxSuperElev="2">
      <Items speed="40">
        <Item superElev="2" minRadius="70" maxRadius="300" />
      </Items>
      <Items speed="30">
        <Item superElev="2" minRadius="40" maxRadius="150" />
      </Items>
      <Items speed="20">
        <Item superElev="2" minRadius="20" maxRadius="70" />
      </Items>
    </SuperElevDef>
  </SuperElevDefs>
</Root>
)");
}

TEST(SuperElevation, ARangeHoldsItsThreeNumbersInOrder)
{
    EXPECT_EQ(offsetof(SuperElevRange, minRadius), 0U);
    EXPECT_EQ(offsetof(SuperElevRange, maxRadius), 4U);
    EXPECT_EQ(offsetof(SuperElevRange, superElev), 8U);
}

TEST(SuperElevation, LoadingKeepsTheOrderOfTheFile)
{
    const auto loaded = Loaded<CDSSuperElevation>(
        "<Root><Criterion> a </Criterion><SuperElevDefs>"
        "<SuperElevDef maxSuperElev='2'><Items speed='20'/><Items speed='40'>"
        "<Item minRadius='5' maxRadius='9' superElev='1'/><Item minRadius='1'/></Items>"
        "</SuperElevDef><SuperElevDef maxSuperElev='6'/><SuperElevDef/>"
        "</SuperElevDefs></Root>");
    EXPECT_EQ(loaded.Criterion, L"a");
    EXPECT_EQ(loaded.definitions,
              (GrowArray<SuperElevDefinition>{
                  {2, {{20, {}}, {40, {{5, 9, 1}, {1, 0, 0}}}}}, {6, {}}, {0, {}}}));
    EXPECT_TRUE(Loaded<CDSSuperElevation>("<Root/>").definitions.IsEmpty());
}

TEST(SuperElevation, CopiesShareNothing)
{
    CDSSuperElevation source;
    const CDSSuperElevation copy(source);
    CDSSuperElevation assigned;
    assigned.definitions.RemoveAll();
    assigned = source;
    source.definitions[0].rows[0].ranges[0].superElev = 99;
    EXPECT_EQ(copy, CDSSuperElevation());
    EXPECT_EQ(assigned, CDSSuperElevation());
    EXPECT_NE(copy, source);
}

TEST(SuperElevationQuery, InterpolationIsRefused)
{
    EXPECT_EQ(Ask({}, 6, 80, Interpolate, 0, 500), Refused(-1));
    EXPECT_EQ(Ask({}, 99, 80, Interpolate, 0, 500), Refused(-1)); // before anything else
}

TEST(SuperElevationQuery, NeedsADefinitionWithRows)
{
    CDSSuperElevation criterion;
    EXPECT_EQ(Ask(criterion, 8, 80, Nearest, 0, 500), Refused(-2));
    criterion.definitions = {{6, {}}, {6, {{80, {{0, 9, 1}}}}}};
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 5), Refused(-2)); // the first one counts
    criterion.definitions.RemoveAll();
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 5), Refused(-2));
}

TEST(SuperElevationQuery, AtTheTopRow)
{
    const CDSSuperElevation criterion;
    for (const QueryMode mode : {Nearest, Lower, Exact, kUnknown})
        EXPECT_EQ(Ask(criterion, 6, 80, mode, 0, 500), (Answer{0, 4})) << mode;
    EXPECT_EQ(Ask(criterion, 6, 80, Upper, 0, 500), Refused(-3));
    EXPECT_EQ(Ask(criterion, 6, 80, Upper, 100, 500), Refused(-3));
}

TEST(SuperElevationQuery, AboveTheTopRowWithinTheTolerance)
{
    const CDSSuperElevation criterion;
    EXPECT_EQ(Ask(criterion, 4, 70, Nearest, 5, 200), Refused(-3));
    EXPECT_EQ(Ask(criterion, 4, 70, Nearest, 9, 200), Refused(-3));
    EXPECT_EQ(Ask(criterion, 4, 70, Nearest, 10, 200), (Answer{0, 4}));
    EXPECT_EQ(Ask(criterion, 4, 70, Nearest, 10, 120), Refused(-5)); // the 50 row would answer
}

TEST(SuperElevationQuery, AtAndBelowTheBottomRow)
{
    const CDSSuperElevation criterion;
    EXPECT_EQ(Ask(criterion, 4, 50, Lower, 0, 120), Refused(-3));
    EXPECT_EQ(Ask(criterion, 4, 40, Lower, 0, 120), Refused(-3)); // mode before tolerance
    EXPECT_EQ(Ask(criterion, 4, 50, Nearest, 0, 120), (Answer{0, 4}));
    EXPECT_EQ(Ask(criterion, 4, 50, Upper, 0, 120), (Answer{0, 4}));
    EXPECT_EQ(Ask(criterion, 4, 45, Nearest, 4, 120), Refused(-4));
    EXPECT_EQ(Ask(criterion, 4, 45, Upper, 5, 120), (Answer{0, 4}));
    EXPECT_EQ(Ask(criterion, 4, 45, Exact, 5, 120), (Answer{0, 4}));
}

TEST(SuperElevationQuery, BetweenTheRowsTheLastLowerRowDecides)
{
    const CDSSuperElevation criterion;
    EXPECT_EQ(Ask(criterion, 2, 35, Lower, 0, 100), Refused(-5)); // the 20 row
    EXPECT_EQ(Ask(criterion, 2, 35, Lower, 0, 50), (Answer{0, 2}));
    EXPECT_EQ(Ask(criterion, 2, 35, Upper, 0, 100), (Answer{0, 2})); // the 30 row
    EXPECT_EQ(Ask(criterion, 2, 35, Upper, 0, 200), Refused(-5));    // not the 40 row
    // 35 is 15 above the 20 row and 5 below its predecessor, so that one.
    EXPECT_EQ(Ask(criterion, 2, 35, Nearest, 0, 39), Refused(-5));
}

TEST(SuperElevationQuery, NearestKeepsTheLowerRowAtEqualDistance)
{
    CDSSuperElevation criterion;
    criterion.definitions = {{4, {{60, {{0, 10, 6}}}, {40, {{0, 10, 4}}}}}};
    EXPECT_EQ(Ask(criterion, 4, 50, Nearest, 0, 5), (Answer{0, 4}));
    EXPECT_EQ(Ask(criterion, 4, 51, Nearest, 0, 5), (Answer{0, 6}));
    EXPECT_EQ(Ask(criterion, 4, 49, Nearest, 0, 5), (Answer{0, 4}));
}

TEST(SuperElevationQuery, ARowOfTheSpeedIsTakenInEveryMode)
{
    const CDSSuperElevation criterion;
    for (const QueryMode mode : {Nearest, Upper, Lower, Exact, kUnknown})
        EXPECT_EQ(Ask(criterion, 2, 30, mode, 0, 140), (Answer{0, 2})) << mode;
}

TEST(SuperElevationQuery, AnyOtherModeBetweenTwoRowsIsZeroAndLeavesTheValue)
{
    EXPECT_EQ(Ask({}, 2, 35, Exact, 0, 100), Refused(0));
    EXPECT_EQ(Ask({}, 2, 35, kUnknown, 0, 100), Refused(0));
}

TEST(SuperElevationQuery, ARangeHoldsItsLowerBoundAndNotItsUpper)
{
    const CDSSuperElevation criterion;
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 1000), Refused(-5));
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 999), (Answer{0, 2}));
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 300), (Answer{0, 5}));
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 200), (Answer{0, 6}));
    EXPECT_EQ(Ask(criterion, 6, 80, Nearest, 0, 199), Refused(-5));
}

TEST(SuperElevationQuery, IsWhatWalkingTheRowsGives)
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    std::mt19937 engine(3);
    const auto speed = [&] {
        const int ends[] = {kMin, kMax, 0};
        return engine() % 10 == 0 ? ends[engine() % 3] : static_cast<int>(10 * (engine() % 10));
    };
    for (int round = 0; round < 20000; ++round) {
        CDSSuperElevation criterion;
        criterion.definitions.RemoveAll();
        for (auto left = engine() % 3; left > 0; --left) {
            auto& definition = criterion.definitions.Add({static_cast<int>(engine() % 3), {}});
            for (auto rows = engine() % 6; rows > 0; --rows) { // in any order
                auto& row = definition.rows.Add({speed(), {}});
                for (auto ranges = engine() % 3; ranges > 0; --ranges)
                    row.ranges.Add({static_cast<int>(engine() % 50),
                                    static_cast<int>(engine() % 100), static_cast<int>(engine())});
            }
        }
        const int asked = engine() % 2 ? speed() : static_cast<int>(engine() % 100);
        const int maxSuperElev = static_cast<int>(engine() % 3);
        const int tolerance = engine() % 9 ? static_cast<int>(engine() % 20) : kMax;
        const int radius = static_cast<int>(engine() % 100);
        for (const QueryMode mode : {Nearest, Upper, Lower, Interpolate, Exact, kUnknown})
            ASSERT_EQ(Ask(criterion, maxSuperElev, asked, mode, tolerance, radius),
                      Walk(criterion, maxSuperElev, asked, mode, tolerance, radius))
                << round << " mode " << mode;
    }
}

TEST(AskSuperElevation, TellsAnAnswerFromAValueThatWasNotWritten)
{
    CDSSuperElevation tables;
    const int maximum = tables.definitions[0].maxSuperElev;
    auto& rows = tables.definitions[0].rows;
    rows.RemoveAll();
    for (const int speed : {100, 80}) {
        SuperElevSpeedRow row;
        row.speed = speed;
        row.ranges.Add({250, 1000, 4});
        rows.Add(row);
    }
    const auto ask = [&](int speed, QueryMode mode) {
        return designspec::AskSuperElevation(tables, maximum, speed, mode, 0, 500);
    };
    EXPECT_EQ(ask(80, Nearest).code, 0);
    EXPECT_EQ(ask(80, Nearest).superElev, 4);
    EXPECT_EQ(ask(90, Exact).code, 0);
    EXPECT_EQ(ask(90, Exact).superElev, std::nullopt);
    EXPECT_EQ(ask(80, Interpolate).code, -1);
    EXPECT_EQ(ask(80, Interpolate).superElev, std::nullopt);
}
