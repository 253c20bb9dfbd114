#include "model/FieldValue.h"

#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Number.h"
#include "base/Text.h"
#include "base/XmlCheck.h"

namespace designspec {

Value GetValue(const Field& field, const void* object)
{
    switch (field.kind) {
    case FieldKind::Int:
    case FieldKind::Bool:
        return field.Of<std::int32_t>(object);
    case FieldKind::Double:
        return field.Of<double>(object);
    default:
        return field.Of<CString>(object);
    }
}

void SetValue(const Field& field, void* object, const Value& value)
{
    if (const auto* whole = std::get_if<std::int32_t>(&value))
        field.Of<std::int32_t>(object) = *whole;
    else if (const auto* decimal = std::get_if<double>(&value))
        field.Of<double>(object) = *decimal;
    else
        field.Of<CString>(object) = std::get<CString>(value);
}

CString ValueText(const Value& value)
{
    // The wide one of the standard library takes several times as long.
    if (const auto* whole = std::get_if<std::int32_t>(&value)) {
        const std::string text = std::to_string(*whole);
        return {text.begin(), text.end()};
    }
    if (const auto* decimal = std::get_if<double>(&value)) return ToWide(DoubleToText(*decimal));
    return std::get<CString>(value);
}

CString ValueText(const Field& field, const void* object)
{
    if (field.kind == FieldKind::Bool) return field.Of<BOOL>(object) ? L"1" : L"0";
    return ValueText(GetValue(field, object));
}

CString ReadableText(const Field& field, const Value& value)
{
    return ReadableText(field, value, {});
}

CString ReadableText(const Field& field, const Value& value, const CString& unit)
{
    const CString text = ValueText(value);
    if (field.kind == FieldKind::Bool) return text == L"0" ? L"否" : L"是";
    if (text.empty()) return L"(未填)";
    if (text == L"0" && field.zeroMeans) return Format(L"0 (%s)", CString(field.zeroMeans));
    return WithUnit(text, unit);
}

CString WithUnit(const CString& number, const CString& unit)
{
    if (unit.empty()) return number;
    if (unit == L"1/n") return L"1/" + number;
    return number + (unit == L"%" ? L"" : L" ") + unit;
}

CString ParseValue(const Field& field, const CString& text, const CString& what, Value& value)
{
    const std::string utf8 = ToUtf8(text);
    int whole = 0;
    double decimal = 0;
    switch (field.kind) {
    case FieldKind::Int:
        if (!ParseInt(utf8, whole)) return Format(L"%s“%s”不是整数", what, text);
        value = whole;
        return {};
    case FieldKind::Double:
        if (!ParseDouble(utf8, decimal)) return Format(L"%s“%s”不是数", what, text);
        value = decimal + 0.0; // no negative zero
        return {};
    case FieldKind::Bool:
        // Files may hold any number there; what a person enters is one of the two.
        if (int number = 0; !ParseBool(utf8, whole) || (ParseInt(utf8, number) && number != whole))
            return what + L"应为 0 或 1";
        value = whole;
        return {};
    default:
        value = field.isKey ? text : Trim(text);
        return IsXmlText(text) ? CString() : what + L"中有文件无法记录的字符";
    }
}

bool IsSameValue(const Value& a, const Value& b)
{
    const auto* text = std::get_if<CString>(&a);
    const auto* other = std::get_if<CString>(&b);
    return text && other ? EqualNoCase(*text, *other) : a == b;
}

bool IsNegative(const Value& value)
{
    const auto* whole = std::get_if<std::int32_t>(&value);
    const auto* decimal = std::get_if<double>(&value);
    return whole ? *whole < 0 : decimal && *decimal < 0;
}

} // namespace designspec
