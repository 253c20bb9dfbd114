#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(Text, WhatActsOnALineIsShownInstead)
{
    EXPECT_EQ(Printable(L"规范 1<b>\\"), L"规范 1<b>\\");
    EXPECT_EQ(Printable(L"a\r\n\tb"), L"a\\r\\n\\tb");
    EXPECT_EQ(Printable(std::wstring_view(L"\0\x1B[31m\x7F\x9B", 8)), L"\\x00\\x1B[31m\\x7F\\x9B");
    EXPECT_EQ(Printable(L"\x2028\x202E\x2066\x200F\x61C"), L"\\u2028\\u202E\\u2066\\u200F\\u061C");
    EXPECT_EQ(Printable(L"\xA0\x200B\xDC80"), L"\xA0\x200B\xDC80");
}

TEST(Text, TurnsUtf8IntoWideTextAndBack)
{
    const std::string utf8 = "规范A \xF0\x9D\x84\x9E α";
    EXPECT_EQ(ToWide(utf8), L"规范A \U0001D11E α");
    EXPECT_EQ(ToUtf8(ToWide(utf8)), utf8);
}

TEST(Text, KeepsBytesThatAreNotUtf8)
{
    const std::string bytes = "a\xB9\xE6\xFF"
                              "b";
    EXPECT_EQ(ToUtf8(ToWide(bytes)), bytes);
}

TEST(Text, FindsTheFirstByteThatIsNotUtf8)
{
    size_t offset = 99;
    EXPECT_TRUE(IsUtf8("规范 plain text that is longer than one word", offset));
    EXPECT_EQ(offset, 99U);
    EXPECT_FALSE(IsUtf8("12345678规\xB9\xE6", offset));
    EXPECT_EQ(offset, 11U);
    EXPECT_FALSE(IsUtf8("\xC0\x80", offset)); // an over-long NUL
    EXPECT_EQ(offset, 0U);
}

TEST(Text, TrimsUnicodeWhiteSpace)
{
    EXPECT_EQ(Trim(L" \t\r\n　甲 乙　\u00A0"), L"甲 乙");
    EXPECT_EQ(TrimRight(L"  a "), L"  a");
    EXPECT_EQ(Trim(L"   "), L"");
    EXPECT_EQ(TrimRight(L"1200/ a", L" \ta/"), L"1200");
}

TEST(Text, SplitsAtAnySeparatorAndLeavesEmptyPartsOut)
{
    EXPECT_EQ(SplitText(L"道路/平面\\规范", L"/\\"),
              (std::vector<std::wstring>{L"道路", L"平面", L"规范"}));
    EXPECT_EQ(SplitText(L"/a//\\b/", L"/\\"), (std::vector<std::wstring>{L"a", L"b"}));
    EXPECT_EQ(SplitText(L"a b", L"/"), (std::vector<std::wstring>{L"a b"}));
    EXPECT_TRUE(SplitText(L"", L"/").empty());
    EXPECT_TRUE(SplitText(L"//", L"/").empty());
}

TEST(DisplayWidth, CountsTwoColumnsForChineseCharactersAndFullWidthForms)
{
    EXPECT_EQ(DisplayWidth(L""), 0);
    EXPECT_EQ(DisplayWidth(L"km/h"), 4);
    EXPECT_EQ(DisplayWidth(L"车速"), 4);
    EXPECT_EQ(DisplayWidth(L"车速(km/h)"), 10);
    EXPECT_EQ(DisplayWidth(L"２０"), 4);
    EXPECT_EQ(DisplayWidth(L"《规范》"), 8);
}

TEST(DisplayWidth, CountsNothingForACombiningMark)
{
    EXPECT_EQ(DisplayWidth(L"e\u0301"), 1);
}

TEST(DisplayWidth, CountsACharacterBeyondTheBasicPlaneOnce)
{
    EXPECT_EQ(DisplayWidth(L"\U00020BB7"), 2);
}
