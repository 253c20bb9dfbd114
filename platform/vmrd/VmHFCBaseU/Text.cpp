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

CStringArray SplitText(std::wstring_view text, std::wstring_view separators)
{
    CStringArray parts;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find_first_of(separators, start), text.size());
        if (end > start) parts.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}
