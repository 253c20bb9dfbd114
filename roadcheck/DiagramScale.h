// From places and values to pixels.
#pragma once

#include "roads/Diagram.h"

namespace roadcheck {

// Places along the road, m, over pixels from left to right.
struct StationScale {
    double from = 0, to = 1;
    double left = 0, right = 1;

    double PixelsPerMetre() const { return (right - left) / (to - from); }
    double X(double at) const { return left + (at - from) * PixelsPerMetre(); }
    double At(double x) const { return from + (x - left) / PixelsPerMetre(); }
};

// Values of one diagram; the larger are on top.
struct ValueScale {
    ValueSpan span;
    double top = 0, bottom = 1;

    double Y(double value) const
    {
        return top + (bottom - top) * (span.high - value) / (span.high - span.low);
    }
};

} // namespace roadcheck
