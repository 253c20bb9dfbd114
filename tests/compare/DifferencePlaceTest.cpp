#include "compare/DifferencePlace.h"

#include <set>

#include <gtest/gtest.h>

#include "base/Text.h"

using namespace designspec;

namespace {

// The value of that path among all of the built-in limits.
Change ValueOf(const CString& path)
{
    const CDesignSpecification one;
    for (Change& value : AllValues(one, one, one))
        if (value.path == path) return value;
    ADD_FAILURE() << "no " << ToUtf8(path);
    return {};
}

std::string Told(const CString& path)
{
    const GridCell cell = CellOf(ValueOf(path));
    return ToUtf8(cell.grid + L"|" + cell.row + L"|" + cell.column);
}

} // namespace

TEST(DifferencePlace, TablesBySpeedAreRowsOfOneGrid)
{
    const CString path = L"CircularCurveRad.SuperelevationMinRad[80]";
    EXPECT_EQ(TableOf(ValueOf(path)), L"设超高最小半径");
    EXPECT_EQ(Told(path), "CircularCurveRad|设超高最小半径|80 km/h");
    EXPECT_EQ(CellOf(ValueOf(path)).number, 80);
    EXPECT_EQ(TitleOf(ValueOf(path)), L"圆曲线半径 · 设超高最小半径");
}

TEST(DifferencePlace, RowsWithinRowsHaveTheirKeysAsCaptions)
{
    EXPECT_EQ(Told(L"LonGradMaxLen.rows[6].lengths[60]"), "LonGradMaxLen最大坡长|坡度 6%|60 km/h");
    EXPECT_EQ(TableOf(ValueOf(L"LonGradMaxLen.rows[6].lengths[60]")), L"最大坡长");
}

TEST(DifferencePlace, EachMaximumOfTheSuperelevationHasAGridOfItsOwn)
{
    const CDesignSpecification one;
    int seen = 0;
    for (const Change& value : AllValues(one, one, one)) {
        if (!value.path.starts_with(L"SuperElevation.definitions[6]")) continue;
        EXPECT_EQ(TableOf(value), L"最大超高 6%");
        EXPECT_TRUE(CellOf(value).row.starts_with(L"半径 ")) << ToUtf8(CellOf(value).row);
        EXPECT_TRUE(CellOf(value).column.ends_with(L" km/h")) << ToUtf8(CellOf(value).column);
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST(DifferencePlace, WhatIsInNoTableHasNoCell)
{
    EXPECT_EQ(TableOf(ValueOf(L"BeelineLen.MaxLen")), L"");
    EXPECT_EQ(Told(L"BeelineLen.MaxLen"), "||");
    EXPECT_EQ(TitleOf(ValueOf(L"Name")), L"名称");
}

// No two values of a grid share a cell, or one of them could not be seen.
TEST(DifferencePlace, EachValueHasACellOfItsOwn)
{
    const CDesignSpecification one;
    std::set<CString> cells;
    for (const Change& value : AllValues(one, one, one)) {
        const GridCell cell = CellOf(value);
        if (cell.grid.empty()) continue;
        EXPECT_TRUE(cells.insert(cell.grid + L"|" + cell.row + L"|" + cell.column).second)
            << ToUtf8(value.path);
    }
    EXPECT_GT(cells.size(), 100U);
}
