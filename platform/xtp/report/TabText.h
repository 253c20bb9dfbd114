// Tab-separated text, as spreadsheets put it on the clipboard.
#pragma once

#include <vector>

#include "base/Export.h"
#include "platform/mfc/String.h"

namespace designspec {

// Rows of cells; rows may differ in length. A line break at the very end ends the last row. A
// cell in double quotes may hold tabs, line breaks and doubled quotes. No text, no rows.
AFX_EXT_API std::vector<CStringArray> ParseTabText(std::wstring_view text);
// The way back; a cell that holds a tab, a line break or a quote is quoted.
AFX_EXT_API CString FormatTabText(const std::vector<CStringArray>& rows);

} // namespace designspec
