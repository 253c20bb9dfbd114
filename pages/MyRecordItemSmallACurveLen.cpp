#include "pages/MyRecordItemSmallACurveLen.h"

IMPLEMENT_DYNCREATE(CMyRecordItemSmallACurveLen, CXTPReportRecordItem)

CString CMyRecordItemSmallACurveLen::TextOf(const Values& values) const
{
    return CMyRecordItemPositiveInt::TextOf(values) + L"/α";
}

CMyRecordItemValue::Values CMyRecordItemSmallACurveLen::Read(CXTPReportControl* control,
                                                             const CString& text) const
{
    CString number = text;
    std::erase(number, L'α');
    number.erase(number.find_last_not_of(L" \ta/") + 1);
    return CMyRecordItemPositiveInt::Read(control, number);
}
