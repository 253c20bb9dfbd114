#include "model/LonGradLen.h"

#include <cmath>
#include <ctime>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

using namespace designspec;

using namespace QueryValue;

namespace {

constexpr int kUntouched = -12345;
constexpr QueryMode kUnknown = static_cast<QueryMode>(7);

int Ask(const CDSLonGradMaxLen& criterion, double grad, int speed, QueryMode mode)
{
    int value = kUntouched;
    if (!criterion.QueryVal(grad, speed, mode, value)) {
        EXPECT_EQ(value, kUntouched);
    }
    return value;
}

bool Answers(const CDSLonGradMaxLen& criterion, double grad, int speed, QueryMode mode)
{
    int value = kUntouched;
    return criterion.QueryVal(grad, speed, mode, value);
}

// The question asked step by step, as the rows stand.
bool Walk(const CDSLonGradMaxLen& criterion, double grad, int speed, QueryMode mode, int& value)
{
    const auto& rows = criterion.rows;
    const auto ask = [&](int row, QueryMode speedMode, int& answer) {
        return QueryIntValBySpeed(&rows[row].lengths, speed, speedMode, answer);
    };
    if (rows.count == 0) return false;
    int i = 0;
    while (i < rows.count) {
        if (std::fabs(rows[i].Grad - grad) < 0.01) return ask(i, mode, value);
        if (rows[i].Grad > grad) break;
        ++i;
    }
    if (mode == Exact) return false;
    if (i == 0) return mode == Lower ? false : ask(0, mode, value);
    if (i == rows.count) return mode == Upper ? false : ask(i - 1, mode, value);
    const double lo = rows[i - 1].Grad;
    const double hi = rows[i].Grad;
    if (mode == Nearest) return ask(hi - grad > grad - lo ? i - 1 : i, Nearest, value);
    if (mode == Upper) return ask(i, Upper, value);
    if (mode == Lower) return ask(i - 1, Lower, value);
    if (mode != Interpolate) return false;
    int high = 0;
    int low = 0;
    const bool hasHigh = ask(i, Interpolate, high);
    const bool hasLow = ask(i - 1, Interpolate, low);
    if (hasHigh && hasLow)
        value = static_cast<int>((grad - lo) * (low - high) / (hi - lo) + high + 0.5);
    else if (hasHigh)
        value = high;
    else if (hasLow)
        value = low;
    return hasHigh || hasLow;
}

} // namespace

TEST(LonGradMinLen, ANewOneStoresTheBuiltInLimits)
{
    EXPECT_EQ(Stored(CDSLonGradMinLen()), "<Root>\n"
                                          "  <Criterion></Criterion>\n" +
                                              TableXml("MinLens", {{"80", "290"},
                                                                   {"60", "170"},
                                                                   {"50", "140"},
                                                                   {"40", "110"},
                                                                   {"30", "85"},
                                                                   {"20", "60"}}) +
                                              "</Root>\n");
}

TEST(LonGradMinLen, LoadsItsTableSortedAndItsSourceTrimmed)
{
    const auto loaded =
        Loaded<CDSLonGradMinLen>("<Root><Criterion> x </Criterion>" +
                                 TableXml("MinLens", {{"20", "1"}, {"80", "2"}}) + "</Root>");
    EXPECT_EQ(loaded.Criterion, L"x");
    EXPECT_EQ(loaded.MinLens, (SpeedToIntValues{{80, 2}, {20, 1}}));
    EXPECT_TRUE(Loaded<CDSLonGradMinLen>("<Root/>").MinLens.IsEmpty());
}

TEST(LonGradMaxLen, ANewOneStoresTheBuiltInRows)
{
    EXPECT_EQ(Stored(CDSLonGradMaxLen()), R"(<Root>
  <Criterion></Criterion>
  <maxLens>
    <Item Grad="5">
      <Item speed="80" value="600" />
    </Item>
    <Item Grad="5.5">
      <Item speed="80" value="500" />
    </Item>
    <Item Grad="6">
      <Item speed="80" value="400" />
      <Item speed="60" value="400" />
      <Item speed="50" value="350" />
    </Item>
    <Item Grad="6.5">
      <Item speed="60" value="350" />
      <Item speed="50" value="300" />
      <Item speed="40" value="300" />
    </Item>
    <Item Grad="7">
      <Item speed="60" value="300" />
      <Item speed="50" value="250" />
      <Item speed="40" value="250" />
    </Item>
    <Item Grad="8">
      <Item speed="40" value="200" />
    </Item>
  </maxLens>
</Root>
)");
}

