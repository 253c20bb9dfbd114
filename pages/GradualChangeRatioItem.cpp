#include "pages/GradualChangeRatioItem.h"

#include "base/Format.h"
#include "base/Number.h"
#include "base/WrittenNumber.h"
#include "model/Rules.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

namespace {

constexpr std::wstring_view kOnePer = L"1/";

} // namespace

CGradualChangeRatioItem::CGradualChangeRatioItem(int value, bool empty)
{
    if (!empty) SetValue(value);
}

CString CGradualChangeRatioItem::ReadPasted(const CString& text) const
{
    return WrittenRatio(text);
}

CString CGradualChangeRatioItem::GetRule() const
{
    return RangeText(L"1/n 的 n", kLeastRunoff, kMostRunoff);
}

CString CGradualChangeRatioItem::TextOf(const Values& values) const
{
    return Format(L"1/%d", static_cast<int>(values.front()));
}

CMyRecordItemValue::Values CGradualChangeRatioItem::Read(CXTPReportControl*,
                                                         const CString& text) const
{
    const CString number = text.starts_with(kOnePer) ? text.substr(kOnePer.size()) : text;
    const int value = Wtoi(number);
    if (!IsNumericText(number) || !IsRunoff(value)) return {};
    return {static_cast<double>(value)};
}
