#include "model/Arrangement.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"
#include "tests/support/RandomSpecification.h"

namespace {

TEST(Arrangement, PutsRowsInTheirOrder)
{
    CDesignSpecification one;
    one.LonGrad.MaxGradLimitedValues = {{20, 9}, {80, 6}, {40, 8}};
    one.SuperElevation.definitions = {{6, {{60, {}}, {100, {{1, 2, 3}}}, {80, {}}}}, {8, {}}};
    one.LonGradMaxLen.rows = {{7, {{60, 1}}}, {5, {{40, 2}, {60, 3}}}, {6, {{60, 4}}}};
    Arrange(one);

    CDesignSpecification wanted(one);
    wanted.LonGrad.MaxGradLimitedValues = {{80, 6}, {40, 8}, {20, 9}};
    wanted.SuperElevation.definitions = {{6, {{100, {{1, 2, 3}}}, {80, {}}, {60, {}}}}, {8, {}}};
    wanted.LonGradMaxLen.rows = {{5, {{60, 3}, {40, 2}}}, {6, {{60, 4}}}, {7, {{60, 1}}}};
    EXPECT_EQ(one, wanted);
}

TEST(Arrangement, LeavesRowsOfEqualKeysAsTheyStood)
{
    CDesignSpecification one;
    one.SuperElevation.definitions = {{6, {{60, {{1, 2, 3}}}, {80, {}}, {60, {{4, 5, 6}}}}}};
    Arrange(one);
    const auto& rows = one.SuperElevation.definitions[0].rows;
    ASSERT_EQ(rows.count, 3);
    EXPECT_EQ(rows[1].ranges[0].minRadius, 1);
    EXPECT_EQ(rows[2].ranges[0].minRadius, 4);
}

TEST(Arrangement, TakesOutWhatNoFileKeeps)
{
    CDesignSpecification one;
    one.TransitionCurveMinLen.NoTCBySuperelevation = 1;
    one.LonGradMaxLen.rows = {{5, {}}, {6, {{60, 4}}}};
    Arrange(one);
    EXPECT_TRUE(one.TransitionCurveMinLen.NoTCByMinRad.IsEmpty());
    EXPECT_FALSE(one.TransitionCurveMinLen.MinLen.IsEmpty());
    ASSERT_EQ(one.LonGradMaxLen.rows.count, 1);
    EXPECT_EQ(one.LonGradMaxLen.rows[0].Grad, 6);
}

TEST(Arrangement, IsTheFormThatFilesGiveBack)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        CDesignSpecification one = RandomSpecification(seed).Make();
        Arrange(one);
        CDesignSpecification again = Loaded<CDesignSpecification>(Stored(one));
        EXPECT_EQ(again, one) << seed;
        Arrange(again);
        EXPECT_EQ(again, one) << seed;
    }
}

} // namespace
