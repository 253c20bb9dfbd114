// Full-width signs, as a Chinese input method leaves them, turned into the ASCII ones that
// numbers are read from.
#pragma once

#include <string>

namespace designspec {

// Digits, blank, point, comma, tilde (also the wave dash) and solidus; everything else stays.
std::wstring ToHalfWidth(std::wstring_view text);

} // namespace designspec
