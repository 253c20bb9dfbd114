#include "pages/framework/MyRecordItemPositiveDouble.h"

#include "app/input/NumberText.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

CMyRecordItemPositiveDouble::CMyRecordItemPositiveDouble(int decimals, bool trimZeros)
    : m_bTrimZeros(trimZeros), m_nDecimals(decimals)
{
}

CMyRecordItemPositiveDouble::CMyRecordItemPositiveDouble(int decimals, bool trimZeros, double value)
    : CMyRecordItemPositiveDouble(decimals, trimZeros)
{
    SetValue(value);
}

// Where that is no number that could be typed, such as 1e+20, it is the caption.
CString CMyRecordItemPositiveDouble::GetExactText() const
{
    const CString exact = IsEmpty() ? CString() : ToWide(DoubleToText(GetValue()));
    return IsNumericText(exact) ? exact : GetCaption();
}

CString CMyRecordItemPositiveDouble::TextOf(const Values& values) const
{
    return DecimalText(values.front(), m_nDecimals, m_bTrimZeros);
}

CMyRecordItemValue::Values CMyRecordItemPositiveDouble::Read(CXTPReportControl*,
                                                             const CString& text) const
{
    if (!IsNumericText(text)) return {};
    return {Wtof(text)};
}
