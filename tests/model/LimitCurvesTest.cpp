#include "model/LimitCurves.h"

#include <algorithm>
#include <cmath>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/support/RandomSpecification.h"

using namespace designspec;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

const CriterionInfo& Criterion(const wchar_t* name)
{
    return *FindCriterion(name);
}

CStringArray Names(const CurveChart& chart)
{
    CStringArray names;
    for (const Curve& curve : chart.curves)
        names.push_back(curve.name);
    return names;
}

using Points = std::vector<std::pair<double, double>>;
Points PointsOf(const Curve& curve)
{
    Points points;
    for (const CurvePoint& point : curve.points)
        points.emplace_back(point.at, point.value);
    return points;
}

bool HasSpeedTables(const CriterionInfo& criterion)
{
    return std::any_of(criterion.fields.begin(), criterion.fields.end(),
                       [](const Field& one) { return one.IsTable(); });
}

std::vector<CString> OddPlaces(const std::vector<CurveChart>& charts)
{
    std::vector<CString> odd;
    for (const CurveChart& chart : charts)
        for (const Curve& curve : chart.curves)
            for (const CurvePoint& point : curve.points)
                if (point.isOdd) odd.push_back(curve.name + L" " + std::to_wstring(int(point.at)));
    return odd;
}

TEST(LimitCurves, StandOverTheDesignSpeedForEachLine)
{
    const auto charts = ChartsOf(Criterion(L"CircularCurveRad"), CDesignSpecification());
    ASSERT_THAT(charts, SizeIs(1));
    EXPECT_EQ(charts[0].across.Title(), L"设计车速(km/h)");
    EXPECT_EQ(charts[0].up.Title(), L"半径(m)");
    EXPECT_EQ(charts[0].up.Text(250), L"250 m");
    EXPECT_FALSE(charts[0].isSteps);
    EXPECT_EQ(Names(charts[0]),
              (CStringArray{L"不设超高最小半径", L"设超高推荐半径", L"设超高最小半径"}));
    const Curve& last = charts[0].curves[2];
    EXPECT_EQ(PointsOf(last),
              (Points{{20, 20}, {30, 40}, {40, 70}, {50, 100}, {60, 150}, {80, 250}}));
    // Its cell: the highest speed stands first.
    EXPECT_EQ(last.points[0].line, 2U);
    EXPECT_EQ(last.points[0].column, 5U);
    EXPECT_EQ(last.points[5].column, 0U);
}

TEST(LimitCurves, HaveAChartForEachQuantity)
{
    const auto curves = ChartsOf(Criterion(L"VerticalCurveMinRadAndLen"), CDesignSpecification());
    ASSERT_THAT(curves, SizeIs(2));
    EXPECT_EQ(curves[0].up.Title(), L"半径(m)");
    EXPECT_THAT(curves[0].curves, SizeIs(4));
    EXPECT_EQ(curves[1].up.Title(), L"长度(m)");
    EXPECT_EQ(Names(curves[1]), CStringArray{L"竖曲线最小长度"});
    const auto maxima = ChartsOf(Criterion(L"MaxSuperElev"), CDesignSpecification());
    ASSERT_THAT(maxima, SizeIs(2));
    EXPECT_EQ(maxima[0].up.Title(), L"超高(%)");
    EXPECT_EQ(maxima[1].up.Title(), L"渐变率(1/n)");
    EXPECT_EQ(maxima[0].up.Text(6), L"6%");
    EXPECT_EQ(maxima[1].up.Text(150), L"1/150");
    EXPECT_THAT(maxima[1].curves, SizeIs(2));
}

TEST(LimitCurves, OfGradeLengthsStandOverTheGradientForEachSpeed)
{
    CDesignSpecification one;
    one.LonGradMaxLen.rows = {{3, {{80, 900}, {60, 1000}}}, {4.5, {{80, 700}}}};
    const auto charts = ChartsOf(Criterion(L"LonGradMaxLen"), one);
    ASSERT_THAT(charts, SizeIs(1));
    EXPECT_EQ(charts[0].across.Title(), L"坡度(%)");
    EXPECT_EQ(charts[0].up.Title(), L"坡长(m)");
    EXPECT_EQ(Names(charts[0]), (CStringArray{L"80 km/h", L"60 km/h"}));
    EXPECT_EQ(PointsOf(charts[0].curves[0]), (Points{{3, 900}, {4.5, 700}}));
    EXPECT_EQ(PointsOf(charts[0].curves[1]), (Points{{3, 1000}}));
    EXPECT_EQ(charts[0].curves[0].points[1].line, 1U);
    EXPECT_EQ(charts[0].curves[0].points[1].column, 0U);
}

