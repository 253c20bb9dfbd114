// Gradients, lengths of grades and vertical curves: just inside, at and just outside each limit.
#include <gtest/gtest.h>

#include "tests/roads/RoadMaking.h"

namespace roadcheck {

namespace {

size_t Count(std::wstring_view rule, const std::vector<ProfilePiece>& pieces,
             const CheckOptions& options = AtSpeed(60))
{
    return FindingsOf(rule, ProfileRoad(pieces), options).size();
}

} // namespace

TEST(GradeMax, IsTheTablesLimit)
{
    EXPECT_EQ(Count(L"grade-max", {{1000, 7}}), 0U);
    EXPECT_EQ(Count(L"grade-max", {{1000, 7.0009}}), 0U);
    EXPECT_EQ(Count(L"grade-max", {{1000, 7.0011}}), 1U);
    EXPECT_EQ(Count(L"grade-max", {{1000, -7.0011}}), 1U);
    const auto found = FindingsOf(L"grade-max", ProfileRoad({{1000, -8}}), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_STREQ(found[0].element.kind, L"grade");
    EXPECT_EQ(found[0].element.index, 1);
    EXPECT_EQ(found[0].message, L"纵坡 -8%, 大于最大纵坡限制值 7%");
    EXPECT_EQ(found[0].criterion, L"LonGrad.MaxGradLimitedValues");
}

TEST(GradeMax, IsLessOnPlateausAndInTheSnow)
{
    CheckOptions plateau = AtSpeed(60);
    plateau.plateau = true;
    EXPECT_EQ(Count(L"grade-max", {{1000, 6}}, plateau), 0U);
    EXPECT_EQ(Count(L"grade-max", {{1000, 6.01}}, plateau), 1U);
    CheckOptions snow = AtSpeed(30);
    snow.snow = true;
    EXPECT_EQ(Count(L"grade-max", {{1000, 6}}, snow), 0U);
    const auto found = FindingsOf(L"grade-max", ProfileRoad({{1000, 6.5}}), snow);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].criterion, L"LonGrad.MaxGradeOnSnowFrozenRegion");
    snow.plateau = true;
    snow.speeds = {{{}, 80}};
    EXPECT_EQ(Count(L"grade-max", {{1000, 5.5}}, snow), 1U); // 6 - 1 is stricter than 6
}

TEST(GradeRecommended, IsTheTablesRecommendation)
{
    EXPECT_EQ(Count(L"grade-recommended", {{1000, 5}}), 0U);
    EXPECT_EQ(Count(L"grade-recommended", {{1000, 5.0009}}), 0U);
    EXPECT_EQ(Count(L"grade-recommended", {{1000, 5.0011}}), 1U);
    EXPECT_EQ(FindingsOf(L"grade-recommended", ProfileRoad({{1000, 6}}), AtSpeed(60))[0].message,
              L"纵坡 6%, 大于最大纵坡推荐值 5%");
}

TEST(GradeMin, IsOfTheSpecificationWhateverTheSpeed)
{
    EXPECT_EQ(Count(L"grade-min", {{1000, 0.3}}, {}), 0U);
    EXPECT_EQ(Count(L"grade-min", {{1000, 0.2991}}, {}), 0U);
    EXPECT_EQ(Count(L"grade-min", {{1000, 0.2989}}, {}), 1U);
    EXPECT_EQ(Count(L"grade-min", {{1000, -0.2989}}, {}), 1U);
    EXPECT_EQ(FindingsOf(L"grade-min", ProfileRoad({{1000, 0.1}}), {})[0].message,
              L"纵坡 0.1%, 小于最小纵坡 0.3%");
    CDesignSpecification specification;
    specification.LonGrad.MinGrad = 0;
    EXPECT_TRUE(
        FindingsOf(L"grade-min", ProfileRoad({{1000, 0}}), AtSpeed(60), specification).empty());
}

TEST(GradeLengthMin, IsNotAskedOfTheFirstAndTheLast)
{
    const auto road = [](double length) {
        return std::vector<ProfilePiece>{{10, 1}, {length, -1}, {10, 1}};
    };
    EXPECT_EQ(Count(L"grade-length-min", road(170)), 0U);
    EXPECT_EQ(Count(L"grade-length-min", road(169.9991)), 0U);
    EXPECT_EQ(Count(L"grade-length-min", road(169.9989)), 1U);
    const auto found = FindingsOf(L"grade-length-min", ProfileRoad(road(100)), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].element.index, 2);
    EXPECT_EQ(found[0].message, L"坡长 100 m, 小于最小坡长 170 m");
}

