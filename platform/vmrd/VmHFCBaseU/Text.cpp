#include "platform/vmrd/VmHFCBaseU/Text.h"

#include "base/Number.h"

bool IsNumericText(std::wstring_view text)
{
    return designspec::IsPlainNumber(text);
}
