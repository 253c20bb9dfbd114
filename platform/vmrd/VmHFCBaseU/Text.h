// Text tests of the family's base library.
#pragma once

#include <string_view>

#include "platform/mfc/Export.h"
#include "platform/mfc/String.h"

// True for one or more ASCII digits with at most one point among or around them: "12", "1.",
// ".5". No sign, no blanks, no exponent, no full-width digits.
AFX_EXT_API bool IsNumericText(std::wstring_view text);

// The parts of `text` between any of the characters of `separators`; empty parts are left out.
AFX_EXT_API CStringArray SplitText(std::wstring_view text, std::wstring_view separators);