TEST(LimitCurves, OfSuperelevationsAreStepsOverTheRadius)
{
    const auto charts = ChartsOf(Criterion(L"SuperElevation"), CDesignSpecification());
    ASSERT_THAT(charts, SizeIs(3)); // a table for each maximum
    EXPECT_EQ(charts[1].heading, L"最大超高 4%");
    EXPECT_EQ(charts[1].across.Title(), L"半径(m)");
    EXPECT_EQ(charts[1].up.Title(), L"超高(%)");
    EXPECT_TRUE(charts[1].isSteps);
    EXPECT_EQ(Names(charts[1]), (CStringArray{L"60 km/h", L"50 km/h"}));
    const auto& points = charts[1].curves[1].points;
    EXPECT_EQ(PointsOf(charts[1].curves[1]), (Points{{110, 4}, {150, 3}, {230, 2}}));
    EXPECT_EQ(points[2].end, 400);
    EXPECT_EQ(points[2].line, 2U);
    EXPECT_EQ(points[2].column, 1U);
}

TEST(LimitCurves, OfWideningsAreStepsOverTheRadius)
{
    const auto charts = ChartsOf(Criterion(L"CurveWidening"), CDesignSpecification());
    ASSERT_THAT(charts, SizeIs(1));
    EXPECT_EQ(charts[0].across.Title(), L"半径(m)");
    EXPECT_EQ(charts[0].up.Title(), L"加宽(m)");
    EXPECT_TRUE(charts[0].isSteps);
    EXPECT_EQ(Names(charts[0]), (CStringArray{L"小型汽车", L"普通汽车", L"铰接车"}));
    const CurvePoint& first = charts[0].curves[1].points.front();
    EXPECT_EQ(first.at, 15);
    EXPECT_EQ(first.end, 20);
    EXPECT_EQ(first.value, 2.4);
    EXPECT_EQ(first.line, 1U);
    EXPECT_EQ(first.column, 8U);
}

TEST(LimitCurves, NameTheAxesOfEveryPageWithTables)
{
    int pages = 0;
    for (const CriterionInfo& criterion : Criteria()) {
        const auto charts = ChartsOf(criterion, CDesignSpecification());
        pages += charts.empty() ? 0 : 1;
        for (const CurveChart& chart : charts) {
            EXPECT_FALSE(chart.across.quantity.empty()) << ToUtf8(criterion.name);
            EXPECT_FALSE(chart.up.quantity.empty()) << ToUtf8(criterion.name);
            EXPECT_FALSE(chart.up.unit.empty()) << ToUtf8(criterion.name);
            for (const Curve& curve : chart.curves)
                EXPECT_FALSE(curve.name.empty());
        }
    }
    EXPECT_EQ(pages, 12); // all but that of straight lines
}

TEST(LimitCurves, FindTheCaptionsOfAPageHoweverTheyAreWritten)
{
    TableLayout table{{}, kSpeedCorner, {80, 60}, {}};
    table.lines.push_back({L"旋转轴在中线\n的超高渐变率", {150, 125}});
    table.lines.push_back({L"最大超高", {6, std::nullopt}});
    const auto charts = ChartsOf(Criterion(L"MaxSuperElev"), table);
    ASSERT_THAT(charts, SizeIs(2));
    EXPECT_EQ(charts[0].up.unit, L"1/n");
    EXPECT_EQ(Names(charts[0]), CStringArray{L"旋转轴在中线的超高渐变率"});
    EXPECT_EQ(PointsOf(charts[1].curves[0]), (Points{{80, 6}}));
    EXPECT_EQ(charts[1].curves[0].points[0].line, 1U);

    TableLayout radii{{}, kSpeedCorner, {80}, {{L"最小圆曲线半径(m)", {1000}}}};
    EXPECT_EQ(Names(ChartsOf(Criterion(L"TransitionCurveMinLen"), radii)[0]),
              CStringArray{L"不设缓和曲线的最小圆曲线半径"});

    TableLayout widths{{}, kWideningCorner, {CString(L"200<\nR≤\n250")}, {{L"1类: 5m", {0.4}}}};
    const auto widening = ChartsOf(Criterion(L"CurveWidening"), widths);
    EXPECT_EQ(Names(widening[0]), CStringArray{L"1类: 5m"});
    EXPECT_EQ(PointsOf(widening[0].curves[0]), (Points{{200, 0.4}}));

    TableLayout elevations{L"最大超高 6%",
                           kSpeedCorner,
                           {80},
                           {{L"超高 6% 时圆\n曲线半径范围", {CString(L"200~300")}},
                            {L"超高 5% 时圆\n曲线半径范围", {CString(L"")}}}};
    EXPECT_EQ(PointsOf(ChartsOf(Criterion(L"SuperElevation"), elevations)[0].curves[0]),
              (Points{{200, 6}}));
}

