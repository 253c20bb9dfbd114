#include "base/CaptionIndex.h"

#include <cwctype>

#include "base/Number.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr std::wstring_view kSigns = L"<>=≤≥~-()[]:/,;.|±αa";
constexpr std::wstring_view kUnits[] = {L"km/h", L"公里/小时", L"千米/小时", L"%", L"m", L"米"};
// What stands for a quantity before its number: V=80, R≥250.
constexpr std::wstring_view kQuantities[] = {L"v", L"r", L"l", L"i"};

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

wchar_t PlainSign(wchar_t c)
{
    if (c >= L'\uff01' && c <= L'\uff5e') return c - L'\uff01' + L'!';
    switch (c) {
    case L'\u3000':
    case L'\u00a0':
        return L' ';
    case L'\u2236':
        return L':';
    case L'\u301c': // wave dash
    case L'\u223c':
        return L'~';
    case L'\u2010':
    case L'\u2012':
    case L'\u2013':
    case L'\u2014':
    case L'\u2015':
    case L'\u2212':
        return L'-';
    case L'≧':
    case L'⩾':
        return L'≥';
    case L'≦':
    case L'⩽':
        return L'≤';
    default:
        return c;
    }
}

// Without blanks and line breaks, in lower case where that is ASCII.
std::wstring Compact(std::wstring_view text)
{
    std::wstring compact;
    for (wchar_t c : PlainText(text)) {
        if (std::iswspace(static_cast<wint_t>(c))) continue;
        compact += c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    }
    return compact;
}

// Without the brackets at its end and what they hold, brackets too.
std::wstring WithoutUnit(const std::wstring& compact)
{
    if (!compact.ends_with(L')')) return compact;
    int open = 0;
    std::size_t at = compact.size();
    do {
        --at;
        open += compact[at] == L')' ? 1 : compact[at] == L'(' ? -1 : 0;
    } while (at > 0 && open > 0);
    return compact.substr(0, at);
}

void TakeNumber(std::wstring_view& text, std::wstring& numbers)
{
    size_t length = 0;
    bool point = false;
    while (length < text.size() && (IsDigit(text[length]) || (text[length] == L'.' && !point)))
        point = text[length++] == L'.' || point;
    numbers += ToWide(DoubleToText(Wtof(text.substr(0, length)))) + L';';
    text.remove_prefix(length);
    for (const std::wstring_view unit : kUnits) {
        if (!text.starts_with(unit)) continue;
        text.remove_prefix(unit.size());
        return;
    }
}

} // namespace

std::wstring PlainText(std::wstring_view text)
{
    std::wstring plain(text);
    for (wchar_t& c : plain)
        c = PlainSign(c);
    return Trim(plain);
}

CaptionParts::CaptionParts(std::wstring_view text)
{
    const std::wstring compact = Compact(text);
    std::wstring_view left = compact;
    while (!left.empty()) {
        if (IsDigit(left.front())) {
            TakeNumber(left, numbers);
            continue;
        }
        if (kSigns.find(left.front()) == std::wstring_view::npos && left.front() != L'至')
            word += left.front();
        left.remove_prefix(1);
    }
    for (const std::wstring_view quantity : kQuantities)
        if (!numbers.empty() && word == quantity) word.clear();
}

std::optional<double> CaptionParts::OnlyNumber(std::wstring_view words) const
{
    const bool isOne = !numbers.empty() && numbers.find(L';') + 1 == numbers.size();
    if (!isOne || words.find(word) == std::wstring_view::npos) return {};
    return Wtof(numbers);
}

CaptionIndex::CaptionIndex(const std::vector<std::wstring>& captions)
{
    int place = 0;
    for (const std::wstring& caption : captions) {
        const std::wstring compact = Compact(caption);
        m_whole.try_emplace(compact, place);
        m_withoutUnit.try_emplace(WithoutUnit(compact), place);
        const CaptionParts parts(caption);
        if (!parts.numbers.empty()) m_byNumbers[parts.numbers].push_back({place, parts.word});
        ++place;
    }
}

int CaptionIndex::Find(std::wstring_view heading) const
{
    const std::wstring compact = Compact(heading);
    if (compact.empty()) return -1;
    if (const auto whole = m_whole.find(compact); whole != m_whole.end()) return whole->second;
    const std::wstring withoutUnit = WithoutUnit(compact);
    if (const auto same = m_withoutUnit.find(withoutUnit);
        same != m_withoutUnit.end() && !withoutUnit.empty())
        return same->second;
    const CaptionParts parts(heading);
    const auto numbered = m_byNumbers.find(parts.numbers);
    if (numbered == m_byNumbers.end()) return -1;
    int found = -1;
    for (const Numbered& one : numbered->second) {
        if (one.word.find(parts.word) == std::wstring::npos) continue;
        if (found >= 0) return -1;
        found = one.place;
    }
    return found;
}

} // namespace designspec