TEST(LonGradMaxLen, StoresARowWithoutLengthsByItsGradientAlone)
{
    CDSLonGradMaxLen criterion;
    criterion.rows = {{9.5, {}}};
    EXPECT_EQ(Stored(criterion), "<Root>\n  <Criterion></Criterion>\n  <maxLens>\n"
                                 "    <Item Grad=\"9.5\" />\n  </maxLens>\n</Root>\n");
}

TEST(LonGradMaxLen, LoadsRowsInAscendingOrderAndDropsEmptyOnes)
{
    const auto loaded = Loaded<CDSLonGradMaxLen>(
        "<Root><Criterion> a </Criterion><maxLens>"
        "<Item Grad='7'><Item speed='20' value='1'/><Item speed='60' value='2'/></Item>"
        "<Item Grad='5'><Item speed='60' value='3'/></Item>"
        "<Item Grad='6.5'/>"
        "<Item Grad='6'><Item speed='60' value='4'/></Item>"
        "<Item Grad='5'><Item speed='60' value='5'/></Item>"
        "<Item><Item speed='60' value='6'/></Item>"
        "</maxLens></Root>");
    EXPECT_EQ(loaded.rows, (GrowArray<GradientRow>{{0, {{60, 6}}},
                                                   {5, {{60, 3}}}, // equal ones as in the file
                                                   {5, {{60, 5}}},
                                                   {6, {{60, 4}}},
                                                   {7, {{60, 2}, {20, 1}}}}));
    EXPECT_EQ(loaded.Criterion, L"a");
}

TEST(LonGradMaxLen, EmptyRowsOfManyAreDroppedInOnePass)
{
    constexpr int kRows = 200000;
    std::string xml = "<Root><maxLens>";
    for (int i = 0; i < kRows; ++i)
        xml += "<Item Grad='" + std::to_string(i) +
               (i % 2 ? "'><Item speed='60' value='1'/></Item>" : "'/>");
    const auto start = std::clock();
    const auto loaded = Loaded<CDSLonGradMaxLen>(xml + "</maxLens></Root>");
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 10);
    ASSERT_EQ(loaded.rows.count, kRows / 2);
    EXPECT_EQ(loaded.rows[kRows / 2 - 1].Grad, kRows - 1);
}

TEST(LonGradMaxLen, HasNoRowsWithoutTheElement)
{
    EXPECT_TRUE(Loaded<CDSLonGradMaxLen>("<Root/>").rows.IsEmpty());
}

TEST(LonGradMaxLenQuery, AGradientOfTheTableAnswersBySpeed)
{
    const CDSLonGradMaxLen criterion;
    EXPECT_EQ(Ask(criterion, 6.0, 60, Exact), 400);
    EXPECT_EQ(Ask(criterion, 6.004, 60, Exact), 400);
    EXPECT_EQ(Ask(criterion, 5.996, 60, Exact), 400);
    EXPECT_FALSE(Answers(criterion, 6.02, 60, Exact));
    EXPECT_FALSE(Answers(criterion, 6.0, 65, Exact));
    EXPECT_EQ(Ask(criterion, 6.0, 55, Upper), 400);
    EXPECT_EQ(Ask(criterion, 6.0, 55, Lower), 350);
    EXPECT_EQ(Ask(criterion, 6.0, 55, Interpolate), 375);
}

TEST(LonGradMaxLenQuery, AboveAndBelowTheRows)
{
    const CDSLonGradMaxLen criterion;
    EXPECT_EQ(Ask(criterion, 9, 40, Nearest), 200);
    EXPECT_EQ(Ask(criterion, 9, 40, Lower), 200);
    EXPECT_EQ(Ask(criterion, 9, 40, Interpolate), 200);
    EXPECT_FALSE(Answers(criterion, 9, 40, Upper));
    EXPECT_FALSE(Answers(criterion, 9, 40, Exact));
    EXPECT_EQ(Ask(criterion, 3, 80, Nearest), 600);
    EXPECT_EQ(Ask(criterion, 3, 80, Upper), 600);
    EXPECT_EQ(Ask(criterion, 3, 80, Interpolate), 600);
    EXPECT_FALSE(Answers(criterion, 3, 80, Lower));
    EXPECT_FALSE(Answers(criterion, 3, 80, Exact));
}

