// Widening of a lane on circular curves.
#pragma once

#include "base/Export.h"

#include "model/Field.h"

struct Widening {
    CString carType;     // name of the design vehicle
    double widening = 0; // m

    static std::span<const designspec::Field> Fields();
    bool operator==(const Widening&) const = default;
};

struct WideningRange {
    std::int32_t min = 0; // radius, m
    std::int32_t max = 0; // radius, m
    GrowArray<Widening> widenings;

    static std::span<const designspec::Field> Fields();
    bool operator==(const WideningRange&) const = default;
};

class AFX_EXT_CLASS CDSCurveWidening {
public:
    GrowArray<WideningRange> ranges;
    // True: a range holds min < radius <= max; false: min <= radius < max.
    BOOL IsGMinAndLEMaxMode = 1;
    CString Criterion; // data source

    CDSCurveWidening();
    CDSCurveWidening(const CDSCurveWidening& other);
    CDSCurveWidening& operator=(const CDSCurveWidening& other);
    ~CDSCurveWidening();

    // The widening (m) of a lane for a design vehicle, whose name is compared ignoring case, on a
    // curve of `radius` (m). Returns 0 when `widening` was written, otherwise:
    //   -1  the radius lies in a range that has no entry for the vehicle
    //   -2  the radius is at or above the largest max
    //   -3  the radius is at or below the smallest min
    //   -4  no ranges, a gap between ranges, or a largest max of 0
    int QueryWidening(const wchar_t* carType, int radius, double& widening) const;

    void DoPropExchange(CXTPPropExchange* pPX);
    static std::span<const designspec::Field> Fields();
    bool operator==(const CDSCurveWidening&) const = default;

private:
    AFX_EXT_PRIVATE bool Holds(const WideningRange& range, int radius) const;
    AFX_EXT_PRIVATE int WhyNoRange(int radius) const;
};
