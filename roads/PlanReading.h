// The plan of an alignment: what its file leaves out is filled in from points and neighbours, what
// programs cut into pieces is put together again.
#pragma once

#include "roads/RoadSource.h"

namespace roadcheck {

// The elements in order of place, without gaps: where the file leaves one, an element of kind Other
// stands. `start` is the station at which the file's stations begin, m. What is odd or missing is
// told to the source.
std::vector<PlanElement> ReadPlan(const AlignmentRecord& record, const RoadSource& source,
                                  double start);

} // namespace roadcheck