TEST(LimitCurves, AreThereWithoutPoints)
{
    CDesignSpecification one;
    one.LonGradMinLen.MinLens.RemoveAll();
    const auto charts = ChartsOf(Criterion(L"LonGradMinLen"), one);
    ASSERT_THAT(charts, SizeIs(1));
    ASSERT_THAT(charts[0].curves, SizeIs(1));
    EXPECT_THAT(charts[0].curves[0].points, IsEmpty());
    one.LonGradMinLen.MinLens = {{60, 100}};
    EXPECT_EQ(PointsOf(ChartsOf(Criterion(L"LonGradMinLen"), one)[0].curves[0]),
              (Points{{60, 100}}));
    one.SuperElevation.definitions.RemoveAll();
    EXPECT_THAT(ChartsOf(Criterion(L"SuperElevation"), one), IsEmpty());
}

TEST(LimitCurves, TellTheValueThatBreaksTheOrder)
{
    CDesignSpecification one;
    one.CircularCurveRad.SuperelevationMinRad = {{80, 250}, {60, 15},  {50, 100},
                                                 {40, 70},  {30, 400}, {20, 20}};
    EXPECT_THAT(OddPlaces(ChartsOf(Criterion(L"CircularCurveRad"), one)), IsEmpty()); // two of six
    one.CircularCurveRad.SuperelevationMinRad[4].value = 40;
    EXPECT_THAT(OddPlaces(ChartsOf(Criterion(L"CircularCurveRad"), one)),
                ElementsAre(L"设超高最小半径 60"));
    one.CurveWidening.ranges[3].widenings[1].widening = 7;
    EXPECT_THAT(OddPlaces(ChartsOf(Criterion(L"CurveWidening"), one)), ElementsAre(L"普通汽车 60"));
    one.SuperElevation.definitions[0].rows[0].ranges[3] = {57, 81, 3};
    EXPECT_THAT(OddPlaces(ChartsOf(Criterion(L"SuperElevation"), one)), ElementsAre(L"80 km/h 57"));
    one.LonGradMaxLen.rows = {
        {3, {{80, 900}}}, {4, {{80, 800}}}, {5, {{80, 7000}}}, {6, {{80, 600}}}};
    EXPECT_THAT(OddPlaces(ChartsOf(Criterion(L"LonGradMaxLen"), one)), ElementsAre(L"80 km/h 5"));
}

// The resultant gradient at 80 km/h is larger than at 60 km/h, as the standard has it.
TEST(LimitCurves, TakeNoBuiltInLimitForASlip)
{
    for (const CriterionInfo& criterion : Criteria())
        EXPECT_THAT(OddPlaces(ChartsOf(criterion, CDesignSpecification())), IsEmpty())
            << ToUtf8(criterion.name);
    CDesignSpecification one;
    SpeedToDoubleValues& table = one.MaxResultantGrad.tables[CDSMaxResultantGrad::CityRoad];
    table[0].value = 70;
    EXPECT_THAT(OddPlaces(ChartsOf(Criterion(L"MaxResultantGrad"), one)),
                ElementsAre(L"城市道路 80"));
}

// A limit that an axis can show.
bool IsDrawn(const std::optional<Value>& cell)
{
    if (!cell) return false;
    const auto* const decimal = std::get_if<double>(&*cell);
    return !decimal || std::abs(*decimal) < 1e15;
}

TEST(LimitCurves, HaveEachValueOfATableOnce)
{
    RandomSpecification random(7);
    for (int round = 0; round < 100; ++round) {
        const CDesignSpecification one = random.Make();
        for (const PageLayout& page : LayOut(one))
            for (const TableLayout& table : page.tables) {
                std::set<std::pair<std::size_t, std::size_t>> cells;
                for (const CurveChart& chart : ChartsOf(*page.criterion, table))
                    for (const Curve& curve : chart.curves) {
                        EXPECT_TRUE(std::is_sorted(
                            curve.points.begin(), curve.points.end(),
                            [](const auto& a, const auto& b) { return a.at < b.at; }));
                        for (const CurvePoint& point : curve.points) {
                            EXPECT_TRUE(cells.emplace(point.line, point.column).second);
                            EXPECT_TRUE(std::isfinite(point.value));
                            EXPECT_LE(point.at, point.end);
                            ASSERT_TRUE(table.lines[point.line].cells[point.column]);
                        }
                    }
                if (!HasSpeedTables(*page.criterion))
                    continue; // which say a number of all captions
                std::size_t values = 0;
                for (const TableLayout::Line& line : table.lines)
                    values += static_cast<std::size_t>(
                        std::count_if(line.cells.begin(), line.cells.end(), IsDrawn));
                EXPECT_EQ(cells.size(), values);
            }
    }
}

} // namespace
