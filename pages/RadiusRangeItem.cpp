#include "pages/RadiusRangeItem.h"

#include <algorithm>

#include "base/Format.h"
#include "base/WrittenNumber.h"
#include "model/Rules.h"
#include "pages/RadiusRangeText.h"
#include "platform/mfc/MessageBox.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

void CRadiusRangeItem::SetRange(int minRadius, int maxRadius)
{
    SetValues({static_cast<double>(minRadius), static_cast<double>(maxRadius)});
}

CString CRadiusRangeItem::ReadPasted(const CString& text) const
{
    return WrittenRange(text, GetUnit());
}

CString CRadiusRangeItem::GetRule() const
{
    return kRadiusText;
}

CString CRadiusRangeItem::TextOf(const Values& values) const
{
    return Format(L"%d~%d", static_cast<int>(values.front()), static_cast<int>(values.back()));
}

CMyRecordItemValue::Values CRadiusRangeItem::Read(CXTPReportControl* control,
                                                  const CString& text) const
{
    if (text.empty()) return {};
    CString joined = text;
    if (joined.find(L'~') == CString::npos)
        std::replace_if(
            joined.begin(), joined.end(), [](wchar_t c) { return c == L' ' || c == L','; }, L'~');
    RadiusRange range;
    const CString fault = ReadRadiusRange(joined, range);
    if (!fault.empty()) {
        if (control)
            control->Tell(fault);
        else
            MessageBox(nullptr, fault, L"提示", MB_ICONINFORMATION);
        return {};
    }
    return {static_cast<double>(range.min), static_cast<double>(range.max)};
}
