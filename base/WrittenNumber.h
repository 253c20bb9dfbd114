// Numbers as people write them in tables, turned into the texts that are read as values.
#pragma once

#include <string>
#include <string_view>

namespace designspec {

// What a number, a ratio or a range reads without thousands commas, unit, sign of comparison and
// full-width forms: "1,500" and "≥1500m" give "1500", "1:125" "1/125", "200至300 m" "200~300".
// Another text comes back as it is. `unit` is the one that may stand behind a number: "5%" is none
// in metres.
std::wstring WrittenNumber(const std::wstring& text, std::wstring_view unit);
std::wstring WrittenRatio(const std::wstring& text);
std::wstring WrittenRange(const std::wstring& text, std::wstring_view unit);

} // namespace designspec
