#include "roads/CheckOptions.h"

#include <algorithm>

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

} // namespace roadcheck
