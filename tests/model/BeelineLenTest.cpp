#include "model/BeelineLen.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

TEST(BeelineLen, ANewOneStoresTheThreeFactorsAndEmptySources)
{
    EXPECT_EQ(Stored(CDSBeelineLen()),
              "<Root MaxLen=\"20\" MinLenInOneDir=\"6\" MinLenReverseCurve=\"2\">\n"
              "  <MaxLenCriterion></MaxLenCriterion>\n"
              "  <MinLenInOneDirCriterion></MinLenInOneDirCriterion>\n"
              "  <MinLenReverseCurveCriterion></MinLenReverseCurveCriterion>\n"
              "</Root>\n");
}

TEST(BeelineLen, SourcesLoadWithoutTheBlanksAroundThem)
{
    const auto loaded =
        Loaded<CDSBeelineLen>("<Root><MaxLenCriterion>  5.2.1 a\n</MaxLenCriterion>"
                              "<MinLenInOneDirCriterion>\t5.2.2</MinLenInOneDirCriterion>"
                              "<MinLenReverseCurveCriterion>\xE3\x80\x80"
                              "5.2.3 </MinLenReverseCurveCriterion></Root>");
    EXPECT_EQ(loaded.MaxLenCriterion, L"5.2.1 a");
    EXPECT_EQ(loaded.MinLenInOneDirCriterion, L"5.2.2");
    EXPECT_EQ(loaded.MinLenReverseCurveCriterion, L"5.2.3");
}

TEST(BeelineLen, AFactorOfZeroStaysZero)
{
    const auto loaded = Loaded<CDSBeelineLen>("<Root MaxLen='0' MinLenReverseCurve='2.5'/>");
    EXPECT_EQ(loaded.MaxLen, 0);
    EXPECT_EQ(loaded.MinLenReverseCurve, 2.5);
    EXPECT_EQ(Loaded<CDSBeelineLen>(Stored(loaded)), loaded);
}

TEST(BeelineLen, WhatIsMissingKeepsItsDefault)
{
    EXPECT_EQ(Loaded<CDSBeelineLen>("<Root/>"), CDSBeelineLen());
}

TEST(BeelineLen, FactorsAreAttributesAndNothingElse)
{
    const auto loaded = Loaded<CDSBeelineLen>("<Root><MaxLen>7</MaxLen></Root>");
    EXPECT_EQ(loaded.MaxLen, 20);
}
