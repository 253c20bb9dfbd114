// Workbooks of the Office Open XML kind.
#pragma once

#include "sheets/Archive.h"
#include "sheets/ContentBudget.h"
#include "sheets/SheetGrid.h"

namespace designspec {

// The parts of such a workbook that hold the cells.
bool IsXlsxPart(std::string_view name);
// The sheets, in their order; none when it is no such workbook. Throws TooMuchContent. The parts
// are used up.
std::vector<SheetGrid> ReadXlsx(std::vector<ArchivePart>& parts, ContentBudget& budget);

} // namespace designspec
