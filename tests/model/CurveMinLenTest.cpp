#include "model/CurveMinLen.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

TEST(CurveMinLen, ANewOneStoresTheBuiltInLimits)
{
    EXPECT_EQ(Stored(CDSCurveMinLen()), "<Root>\n"
                                        "  <Criterion></Criterion>\n" +
                                            TableXml("HorizontalCurveMinLen", {{"80", "140"},
                                                                               {"60", "100"},
                                                                               {"50", "85"},
                                                                               {"40", "70"},
                                                                               {"30", "50"},
                                                                               {"20", "40"}}) +
                                            TableXml("CircularCurveMinLen", {{"80", "70"},
                                                                             {"60", "50"},
                                                                             {"50", "40"},
                                                                             {"40", "35"},
                                                                             {"30", "25"},
                                                                             {"20", "20"}}) +
                                            "</Root>\n");
}

TEST(CurveMinLen, AMissingTableIsEmpty)
{
    const auto loaded =
        Loaded<CDSCurveMinLen>("<Root><Criterion> 5.3 </Criterion>" +
                               TableXml("HorizontalCurveMinLen", {{"60", "1"}}) + "</Root>");
    EXPECT_EQ(loaded.Criterion, L"5.3");
    EXPECT_EQ(loaded.HorizontalCurveMinLen, (SpeedToIntValues{{60, 1}}));
    EXPECT_TRUE(loaded.CircularCurveMinLen.IsEmpty());
}

TEST(SmallAngleCurveMinLen, ANewOneStoresTheBuiltInConstants)
{
    EXPECT_EQ(Stored(CSmallAngleCurveMinLen()),
              "<Root>\n"
              "  <Criterion></Criterion>\n" +
                  TableXml("HorizontalCurveMinLen", {{"80", "1000"},
                                                     {"60", "700"},
                                                     {"50", "600"},
                                                     {"40", "500"},
                                                     {"30", "350"},
                                                     {"20", "280"}}) +
                  "</Root>\n");
}

TEST(SmallAngleCurveMinLen, LoadsItsTableSortedAndItsSourceTrimmed)
{
    const auto loaded = Loaded<CSmallAngleCurveMinLen>(
        "<Root><Criterion>\n x</Criterion>" +
        TableXml("HorizontalCurveMinLen", {{"20", "1"}, {"80", "2"}}) + "</Root>");
    EXPECT_EQ(loaded.Criterion, L"x");
    EXPECT_EQ(loaded.HorizontalCurveMinLen, (SpeedToIntValues{{80, 2}, {20, 1}}));
    EXPECT_TRUE(Loaded<CSmallAngleCurveMinLen>("<Root/>").HorizontalCurveMinLen.IsEmpty());
}
