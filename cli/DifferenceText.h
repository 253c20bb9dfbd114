// Lists of differences as commands print them.
#pragma once

#include "cli/JsonText.h"
#include "model/Differences.h"

// Path, label, key, left and right, null where a side has none.
Json ToJson(const designspec::Difference& difference);
// One line for each: criterion, value, place in its table, what was and what is; as JSON an array
// of them.
void PrintDifferences(const std::vector<designspec::Difference>& differences, bool asJson);
