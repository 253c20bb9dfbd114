#include "base/Html.h"

#include "base/Text.h"

namespace designspec {

std::wstring HtmlText(std::wstring_view text)
{
    std::wstring escaped;
    for (const wchar_t c : Printable(text))
        switch (c) {
        case L'&':
            escaped += L"&amp;";
            break;
        case L'<':
            escaped += L"&lt;";
            break;
        case L'>':
            escaped += L"&gt;";
            break;
        case L'"':
            escaped += L"&quot;";
            break;
        default:
            escaped += c;
        }
    return escaped;
}

} // namespace designspec
