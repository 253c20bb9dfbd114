// Tables of text with aligned columns on a terminal, where a Chinese character takes two columns.
#pragma once

#include "platform/mfc/String.h"

// Columns that the text takes on a terminal.
int DisplayWidth(const CString& text);

class TextTable {
public:
    // `alignRight` is how the columns behind the first one stand; the first stands left.
    explicit TextTable(bool alignRight = true) : m_alignRight(alignRight) {}

    // What acts on a line in a cell is shown instead.
    void AddRow(CStringArray cells);
    bool IsEmpty() const { return m_rows.empty(); }
    // The lines, each with `indent` blanks before it and none at its end.
    CStringArray Lines(int indent) const;

private:
    std::vector<int> Widths() const;

    bool m_alignRight;
    std::vector<CStringArray> m_rows;
};
