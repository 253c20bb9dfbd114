#include "model/Field.h"

#include "base/Text.h"
#include "platform/xtp/PropExchange.h"

namespace designspec {

namespace {

// The section that holds the rows of an object.
CXTPPropExchange RowsSection(const CXTPPropExchange& section, const Field& field)
{
    if (*field.element == 0) return section;
    return section.IsStoring() ? section.ReplaceSection(field.element)
                               : section.FindSection(field.element);
}

void LoadRows(CXTPPropExchange row, void* object, const Field& field)
{
    // No more than the file has: an array that grows by itself has room for eight.
    field.ReserveRows(object, row.CountFromHere());
    for (; row.IsSectionExists(); row.MoveToNext())
        ExchangeFields(&row, field.InsertRow(object, field.RowCount(object)), field.RowFields());
}

void StoreRows(const CXTPPropExchange& section, void* object, const Field& field)
{
    for (std::int32_t i = 0; i < field.RowCount(object); ++i) {
        CXTPPropExchange row = section.AppendSection(field.rowElement);
        ExchangeFields(&row, field.Row(object, i), field.RowFields());
    }
}

// What a table or rows hold, once they are known to have a place in the file.
void ExchangeContent(CXTPPropExchange* pPX, void* object, const Field& field)
{
    CXTPPropExchange section = RowsSection(*pPX, field);
    if (!section.IsSectionExists()) return;
    if (field.kind == FieldKind::IntTable)
        ExchangeItems(&section, field.Of<SpeedToIntValues>(object));
    else if (field.kind == FieldKind::DoubleTable)
        ExchangeItems(&section, field.Of<SpeedToDoubleValues>(object));
    else if (pPX->IsStoring())
        StoreRows(section, object, field);
    else
        LoadRows(section.FindSection(field.rowElement), object, field);
}

void ExchangeRows(CXTPPropExchange* pPX, void* object, const Field& field)
{
    if (pPX->IsLoading())
        for (std::int32_t i = field.RowCount(object); i > 0; --i)
            field.RemoveRow(object, i - 1);
    if (field.isUsed && !field.isUsed(object)) return;
    if (pPX->IsStoring() && field.skipEmpty && field.RowCount(object) == 0) return;
    ExchangeContent(pPX, object, field);
}

void ExchangeText(CXTPPropExchange* pPX, const Field& field, CString& text)
{
    PX_String(pPX, field.key, text);
    if (pPX->IsLoading() && !field.isKey && !text.empty()) text = Trim(text);
}

void ExchangeInt(CXTPPropExchange* pPX, const Field& field, std::int32_t& value)
{
    if (field.zeroWhenMissing)
        PX_Int(pPX, field.key, value, 0);
    else
        PX_Int(pPX, field.key, value);
}

} // namespace

void ExchangeFields(CXTPPropExchange* pPX, void* object, std::span<const Field> fields)
{
    for (const Field& field : fields) {
        pPX->EnableCompactMode(field.isAttribute);
        switch (field.kind) {
        case FieldKind::Int:
            ExchangeInt(pPX, field, field.Of<std::int32_t>(object));
            break;
        case FieldKind::Double:
            PX_Double(pPX, field.key, field.Of<double>(object));
            break;
        case FieldKind::Bool:
            PX_Bool(pPX, field.key, field.Of<BOOL>(object));
            break;
        case FieldKind::Text:
            ExchangeText(pPX, field, field.Of<CString>(object));
            break;
        case FieldKind::IntTable:
        case FieldKind::DoubleTable:
        case FieldKind::Rows:
            ExchangeRows(pPX, object, field);
            break;
        }
    }
    pPX->EnableCompactMode(true);
}

namespace {

constexpr Field SpeedField(void* (*member)(void* entry))
{
    Field field = FieldOf<std::int32_t>(L"speed", L"车速", L"km/h", member);
    field.isAttribute = true;
    return In(GridPlace::Column, Key(field));
}

template <class T> std::span<const Field> EntryFields()
{
    using Entry = SpeedEntry<T>;
    static constexpr Field kFields[] = {
        SpeedField([](void* entry) -> void* { return &static_cast<Entry*>(entry)->speed; }),
        MakeAttribute<&Entry::value>(L"value", L"值"),
    };
    return kFields;
}

} // namespace

template <> std::span<const Field> FieldDetail::FieldsOf<SpeedEntry<std::int32_t>>()
{
    return EntryFields<std::int32_t>();
}

template <> std::span<const Field> FieldDetail::FieldsOf<SpeedEntry<double>>()
{
    return EntryFields<double>();
}

} // namespace designspec