TEST(GradeLengthMax, IsWhatTheQueryGivesGradientAndSpeed)
{
    EXPECT_EQ(Count(L"grade-length-max", {{400, 6}}), 0U);
    EXPECT_EQ(Count(L"grade-length-max", {{400.0009, -6}}), 0U);
    EXPECT_EQ(Count(L"grade-length-max", {{400.0011, -6}}), 1U);
    // Between 6 and 6.5 the steeper row answers.
    EXPECT_EQ(Count(L"grade-length-max", {{360, 6.2}}), 1U);
    EXPECT_EQ(FindingsOf(L"grade-length-max", ProfileRoad({{500, -6}}), AtSpeed(60))[0].message,
              L"纵坡 -6% 的坡长 500 m, 大于最大坡长 400 m");
}

TEST(GradeLengthMax, DoesNotLimitGradientsGentlerThanTheGentlestRow)
{
    EXPECT_EQ(Count(L"grade-length-max", {{9000, 4.98}}, AtSpeed(80)), 0U);
    EXPECT_EQ(Count(L"grade-length-max", {{9000, 4.995}}, AtSpeed(80)), 1U);
}

TEST(GradeLengthMax, IsUncheckedBeyondTheSteepestRow)
{
    const auto unchecked = UncheckedOf(L"grade-length-max", ProfileRoad({{100, 9}}), AtSpeed(40));
    ASSERT_EQ(unchecked.size(), 1U);
    EXPECT_EQ(unchecked[0].why, L"LonGradMaxLen 没有纵坡 9%、车速 40 km/h 的最大坡长");
}

TEST(VerticalRadius, HasALimitAndAGeneralMinimumForCrestsAndSags)
{
    // 60 km/h: crests 1200 and 1800 m, sags 1000 and 1500 m; a change of 4 % on L m has R = 25 L.
    const auto crest = [](double length) {
        return std::vector<ProfilePiece>{{500, 2, length}, {500, -2}};
    };
    const auto sag = [](double length) {
        return std::vector<ProfilePiece>{{500, -2, length}, {500, 2}};
    };
    EXPECT_EQ(Count(L"vertical-radius-min", crest(48)), 0U);
    EXPECT_EQ(Count(L"vertical-radius-min", crest(47.9999)), 1U);
    EXPECT_EQ(Count(L"vertical-radius-min", sag(40)), 0U);
    EXPECT_EQ(Count(L"vertical-radius-min", sag(39.9999)), 1U);
    EXPECT_EQ(Count(L"vertical-radius-general", crest(72)), 0U);
    EXPECT_EQ(Count(L"vertical-radius-general", crest(71.9999)), 1U);
    EXPECT_EQ(Count(L"vertical-radius-general", sag(60)), 0U);
    EXPECT_EQ(Count(L"vertical-radius-general", sag(59.9999)), 1U);

    const auto found = FindingsOf(L"vertical-radius-min", ProfileRoad(crest(40)), AtSpeed(60));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_STREQ(found[0].element.kind, L"verticalCurve");
    EXPECT_EQ(found[0].element.index, 2);
    EXPECT_EQ(found[0].from, 480);
    EXPECT_EQ(found[0].to, 520);
    EXPECT_EQ(found[0].message, L"凸形竖曲线半径 1000 m, 小于极限最小半径 1200 m");
    EXPECT_EQ(found[0].criterion, L"VerticalCurveMinRadAndLen.ConvexLimitMinRad");
    EXPECT_EQ(FindingsOf(L"vertical-radius-general", ProfileRoad(sag(50)), AtSpeed(60))[0].message,
              L"凹形竖曲线半径 1250 m, 小于一般最小半径 1500 m");
}

TEST(VerticalLength, IsTheTables)
{
    const auto road = [](double length) {
        return std::vector<ProfilePiece>{{500, 1, length}, {500, -1}};
    };
    EXPECT_EQ(Count(L"vertical-length", road(50)), 0U);
    EXPECT_EQ(Count(L"vertical-length", road(49.9991)), 0U);
    EXPECT_EQ(Count(L"vertical-length", road(49.9989)), 1U);
    EXPECT_EQ(FindingsOf(L"vertical-length", ProfileRoad(road(40)), AtSpeed(60))[0].message,
              L"竖曲线长 40 m, 小于最小长度 50 m");
}

TEST(Profiles, ThatAreMissingLeaveTheirRulesUnchecked)
{
    for (const Rule& rule : Rules()) {
        if (rule.need != RuleNeed::Profile) continue;
        const auto unchecked = UncheckedOf(rule.id, CurveRoad(1000), AtSpeed(60));
        ASSERT_EQ(unchecked.size(), 1U);
        EXPECT_EQ(unchecked[0].why, L"文件没有给出设计纵断面");
    }
}

} // namespace roadcheck
