// Straights, radii, lengths and transitions: just inside, at and just outside each limit.
#include <gtest/gtest.h>

#include "tests/roads/RoadMaking.h"

namespace roadcheck {

namespace {

constexpr double kMore = 0.0011, kLess = 0.0009; // about the tolerance of 1 mm

size_t Count(std::wstring_view rule, const Alignment& road, int speed = 60)
{
    return FindingsOf(rule, road, AtSpeed(speed)).size();
}

// Two curves with a straight of that length between them.
Alignment TwoCurves(double between, Turn second)
{
    return RoadOf(
        {Line(300), Arc(2000, 400, Turn::Right), Line(between), Arc(2000, 400, second), Line(300)});
}

} // namespace

TEST(StraightMax, IsTwentyTimesTheSpeed)
{
    EXPECT_EQ(Count(L"straight-max", RoadOf({Line(1200)})), 0U);
    EXPECT_EQ(Count(L"straight-max", RoadOf({Line(1200 + kLess)})), 0U);
    EXPECT_EQ(Count(L"straight-max", RoadOf({Line(1200 + kMore)})), 1U);

    const auto found =
        FindingsOf(L"straight-max", RoadOf({Arc(2000, 50), Line(1300)}), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].rule->severity, RuleSeverity::Warning);
    EXPECT_STREQ(found[0].element.kind, L"line");
    EXPECT_EQ(found[0].element.index, 2);
    EXPECT_EQ(found[0].from, 50);
    EXPECT_EQ(found[0].to, 1350);
    EXPECT_EQ(found[0].speed, 60);
    EXPECT_EQ(found[0].value, 1300);
    EXPECT_EQ(found[0].limit, 1200);
    EXPECT_EQ(found[0].criterion, L"BeelineLen.MaxLen");
    EXPECT_EQ(found[0].message, L"直线长 1300 m, 大于 1200 m(20 倍设计车速)");
}

TEST(StraightMax, IsNoLimitWithAFactorOfNought)
{
    CDesignSpecification specification;
    specification.BeelineLen.MaxLen = 0;
    EXPECT_TRUE(
        FindingsOf(L"straight-max", RoadOf({Line(9e6)}), AtSpeed(60), specification).empty());
}

TEST(StraightMin, OfCurvesThatTurnAlikeIsSixTimesTheSpeed)
{
    EXPECT_EQ(Count(L"straight-min-same", TwoCurves(360, Turn::Right)), 0U);
    EXPECT_EQ(Count(L"straight-min-same", TwoCurves(360 - kLess, Turn::Right)), 0U);
    EXPECT_EQ(Count(L"straight-min-same", TwoCurves(360 - kMore, Turn::Right)), 1U);
    EXPECT_EQ(Count(L"straight-min-same", TwoCurves(10, Turn::Left)), 0U);
    EXPECT_EQ(FindingsOf(L"straight-min-same", TwoCurves(100, Turn::Right), AtSpeed(60))[0].message,
              L"同向曲线间直线长 100 m, 小于 360 m(6 倍设计车速)");
}

TEST(StraightMin, OfCurvesThatTurnOppositeIsTwiceTheSpeed)
{
    EXPECT_EQ(Count(L"straight-min-reverse", TwoCurves(120, Turn::Left)), 0U);
    EXPECT_EQ(Count(L"straight-min-reverse", TwoCurves(120 - kLess, Turn::Left)), 0U);
    EXPECT_EQ(Count(L"straight-min-reverse", TwoCurves(120 - kMore, Turn::Left)), 1U);
    EXPECT_EQ(Count(L"straight-min-reverse", TwoCurves(10, Turn::Right)), 0U);
    EXPECT_EQ(
        FindingsOf(L"straight-min-reverse", TwoCurves(100, Turn::Left), AtSpeed(60))[0].message,
        L"反向曲线间直线长 100 m, 小于 120 m(2 倍设计车速)");
}

TEST(StraightMin, IsNotAskedOfCurvesThatTouch)
{
    const Alignment road = RoadOf({Arc(2000, 400, Turn::Right), Arc(2000, 400, Turn::Left)});
    EXPECT_EQ(Count(L"straight-min-reverse", road), 0U);
}

