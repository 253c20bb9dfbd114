// Lists of differences, for people and as JSON.
#pragma once

#include "cli/JsonText.h"
#include "model/Differences.h"

// What stands in place of a value that one side does not have.
inline constexpr wchar_t kNoValue[] = L"(无)";

// The differences in aligned columns, below the name of their criterion: what differs, where in its
// table, the value before and after.
void PrintDifferences(const std::vector<designspec::Difference>& differences);
// Changes that are in conflict, likewise: what was there, ours, theirs.
void PrintConflicts(const std::vector<designspec::Change>& changes);

// criterion (null for the name), path, label, key (empty when it stands in no table), left and
// right (null when there is none).
Json ToJson(const designspec::Difference& difference);
// The same with base, mine, theirs, and by: mine, theirs, both, conflict.
Json ToJson(const designspec::Change& change);
template <class Entry> Json ListJson(const std::vector<Entry>& entries)
{
    Json list = Json::array();
    for (const Entry& one : entries)
        list.push_back(ToJson(one));
    return list;
}
