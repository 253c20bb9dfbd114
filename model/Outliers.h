// Values that break the order of their row, as slips of the keyboard do.
#pragma once

#include <cstddef>
#include <vector>

#include "base/Export.h"

namespace designspec {

struct RowValue {
    double at; // its place in the row
    double value;
};

// The places in `row` of the values without which all others rise, or all fall; equal ones may
// stand side by side. The row stands in the order of its places; of several values at one place the
// last one counts. Few values may be out of order, a quarter of them at most, and it must be clear
// which way the row goes: otherwise there are none. Where leaving out one value is as good as
// another, the one is meant without which the row is the smoother. A row of more than 200 values is
// not looked at.
AFX_EXT_API std::vector<std::size_t> Outliers(const std::vector<RowValue>& row);

} // namespace designspec
