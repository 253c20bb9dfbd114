// The Chinese national encoding, for a system that has none that can be relied on.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// Takes the first character: how many bytes it has, 0 when there is none, -1 when the bytes end
// within it.
int TakeGb18030(std::string_view bytes, char32_t& code);
// False when that is no character.
bool AppendGb18030(char32_t code, std::string& bytes);

} // namespace designspec
