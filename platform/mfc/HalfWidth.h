// Full-width signs, as a Chinese input method leaves them, turned into the ASCII ones that
// numbers are read from.
#pragma once

#include "platform/mfc/Text.h"

// Digits, blank, point, comma, tilde (also the wave dash) and solidus; everything else stays.
AFX_EXT_API CString ToHalfWidth(std::wstring_view text);
