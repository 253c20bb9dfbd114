// Superelevation, runoff and resultant gradient: just inside, at and just outside each limit.
#include <cmath>

#include <gtest/gtest.h>

#include "tests/roads/RoadMaking.h"

namespace roadcheck {

namespace {

// The curve of CurveRoad, which begins 500 m along, with that superelevation over its arc.
Alignment Superelevated(double radius, double slope, double spiral = 100)
{
    Alignment road = CurveRoad(radius, 400, spiral);
    road.superelevations = {
        {{500, 0}, {500 + spiral, slope}, {900 + spiral, slope}, {900 + 2 * spiral, 0}}};
    return road;
}

Alignment WithLanes(Alignment road, double each)
{
    road.lanes = {{0, road.length, each, Turn::Left}, {0, road.length, each, Turn::Right}};
    return road;
}

Alignment WithGradient(Alignment road, double gradient)
{
    road.vertical = {{.at = 0, .elevation = 0, .index = 1},
                     {.at = road.length, .elevation = road.length * gradient / 100, .index = 2}};
    return road;
}

} // namespace

TEST(SuperelevationNeeded, TellsWhatTheTablesGive)
{
    EXPECT_TRUE(FindingsOf(L"superelevation-needed", CurveRoad(600), AtSpeed(60)).empty());
    EXPECT_TRUE(FindingsOf(L"superelevation-needed", CurveRoad(599.9991), AtSpeed(60)).empty());
    EXPECT_EQ(FindingsOf(L"superelevation-needed", CurveRoad(599.9989), AtSpeed(60)).size(), 1U);
    const auto found = FindingsOf(L"superelevation-needed", CurveRoad(300), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].message, L"圆曲线半径 300 m, 小于不设超高最小半径 600 m, 超高 3%");
    EXPECT_EQ(FindingsOf(L"superelevation-needed", CurveRoad(100), AtSpeed(60))[0].message,
              L"圆曲线半径 100 m, 小于不设超高最小半径 600 m; 超高表(最大超高 4%)没有车速 60 "
              L"km/h、半径 100 m 的超高");
}

TEST(SuperelevationNeeded, TakesTheTableThatIsAskedFor)
{
    CheckOptions options = AtSpeed(80);
    EXPECT_NE(
        FindingsOf(L"superelevation-needed", CurveRoad(250), options)[0].message.find(L"超高 6%"),
        std::wstring::npos);
    options.maxSuper = 8;
    EXPECT_NE(FindingsOf(L"superelevation-needed", CurveRoad(250), options)[0].message.find(
                  L"超高表(最大超高 8%)没有"),
              std::wstring::npos);
}

TEST(SuperelevationMax, IsOfTheSpeedOrOfSnowyRegions)
{
    EXPECT_TRUE(FindingsOf(L"superelevation-max", Superelevated(300, 4), AtSpeed(60)).empty());
    EXPECT_TRUE(FindingsOf(L"superelevation-max", Superelevated(300, 4.0009), AtSpeed(60)).empty());
    const auto found = FindingsOf(L"superelevation-max", Superelevated(300, 4.0011), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_STREQ(found[0].element.kind, L"superelevation");
    EXPECT_EQ(found[0].from, 500);
    EXPECT_EQ(found[0].to, 1100);
    EXPECT_EQ(found[0].message, L"超高 4.001%, 大于最大超高 4%");

    CheckOptions snow = AtSpeed(60);
    snow.snow = true;
    CDesignSpecification specification; // no such limit at first
    EXPECT_EQ(FindingsOf(L"superelevation-max", Superelevated(300, 4), snow, specification).size(),
              0U);
    specification.MaxSuperElev.MaxSuperElevOnSFR = 3;
    const auto snowy =
        FindingsOf(L"superelevation-max", Superelevated(300, 4), snow, specification);
    ASSERT_EQ(snowy.size(), 1U);
    EXPECT_EQ(snowy[0].criterion, L"MaxSuperElev.MaxSuperElevOnSFR");
}

TEST(SuperelevationLow, IsLessThanTheTablesGiveTheRadius)
{
    EXPECT_TRUE(FindingsOf(L"superelevation-low", Superelevated(300, 3), AtSpeed(60)).empty());
    EXPECT_TRUE(FindingsOf(L"superelevation-low", Superelevated(300, 2.9991), AtSpeed(60)).empty());
    EXPECT_EQ(FindingsOf(L"superelevation-low", Superelevated(300, 2.9989), AtSpeed(60)).size(),
              1U);
    EXPECT_EQ(FindingsOf(L"superelevation-low", Superelevated(300, 2), AtSpeed(60))[0].message,
              L"超高 2%, 小于半径 300 m 的超高 3%");
    // Large enough to do without.
    EXPECT_TRUE(FindingsOf(L"superelevation-low", Superelevated(600, 0), AtSpeed(60)).empty());
    EXPECT_EQ(UncheckedOf(L"superelevation-low", Superelevated(100, 4), AtSpeed(60)).size(), 1U);
}

TEST(Superelevation, OfACurveIsFoundWhereOthersLieBeforeAndAroundIt)
{
    Alignment road = Superelevated(300, 2);
    road.superelevations.insert(road.superelevations.begin(), {{10, 0}, {2000, 0.5}});
    road.superelevations.insert(road.superelevations.begin(), {{0, 0}, {100, 5}});
    const auto found = FindingsOf(L"superelevation-low", road, AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].value, 2);
}

