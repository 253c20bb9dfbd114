#include "sheets/CellValue.h"

#include <algorithm>

#include "base/CaptionIndex.h"
#include "base/Number.h"
#include "base/Text.h"
#include "base/WrittenNumber.h"

namespace designspec {

namespace {

constexpr std::wstring_view kSigns = L"<>≤≥";

// What reads as a number in the text.
CString NumberText(const CString& text, const CString& unit)
{
    if (unit == L"1/n") {
        const CString ratio = WrittenRatio(text);
        return ratio.starts_with(L"1/") ? ratio.substr(2) : ratio;
    }
    for (const CString& one : {unit, CString(L"m"), CString(L"倍")}) {
        const bool fits = one == unit || unit.starts_with(one);
        CString number = fits ? WrittenNumber(text, one) : text;
        if (number != text) return number;
    }
    return PlainText(text);
}

CString BoolText(const CString& text)
{
    const CString plain = PlainText(text);
    return plain == L"是" ? L"1" : plain == L"否" ? L"0" : plain;
}

std::optional<RadiusRange> RangeOf(std::wstring_view from, std::wstring_view to)
{
    RadiusRange range;
    if (!ParseInt(ToUtf8(from), range.min) || !ParseInt(ToUtf8(to), range.max)) return {};
    return range;
}

} // namespace

bool IsBlank(const CString& text)
{
    const CString plain = PlainText(text);
    return plain.empty() || plain == L"/" || plain.find_first_not_of(L'-') == CString::npos;
}

CString ReadCell(const Field& field, const CString& unit, const CString& text, Value& value)
{
    switch (field.kind) {
    case FieldKind::Text:
        return ParseValue(field, text, field.label, value);
    case FieldKind::Bool:
        return ParseValue(field, BoolText(text), field.label, value);
    default:
        if (field.zeroMeans && text.find(field.zeroMeans) != CString::npos)
            return ParseValue(field, L"0", L"值", value);
        const CString number = NumberText(text, unit);
        if (ParseValue(field, number, L"值", value).empty()) return {};
        return ParseValue(field, text, L"值", value); // names what stands there
    }
}

std::optional<std::int32_t> ReadSpeed(const CString& text)
{
    int speed = 0;
    if (ParseInt(ToUtf8(PlainText(text)), speed)) return speed;
    const auto number = CaptionParts(text).OnlyNumber({});
    if (number && ParseInt(DoubleToText(*number), speed)) return speed;
    return {};
}

std::optional<RadiusRange> ReadRange(const CString& text)
{
    const CString plain = WrittenRange(text, L"m");
    if (const auto sign = plain.find(L'~'); sign != CString::npos)
        return RangeOf(plain.substr(0, sign), plain.substr(sign + 1));
    const CString written = PlainText(text);
    const auto first = written.find_first_of(kSigns);
    const auto last = written.find_last_of(kSigns);
    if (first == last || Trim(written.substr(first + 1, last - first - 1)) != L"R") return {};
    const CString from = written.substr(0, first);
    const CString to = WrittenNumber(written.substr(last + 1), L"m");
    const bool falls = written[first] == L'>' || written[first] == L'≥';
    return falls ? RangeOf(to, from) : RangeOf(from, to);
}

} // namespace designspec
