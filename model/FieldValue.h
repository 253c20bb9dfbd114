// The single values behind fields, whatever their kind.
#pragma once

#include <compare>
#include <variant>

#include "model/Field.h"

namespace designspec {

// Never held. g++ 12 takes a variant of numbers and texts for one that always holds something, and
// ends the program where memory ends while a text is copied; not so with this beside them.
struct NoValue {
    NoValue() = default;
    NoValue(const NoValue&) noexcept {}
    NoValue& operator=(const NoValue&) noexcept { return *this; }
    std::strong_ordering operator<=>(const NoValue&) const { return std::strong_ordering::equal; }
    bool operator==(const NoValue&) const { return true; }
};

// A whole number or a BOOL, a decimal, a text.
using Value = std::variant<std::int32_t, double, CString, NoValue>;

AFX_EXT_API Value GetValue(const Field& field, const void* object);
AFX_EXT_API void SetValue(const Field& field, void* object, const Value& value);

// The value as files write it: numbers, 1 or 0, the text itself.
AFX_EXT_API CString ValueText(const Value& value);
AFX_EXT_API CString ValueText(const Field& field, const void* object);

// The value as people read it: 250, 是 or 否, "0 (不限)" where 0 says something of its own,
// "(未填)" for a text that is empty. With the unit: 250 m, 6%, 1/150.
AFX_EXT_API CString ReadableText(const Field& field, const Value& value);
AFX_EXT_API CString ReadableText(const Field& field, const Value& value, const CString& unit);

// A number with its unit: 250 m, 6%, 1/150.
AFX_EXT_API CString WithUnit(const CString& number, const CString& unit);

// Reads a value of the field's kind. Returns what is wrong with the text, for people, who know the
// value as `what`; an empty text when `value` was read. Texts are trimmed, save for keys.
AFX_EXT_API CString ParseValue(const Field& field, const CString& text, const CString& what,
                               Value& value);

// Texts are the same ignoring case.
AFX_EXT_API bool IsSameValue(const Value& a, const Value& b);
AFX_EXT_API bool IsNegative(const Value& value);

} // namespace designspec
