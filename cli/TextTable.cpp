#include "cli/TextTable.h"

#include "base/Text.h"

#include <algorithm>

using namespace designspec;

namespace {

constexpr int kGap = 2; // columns between two columns of the table

CString Blanks(int count)
{
    return CString(static_cast<size_t>(std::max(count, 0)), L' ');
}

} // namespace

CString InColour(const CString& text, const wchar_t* colour)
{
    return text.empty() ? text : colour + text + L"\x1b[0m";
}

void TextTable::AddRow(CStringArray cells)
{
    for (CString& cell : cells)
        cell = Printable(cell);
    m_rows.push_back(std::move(cells));
}

std::vector<int> TextTable::Widths() const
{
    std::vector<int> widths;
    for (const CStringArray& row : m_rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], DisplayWidth(row[i]));
    }
    return widths;
}

CStringArray TextTable::Lines(int indent) const
{
    const std::vector<int> widths = Widths();
    CStringArray lines;
    for (const CStringArray& row : m_rows) {
        CString line = Blanks(indent);
        for (size_t i = 0; i < row.size(); ++i) {
            const CString padding = Blanks(widths[i] - DisplayWidth(row[i]));
            if (i > 0) line += Blanks(kGap);
            const auto colour = m_colours.find(i);
            const CString cell =
                colour == m_colours.end() ? row[i] : InColour(row[i], colour->second);
            line += i > 0 && m_alignRight ? padding + cell : cell + padding;
        }
        lines.push_back(TrimRight(line, L" "));
    }
    return lines;
}
