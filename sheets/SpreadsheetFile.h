// The sheets of a spreadsheet file, whichever program wrote it.
#pragma once

#include <string_view>

#include "base/Problem.h"
#include "sheets/SheetGrid.h"

namespace designspec {

// Reads a workbook (.xlsx or .ods) or text with columns (.csv: comma, semicolon or tab; UTF-8,
// UTF-16 or GB18030), known by its content; formulas by their stored result. Empty with a problem
// when it is none, or when it takes more than is in proportion to its size: no file makes this
// crash, hang or take unlimited memory. `path` is for the problems.
std::vector<SheetGrid> ReadSpreadsheet(std::string_view bytes, const CString& path,
                                       Problems& problems);

} // namespace designspec
