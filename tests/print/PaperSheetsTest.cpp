#include "print/PaperSheets.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

const PaperFonts& Fonts()
{
    static const PaperFonts fonts;
    return fonts;
}

PaperRow Row(double height, bool keepsNext = false, std::ptrdiff_t head = -1)
{
    PaperRow row{&Fonts().text, height};
    row.keepsNext = keepsNext;
    row.head = head;
    return row;
}

// The rows of each sheet.
std::vector<std::vector<std::size_t>> Placed(const std::vector<PaperRow>& rows, double height)
{
    std::vector<std::vector<std::size_t>> sheets;
    for (const PaperSheet& sheet : PlaceRows(rows, height)) {
        sheets.emplace_back();
        double end = 0;
        for (const PlacedRow& placed : sheet) {
            EXPECT_GE(placed.top, end);
            end = placed.top + rows[placed.row].height;
            sheets.back().push_back(placed.row);
        }
        EXPECT_LE(end, height);
    }
    return sheets;
}

using Sheets = std::vector<std::vector<std::size_t>>;

} // namespace

TEST(PaperSheets, ARowThatDoesNotFitGoesToTheNextSheetWhole)
{
    EXPECT_EQ(Placed({Row(40), Row(40), Row(40)}, 100), (Sheets{{0, 1}, {2}}));
    EXPECT_EQ(Placed({Row(50), Row(50)}, 100), (Sheets{{0, 1}}));
    EXPECT_EQ(Placed({}, 100), Sheets{{}});
}

TEST(PaperSheets, NoCaptionEndsASheet)
{
    const std::vector<PaperRow> rows = {Row(60), Row(10, true), Row(10, true), Row(30)};
    EXPECT_EQ(Placed(rows, 100), (Sheets{{0}, {1, 2, 3}}));
    EXPECT_EQ(Placed(rows, 110), (Sheets{{0, 1, 2, 3}}));
}

TEST(PaperSheets, ATableThatGoesOnHasItsCaptionsAgain)
{
    std::vector<PaperRow> rows = {Row(10), Row(10, true)};
    for (int i = 0; i < 5; ++i)
        rows.push_back(Row(30, false, 1));
    EXPECT_EQ(Placed(rows, 100), (Sheets{{0, 1, 2, 3}, {1, 4, 5, 6}}));
}

TEST(PaperSheets, ATableThatBeginsASheetHasItsCaptionsOnce)
{
    EXPECT_EQ(Placed({Row(90), Row(10, true), Row(30, false, 1), Row(60, false, 1)}, 100),
              (Sheets{{0}, {1, 2, 3}}));
}

TEST(PaperSheets, WhiteAboveARowCountsButAtTheTop)
{
    std::vector<PaperRow> rows = {Row(40), Row(40), Row(100)};
    rows[0].before = rows[1].before = rows[2].before = 30;
    EXPECT_EQ(Placed(rows, 100), (Sheets{{0}, {1}, {2}}));
    EXPECT_EQ(PlaceRows(rows, 110).at(0).at(1).top, 70);
    EXPECT_EQ(PlaceRows(rows, 110).at(0).at(0).top, 0);
}

TEST(PaperSheets, WhatStartsASheetDoes)
{
    std::vector<PaperRow> rows = {Row(10, true), Row(10), Row(10)};
    rows[0].startsSheet = rows[2].startsSheet = true;
    EXPECT_EQ(Placed(rows, 100), (Sheets{{0, 1}, {2}}));
}

// Captions as high as half a sheet: what cannot stand together stands one by one.
TEST(PaperSheets, AGroupHigherThanASheetIsParted)
{
    EXPECT_EQ(Placed({Row(60, true), Row(60, false, 0), Row(60, false, 0)}, 100),
              (Sheets{{0}, {1}, {2}}));
}
