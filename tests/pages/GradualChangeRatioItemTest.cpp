#include "pages/GradualChangeRatioItem.h"

#include "base/Format.h"
#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(GradualChangeRatioItem, IsMadeEmptyOrWithAValue)
{
    CGradualChangeRatioItem empty;
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(empty.GetCaption(), L"");
    EXPECT_TRUE(CGradualChangeRatioItem(150, true).IsEmpty());
    CGradualChangeRatioItem filled(150, false);
    EXPECT_FALSE(filled.IsEmpty());
    EXPECT_EQ(filled.GetValue(), 150);
    EXPECT_EQ(filled.GetCaption(), L"1/150");
}

TEST(GradualChangeRatioItem, IsEnteredWithAndWithoutOnePer)
{
    const std::pair<const wchar_t*, int> kCases[] = {
        {L"150", 150}, {L"1/150", 150}, {L" 1/150 ", 150}, {L"2", 2},
        {L"1/2", 2},   {L"999", 999},   {L"1/999.9", 999}, {L"12.7", 12},
    };
    for (const auto& [text, value] : kCases) {
        CGradualChangeRatioItem cell;
        cell.OnEditChanged(nullptr, text);
        EXPECT_FALSE(cell.IsEmpty()) << ToUtf8(text);
        EXPECT_EQ(cell.GetValue(), value) << ToUtf8(text);
        EXPECT_EQ(cell.GetCaption(), Format(L"1/%d", value));
    }
}

TEST(GradualChangeRatioItem, BadInputEmptiesIt)
{
    for (const wchar_t* text :
         {L"", L"  ", L"1/", L"1", L"1/1", L"0", L"1.9", L"1000", L"1/1000", L"2/150", L"1/1/20",
          L"1 / 150", L"1/ 150", L"-5", L"+5", L"abc", L"99999999999"}) {
        CGradualChangeRatioItem cell(5, false);
        cell.OnEditChanged(nullptr, text);
        EXPECT_TRUE(cell.IsEmpty()) << ToUtf8(text);
        EXPECT_EQ(cell.GetCaption(), L"");
    }
}

TEST(GradualChangeRatioItem, ReadsPastedRatios)
{
    const CGradualChangeRatioItem cell;
    for (const wchar_t* text : {L"1/125", L"1：125", L"125", L"１／１２５"})
        EXPECT_EQ(cell.ReadPasted(text), L"1/125");
}
