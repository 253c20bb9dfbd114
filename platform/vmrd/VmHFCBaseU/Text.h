// Text tests of the family's base library.
#pragma once

#include <string_view>

#include "base/Export.h"

// True for one or more ASCII digits with at most one point among or around them: "12", "1.",
// ".5". No sign, no blanks, no exponent, no full-width digits.
AFX_EXT_API bool IsNumericText(std::wstring_view text);
