// Lengths of grades: stretches of one gradient between two vertical points of intersection.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

class AFX_EXT_CLASS CDSLonGradMinLen {
public:
    SpeedToIntValues MinLens; // minimum length, m
    CString Criterion;        // data source

    CDSLonGradMinLen();
    CDSLonGradMinLen(const CDSLonGradMinLen& other);
    CDSLonGradMinLen& operator=(const CDSLonGradMinLen& other);
    ~CDSLonGradMinLen();
    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSLonGradMinLen&) const = default;
};

// The maximum lengths at one gradient.
struct GradientRow {
    double Grad = 0;          // %
    SpeedToIntValues lengths; // m, by design speed

    static std::span<const designspec::Field> Fields();
    bool operator==(const GradientRow&) const = default;
};

class AFX_EXT_CLASS CDSLonGradMaxLen {
public:
    GrowArray<GradientRow> rows; // kept in ascending order of gradient
    CString Criterion;           // data source

    CDSLonGradMaxLen();
    CDSLonGradMaxLen(const CDSLonGradMaxLen& other);
    CDSLonGradMaxLen& operator=(const CDSLonGradMaxLen& other);
    ~CDSLonGradMaxLen();

    // The maximum grade length (m) at a gradient (%) and a design speed (km/h). A row within 0.01
    // of the gradient answers by speed alone. Between two rows, Nearest takes the nearer one (the
    // steeper at equal distance), Upper the steeper, Lower the gentler, Interpolate both, and
    // Exact and any other mode have no answer. Beyond the rows the end one answers, save that
    // Lower has no answer below them and Upper none above. False leaves `value` as it was.
    //
    // Interpolate gives the steeper row's length at the gentler gradient and the other way round:
    // callers rely on it.
    bool QueryVal(double grad, int speed, QueryValue::QueryMode mode, int& value) const;

    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSLonGradMaxLen&) const = default;

private:
    AFX_EXT_PRIVATE bool QueryBetween(const GradientRow& gentler, const GradientRow& steeper,
                                      double grad, int speed, QueryValue::QueryMode mode,
                                      int& value) const;
    AFX_EXT_PRIVATE void TidyRows();
};
