// A road as its file gives it: plan, profile, cross slopes, stations and speeds of one alignment.
// Lengths are metres, gradients and cross slopes percent, speeds km/h. Places are metres along the
// alignment from its start; the stations that people use are made of them by Stationing.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "base/Export.h"
#include "base/Problem.h"
#include "roads/Stationing.h"

namespace roadcheck {

// What is shorter than this, m, is not there: straights, curves and spirals that a program left
// over, and differences between what a file says twice.
inline constexpr double kNoLength = 0.001;

inline constexpr double kStraight = std::numeric_limits<double>::infinity(); // radius of a straight

enum class Turn { None = 0, Left = -1, Right = 1 };

enum class PlanKind {
    Line,
    Arc,
    Spiral, // a clothoid
    Other,  // has a length; its shape is not known
};

struct PlanElement {
    PlanKind kind = PlanKind::Line;
    double from = 0;                // m along
    double length = 0;              // m, above kNoLength
    double radiusStart = kStraight; // m, above 0
    double radiusEnd = kStraight;   // m, above 0; that of an arc is radiusStart
    Turn turn = Turn::None;         // None for lines and others
    int index = 0;                  // among all elements of the alignment in its file, from 1
    int line = 0;                   // of the file
    std::wstring why;               // Other: why its shape is not known

    double To() const { return from + length; }
    bool IsCurved() const { return kind == PlanKind::Arc || kind == PlanKind::Spiral; }
    // The angle by which the direction changes along it, degrees, without sign.
    AFX_EXT_API double Deflection() const;
};

// A vertical point of intersection (变坡点).
struct VerticalPoint {
    double at = 0;        // m along
    double elevation = 0; // m
    double length = 0;    // of the vertical curve, m; 0: there is none
    double radius = 0;    // of the vertical curve, m; 0: there is none
    int index = 0;        // in its profile in the file, from 1
    int line = 0;
};

// Between two such points.
struct Grade {
    double from = 0, to = 0; // m along
    double gradient = 0;     // %, rising is positive
    int index = 0;           // from 1

    double Length() const { return to - from; }
};

// A cross slope that the file gives; between two of one stretch it changes in proportion.
struct CrossSlope {
    double at = 0; // m along
    double slope =
        0; // of the outer lane, %; superelevation is positive whichever way the road turns
};
using CrossSlopes = std::vector<CrossSlope>; // of one curve, in order of place

// A lane that the file gives; lanes of one side stand beside one another.
struct Lane {
    double from = 0, to = 0; // m along
    double width = 0;        // m
    Turn side = Turn::Right;
};

struct DesignSpeed {
    double from = 0, to = 0; // m along
    int speed = 0;           // km/h
};

struct Alignment {
    std::wstring name;
    int line = 0; // of the file
    double length = 0;
    Stationing stations;
    std::vector<PlanElement> plan;            // without gaps, in order of place
    std::wstring profile;                     // name of the one that was read
    std::vector<VerticalPoint> vertical;      // in order of place
    std::vector<CrossSlopes> superelevations; // none empty, in order of their first place
    std::vector<Lane> lanes;
    std::vector<DesignSpeed> speeds;

    AFX_EXT_API std::vector<Grade> Grades() const;
};

// What a file holds, and what is wrong or odd in it. A problem that is an error means that the file
// could not be read to its end, or holds no alignment.
struct RoadFile {
    std::wstring path;
    std::vector<Alignment> alignments;
    designspec::Problems problems;
};

} // namespace roadcheck
