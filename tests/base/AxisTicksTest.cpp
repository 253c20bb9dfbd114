#include "base/AxisTicks.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace designspec {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(AxisTicks, StandOneTwoOrFiveApart)
{
    EXPECT_DOUBLE_EQ(StepOf(10, 10), 1);
    EXPECT_DOUBLE_EQ(StepOf(10.1, 10), 2);
    EXPECT_DOUBLE_EQ(StepOf(20.1, 10), 5);
    EXPECT_DOUBLE_EQ(StepOf(51, 10), 10);
    EXPECT_DOUBLE_EQ(StepOf(0.3, 8), 0.05);
    EXPECT_DOUBLE_EQ(StepOf(30, 0.2), 50); // one at least
}

TEST(AxisTicks, AreMultiplesWithinTheRange)
{
    EXPECT_THAT(MultiplesOf(5, -5, 12), ElementsAre(-5, 0, 5, 10));
    EXPECT_THAT(MultiplesOf(0.1, 0.25, 0.3), ElementsAre(DoubleEq(0.1 * 3)));
    EXPECT_THAT(MultiplesOf(100, 1, 99), IsEmpty());
    EXPECT_FALSE(std::signbit(MultiplesOf(1, -0.5, 0.5).front()));
}

TEST(AxisTicks, AreToldApartByTheirDecimals)
{
    EXPECT_EQ(DecimalsOf(100), 0);
    EXPECT_EQ(DecimalsOf(1), 0);
    EXPECT_EQ(DecimalsOf(0.5), 1);
    EXPECT_EQ(DecimalsOf(0.1), 1);
    EXPECT_EQ(DecimalsOf(0.02), 2);
}

} // namespace designspec
