#include "model/LonGrad.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

TEST(LonGrad, ANewOneStoresTheBuiltInLimits)
{
    EXPECT_EQ(
        Stored(CDSLonGrad()),
        "<Root>\n"
        "  <MinGrad>0.3</MinGrad>\n"
        "  <GradeCompensationOnPlateau>1</GradeCompensationOnPlateau>\n"
        "  <MaxGradeOnSnowFrozenRegion>6</MaxGradeOnSnowFrozenRegion>\n"
        "  <Criterion></Criterion>\n" +
            TableXml(
                "MaxGradRecommendedValues",
                {{"80", "4"}, {"60", "5"}, {"50", "5.5"}, {"40", "6"}, {"30", "7"}, {"20", "8"}}) +
            TableXml(
                "MaxGradLimitedValues",
                {{"80", "6"}, {"60", "7"}, {"50", "7"}, {"40", "8"}, {"30", "9"}, {"20", "9"}}) +
            "</Root>\n");
}

TEST(LonGrad, WhatIsMissingKeepsItsDefaultSaveTheTables)
{
    const auto loaded = Loaded<CDSLonGrad>("<Root><Criterion> 6.1\n</Criterion></Root>");
    EXPECT_EQ(loaded.MinGrad, 0.3);
    EXPECT_EQ(loaded.GradeCompensationOnPlateau, 1.0);
    EXPECT_EQ(loaded.MaxGradeOnSnowFrozenRegion, 6.0);
    EXPECT_EQ(loaded.Criterion, L"6.1");
    EXPECT_TRUE(loaded.MaxGradRecommendedValues.IsEmpty());
    EXPECT_TRUE(loaded.MaxGradLimitedValues.IsEmpty());
}
