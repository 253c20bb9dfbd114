#include "roads/Curves.h"

#include <gtest/gtest.h>

#include "tests/roads/RoadMaking.h"

namespace roadcheck {

TEST(Curves, AreRunsThatTurnOneWayWithoutAStraight)
{
    const auto plan = RoadOf({Line(100), Spiral(kStraight, 200, 40), Arc(200, 50),
                              Spiral(200, kStraight, 40), Spiral(kStraight, 300, 60, Turn::Left),
                              Arc(300, 70, Turn::Left), Line(10), Arc(300, 20, Turn::Left)})
                          .plan;
    const auto curves = CurvesOf(plan);
    ASSERT_EQ(curves.size(), 3U);
    EXPECT_EQ(curves[0].first, 1U);
    EXPECT_EQ(curves[0].last, 3U);
    EXPECT_EQ(curves[0].from, 100);
    EXPECT_EQ(curves[0].to, 230);
    EXPECT_EQ(curves[0].arcs, 50);
    // A clothoid turns by L / 2R, an arc by L / R.
    EXPECT_NEAR(curves[0].deflection, (50.0 / 200 + 80.0 / 400) * 180 / 3.14159265358979, 1e-9);
    EXPECT_EQ(curves[1].turn, Turn::Left);
    EXPECT_EQ(curves[1].Length(), 130);
    EXPECT_EQ(curves[2].index, 3);
}

TEST(Curves, EndAtWhatHasNoKnownShape)
{
    auto pieces = RoadOf({Arc(200, 50), Line(1), Arc(200, 50)}).plan;
    pieces[1].kind = PlanKind::Other;
    EXPECT_EQ(CurvesOf(pieces).size(), 2U);
}

} // namespace roadcheck
