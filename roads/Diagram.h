// Diagrams over the station: what a road has and the band that its limits leave.
#pragma once

#include <optional>

#include "roads/RoadCheck.h"

namespace roadcheck {

struct DiagramPoint {
    double at = 0; // m along
    double value = 0;
};

// The value at a place between two points, which are apart.
AFX_EXT_API double Between(const DiagramPoint& a, const DiagramPoint& b, double at);

// Where values may lie, on one stretch.
struct DiagramBand {
    double from = 0, to = 0; // m along
    double low = 0, high = 0;
};

// Values from low to high, which is more.
struct ValueSpan {
    double low = 0, high = 0;
};

struct Diagram {
    const wchar_t* title = L"";
    const wchar_t* unit = L"";
    std::vector<std::vector<DiagramPoint>> lines; // each in order of place
    std::vector<DiagramBand> bands;               // in order of place, without overlaps
    std::vector<size_t> findings;                 // those of the report that belong on it

    // What the value axis must show: all values and bands, and 0.
    AFX_EXT_API double Low() const;
    AFX_EXT_API double High() const;
    // What it shows: a little more.
    AFX_EXT_API ValueSpan Span() const;

    // The value at a place; of two at one place the latter. Nothing where there is none.
    AFX_EXT_API std::optional<double> ValueAt(double at) const;
    // Null where there is no limit.
    AFX_EXT_API const DiagramBand* BandAt(double at) const;
};

// Plan curvature (1/R, right is positive), gradient and superelevation; those of which the road's
// file gives something.
AFX_EXT_API std::vector<Diagram> DiagramsOf(const Alignment& road,
                                            const CDesignSpecification& specification,
                                            const CheckOptions& options,
                                            const AlignmentReport& report);

} // namespace roadcheck
