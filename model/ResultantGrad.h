// Resultant gradients: longitudinal and cross slope combined.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// All gradients in percent.
class AFX_EXT_CLASS CDSMaxResultantGrad {
public:
    // Each name is also the key of its table in files.
    enum RoadType : int {
        CityRoad = 0,
        FreeWay = 1,
        HighwayClass1 = 2,
        HighwayClass2 = 3,
        HighwayClass3 = 4,
        HighwayClass4 = 5,
        OtherRoad = 6,
    };
    static constexpr int kRoadTypes = 7;

    SpeedToDoubleValues tables[kRoadTypes]; // by RoadType; only CityRoad is filled at first
    double MaxResultantGradOnSnowFrozenRegion = 6.0;
    CString Criterion; // data source

    CDSMaxResultantGrad();
    CDSMaxResultantGrad(const CDSMaxResultantGrad& other);
    CDSMaxResultantGrad& operator=(const CDSMaxResultantGrad& other);
    ~CDSMaxResultantGrad();
    // The table of a road type, which must be one of the seven: the index is not checked.
    SpeedToDoubleValues& Item(RoadType type);
    const SpeedToDoubleValues& Item(RoadType type) const;

    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSMaxResultantGrad&) const = default;
};

namespace designspec {

// What the road type is called: 城市道路 … 其它道路; empty for any other value.
AFX_EXT_API const wchar_t* RoadTypeLabel(int type);

} // namespace designspec
