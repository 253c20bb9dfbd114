#include "pages/RadiusRangeItem.h"

#include <algorithm>

#include "base/Format.h"
#include "base/HalfWidth.h"
#include "base/Text.h"
#include "base/WrittenNumber.h"
#include "model/Rules.h"
#include "pages/RadiusRangeText.h"
#include "platform/mfc/MessageBox.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

namespace {

// Blanks and commas stand for the sign between the ends where there is none. Returns what is wrong.
CString ReadTypedRange(CString text, RadiusRange& range)
{
    if (text.find(L'~') == CString::npos)
        std::replace_if(
            text.begin(), text.end(), [](wchar_t c) { return c == L' ' || c == L','; }, L'~');
    return ReadRadiusRange(text, range);
}

CMyRecordItemValue::Values ValuesOf(const RadiusRange& range)
{
    return {static_cast<double>(range.min), static_cast<double>(range.max)};
}

} // namespace

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

CMyRecordItemValue::Values CRadiusRangeItem::ValuesFor(const CString& text) const
{
    RadiusRange range;
    const bool isRange = ReadTypedRange(Trim(ToHalfWidth(text)), range).empty();
    return isRange ? ValuesOf(range) : Values();
}

CMyRecordItemValue::Values CRadiusRangeItem::Read(CXTPReportControl* control,
                                                  const CString& text) const
{
    if (text.empty()) return {};
    RadiusRange range;
    const CString fault = ReadTypedRange(text, range);
    if (fault.empty()) return ValuesOf(range);
    if (control)
        control->Tell(fault);
    else
        MessageBox(nullptr, fault, L"提示", MB_ICONINFORMATION);
    return {};
}
