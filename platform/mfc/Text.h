// Wide text as the module uses it. CString is std::wstring; what that type lacks stands
// here as free functions.
//
// File names and file contents reach the system as UTF-8. A byte that is not UTF-8 becomes a
// lone low surrogate (U+DC80..U+DCFF) and turns into the same byte on the way back, so any
// file name survives the round trip.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <fmt/printf.h>
#include <fmt/xchar.h>

#include "platform/mfc/Export.h"

using CString = std::wstring;
using CStringArray = std::vector<CString>;
template <class T> using CArray = std::vector<T>;

AFX_EXT_API CString ToWide(std::string_view utf8);
AFX_EXT_API std::string ToUtf8(std::wstring_view text);

// True when `bytes` are UTF-8 throughout; otherwise `offset` is where the first wrong byte is.
AFX_EXT_API bool IsUtf8(std::string_view bytes, size_t& offset);

// White space (Unicode included) cut off on the left, the right, or both sides.
AFX_EXT_API CString TrimLeft(std::wstring_view text);
AFX_EXT_API CString TrimRight(std::wstring_view text);
AFX_EXT_API CString Trim(std::wstring_view text);
// The characters of `set` cut off on the right.
AFX_EXT_API CString TrimRight(std::wstring_view text, std::wstring_view set);

// Order of two texts, ignoring case: below 0, 0 or above 0. Case is folded as Unicode says,
// whatever the locale.
AFX_EXT_API int CompareNoCase(std::wstring_view a, std::wstring_view b);
AFX_EXT_API bool EqualNoCase(std::wstring_view a, std::wstring_view b);

// A text made ready once to be compared with many others, ignoring case.
class AFX_EXT_CLASS NoCaseKey {
public:
    NoCaseKey() : NoCaseKey(std::wstring_view()) {}
    explicit NoCaseKey(std::wstring_view text);
    // What EqualNoCase says of the two texts.
    bool operator==(const NoCaseKey&) const = default;

private:
    size_t m_hash; // compared first, and nearly always differs when the texts do
    CString m_folded;
};

// printf's formats for wide text: Format(L"%s(%d)", name, 1).
template <class... Args> CString Format(const wchar_t* format, const Args&... args)
{
    return fmt::sprintf(std::wstring_view(format), args...);
}
