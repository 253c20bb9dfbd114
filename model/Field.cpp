#include "model/Field.h"

#include "base/Text.h"

namespace designspec {

namespace {

template <class Table, class Exchange>
void ExchangeTableField(CXTPPropExchange* pPX, void* criterion, const Field& field,
                        Exchange exchange)
{
    auto& table = field.Of<Table>(criterion);
    if (pPX->IsLoading()) table.RemoveAll();
    if (field.isUsed && !field.isUsed(criterion)) return;
    if (pPX->IsStoring() && field.skipEmpty && table.IsEmpty()) return;
    exchange(pPX, field.key, table);
}

void ExchangeText(CXTPPropExchange* pPX, const wchar_t* key, CString& text)
{
    PX_String(pPX, key, text);
    if (pPX->IsLoading()) text = Trim(text);
}

void ExchangeInt(CXTPPropExchange* pPX, const Field& field, std::int32_t& value)
{
    if (field.zeroWhenMissing)
        PX_Int(pPX, field.key, value, 0);
    else
        PX_Int(pPX, field.key, value);
}

} // namespace

void ExchangeFields(CXTPPropExchange* pPX, void* criterion, std::span<const Field> fields)
{
    for (const Field& field : fields) {
        pPX->EnableCompactMode(field.isAttribute);
        switch (field.kind) {
        case FieldKind::Int:
            ExchangeInt(pPX, field, field.Of<std::int32_t>(criterion));
            break;
        case FieldKind::Double:
            PX_Double(pPX, field.key, field.Of<double>(criterion));
            break;
        case FieldKind::Bool:
            PX_Bool(pPX, field.key, field.Of<BOOL>(criterion));
            break;
        case FieldKind::Text:
            ExchangeText(pPX, field.key, field.Of<CString>(criterion));
            break;
        case FieldKind::IntTable:
            ExchangeTableField<SpeedToIntValues>(pPX, criterion, field, PX_SpeedToIntValues);
            break;
        case FieldKind::DoubleTable:
            ExchangeTableField<SpeedToDoubleValues>(pPX, criterion, field, PX_SpeedToDoubleValues);
            break;
        }
    }
    pPX->EnableCompactMode(true);
}

} // namespace designspec
