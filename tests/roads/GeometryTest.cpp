#include "roads/Geometry.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

namespace roadcheck {

using std::numbers::pi;

TEST(Geometry, KnowsWhichWayAnArcTurns)
{
    const PlanPoint west = {-1, 0}, middle = {0, 0}, north = {0, 1}, east = {1, 0};
    EXPECT_EQ(TurnOfArc(west, middle, north), Turn::Right);
    EXPECT_EQ(TurnOfArc(north, middle, west), Turn::Left);
    EXPECT_EQ(TurnOfArc(west, middle, east), Turn::None);
    EXPECT_NEAR(ArcLength(west, middle, north, Turn::Right), pi / 2, 1e-12);
    EXPECT_NEAR(ArcLength(west, middle, north, Turn::Left), 3 * pi / 2, 1e-12);
    EXPECT_NEAR(ArcLength(west, middle, west, Turn::Left), 2 * pi, 1e-12);
}

TEST(Geometry, KnowsTheArcOverAChord)
{
    EXPECT_NEAR(*ArcLengthOfChord(1, 1), pi / 3, 1e-12);
    EXPECT_NEAR(*ArcLengthOfChord(2, 1), pi, 1e-12);
    EXPECT_FALSE(ArcLengthOfChord(2.1, 1));
}

// The integral of the direction of a clothoid in series, at R = 200, L = 100:
// x = L (1 - t^2/10 + t^4/216 - t^6/9360), y = L (t/3 - t^3/42 + t^5/1320), t = L/2R = 0.25.
TEST(Geometry, KnowsTheChordOfAClothoidAndBack)
{
    const double t = 0.25;
    const double x = 100 * (1 - t * t / 10 + std::pow(t, 4) / 216 - std::pow(t, 6) / 9360);
    const double y = 100 * (t / 3 - std::pow(t, 3) / 42 + std::pow(t, 5) / 1320);
    const double chord = ClothoidChord(100, 0, 1.0 / 200);
    EXPECT_NEAR(chord, std::hypot(x, y), 1e-6);
    EXPECT_NEAR(ClothoidChord(100, 1.0 / 200, 0), chord, 1e-9);
    EXPECT_NEAR(*ClothoidLengthOfChord(chord, 0, 1.0 / 200), 100, 1e-6);
    // One of a constant curvature is an arc.
    EXPECT_NEAR(ClothoidChord(pi, 1, 1), 2, 1e-9);
    EXPECT_FALSE(ClothoidLengthOfChord(1000, 0, 1.0 / 100));
}

} // namespace roadcheck
