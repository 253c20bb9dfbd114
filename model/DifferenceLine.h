// A list of differences in a line, as where many such lists stand below each other.
#pragma once

#include "model/Differences.h"

namespace designspec {

// 设超高最小半径 车速 60 km/h: 250 m → 300 m; … 共 7 处. Tells the first `most`, long texts in
// part; empty when there are none.
AFX_EXT_API CString InOneLine(const std::vector<Difference>& differences, std::size_t most = 3);

} // namespace designspec
