#include "roads/Curves.h"

namespace roadcheck {

std::vector<Curve> CurvesOf(const std::vector<PlanElement>& plan)
{
    std::vector<Curve> curves;
    for (size_t i = 0; i < plan.size(); ++i) {
        const PlanElement& element = plan[i];
        if (!element.IsCurved()) continue;
        const bool goesOn =
            !curves.empty() && curves.back().last + 1 == i && curves.back().turn == element.turn;
        if (!goesOn)
            curves.push_back({.first = i,
                              .last = i,
                              .turn = element.turn,
                              .from = element.from,
                              .to = element.from,
                              .index = static_cast<int>(curves.size()) + 1});
        Curve& curve = curves.back();
        curve.last = i;
        curve.to = element.To();
        curve.deflection += element.Deflection();
        if (element.kind == PlanKind::Arc) curve.arcs += element.length;
    }
    return curves;
}

} // namespace roadcheck