TEST(RadiusMax, IsOfTheSpecificationWhateverTheSpeed)
{
    EXPECT_EQ(Count(L"radius-max", CurveRoad(10000)), 0U);
    EXPECT_EQ(Count(L"radius-max", CurveRoad(10000 + kLess)), 0U);
    EXPECT_EQ(Count(L"radius-max", CurveRoad(10000 + kMore)), 1U);
    const auto found = FindingsOf(L"radius-max", CurveRoad(12000), {});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].message, L"圆曲线半径 12000 m, 大于最大半径 10000 m");
    EXPECT_EQ(found[0].speed, 0);
}

TEST(RadiusMin, IsTheTablesAndTellsItsSource)
{
    EXPECT_EQ(Count(L"radius-min", CurveRoad(150)), 0U);
    EXPECT_EQ(Count(L"radius-min", CurveRoad(150 - kLess)), 0U);
    EXPECT_EQ(Count(L"radius-min", CurveRoad(150 - kMore)), 1U);

    CDesignSpecification specification;
    specification.CircularCurveRad.MinRadCriterion = L"第 6.2.2 条";
    const auto found = FindingsOf(L"radius-min", CurveRoad(140), AtSpeed(60), specification);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].rule->severity, RuleSeverity::Error);
    EXPECT_STREQ(found[0].element.kind, L"curve");
    EXPECT_EQ(found[0].element.index, 3);
    EXPECT_EQ(found[0].criterion, L"CircularCurveRad.SuperelevationMinRad");
    EXPECT_EQ(found[0].source, L"第 6.2.2 条");
    EXPECT_EQ(found[0].message, L"圆曲线半径 140 m, 小于设超高最小半径 150 m");
}

TEST(RadiusMin, TakesTheNextHigherSpeedBetweenTwo)
{
    EXPECT_EQ(Count(L"radius-min", CurveRoad(249), 70), 1U);
    CheckOptions lower = AtSpeed(70);
    lower.mode = QueryValue::Lower;
    EXPECT_TRUE(FindingsOf(L"radius-min", CurveRoad(249), lower).empty());
}

TEST(RadiusMin, IsUncheckedForASpeedThatTheTableDoesNotAnswer)
{
    const auto unchecked = UncheckedOf(L"radius-min", CurveRoad(100), AtSpeed(100));
    ASSERT_EQ(unchecked.size(), 1U);
    EXPECT_EQ(unchecked[0].why, L"CircularCurveRad.SuperelevationMinRad 没有车速 100 km/h 的限值");
    EXPECT_EQ(unchecked[0].from, 600);
    EXPECT_EQ(unchecked[0].to, 1000);
}

TEST(RadiusMin, IsNoLimitWithAnEmptyTable)
{
    CDesignSpecification specification;
    specification.CircularCurveRad.SuperelevationMinRad = {};
    EXPECT_TRUE(FindingsOf(L"radius-min", CurveRoad(1), AtSpeed(60), specification).empty());
    EXPECT_TRUE(UncheckedOf(L"radius-min", CurveRoad(1), AtSpeed(60), specification).empty());
}

TEST(RadiusMin, IsUncheckedWithoutADesignSpeed)
{
    const auto unchecked = UncheckedOf(L"radius-min", CurveRoad(1), {});
    ASSERT_EQ(unchecked.size(), 1U);
    EXPECT_EQ(unchecked[0].why, L"没有设计车速");
}

TEST(RadiusRecommended, HoldsWhereTheMinimumDoes)
{
    EXPECT_EQ(Count(L"radius-recommended", CurveRoad(300)), 0U);
    EXPECT_EQ(Count(L"radius-recommended", CurveRoad(300 - kLess)), 0U);
    EXPECT_EQ(Count(L"radius-recommended", CurveRoad(300 - kMore)), 1U);
    EXPECT_EQ(Count(L"radius-recommended", CurveRoad(150)), 1U);
    EXPECT_EQ(Count(L"radius-recommended", CurveRoad(149)), 0U);
    EXPECT_EQ(FindingsOf(L"radius-recommended", CurveRoad(200), AtSpeed(60))[0].message,
              L"圆曲线半径 200 m, 小于设超高推荐半径 300 m");
}

