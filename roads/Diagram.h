// Diagrams over the station: what a road has and the band that its limits leave.
#pragma once

#include "roads/RoadCheck.h"

namespace roadcheck {

struct DiagramPoint {
    double at = 0; // m along
    double value = 0;
};

// Where values may lie, on one stretch.
struct DiagramBand {
    double from = 0, to = 0; // m along
    double low = 0, high = 0;
};

struct Diagram {
    const wchar_t* title = L"";
    const wchar_t* unit = L"";
    std::vector<std::vector<DiagramPoint>> lines; // each in order of place
    std::vector<DiagramBand> bands;
    std::vector<size_t> findings; // those of the report that belong on it

    // What the value axis must show: all values and bands, and 0.
    double Low() const;
    double High() const;
};

// Plan curvature (1/R, right is positive), gradient and superelevation; those of which the road's
// file gives something.
AFX_EXT_API std::vector<Diagram> DiagramsOf(const Alignment& road,
                                            const CDesignSpecification& specification,
                                            const CheckOptions& options,
                                            const AlignmentReport& report);

} // namespace roadcheck
