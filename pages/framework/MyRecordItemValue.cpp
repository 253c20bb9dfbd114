#include "pages/framework/MyRecordItemValue.h"

#include "base/Text.h"

#include <utility>

using namespace designspec;

void CMyRecordItemValue::OnEditChanged(CXTPReportControl* control, const CString& newText)
{
    SetValues(Read(control, Trim(newText)));
}

void CMyRecordItemValue::SetValues(Values values)
{
    m_values = std::move(values);
    SetCaption(IsEmpty() ? CString() : TextOf(m_values));
}

CXTPReportItemState CMyRecordItemValue::SaveState() const
{
    CXTPReportItemState state = CXTPReportRecordItem::SaveState();
    state.values = m_values;
    return state;
}

void CMyRecordItemValue::RestoreState(const CXTPReportItemState& state)
{
    CXTPReportRecordItem::RestoreState(state);
    m_values = state.values;
}
