// What people write in cells, read as values.
#pragma once

#include <optional>

#include "model/FieldValue.h"

namespace designspec {

// True for what stands where there is nothing: an empty cell, a dash.
bool IsBlank(const CString& text);

// Reads the value of a field: full-width digits, a unit behind it, 1/125, 是 and 否, and the word
// that a 0 stands for. Returns what is wrong, for people, or an empty text.
CString ReadCell(const Field& field, const CString& unit, const CString& text, Value& value);

// A design speed: 80, 80km/h, V=80.
std::optional<std::int32_t> ReadSpeed(const CString& text);

struct RadiusRange {
    std::int32_t min = 0;
    std::int32_t max = 0;
};
// 200~300, 200-300 m, 200 < R ≤ 300, 300≥R>200.
std::optional<RadiusRange> ReadRange(const CString& text);

} // namespace designspec
