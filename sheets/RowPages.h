// The three pages that hold rows within rows.
#pragma once

#include "sheets/PageReading.h"

namespace designspec {

// Null for the others.
std::unique_ptr<PageReading> MakeRowPage(const CriterionInfo& criterion);

} // namespace designspec
