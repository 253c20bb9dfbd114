// Maximum superelevation and its runoff.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// A runoff ratio is the n of 1 : n.
class AFX_EXT_CLASS CDSMaxSuperElevation {
public:
    SpeedToIntValues MaxSuperElev;        // %
    SpeedToIntValues GradualChangeRatio1; // runoff, axis of rotation on the centreline
    SpeedToIntValues GradualChangeRatio2; // runoff, axis of rotation on the pavement edge
    std::int32_t MaxSuperElevOnSFR = 0;   // % in snowy and frozen regions; 0: not set
    CString Criterion;                    // data source

    CDSMaxSuperElevation();
    CDSMaxSuperElevation(const CDSMaxSuperElevation& other);
    CDSMaxSuperElevation& operator=(const CDSMaxSuperElevation& other);
    ~CDSMaxSuperElevation();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSMaxSuperElevation&) const = default;
};
