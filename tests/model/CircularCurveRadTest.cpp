#include "model/CircularCurveRad.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

TEST(CircularCurveRad, ANewOneStoresTheBuiltInLimits)
{
    EXPECT_EQ(Stored(CDSCircularCurveRad()),
              "<Root>\n"
              "  <MaxRad>10000</MaxRad>\n"
              "  <MaxRadCriterion></MaxRadCriterion>\n"
              "  <MinRadCriterion></MinRadCriterion>\n" +
                  TableXml("noSuperelevationMinRad", {{"80", "1000"},
                                                      {"60", "600"},
                                                      {"50", "400"},
                                                      {"40", "300"},
                                                      {"30", "150"},
                                                      {"20", "70"}}) +
                  TableXml("SuperelevationRecommendRad", {{"80", "400"},
                                                          {"60", "300"},
                                                          {"50", "200"},
                                                          {"40", "150"},
                                                          {"30", "85"},
                                                          {"20", "40"}}) +
                  TableXml("SuperelevationMinRad", {{"80", "250"},
                                                    {"60", "150"},
                                                    {"50", "100"},
                                                    {"40", "70"},
                                                    {"30", "40"},
                                                    {"20", "20"}}) +
                  "</Root>\n");
}

TEST(CircularCurveRad, AMissingTableIsEmptyAndAMissingNumberKeepsItsDefault)
{
    const auto loaded = Loaded<CDSCircularCurveRad>(
        "<Root><MaxRadCriterion> a </MaxRadCriterion><MinRadCriterion> b </MinRadCriterion>" +
        TableXml("noSuperelevationMinRad", {{"20", "1"}, {"60", "2"}}) + "</Root>");
    EXPECT_EQ(loaded.MaxRad, 10000);
    EXPECT_EQ(loaded.MaxRadCriterion, L"a");
    EXPECT_EQ(loaded.MinRadCriterion, L"b");
    EXPECT_EQ(loaded.noSuperelevationMinRad, (SpeedToIntValues{{60, 2}, {20, 1}}));
    EXPECT_TRUE(loaded.SuperelevationRecommendRad.IsEmpty());
    EXPECT_TRUE(loaded.SuperelevationMinRad.IsEmpty());
}

TEST(CircularCurveRad, ATieBetweenTwoSpeedsGoesToTheHigher)
{
    int value = 0;
    const CDSCircularCurveRad radii;
    EXPECT_TRUE(QueryValue::QueryIntValBySpeed(&radii.noSuperelevationMinRad, 70,
                                               QueryValue::Nearest, value));
    EXPECT_EQ(value, 1000);
}
