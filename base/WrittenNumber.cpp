#include "base/WrittenNumber.h"

#include <algorithm>

#include "base/CaptionIndex.h"
#include "base/Number.h"
#include "base/Text.h"

namespace designspec {

namespace {

// "1,500" and "12,345.6": groups of three behind the first comma.
bool HasThousands(const std::wstring& text)
{
    const size_t first = text.find(L',');
    if (first == std::wstring::npos || first == 0 || first > 3) return false;
    const size_t end = std::min(text.find(L'.'), text.size());
    for (size_t i = 0; i < end; ++i)
        if ((text[i] == L',') != (i >= first && (i - first) % 4 == 0)) return false;
    return (end - first) % 4 == 0;
}

size_t FindRangeSign(const std::wstring& text)
{
    const size_t sign = text.find_first_of(L"~至");
    if (sign != std::wstring::npos) return sign;
    return text.find(L'-', 1); // one at the front would be a minus
}

} // namespace

std::wstring WrittenNumber(const std::wstring& text, std::wstring_view unit)
{
    std::wstring number = PlainText(text);
    number.erase(0, number.find_first_not_of(L"<>=≤≥ "));
    for (const std::wstring_view suffix : {unit, std::wstring_view(unit == L"m" ? L"米" : L"")})
        if (!suffix.empty() && number.ends_with(suffix))
            number = TrimRight(number.substr(0, number.size() - suffix.size()));
    if (HasThousands(number)) std::erase(number, L',');
    return IsPlainNumber(number) ? number : text;
}

std::wstring WrittenRatio(const std::wstring& text)
{
    const std::wstring plain = PlainText(text);
    const bool onePer = plain.starts_with(L"1/") || plain.starts_with(L"1:");
    const std::wstring number = WrittenNumber(onePer ? plain.substr(2) : plain, {});
    return IsPlainNumber(number) ? L"1/" + number : text;
}

std::wstring WrittenRange(const std::wstring& text, std::wstring_view unit)
{
    const std::wstring plain = PlainText(text);
    const size_t sign = FindRangeSign(plain);
    if (sign == std::wstring::npos) return text;
    const std::wstring from = WrittenNumber(plain.substr(0, sign), unit);
    const std::wstring to = WrittenNumber(plain.substr(sign + 1), unit);
    return IsPlainNumber(from) && IsPlainNumber(to) ? from + L'~' + to : text;
}

} // namespace designspec
