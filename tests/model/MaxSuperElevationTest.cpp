#include "model/MaxSuperElevation.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

using C = CDSMaxSuperElevation;

TEST(MaxSuperElevation, ANewOneStoresTheBuiltInLimits)
{
    EXPECT_EQ(
        Stored(C()),
        "<Root>\n"
        "  <Criterion></Criterion>\n"
        "  <MaxSuperElevOnSFR>0</MaxSuperElevOnSFR>\n" +
            TableXml(
                "MaxSuperElev",
                {{"80", "6"}, {"60", "4"}, {"50", "4"}, {"40", "2"}, {"30", "2"}, {"20", "2"}}) +
            TableXml("GradualChangeRatio1", {{"80", "150"},
                                             {"60", "125"},
                                             {"50", "115"},
                                             {"40", "100"},
                                             {"30", "75"},
                                             {"20", "50"}}) +
            TableXml("GradualChangeRatio2", {{"80", "150"},
                                             {"60", "125"},
                                             {"50", "115"},
                                             {"40", "100"},
                                             {"30", "75"},
                                             {"20", "50"}}) +
            "</Root>\n");
}

TEST(MaxSuperElevation, TheSnowLimitIsZeroWhenMissingWhateverItWas)
{
    C criterion;
    criterion.MaxSuperElevOnSFR = 4;
    const C loaded = Loaded<C>("<Root><Criterion> a </Criterion></Root>", criterion);
    EXPECT_EQ(loaded.MaxSuperElevOnSFR, 0);
    EXPECT_EQ(loaded.Criterion, L"a");
    EXPECT_TRUE(loaded.MaxSuperElev.IsEmpty());
    EXPECT_TRUE(loaded.GradualChangeRatio1.IsEmpty());
    EXPECT_TRUE(loaded.GradualChangeRatio2.IsEmpty());
    EXPECT_EQ(Loaded<C>(Stored(criterion)), criterion);
}

TEST(MaxSuperElevation, LowerGivesTheNextLowerSpeed)
{
    int value = 0;
    const C criterion;
    EXPECT_TRUE(
        QueryValue::QueryIntValBySpeed(&criterion.MaxSuperElev, 70, QueryValue::Lower, value));
    EXPECT_EQ(value, 4);
}
