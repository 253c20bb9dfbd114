// Lengths of straight lines (tangents) of the horizontal alignment.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// Each limit is a factor: the length in metres is factor x design speed in km/h. A factor of 0
// means that the limit does not apply.
class AFX_EXT_CLASS CDSBeelineLen {
public:
    double MaxLen = 20.0;        // longest straight line
    CString MaxLenCriterion;     // data source of MaxLen, as for the other two
    double MinLenInOneDir = 6.0; // shortest between two curves that turn the same way
    CString MinLenInOneDirCriterion;
    double MinLenReverseCurve = 2.0; // shortest between two curves that turn opposite ways
    CString MinLenReverseCurveCriterion;

    CDSBeelineLen();
    CDSBeelineLen(const CDSBeelineLen& other);
    CDSBeelineLen& operator=(const CDSBeelineLen& other);
    ~CDSBeelineLen();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSBeelineLen&) const = default;
};
