#include "model/Rules.h"

#include <limits>

#include <gtest/gtest.h>

#include "model/MaxSuperElevation.h"

using namespace designspec;

TEST(Rules, RangesIncludeTheirEnds)
{
    EXPECT_FALSE(IsSpeed(9));
    EXPECT_TRUE(IsSpeed(10));
    EXPECT_TRUE(IsSpeed(150));
    EXPECT_FALSE(IsSpeed(151));
    EXPECT_FALSE(IsMaxSuperElev(0));
    EXPECT_TRUE(IsMaxSuperElev(1));
    EXPECT_TRUE(IsMaxSuperElev(19));
    EXPECT_FALSE(IsMaxSuperElev(20));
    EXPECT_FALSE(IsRunoff(1));
    EXPECT_TRUE(IsRunoff(2));
    EXPECT_TRUE(IsRunoff(999));
    EXPECT_FALSE(IsRunoff(1000));
}

TEST(Rules, HaveALeastValue)
{
    EXPECT_TRUE(IsTableValue(0));
    EXPECT_FALSE(IsTableValue(-1));
    EXPECT_FALSE(IsTableValue(-0.1));
    EXPECT_TRUE(IsRadius(1));
    EXPECT_FALSE(IsRadius(0));
    EXPECT_TRUE(IsSnowSuperElev(1));
    EXPECT_FALSE(IsSnowSuperElev(0));
    EXPECT_TRUE(IsStraightLimit(0.1));
    EXPECT_FALSE(IsStraightLimit(0.0));
    EXPECT_TRUE(IsGradient(0.0));
    EXPECT_FALSE(IsGradient(-0.0));
    EXPECT_FALSE(IsGradient(-0.3));
    EXPECT_FALSE(IsGradient(std::numeric_limits<double>::infinity()));
}

TEST(Rules, OneDecimalIsRoundedAndTenthsAreCutOff)
{
    EXPECT_EQ(InOneDecimal(2.36), 2.4);
    EXPECT_EQ(InOneDecimal(0.04), 0);
    EXPECT_EQ(InOneDecimal(123456.78), 123456.8);
    EXPECT_EQ(InOneDecimal(1e300), 1e300);
    EXPECT_EQ(GradientTenths(4.26), 42);
    EXPECT_EQ(GradientTenths(4.5), 45);
    EXPECT_EQ(GradientTenths(-1.5), 0);
}

TEST(Rules, NameTheRangeOfSpeeds)
{
    EXPECT_EQ(SpeedText(), L"车速 必须大于等于 10 并且小于等于 150");
    EXPECT_EQ(RangeText(L"长度", -1, 7), L"长度 必须大于等于 -1 并且小于等于 7");
}

TEST(Rules, MaximaInUseComeOnceAndThatOfSnowFirst)
{
    CDSMaxSuperElevation criterion;
    EXPECT_EQ(MaximaInUse(criterion), (std::vector{6, 4, 2}));
    criterion.MaxSuperElevOnSFR = 4;
    EXPECT_EQ(MaximaInUse(criterion), (std::vector{4, 6, 2}));
    criterion.MaxSuperElevOnSFR = 25;
    criterion.MaxSuperElev = {{20, 8}, {40, 0}, {60, 20}, {30, 5}, {20, 7}};
    EXPECT_EQ(MaximaInUse(criterion), (std::vector{25, 5, 7}));
}

TEST(Rules, GapsStandBetweenValues)
{
    using Places = std::vector<size_t>;
    EXPECT_EQ(Gaps({}), Places());
    EXPECT_EQ(Gaps({false, false}), Places());
    EXPECT_EQ(Gaps({false, true, true, false}), Places());
    EXPECT_EQ(Gaps({true, false, true, false, false, true, false}), (Places{1, 3, 4}));
}
