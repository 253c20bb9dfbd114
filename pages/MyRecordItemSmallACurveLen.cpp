#include "pages/MyRecordItemSmallACurveLen.h"

#include "base/CaptionIndex.h"
#include "base/WrittenNumber.h"

using namespace designspec;

IMPLEMENT_DYNCREATE(CMyRecordItemSmallACurveLen, CXTPReportRecordItem)

CString CMyRecordItemSmallACurveLen::TextOf(const Values& values) const
{
    return CMyRecordItemPositiveInt::TextOf(values) + L"/α";
}

CString CMyRecordItemSmallACurveLen::ReadPasted(const CString& text) const
{
    const CString plain = PlainText(text);
    const size_t perAngle = plain.find(L'/');
    const CString length = WrittenNumber(plain.substr(0, perAngle), GetUnit());
    return perAngle == CString::npos ? length : length + plain.substr(perAngle);
}

CMyRecordItemValue::Values CMyRecordItemSmallACurveLen::Read(CXTPReportControl* control,
                                                             const CString& text) const
{
    CString number = text;
    std::erase(number, L'α');
    number.erase(number.find_last_not_of(L" \ta/") + 1);
    return CMyRecordItemPositiveInt::Read(control, number);
}
