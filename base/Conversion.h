// From one encoding to another, by what the system has for it; linux/ and windows/ have a source
// each.
#pragma once

#include <string>
#include <string_view>

#include "base/Encoding.h"

namespace designspec {

// Append what is converted. False at the first byte that cannot be; what stands before it has been
// appended.
bool ConvertToUtf8(TextEncoding from, std::string_view bytes, std::string& utf8);
bool ConvertFromUtf8(TextEncoding to, std::string_view utf8, std::string& bytes);

} // namespace designspec
