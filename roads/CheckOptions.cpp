#include "roads/CheckOptions.h"

#include <algorithm>

#include "base/Format.h"
#include "base/NoCase.h"

using namespace designspec;

namespace roadcheck {

std::vector<CString> VehiclesOf(const CDesignSpecification& specification)
{
    std::vector<CString> vehicles;
    for (const WideningRange& range : specification.CurveWidening.ranges)
        for (const Widening& one : range.widenings)
            if (std::find(vehicles.begin(), vehicles.end(), one.carType) == vehicles.end())
                vehicles.push_back(one.carType);
    return vehicles;
}

CString OptionsProblem(const CheckOptions& options, const CDesignSpecification& specification)
{
    for (const SpeedChoice& choice : options.speeds)
        if (choice.speed < 1 || choice.speed > 1000)
            return Format(L"设计车速“%d”不在 1 到 1000 km/h 之间", choice.speed);
    if (options.roadType < 0 || options.roadType >= CDSMaxResultantGrad::kRoadTypes)
        return L"没有这种道路类型";
    if (options.car.empty()) return {};
    CString choices;
    for (const CString& car : VehiclesOf(specification)) {
        if (EqualNoCase(car, options.car)) return {};
        choices += L" " + car;
    }
    return Format(L"没有车型“%s”。可选:%s", options.car, choices);
}

} // namespace roadcheck