TEST(Superelevation, ThatTheFileDoesNotGiveLeavesItsRulesUnchecked)
{
    for (const wchar_t* const rule : {L"superelevation-max", L"superelevation-low", L"runoff"}) {
        const auto unchecked = UncheckedOf(rule, CurveRoad(300), AtSpeed(60));
        ASSERT_EQ(unchecked.size(), 1U);
        EXPECT_EQ(unchecked[0].why, L"文件没有给出超高");
    }
    const auto runoff = UncheckedOf(L"runoff", Superelevated(300, 4), AtSpeed(60));
    ASSERT_EQ(runoff.size(), 1U);
    EXPECT_EQ(runoff[0].why, L"文件没有给出车道宽度");
}

TEST(Runoff, IsNoSteeperThanTheRatioOfTheAxis)
{
    // 4 % on 7 m rise by 0.28 m: 1/125 of 35 m.
    const auto road = [](double length) { return WithLanes(Superelevated(300, 4, length), 7); };
    EXPECT_TRUE(FindingsOf(L"runoff", road(35), AtSpeed(60)).empty());
    EXPECT_TRUE(FindingsOf(L"runoff", road(34.9999), AtSpeed(60)).empty());
    EXPECT_EQ(FindingsOf(L"runoff", road(34.99), AtSpeed(60)).size(), 2U); // either end
    const auto found = FindingsOf(L"runoff", road(28), AtSpeed(60));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_NEAR(found[0].value, 100, 1e-9);
    EXPECT_EQ(found[0].message, L"超高渐变率 1/100, 大于 1/125");
    EXPECT_EQ(found[0].criterion, L"MaxSuperElev.GradualChangeRatio1");

    // About the edge the whole carriageway turns.
    CheckOptions edge = AtSpeed(60);
    edge.axis = RunoffAxis::Edge;
    EXPECT_TRUE(FindingsOf(L"runoff", road(70), edge).empty());
    const auto steep = FindingsOf(L"runoff", road(69), edge);
    ASSERT_EQ(steep.size(), 2U);
    EXPECT_EQ(steep[0].criterion, L"MaxSuperElev.GradualChangeRatio2");
}

TEST(ResultantGradient, TakesTheSuperelevationOfTheFileOrOfTheTables)
{
    // 60 km/h: 6.5 %. With 3 % across, 5.766 % along is what is left.
    const double along = std::sqrt(6.5 * 6.5 - 9);
    const auto table = [](double gradient) { return WithGradient(CurveRoad(300), gradient); };
    EXPECT_TRUE(FindingsOf(L"resultant-gradient", table(along), AtSpeed(60)).empty());
    EXPECT_EQ(FindingsOf(L"resultant-gradient", table(along + 0.002), AtSpeed(60)).size(), 1U);
    EXPECT_EQ(FindingsOf(L"resultant-gradient", table(-6), AtSpeed(60))[0].message,
              L"合成坡度 6.708%, 大于 6.5%(纵坡 6%, 超高表的超高 3%)");
    const auto file = [](double gradient) { return WithGradient(Superelevated(300, 4), gradient); };
    EXPECT_EQ(FindingsOf(L"resultant-gradient", file(6), AtSpeed(60))[0].message,
              L"合成坡度 7.211%, 大于 6.5%(纵坡 6%, 文件的超高 4%)");
}

TEST(ResultantGradient, IsOfTheRoadTypeOrOfSnowyRegions)
{
    const Alignment road = WithGradient(CurveRoad(300), 6.2);
    CheckOptions options = AtSpeed(60);
    options.roadType = CDSMaxResultantGrad::FreeWay; // an empty table
    EXPECT_TRUE(FindingsOf(L"resultant-gradient", road, options).empty());
    EXPECT_TRUE(UncheckedOf(L"resultant-gradient", road, options).empty());
    options.snow = true;
    const auto found = FindingsOf(L"resultant-gradient", road, options);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].limit, 6);
    EXPECT_EQ(found[0].criterion, L"MaxResultantGrad.MaxResultantGradOnSnowFrozenRegion");
}

} // namespace roadcheck
