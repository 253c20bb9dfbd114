// Lengths of transition curves, and when a circular curve may do without one.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

class AFX_EXT_CLASS CTransitionCurveMinLen {
public:
    SpeedToIntValues MinLen; // minimum length, m
    CString Criterion;       // data source
    // True: no transition curve is needed where the curve has no superelevation. False:
    // NoTCByMinRad decides.
    BOOL NoTCBySuperelevation = 0;
    // Radius (m) from which on none is needed. Has no place in the file, and is empty after
    // loading, while NoTCBySuperelevation is true.
    SpeedToIntValues NoTCByMinRad;

    CTransitionCurveMinLen();
    CTransitionCurveMinLen(const CTransitionCurveMinLen& other);
    CTransitionCurveMinLen& operator=(const CTransitionCurveMinLen& other);
    ~CTransitionCurveMinLen();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CTransitionCurveMinLen&) const = default;
};
