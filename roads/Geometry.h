// Plan geometry from points, where a file leaves out what they give.
#pragma once

#include <optional>

#include "roads/Alignment.h"

namespace roadcheck {

struct PlanPoint {
    double east = 0, north = 0; // m
};

double Distance(const PlanPoint& a, const PlanPoint& b);

// Which way an arc turns that goes the shorter way from start to end; None when the three lie on
// one line.
Turn TurnOfArc(const PlanPoint& start, const PlanPoint& center, const PlanPoint& end);
// The length of the arc about the centre that turns that way, m. A full circle when start and end
// are one.
double ArcLength(const PlanPoint& start, const PlanPoint& center, const PlanPoint& end, Turn turn);
// The length of the arc over a chord that goes the shorter way, m; nothing when the chord is longer
// than twice the radius.
std::optional<double> ArcLengthOfChord(double chord, double radius);

// The distance of both ends of a clothoid whose curvature goes from `start` to `end`, 1/m. From the
// integral of its direction, which is a polynomial of the second degree of the length.
double ClothoidChord(double length, double start, double end);
// The length of the clothoid between both curvatures that has that chord, m; nothing when there is
// none that turns by less than half a circle.
std::optional<double> ClothoidLengthOfChord(double chord, double start, double end);

} // namespace roadcheck
