// Lengths of horizontal curves, and of those with a small deflection angle.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// Lengths in metres.
class AFX_EXT_CLASS CDSCurveMinLen {
public:
    SpeedToIntValues HorizontalCurveMinLen; // the whole curve, its transitions included
    SpeedToIntValues CircularCurveMinLen;   // its circular part
    CString Criterion;                      // data source

    CDSCurveMinLen();
    CDSCurveMinLen(const CDSCurveMinLen& other);
    CDSCurveMinLen& operator=(const CDSCurveMinLen& other);
    ~CDSCurveMinLen();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSCurveMinLen&) const = default;
};

// A curve with a deflection angle of at most 7 degrees must be at least c / angle metres long,
// the angle in degrees and taken as 2 below that.
class AFX_EXT_CLASS CSmallAngleCurveMinLen {
public:
    SpeedToIntValues HorizontalCurveMinLen; // the constant c
    CString Criterion;                      // data source

    CSmallAngleCurveMinLen();
    CSmallAngleCurveMinLen(const CSmallAngleCurveMinLen& other);
    CSmallAngleCurveMinLen& operator=(const CSmallAngleCurveMinLen& other);
    ~CSmallAngleCurveMinLen();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CSmallAngleCurveMinLen&) const = default;
};