TEST(CurveLength, IsOfTransitionsAndArcsTogether)
{
    EXPECT_EQ(Count(L"curve-length", CurveRoad(1000, 60, 20)), 0U);
    EXPECT_EQ(Count(L"curve-length", CurveRoad(1000, 60 - kLess, 20)), 0U);
    const auto found = FindingsOf(L"curve-length", CurveRoad(1000, 50, 20), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_STREQ(found[0].element.kind, L"wholeCurve");
    EXPECT_EQ(found[0].element.index, 1);
    EXPECT_EQ(found[0].message, L"平曲线长 90 m, 小于最小长度 100 m");
    EXPECT_EQ(Count(L"curve-length", CurveRoad(1000, 60 - kMore, 20)), 1U);
}

TEST(ArcLength, IsOfTheArcsOfACurveTogether)
{
    EXPECT_EQ(Count(L"arc-length", CurveRoad(1000, 50)), 0U);
    EXPECT_EQ(Count(L"arc-length", CurveRoad(1000, 50 - kLess)), 0U);
    EXPECT_EQ(Count(L"arc-length", CurveRoad(1000, 50 - kMore)), 1U);
    // Two arcs with a transition between them are of one curve.
    const Alignment egg = RoadOf({Line(100), Arc(500, 30), Spiral(500, 300, 60), Arc(300, 30)});
    EXPECT_EQ(Count(L"arc-length", egg), 0U);
    EXPECT_EQ(FindingsOf(L"arc-length", CurveRoad(1000, 40), AtSpeed(60))[0].message,
              L"圆曲线长 40 m, 小于最小长度 50 m");
}

TEST(SmallAngle, AsksForAConstantOverTheDeflection)
{
    // 5° of an arc of 1000 m are 87.266 m; 700 / 5 = 140 m are asked for.
    const double degree = 1000 * 3.14159265358979323846 / 180;
    const auto found = FindingsOf(L"small-angle", RoadOf({Arc(1000, 5 * degree)}), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_NEAR(found[0].limit, 140, 1e-9);
    EXPECT_EQ(found[0].message, L"偏角 5° 的平曲线长 87.266 m, 小于 140 m");
    // Length L on radius L / 5°: exactly as long as asked for.
    const auto of = [&](double length) { return RoadOf({Arc(140 / (5 * degree) * 1000, length)}); };
    EXPECT_EQ(Count(L"small-angle", of(140)), 0U);
    EXPECT_EQ(Count(L"small-angle", of(139.9)), 1U);
}

TEST(SmallAngle, EndsAtSevenDegreesAndTakesLessThanTwoAsTwo)
{
    const double degree = 100 * 3.14159265358979323846 / 180;
    EXPECT_EQ(Count(L"small-angle", RoadOf({Arc(100, 7 * degree)})), 1U);
    EXPECT_EQ(Count(L"small-angle", RoadOf({Arc(100, 7.001 * degree)})), 0U);
    const auto found = FindingsOf(L"small-angle", RoadOf({Arc(100, degree)}), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].limit, 350);
}

TEST(TransitionLength, IsOfEachSpiral)
{
    EXPECT_EQ(Count(L"transition-length", CurveRoad(1000, 400, 50)), 0U);
    EXPECT_EQ(Count(L"transition-length", CurveRoad(1000, 400, 50 - kLess)), 0U);
    EXPECT_EQ(Count(L"transition-length", CurveRoad(1000, 400, 50 - kMore)), 2U);
    EXPECT_EQ(FindingsOf(L"transition-length", CurveRoad(1000, 400, 45), AtSpeed(60))[0].message,
              L"缓和曲线长 45 m, 小于最小长度 50 m");
}

TEST(TransitionMissing, IsToldOfAnArcThatMeetsAStraight)
{
    const auto road = [](double radius) { return RoadOf({Line(90), Arc(radius, 90), Line(90)}); };
    EXPECT_EQ(Count(L"transition-missing", road(1000)), 0U);
    EXPECT_EQ(Count(L"transition-missing", road(1000 - kLess)), 0U);
    EXPECT_EQ(Count(L"transition-missing", road(1000 - kMore)), 1U);
    EXPECT_EQ(FindingsOf(L"transition-missing", road(900), AtSpeed(60))[0].message,
              L"半径 900 m 的圆曲线两端没有缓和曲线, 不设缓和曲线的半径为 1000 m");
}

TEST(TransitionMissing, DoesNotCountTheRoadsEnds)
{
    EXPECT_EQ(Count(L"transition-missing", RoadOf({Arc(300, 90)})), 0U);
    EXPECT_EQ(
        FindingsOf(L"transition-missing", RoadOf({Arc(300, 90), Line(9)}), AtSpeed(60))[0].message,
        L"半径 300 m 的圆曲线终点没有缓和曲线, 不设缓和曲线的半径为 1000 m");
    EXPECT_EQ(
        FindingsOf(L"transition-missing", RoadOf({Line(9), Arc(300, 90)}), AtSpeed(60))[0].message,
        L"半径 300 m 的圆曲线起点没有缓和曲线, 不设缓和曲线的半径为 1000 m");
}

TEST(TransitionMissing, IsToldOfArcsThatTurnOppositeAlone)
{
    EXPECT_EQ(
        Count(L"transition-missing", RoadOf({Arc(300, 90, Turn::Left), Arc(300, 90, Turn::Right)})),
        2U);
    EXPECT_EQ(Count(L"transition-missing", RoadOf({Arc(300, 90), Arc(500, 90)})), 0U);
}

TEST(TransitionMissing, GoesBySuperelevationWhereTheSpecificationSaysSo)
{
    CDesignSpecification specification;
    specification.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    const auto road = [](double radius) { return RoadOf({Line(90), Arc(radius, 90), Line(90)}); };
    EXPECT_TRUE(FindingsOf(L"transition-missing", road(600), AtSpeed(60), specification).empty());
    const auto found = FindingsOf(L"transition-missing", road(599), AtSpeed(60), specification);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].criterion, L"CircularCurveRad.noSuperelevationMinRad");
}

