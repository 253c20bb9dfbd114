// Texts in cells, and what cells are called.
#pragma once

#include "platform/mfc/String.h"

namespace designspec {

// A text as a cell keeps it through every spreadsheet program: tabs, line breaks and blanks that
// some lose are written as "&#9;", and so is what would read as such a sign.
CString CellText(const CString& text);
// The text that stands in a cell.
CString FromCell(const CString& text);

// "C5", of a row and a column counted from 0.
CString CellName(int row, int column);

} // namespace designspec
