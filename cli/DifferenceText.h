// Lists of differences as commands print them.
#pragma once

#include "cli/JsonText.h"
#include "model/Differences.h"

// One line for each: criterion, value, place in its table, what was and what is; as JSON an array
// of path, label, key, left and right, null where a side has none.
void PrintDifferences(const std::vector<designspec::Difference>& differences, bool asJson);
