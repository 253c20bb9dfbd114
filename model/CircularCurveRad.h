// Radii of circular curves.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// All radii in metres.
class AFX_EXT_CLASS CDSCircularCurveRad {
public:
    std::int32_t MaxRad = 10000;                 // 0: no maximum
    CString MaxRadCriterion;                     // data source of MaxRad
    SpeedToIntValues noSuperelevationMinRad;     // minimum without superelevation
    SpeedToIntValues SuperelevationRecommendRad; // recommended minimum with superelevation
    SpeedToIntValues SuperelevationMinRad;       // minimum with superelevation
    CString MinRadCriterion;                     // data source of the three tables

    CDSCircularCurveRad();
    CDSCircularCurveRad(const CDSCircularCurveRad& other);
    CDSCircularCurveRad& operator=(const CDSCircularCurveRad& other);
    ~CDSCircularCurveRad();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSCircularCurveRad&) const = default;
};
