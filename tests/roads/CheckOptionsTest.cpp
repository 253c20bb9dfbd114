#include "roads/CheckOptions.h"

#include <gtest/gtest.h>

namespace roadcheck {

TEST(CheckOptions, TellWhyTheyCannotBeUsed)
{
    const CDesignSpecification limits;
    CheckOptions options;
    EXPECT_EQ(OptionsProblem(options, limits), L"");
    options.speeds = {{{}, 60}, {SpeedChoice::Stretch{100, 200}, 1001}};
    EXPECT_EQ(OptionsProblem(options, limits), L"设计车速“1001”不在 1 到 1000 km/h 之间");
    options.speeds = {{{}, 0}};
    EXPECT_EQ(OptionsProblem(options, limits), L"设计车速“0”不在 1 到 1000 km/h 之间");
    options.speeds = {{{}, 1}, {{}, 1000}};
    EXPECT_EQ(OptionsProblem(options, limits), L"");
    options.roadType = static_cast<CDSMaxResultantGrad::RoadType>(7);
    EXPECT_EQ(OptionsProblem(options, limits), L"没有这种道路类型");
    options.roadType = static_cast<CDSMaxResultantGrad::RoadType>(6);
    options.car = L"铰接车";
    EXPECT_EQ(OptionsProblem(options, limits), L"");
    options.car = L"马车";
    EXPECT_EQ(OptionsProblem(options, limits), L"没有车型“马车”。可选: 小型汽车 普通汽车 铰接车");
}

} // namespace roadcheck