TEST(LonGradMaxLenQuery, BetweenTwoRows)
{
    const CDSLonGradMaxLen criterion;
    EXPECT_EQ(Ask(criterion, 6.25, 60, Nearest), 350); // a tie takes the steeper row
    EXPECT_EQ(Ask(criterion, 6.2, 60, Nearest), 400);
    EXPECT_EQ(Ask(criterion, 6.3, 60, Nearest), 350);
    EXPECT_EQ(Ask(criterion, 6.25, 60, Upper), 350);
    EXPECT_EQ(Ask(criterion, 6.25, 60, Lower), 400);
    EXPECT_FALSE(Answers(criterion, 6.25, 70, Upper)); // no higher speed in the steeper row
    EXPECT_FALSE(Answers(criterion, 6.25, 40, Lower));
    EXPECT_EQ(Ask(criterion, 6.25, 60, Interpolate), 375);
    EXPECT_EQ(Ask(criterion, 6.25, 80, Interpolate), 375);
    EXPECT_FALSE(Answers(criterion, 6.25, 60, Exact));
    EXPECT_FALSE(Answers(criterion, 6.25, 60, kUnknown));
}

TEST(LonGradMaxLenQuery, InterpolationCrossesTheTwoEndsOver)
{
    const CDSLonGradMaxLen criterion;
    EXPECT_EQ(Ask(criterion, 6.02, 60, Interpolate), 352); // near 6 (400) it is near 350
    EXPECT_EQ(Ask(criterion, 6.48, 60, Interpolate), 398); // near 6.5 (350) it is near 400
}

TEST(LonGradMaxLenQuery, InterpolationWithOneAnsweringRowTakesThat)
{
    CDSLonGradMaxLen criterion;
    criterion.rows = {{5, {}}, {7, {{60, 300}}}};
    EXPECT_EQ(Ask(criterion, 6, 60, Interpolate), 300);
    criterion.rows = {{5, {{60, 400}}}, {7, {}}};
    EXPECT_EQ(Ask(criterion, 6, 60, Interpolate), 400);
    criterion.rows = {{5, {}}, {7, {}}};
    EXPECT_FALSE(Answers(criterion, 6, 60, Interpolate));
}

TEST(LonGradMaxLenQuery, WithoutRowsThereIsNoAnswer)
{
    CDSLonGradMaxLen criterion;
    criterion.rows.RemoveAll();
    for (const QueryMode mode : {Nearest, Upper, Lower, Interpolate, Exact, kUnknown})
        EXPECT_FALSE(Answers(criterion, 6, 60, mode));
}

TEST(LonGradMaxLenQuery, ExtremeLengthsStayWithin32Bits)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    CDSLonGradMaxLen criterion;
    criterion.rows = {{5, {{60, kMax}}}, {7, {{60, kMin}}}};
    EXPECT_EQ(Ask(criterion, 6, 60, Interpolate), 0);
    criterion.rows = {{5, {{60, kMax}}}, {7, {{60, kMax}}}};
    EXPECT_EQ(Ask(criterion, 6, 60, Interpolate), kMax);
}

TEST(LonGradMaxLenQuery, IsWhatWalkingTheRowsGives)
{
    std::mt19937 engine(11);
    for (int round = 0; round < 20000; ++round) {
        CDSLonGradMaxLen criterion;
        criterion.rows.RemoveAll();
        for (auto left = engine() % 6; left > 0; --left) { // not always sorted
            auto& row = criterion.rows.Add({static_cast<double>(engine() % 16) / 2, {}});
            for (auto speeds = engine() % 4; speeds > 0; --speeds)
                AddSpeed(row.lengths, static_cast<int>(10 * (engine() % 12)),
                         static_cast<int>(engine() % 900));
        }
        const double grad = static_cast<double>(engine() % 900) / 100;
        const int speed = static_cast<int>(engine() % 120);
        for (const QueryMode mode : {Nearest, Upper, Lower, Interpolate, Exact, kUnknown}) {
            int expected = kUntouched;
            const bool answers = Walk(criterion, grad, speed, mode, expected);
            int value = kUntouched;
            ASSERT_EQ(criterion.QueryVal(grad, speed, mode, value), answers) << round;
            ASSERT_EQ(value, expected) << round;
        }
    }
}
