// Workbooks of the OpenDocument kind.
#pragma once

#include "sheets/Archive.h"
#include "sheets/ContentBudget.h"
#include "sheets/SheetGrid.h"

namespace designspec {

// The part of such a workbook that holds the cells.
bool IsOdsPart(std::string_view name);
// The sheets, in their order; none when it is no such workbook. Throws TooMuchContent.
std::vector<SheetGrid> ReadOds(const std::vector<ArchivePart>& parts, ContentBudget& budget);

} // namespace designspec
