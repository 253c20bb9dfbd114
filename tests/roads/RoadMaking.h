// Roads made piece by piece, and what checking them tells.
#pragma once

#include <algorithm>
#include <cmath>

#include "roads/RoadCheck.h"

namespace roadcheck {

inline PlanElement Line(double length)
{
    PlanElement line;
    line.length = length;
    return line;
}

inline PlanElement Arc(double radius, double length, Turn turn = Turn::Right)
{
    PlanElement arc;
    arc.kind = PlanKind::Arc;
    arc.length = length;
    arc.radiusStart = arc.radiusEnd = radius;
    arc.turn = turn;
    return arc;
}

// From one radius to another; kStraight for a straight.
inline PlanElement Spiral(double from, double to, double length, Turn turn = Turn::Right)
{
    PlanElement spiral = Arc(from, length, turn);
    spiral.kind = PlanKind::Spiral;
    spiral.radiusEnd = to;
    return spiral;
}

// Pieces one behind the other.
inline Alignment RoadOf(std::vector<PlanElement> pieces)
{
    Alignment road;
    road.name = L"路";
    for (PlanElement& piece : pieces) {
        piece.from = road.length;
        piece.index = static_cast<int>(&piece - pieces.data()) + 1;
        road.length += piece.length;
    }
    road.plan = std::move(pieces);
    return road;
}

// A curve of that radius with transitions, between long straights.
inline Alignment CurveRoad(double radius, double arc = 400, double spiral = 100)
{
    return RoadOf({Line(500), Spiral(kStraight, radius, spiral), Arc(radius, arc),
                   Spiral(radius, kStraight, spiral), Line(500)});
}

struct ProfilePiece {
    double length = 0;   // m, to the next point
    double gradient = 0; // %
    double curve = 0;    // length of the vertical curve at its end, m
};

// A profile without a plan; the curves are parabolas.
inline Alignment ProfileRoad(const std::vector<ProfilePiece>& pieces)
{
    Alignment road;
    road.vertical.push_back({.at = 0, .elevation = 100, .index = 1});
    for (size_t i = 0; i < pieces.size(); ++i) {
        VerticalPoint point = road.vertical.back();
        point.at += pieces[i].length;
        point.elevation += pieces[i].length * pieces[i].gradient / 100;
        point.index = static_cast<int>(i) + 2;
        point.length = point.radius = 0;
        if (i + 1 < pieces.size() && pieces[i].curve > 0) {
            point.length = pieces[i].curve;
            point.radius =
                point.length / std::abs(pieces[i + 1].gradient - pieces[i].gradient) * 100;
        }
        road.vertical.push_back(point);
    }
    road.length = road.vertical.back().at;
    return road;
}

inline CheckOptions AtSpeed(int speed)
{
    CheckOptions options;
    options.speeds.push_back({{}, speed});
    return options;
}

// The findings of one rule.
inline std::vector<Finding> FindingsOf(std::wstring_view rule, const Alignment& road,
                                       const CheckOptions& options,
                                       const CDesignSpecification& specification = {})
{
    std::vector<Finding> found = CheckAlignment(road, specification, options).findings;
    std::erase_if(found, [&](const Finding& one) { return one.rule->id != rule; });
    return found;
}

inline std::vector<Unchecked> UncheckedOf(std::wstring_view rule, const Alignment& road,
                                          const CheckOptions& options,
                                          const CDesignSpecification& specification = {})
{
    std::vector<Unchecked> found = CheckAlignment(road, specification, options).unchecked;
    std::erase_if(found, [&](const Unchecked& one) { return !one.rule || one.rule->id != rule; });
    return found;
}

} // namespace roadcheck
