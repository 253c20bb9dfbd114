#include "sheets/CellText.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"

namespace designspec {

namespace {

constexpr std::wstring_view kSign = L"&#";
constexpr std::size_t kLongestSign = 9; // before its semicolon
constexpr int kLastCharacter = 0x10FFFF;

// In files of spreadsheets "_x000D_" stands for a sign as well.
bool IsFileSign(std::wstring_view text)
{
    return text.size() >= 7 && text.starts_with(L"_x") && text[6] == L'_' &&
           text.substr(2, 4).find_first_not_of(L"0123456789ABCDEFabcdef") ==
               std::wstring_view::npos;
}

// Of several blanks, and of those at the ends, programs make fewer.
bool IsLostBlank(std::wstring_view text, std::size_t at)
{
    const bool isBlank = Trim(text.substr(at, 1)).empty();
    return isBlank &&
           (text[at] != L' ' || at == 0 || at + 1 == text.size() || text[at - 1] == L' ');
}

bool MustBeWritten(std::wstring_view text, std::size_t at)
{
    const std::wstring_view rest = text.substr(at);
    return rest.front() < L' ' || rest.starts_with(kSign) || IsFileSign(rest) ||
           IsLostBlank(text, at);
}

} // namespace

CString CellText(const CString& text)
{
    CString cell;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (MustBeWritten(text, at))
            cell += CString(kSign) + std::to_wstring(static_cast<int>(text[at])) + L';';
        else
            cell += text[at];
    }
    return cell;
}

CString FromCell(const CString& text)
{
    CString result;
    for (std::size_t at = 0; at < text.size();) {
        int code = 0;
        const std::size_t end = text.find(L';', at);
        if (text.compare(at, kSign.size(), kSign) == 0 && end != CString::npos &&
            end - at <= kLongestSign && ParseInt(ToUtf8(text.substr(at + 2, end - at - 2)), code) &&
            code > 0 && code <= kLastCharacter) {
            result += static_cast<wchar_t>(code);
            at = end + 1;
        } else {
            result += text[at++];
        }
    }
    return result;
}

CString CellName(int row, int column)
{
    CString letters;
    for (int left = column + 1; left > 0; left = (left - 1) / 26)
        letters += static_cast<wchar_t>(L'A' + (left - 1) % 26);
    std::reverse(letters.begin(), letters.end());
    return letters + std::to_wstring(row + 1);
}

} // namespace designspec
