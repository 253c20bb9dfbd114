#include "model/TransitionCurveMinLen.h"

#include <gtest/gtest.h>

#include "tests/support/Exchanged.h"

namespace {

const std::string kMinLen = TableXml(
    "MinLen", {{"80", "70"}, {"60", "50"}, {"50", "45"}, {"40", "35"}, {"30", "25"}, {"20", "20"}});
const std::string kNoTCByMinRad =
    TableXml("NoTCByMinRad", {{"80", "2000"}, {"60", "1000"}, {"50", "700"}, {"40", "500"}});

} // namespace

TEST(TransitionCurveMinLen, ANewOneStoresFourRadii)
{
    EXPECT_EQ(Stored(CTransitionCurveMinLen()), "<Root>\n"
                                                "  <NoTCBySuperelevation>0</NoTCBySuperelevation>\n"
                                                "  <Criterion></Criterion>\n" +
                                                    kMinLen + kNoTCByMinRad + "</Root>\n");
}

TEST(TransitionCurveMinLen, StoresNoRadiiWhenSuperelevationDecides)
{
    CTransitionCurveMinLen criterion;
    criterion.NoTCBySuperelevation = 1;
    EXPECT_EQ(Stored(criterion), "<Root>\n"
                                 "  <NoTCBySuperelevation>1</NoTCBySuperelevation>\n"
                                 "  <Criterion></Criterion>\n" +
                                     kMinLen + "</Root>\n");
    criterion.NoTCBySuperelevation = -5; // true, too
    EXPECT_NE(Stored(criterion).find("<NoTCBySuperelevation>1<"), std::string::npos);
}

TEST(TransitionCurveMinLen, LoadsNoRadiiWhenSuperelevationDecidesEvenIfTheyStandThere)
{
    const auto loaded = Loaded<CTransitionCurveMinLen>(
        "<Root><NoTCBySuperelevation>1</NoTCBySuperelevation><Criterion> a </Criterion>" + kMinLen +
        kNoTCByMinRad + "</Root>");
    EXPECT_EQ(loaded.NoTCBySuperelevation, 1);
    EXPECT_TRUE(loaded.NoTCByMinRad.IsEmpty());
    EXPECT_EQ(loaded.MinLen, CTransitionCurveMinLen().MinLen);
    EXPECT_EQ(loaded.Criterion, L"a");
}

TEST(TransitionCurveMinLen, LoadsTheRadiiOtherwise)
{
    const auto loaded = Loaded<CTransitionCurveMinLen>("<Root>" + kNoTCByMinRad + "</Root>");
    EXPECT_EQ(loaded.NoTCBySuperelevation, 0);
    EXPECT_EQ(loaded.NoTCByMinRad, CTransitionCurveMinLen().NoTCByMinRad);
    EXPECT_TRUE(loaded.MinLen.IsEmpty());
}
