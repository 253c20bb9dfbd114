#include "roads/RoadVerification.h"

#include <gtest/gtest.h>

#include "tests/roads/RoadMaking.h"

namespace roadcheck {

TEST(RoadVerification, AsksNoFurtherRuleWhenItIsCancelled)
{
    const Alignment road = RoadOf({Arc(1, 9)});
    std::atomic<bool> cancel = false;
    EXPECT_FALSE(CheckRoad(road, {}, AtSpeed(60), &cancel).report.findings.empty());
    cancel = true;
    const CheckedRoad checked = CheckRoad(road, {}, AtSpeed(60), &cancel);
    EXPECT_TRUE(checked.report.findings.empty());
    EXPECT_TRUE(checked.report.unchecked.empty());
}

TEST(RoadVerification, ChecksNothingWithoutASpeed)
{
    const CheckedRoad checked = CheckRoad(RoadOf({Arc(1, 9)}), {}, {});
    EXPECT_FALSE(checked.hasSpeed);
    EXPECT_TRUE(checked.report.findings.empty());
    EXPECT_TRUE(checked.report.unchecked.empty());
}

TEST(RoadVerification, NamesTheRoadsWithoutASpeed)
{
    CheckedFile file;
    file.path = L"a.xml";
    file.roads = {CheckRoad(RoadOf({Arc(1, 9)}), {}, AtSpeed(60)),
                  CheckRoad(RoadOf({Arc(1, 9)}), {}, {})};
    file.roads[1].road.name = L"支路";
    const designspec::Problems problems = RoadsWithoutSpeed(file);
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].Text(), L"a.xml: 路线“支路”没有设计车速");
    EXPECT_TRUE(HasError(problems));
}

} // namespace roadcheck
