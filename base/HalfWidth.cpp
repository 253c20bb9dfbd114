#include "base/HalfWidth.h"

namespace designspec {

namespace {

wchar_t HalfWidthOf(wchar_t c)
{
    if (c >= L'０' && c <= L'９') return L'0' + (c - L'０');
    switch (c) {
    case L'\u3000':
        return L' ';
    case L'．':
        return L'.';
    case L'，':
        return L',';
    case L'／':
        return L'/';
    case L'～':
    case L'〜':
        return L'~';
    default:
        return c;
    }
}

} // namespace

std::wstring ToHalfWidth(std::wstring_view text)
{
    std::wstring result(text);
    for (wchar_t& c : result)
        c = HalfWidthOf(c);
    return result;
}

} // namespace designspec
