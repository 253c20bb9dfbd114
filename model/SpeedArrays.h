// Speed tables asked for many speeds at once.
#pragma once

#include <span>

#include "model/SpeedTable.h"

namespace designspec {

// For each of the speeds (km/h) what QueryIntValBySpeed or QueryDoubleValBySpeed answers in that
// mode, one of the five: `values`, which has as many places, and 1 in `found`. Where there is no
// answer, `none` and 0. `found` may be null.
AFX_EXT_API void QueryMany(const SpeedToIntValues& table, std::span<const std::int32_t> speeds,
                           QueryValue::QueryMode mode, double none, double* values,
                           std::uint8_t* found);
AFX_EXT_API void QueryMany(const SpeedToDoubleValues& table, std::span<const std::int32_t> speeds,
                           QueryValue::QueryMode mode, double none, double* values,
                           std::uint8_t* found);

} // namespace designspec
