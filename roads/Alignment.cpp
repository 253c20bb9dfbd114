#include "roads/Alignment.h"

#include <numbers>

namespace roadcheck {

double PlanElement::Deflection() const
{
    if (!IsCurved()) return 0;
    // Curvature grows in proportion to the length of a clothoid, so the mean of both ends counts.
    return length * (1 / radiusStart + 1 / radiusEnd) / 2 * 180 / std::numbers::pi;
}

std::vector<Grade> Alignment::Grades() const
{
    std::vector<Grade> grades;
    for (size_t i = 1; i < vertical.size(); ++i) {
        const VerticalPoint &a = vertical[i - 1], &b = vertical[i];
        grades.push_back(
            {a.at, b.at, (b.elevation - a.elevation) / (b.at - a.at) * 100, static_cast<int>(i)});
    }
    return grades;
}

} // namespace roadcheck
