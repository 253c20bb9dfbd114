// Rows placed on sheets: none is cut, none that belongs to the next one ends a sheet, and a table
// that goes on has its captions again.
#pragma once

#include "print/PaperRows.h"

namespace designspec {

struct PlacedRow {
    std::size_t row;
    double top; // from the top of the text
};

using PaperSheet = std::vector<PlacedRow>;

// On sheets whose text is so high. At least one sheet.
std::vector<PaperSheet> PlaceRows(const std::vector<PaperRow>& rows, double height);

} // namespace designspec
