// The lines of a diagram as they are drawn: no more points than there are pixels for.
#pragma once

#include <QPolygonF>

#include "roadcheck/DiagramScale.h"

namespace roadcheck {

// The part of the lines that is within the scale, cut off at its ends, in pieces that are quick to
// draw: a path that crosses itself a thousand times is not. Of each line there are at most four
// points for each column of pixels: the first, the last, the lowest and the highest, so that it
// looks the same. Lines within one column become an upright one together. `columns` is how many
// columns one unit of the scale has.
std::vector<QPolygonF> ThinnedLines(const std::vector<std::vector<DiagramPoint>>& lines,
                                    const StationScale& along, const ValueScale& up,
                                    double columns);

} // namespace roadcheck
