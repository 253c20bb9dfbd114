// Text with columns.
#pragma once

#include <optional>
#include <string_view>

#include "sheets/ContentBudget.h"
#include "sheets/SheetGrid.h"

namespace designspec {

// The one sheet, without a name, of such a text in UTF-8, UTF-16 or GB18030; comma, semicolon or
// tab, whichever its first lines have most of. Nothing when it is no text, or no such. Throws
// TooMuchContent.
std::optional<SheetGrid> ReadCsv(std::string_view bytes, ContentBudget& budget);

} // namespace designspec
