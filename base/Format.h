// Texts from printf's formats. In a header of its own: the library behind it is a large one.
#pragma once

#include <string>
#include <string_view>

#include <fmt/printf.h>
#include <fmt/xchar.h>

namespace designspec {

// Format(L"%s(%d)", name, 1).
template <class... Args> std::wstring Format(const wchar_t* format, const Args&... args)
{
    return fmt::sprintf(std::wstring_view(format), args...);
}

} // namespace designspec
