// Longitudinal gradients.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

// All gradients in percent.
class AFX_EXT_CLASS CDSLonGrad {
public:
    SpeedToDoubleValues MaxGradRecommendedValues; // recommended maximum
    SpeedToDoubleValues MaxGradLimitedValues;     // limit of the maximum
    double MinGrad = 0.3;
    double GradeCompensationOnPlateau = 1.0; // what the maximum is reduced by on plateaus
    double MaxGradeOnSnowFrozenRegion = 6.0; // maximum in snowy and frozen regions
    CString Criterion;                       // data source

    CDSLonGrad();
    CDSLonGrad(const CDSLonGrad& other);
    CDSLonGrad& operator=(const CDSLonGrad& other);
    ~CDSLonGrad();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSLonGrad&) const = default;
};
