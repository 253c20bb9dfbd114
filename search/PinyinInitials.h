// The letters with which Chinese characters begin when they are spoken: 超 is said chao.
#pragma once

#include <cstdint>

namespace designspec {

// One bit for each letter, the lowest for a; several where a character is read in several ways (长:
// chang, zhang). 0 for what is no Chinese character. For one thread at a time.
std::uint32_t PinyinInitials(wchar_t c);

} // namespace designspec
