#include "pages/framework/MyRecordItemValue.h"

#include "base/HalfWidth.h"
#include "base/Text.h"
#include "base/WrittenNumber.h"
#include "model/Rules.h"

#include <utility>

using namespace designspec;

void CMyRecordItemValue::OnEditChanged(CXTPReportControl* control, const CString& newText)
{
    SetValues(Read(control, Trim(newText)));
}

CMyRecordItemValue::Values CMyRecordItemValue::ValuesFor(const CString& text) const
{
    return Read(nullptr, Trim(ToHalfWidth(text)));
}

CString CMyRecordItemValue::ReadPasted(const CString& text) const
{
    return WrittenNumber(text, m_unit);
}

CString CMyRecordItemValue::GetReadableText() const
{
    if (IsEmpty()) return {};
    const CString unit = m_unit;
    return GetExactText() + (unit == L"%" ? L"" : L" ") + unit;
}

CString CMyRecordItemValue::GetRule() const
{
    return kTableValueText;
}

void CMyRecordItemValue::SetValues(Values values)
{
    m_values = std::move(values);
    SetCaption(IsEmpty() ? CString() : TextOf(m_values));
}

designspec::ReportItemState CMyRecordItemValue::SaveState() const
{
    auto state = CXTPReportRecordItem::SaveState();
    state.values = m_values;
    return state;
}

void CMyRecordItemValue::RestoreState(const designspec::ReportItemState& state)
{
    CXTPReportRecordItem::RestoreState(state);
    m_values = state.values;
}
