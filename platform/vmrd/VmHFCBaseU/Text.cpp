#include "platform/vmrd/VmHFCBaseU/Text.h"

bool IsNumericText(std::wstring_view text)
{
    int digits = 0;
    int points = 0;
    for (wchar_t c : text) {
        if (c >= L'0' && c <= L'9')
            ++digits;
        else if (c == L'.')
            ++points;
        else
            return false;
    }
    return digits > 0 && points <= 1;
}
