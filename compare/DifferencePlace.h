// Where a value stands among the differences: its page, the row or table of the page, and its cell
// when the values around it are seen as a grid.
#pragma once

#include "model/Differences.h"

namespace designspec {

// 设超高最小半径, 最大超高 6%; empty for a value that stands in no table.
CString TableOf(const DifferingValue& value);

struct GridCell {
    CString grid;   // the same for values of one grid of a page; empty: in none
    CString row;    // 设超高最小半径; 半径 200~300 m
    CString column; // 80 km/h; 普通汽车
    // By which columns stand, highest first; those without a number stand as they come.
    std::optional<double> number = std::nullopt;
};
GridCell CellOf(const DifferingValue& value);

// 圆曲线半径 · 设超高最小半径
CString TitleOf(const DifferingValue& value);

} // namespace designspec