TEST(WideningNeeded, IsToldForTheDesignVehicle)
{
    CheckOptions options = AtSpeed(60);
    EXPECT_TRUE(FindingsOf(L"widening-needed", CurveRoad(200), options).empty());
    options.car = L"普通汽车";
    auto found = FindingsOf(L"widening-needed", CurveRoad(200), options);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].rule->severity, RuleSeverity::Note);
    EXPECT_EQ(found[0].message, L"半径 200 m 的圆曲线, “普通汽车”每车道加宽 0.45 m");
    EXPECT_TRUE(FindingsOf(L"widening-needed", CurveRoad(251), options).empty());
    EXPECT_TRUE(UncheckedOf(L"widening-needed", CurveRoad(251), options).empty());
    EXPECT_EQ(UncheckedOf(L"widening-needed", CurveRoad(10), options)[0].why,
              L"加宽表没有车型“普通汽车”、半径 10 m 的加宽");
    options.car = L"马车";
    EXPECT_EQ(UncheckedOf(L"widening-needed", CurveRoad(200), options)[0].why,
              L"加宽表没有车型“马车”、半径 200 m 的加宽");
}

TEST(Elements, WithoutAShapeAreTold)
{
    Alignment road = RoadOf({Line(10), Line(20), Line(30)});
    road.plan[1].kind = PlanKind::Other;
    road.plan[1].line = 7;
    road.plan[1].why = L"不支持 Chain";
    std::vector<Unchecked> unchecked =
        CheckAlignment(road, CDesignSpecification(), AtSpeed(60)).unchecked;
    std::erase_if(unchecked, [](const Unchecked& one) { return one.rule != nullptr; });
    ASSERT_EQ(unchecked.size(), 1U);
    EXPECT_EQ(unchecked[0].why, L"第 2 个平面单元(第 7 行): 不支持 Chain");
    EXPECT_EQ(unchecked[0].from, 10);
    EXPECT_EQ(unchecked[0].to, 30);
}

} // namespace roadcheck
