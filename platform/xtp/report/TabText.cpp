#include "platform/xtp/report/TabText.h"

namespace {

// Takes one cell off the front of `text`, up to the tab or line break behind it.
CString TakeCell(std::wstring_view& text)
{
    CString cell;
    bool quoted = !text.empty() && text.front() == L'"';
    if (quoted) text.remove_prefix(1);
    while (!text.empty()) {
        const wchar_t c = text.front();
        if (quoted && c == L'"') {
            text.remove_prefix(1);
            quoted = !text.empty() && text.front() == L'"';
            if (!quoted) continue;
        } else if (!quoted && (c == L'\t' || c == L'\r' || c == L'\n')) {
            break;
        }
        cell.push_back(c);
        text.remove_prefix(1);
    }
    return cell;
}

void TakeLineBreak(std::wstring_view& text)
{
    if (text.starts_with(L"\r\n"))
        text.remove_prefix(2);
    else if (!text.empty())
        text.remove_prefix(1);
}

CString Quote(const CString& cell)
{
    if (cell.find_first_of(L"\t\r\n\"") == CString::npos) return cell;
    CString quoted = L"\"";
    for (wchar_t c : cell) {
        if (c == L'"') quoted += c;
        quoted += c;
    }
    return quoted + L'"';
}

} // namespace

std::vector<CStringArray> designspec::ParseTabText(std::wstring_view text)
{
    std::vector<CStringArray> rows;
    while (!text.empty()) {
        CStringArray& row = rows.emplace_back();
        row.push_back(TakeCell(text));
        while (!text.empty() && text.front() == L'\t') {
            text.remove_prefix(1);
            row.push_back(TakeCell(text));
        }
        TakeLineBreak(text);
    }
    return rows;
}

CString designspec::FormatTabText(const std::vector<CStringArray>& rows)
{
    CString text;
    for (size_t r = 0; r < rows.size(); ++r) {
        if (r > 0) text += L'\n';
        for (size_t c = 0; c < rows[r].size(); ++c) {
            if (c > 0) text += L'\t';
            text += Quote(rows[r][c]);
        }
    }
    return text;
}
