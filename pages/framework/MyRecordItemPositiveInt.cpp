#include "pages/framework/MyRecordItemPositiveInt.h"

#include "base/Format.h"
#include "base/Number.h"
#include "model/Rules.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

CString CMyRecordItemPositiveInt::TextOf(const Values& values) const
{
    return Format(L"%d", static_cast<int>(values.front()));
}

CMyRecordItemValue::Values CMyRecordItemPositiveInt::Read(CXTPReportControl*,
                                                          const CString& text) const
{
    const int value = Wtoi(text);
    if (!IsNumericText(text) || !IsTableValue(value)) return {};
    return {static_cast<double>(value)};
}
