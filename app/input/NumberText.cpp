#include "app/input/NumberText.h"

#include "base/Format.h"
#include "base/HalfWidth.h"
#include "base/Number.h"
#include "base/Text.h"
#include "platform/vmrd/VmHFCBaseU/Text.h"

using namespace designspec;

CString EnteredText(const CString& text)
{
    return Trim(ToHalfWidth(text));
}

CString DecimalText(double value, int decimals, bool trim)
{
    CString text = Format(Format(L"%%.%df", decimals).c_str(), value);
    // Without a point every zero counts.
    if (!trim || text.find(L'.') == CString::npos) return text;
    return TrimRight(TrimRight(text, L"0"), L".");
}

bool ReadOneDecimal(const CString& text, double& value)
{
    value = Wtof(text);
    const size_t point = text.find(L'.');
    return IsNumericText(text) && (point == CString::npos || point + 2 >= text.size());
}

bool ReadWholeNumber(const CString& text, int& value)
{
    value = Wtoi(text);
    return Format(L"%d", value) == text;
}
