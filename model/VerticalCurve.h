// Vertical curves: their radii and lengths.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// All in metres.
class AFX_EXT_CLASS CDSVerticalCurveMinRadAndLen {
public:
    SpeedToIntValues ConvexGeneralMinRad;  // crest curves, general minimum radius
    SpeedToIntValues ConvexLimitMinRad;    // crest curves, limit of the minimum radius
    SpeedToIntValues ConcaveGeneralMinRad; // sag curves, general minimum radius
    SpeedToIntValues ConcaveLimitMinRad;   // sag curves, limit of the minimum radius
    SpeedToIntValues MinLens;              // minimum length
    CString Criterion;                     // data source

    CDSVerticalCurveMinRadAndLen();
    CDSVerticalCurveMinRadAndLen(const CDSVerticalCurveMinRadAndLen& other);
    CDSVerticalCurveMinRadAndLen& operator=(const CDSVerticalCurveMinRadAndLen& other);
    ~CDSVerticalCurveMinRadAndLen();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSVerticalCurveMinRadAndLen&) const = default;
};
