// The profile of an alignment: its points of intersection and the curves on them.
#pragma once

#include "roads/RoadSource.h"

namespace roadcheck {

// The points in order of place; a point at which the gradient does not change is none. `start` is
// the station at which the file's stations begin, m. What is odd or missing is told to the source.
std::vector<VerticalPoint> ReadProfile(const ProfileRecord& record, const RoadSource& source,
                                       double start);

} // namespace roadcheck
