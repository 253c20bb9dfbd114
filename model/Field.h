// What a criterion consists of, described once. Storing, loading, the command's paths, printing
// and comparing all run over the table of a criterion's fields.
#pragma once

#include <span>
#include <type_traits>

#include "platform/mfc/Export.h"

#include "model/SpeedTable.h"

// A 32-bit boolean: 0 is false, anything else true.
using BOOL = std::int32_t;

namespace designspec {

enum class FieldKind { Int, Double, Bool, Text, IntTable, DoubleTable };

struct Field {
    const wchar_t* key; // the member's name, which is its name in files as well
    FieldKind kind;
    bool isAttribute;     // of the criterion's element; else a child element
    const wchar_t* label; // for people
    const wchar_t* unit;  // empty when there is none
    void* (*member)(void* criterion);

    // Tables only. Whether the table has a place in the file at all; null: always.
    bool (*isUsed)(const void* criterion) = nullptr;
    // An empty table leaves no element.
    bool skipEmpty = false;
    // What a value of 0 says, for people; null when it is a value like any other.
    const wchar_t* zeroMeans = nullptr;
    // A value that is missing in a file is 0, rather than what it was.
    bool zeroWhenMissing = false;

    template <class T> T& Of(void* criterion) const { return *static_cast<T*>(member(criterion)); }
    template <class T> const T& Of(const void* criterion) const
    {
        return *static_cast<const T*>(member(const_cast<void*>(criterion)));
    }
    bool IsTable() const { return kind == FieldKind::IntTable || kind == FieldKind::DoubleTable; }
};

namespace FieldDetail {

template <class M> struct MemberOf;
template <class C, class V> struct MemberOf<V C::*> {
    using Class = C;
    using Value = V;
};

template <class V> constexpr FieldKind KindOf()
{
    if constexpr (std::is_same_v<V, std::int32_t>)
        return FieldKind::Int;
    else if constexpr (std::is_same_v<V, double>)
        return FieldKind::Double;
    else if constexpr (std::is_same_v<V, CString>)
        return FieldKind::Text;
    else if constexpr (std::is_same_v<V, SpeedToIntValues>)
        return FieldKind::IntTable;
    else if constexpr (std::is_same_v<V, SpeedToDoubleValues>)
        return FieldKind::DoubleTable;
}

} // namespace FieldDetail

// The field behind a member pointer: an element, of the kind that its type tells.
template <auto Member>
constexpr Field MakeField(const wchar_t* key, const wchar_t* label, const wchar_t* unit = L"")
{
    using Traits = FieldDetail::MemberOf<decltype(Member)>;
    return {key,
            FieldDetail::KindOf<typename Traits::Value>(),
            false,
            label,
            unit,
            [](void* criterion) -> void* {
                return &(static_cast<typename Traits::Class*>(criterion)->*Member);
            }};
}

template <auto Member>
constexpr Field MakeAttribute(const wchar_t* key, const wchar_t* label, const wchar_t* unit = L"")
{
    Field field = MakeField<Member>(key, label, unit);
    field.isAttribute = true;
    return field;
}

template <auto Member> constexpr Field MakeBool(const wchar_t* key, const wchar_t* label)
{
    Field field = MakeField<Member>(key, label);
    field.kind = FieldKind::Bool;
    return field;
}

// The same field, for which 0 says something of its own.
constexpr Field ZeroMeans(Field field, const wchar_t* meaning)
{
    field.zeroMeans = meaning;
    return field;
}

// Stores or loads the fields in the order of the table. Texts are trimmed and tables emptied
// first when loading.
AFX_EXT_API void ExchangeFields(CXTPPropExchange* pPX, void* criterion,
                                std::span<const Field> fields);

} // namespace designspec
