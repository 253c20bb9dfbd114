// Curves: runs of spirals and arcs that turn one way.
#pragma once

#include <vector>

#include "roads/Alignment.h"

namespace roadcheck {

struct Curve {
    size_t first = 0, last = 0; // elements of the plan
    Turn turn = Turn::None;
    double from = 0, to = 0; // m along
    double arcs = 0;         // length of its arcs together, m
    double deflection = 0;   // degrees
    int index = 0;           // from 1

    double Length() const { return to - from; }
};

// Maximal ones, in order of place.
std::vector<Curve> CurvesOf(const std::vector<PlanElement>& plan);

} // namespace roadcheck
