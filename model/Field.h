// What a criterion consists of, described once. Storing, loading, paths to single values, printing
// and comparing all run over the table of a criterion's fields. Rows within rows are fields as
// well: arrays of records that have fields in turn.
#pragma once

#include <span>
#include <type_traits>

#include "base/Export.h"
#include "model/SpeedTable.h"
#include "platform/mfc/String.h"

// A 32-bit boolean: 0 is false, anything else true.
using BOOL = std::int32_t;

namespace designspec {

enum class FieldKind { Int, Double, Bool, Text, IntTable, DoubleTable, Rows };

// How the rows of an array stand by their first key.
enum class RowOrder { AsGiven, Ascending, Descending };

// Where a value of a row stands when people see the rows as a grid.
enum class GridPlace { Cell, Column, Row, Heading };

struct Field;

// An array of records, whatever they are.
struct RowArray {
    std::span<const Field> (*fields)(); // of a record, in their order in files
    std::int32_t (*count)(const void* array);
    void* (*at)(void* array, std::int32_t index);
    void (*reserve)(void* array, std::int32_t count);
    void* (*insert)(void* array, std::int32_t index); // an empty record
    void (*removeAt)(void* array, std::int32_t index);
    void (*swap)(void* array, std::int32_t a, std::int32_t b);
};

// A member of a criterion or of a record; `object` below is the one it is a member of.
struct Field {
    const wchar_t* key; // the member's name
    FieldKind kind;
    bool isAttribute;     // of the object's element; else a child element
    const wchar_t* label; // for people
    const wchar_t* unit;  // empty when there is none
    void* (*member)(void* object);

    // Tables and rows only.
    const RowArray* rows = nullptr;
    // The child element that holds the rows; empty: they stand straight in the object's own.
    const wchar_t* element = nullptr;
    const wchar_t* rowElement = nullptr; // of each row
    RowOrder order = RowOrder::AsGiven;
    // Whether the table has a place in the file at all; null: always.
    bool (*isUsed)(const void* object) = nullptr;
    // An empty table leaves no element.
    bool skipEmpty = false;
    // What a row is called for people; null: by its values that have their place there.
    CString (*rowText)(const void* object, const void* row) = nullptr;

    // Single values only.
    bool isKey = false; // one of those that tell a row from the others
    // What a value of 0 says, for people; null when it is a value like any other.
    const wchar_t* zeroMeans = nullptr;
    // A value that is missing in a file is 0, rather than what it was.
    bool zeroWhenMissing = false;
    GridPlace place = GridPlace::Cell;
    const wchar_t* form = nullptr; // of the text in that place, with %s for the value

    template <class T> T& Of(void* object) const { return *static_cast<T*>(member(object)); }
    template <class T> const T& Of(const void* object) const
    {
        return *static_cast<const T*>(member(const_cast<void*>(object)));
    }
    // A table by design speed.
    bool IsTable() const { return kind == FieldKind::IntTable || kind == FieldKind::DoubleTable; }
    // A table or rows; else a single value.
    bool HasRows() const { return rows != nullptr; }

    std::span<const Field> RowFields() const { return rows->fields(); }
    std::int32_t RowCount(const void* object) const
    {
        return rows->count(member(const_cast<void*>(object)));
    }
    void* Row(void* object, std::int32_t index) const { return rows->at(member(object), index); }
    const void* Row(const void* object, std::int32_t index) const
    {
        return Row(const_cast<void*>(object), index);
    }
    // Makes room for that many rows in all, and for no more.
    void ReserveRows(void* object, std::int32_t count) const
    {
        rows->reserve(member(object), count);
    }
    // An empty row before that one.
    void* InsertRow(void* object, std::int32_t index) const
    {
        return rows->insert(member(object), index);
    }
    void RemoveRow(void* object, std::int32_t index) const
    {
        rows->removeAt(member(object), index);
    }
    void SwapRows(void* object, std::int32_t a, std::int32_t b) const
    {
        rows->swap(member(object), a, b);
    }
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
    else
        return FieldKind::Rows;
}

template <class Record> std::span<const Field> FieldsOf()
{
    return Record::Fields();
}
template <> std::span<const Field> FieldsOf<SpeedEntry<std::int32_t>>();
template <> std::span<const Field> FieldsOf<SpeedEntry<double>>();

template <class V> constexpr const RowArray* kRowArray = nullptr;
template <class Record>
inline constexpr RowArray kArrayOf = {
    FieldsOf<Record>,
    [](const void* array) { return static_cast<const GrowArray<Record>*>(array)->count; },
    [](void* array, std::int32_t index) -> void* {
        return &(*static_cast<GrowArray<Record>*>(array))[index];
    },
    [](void* array, std::int32_t count) { static_cast<GrowArray<Record>*>(array)->Reserve(count); },
    [](void* array, std::int32_t index) -> void* {
        return &static_cast<GrowArray<Record>*>(array)->Insert(index, {});
    },
    [](void* array, std::int32_t index) {
        static_cast<GrowArray<Record>*>(array)->RemoveAt(index);
    },
    [](void* array, std::int32_t a, std::int32_t b) {
        auto& records = *static_cast<GrowArray<Record>*>(array);
        std::swap(records[a], records[b]);
    },
};
template <class Record>
inline constexpr const RowArray* kRowArray<GrowArray<Record>> = &kArrayOf<Record>;

} // namespace FieldDetail

// The field of that type: a child element, of the kind that the type tells. A table is an element
// of its own, with its rows highest speed first.
template <class Value>
constexpr Field FieldOf(const wchar_t* key, const wchar_t* label, const wchar_t* unit,
                        void* (*member)(void* object))
{
    constexpr FieldKind kind = FieldDetail::KindOf<Value>();
    Field field{key, kind, false, label, unit, member};
    field.rows = FieldDetail::kRowArray<Value>;
    field.element = key;
    field.rowElement = L"Item";
    field.order = kind == FieldKind::Rows ? RowOrder::AsGiven : RowOrder::Descending;
    return field;
}

// The field behind a member pointer.
template <auto Member>
constexpr Field MakeField(const wchar_t* key, const wchar_t* label, const wchar_t* unit = L"")
{
    using Traits = FieldDetail::MemberOf<decltype(Member)>;
    return FieldOf<typename Traits::Value>(key, label, unit, [](void* object) -> void* {
        return &(static_cast<typename Traits::Class*>(object)->*Member);
    });
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

// An array of records, which have Fields(); each is an element `row` within `element`, or straight
// in the object's own when that is empty.
template <auto Member>
constexpr Field MakeRows(const wchar_t* key, const wchar_t* label, const wchar_t* unit,
                         const wchar_t* element, const wchar_t* row,
                         RowOrder order = RowOrder::AsGiven)
{
    Field field = MakeField<Member>(key, label, unit);
    field.element = element;
    field.rowElement = row;
    field.order = order;
    return field;
}

// The same field, as one that tells a row from the others: an attribute, taken as it stands.
constexpr Field Key(Field field)
{
    field.isKey = true;
    return field;
}

// The same field, in that place of a grid.
constexpr Field In(GridPlace place, Field field, const wchar_t* form = nullptr)
{
    field.place = place;
    field.form = form;
    return field;
}

// The same field, for which 0 says something of its own.
constexpr Field ZeroMeans(Field field, const wchar_t* meaning)
{
    field.zeroMeans = meaning;
    return field;
}

// Stores or loads the fields in the order of the table. Texts that are elements are trimmed and
// arrays emptied first when loading.
AFX_EXT_API void ExchangeFields(CXTPPropExchange* pPX, void* object, std::span<const Field> fields);

} // namespace designspec
