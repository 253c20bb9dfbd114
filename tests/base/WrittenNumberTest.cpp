#include "base/WrittenNumber.h"

#include <gtest/gtest.h>

#include "base/Text.h"

using namespace designspec;

TEST(WrittenNumber, ReadsNumbersWithUnits)
{
    for (const wchar_t* text : {L"1500", L"1,500", L"１，５００", L"1500m", L"1,500 ｍ", L"≥1500",
                                L">= 1500 m", L"＜1500", L"1500米", L"\u00a01500 "})
        EXPECT_EQ(WrittenNumber(text, L"m"), L"1500") << ToUtf8(text);
    EXPECT_EQ(WrittenNumber(L"12,345.60", L"m"), L"12345.60");
    EXPECT_EQ(WrittenNumber(L"5%", L"%"), L"5");
    EXPECT_EQ(WrittenNumber(L"≤ ５．５％", L"%"), L"5.5");
    for (const wchar_t* text : {L"", L"m", L"abc", L"5%", L"1,5", L"1,50,000", L",500", L"1500,",
                                L"5km", L"1/125", L"200-300", L"-5", L"1500 m m", L"5 6"})
        EXPECT_EQ(WrittenNumber(text, L"m"), text) << ToUtf8(text);
    EXPECT_EQ(WrittenNumber(L"250m", L"%"), L"250m");
}

TEST(WrittenNumber, ReadsRatios)
{
    for (const wchar_t* text : {L"1/125", L"１／１２５", L"1:125", L"1：125", L"125", L"1/ 125"})
        EXPECT_EQ(WrittenRatio(text), L"1/125") << ToUtf8(text);
    for (const wchar_t* text : {L"", L"2/125", L"1/125m", L"abc", L"1/1/125"})
        EXPECT_EQ(WrittenRatio(text), text) << ToUtf8(text);
}

TEST(WrittenNumber, ReadsRanges)
{
    for (const wchar_t* text : {L"200~300", L"200-300", L"200～300", L"200至300", L"200—300",
                                L"200 – 300 m", L"200m~300m", L"２００－３００"})
        EXPECT_EQ(WrittenRange(text, L"m"), L"200~300") << ToUtf8(text);
    EXPECT_EQ(WrittenRange(L"1,500-2,000", L"m"), L"1500~2000");
    for (const wchar_t* text :
         {L"", L"300", L"250 300", L"250,300", L"-5~300", L"1~2~3", L"1-2-3", L"200~"})
        EXPECT_EQ(WrittenRange(text, L"m"), text) << ToUtf8(text);
}
