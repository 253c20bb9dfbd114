// Tables of text with aligned columns on a terminal, where a Chinese character takes two columns.
#pragma once

#include <map>

#include "platform/mfc/String.h"

// Codes of a terminal.
inline constexpr wchar_t kRed[] = L"\x1b[31m";
inline constexpr wchar_t kGreen[] = L"\x1b[32m";
inline constexpr wchar_t kBold[] = L"\x1b[1m";
// The text between such a code and its end.
CString InColour(const CString& text, const wchar_t* colour);

class TextTable {
public:
    // `alignRight` is how the columns behind the first one stand; the first stands left.
    explicit TextTable(bool alignRight = true) : m_alignRight(alignRight) {}

    // What acts on a line in a cell is shown instead.
    void AddRow(CStringArray cells);
    bool IsEmpty() const { return m_rows.empty(); }
    // The cells of that column stand in a colour, which a terminal's code begins.
    void Paint(size_t column, const wchar_t* colour) { m_colours[column] = colour; }
    // The lines, each with `indent` blanks before it and none at its end.
    CStringArray Lines(int indent) const;

private:
    std::vector<int> Widths() const;

    bool m_alignRight;
    std::vector<CStringArray> m_rows;
    std::map<size_t, const wchar_t*> m_colours; // by column
};
