#include "platform/mfc/Text.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(TrimLeft(L"  a "), L"a ");
    EXPECT_EQ(TrimRight(L"  a "), L"  a");
    EXPECT_EQ(Trim(L"   "), L"");
    EXPECT_EQ(TrimRight(L"1200/ a", L" \ta/"), L"1200");
}

TEST(Text, ComparesIgnoringCase)
{
    EXPECT_TRUE(EqualNoCase(L"Road", L"rOAD"));
    EXPECT_TRUE(EqualNoCase(L"STRASSE", L"straße"));
    EXPECT_TRUE(EqualNoCase(L"ΟΔΟΣ", L"οδος"));
    EXPECT_FALSE(EqualNoCase(L"规范", L"规範"));
    EXPECT_FALSE(EqualNoCase(L"a", L"ab"));
    EXPECT_LT(CompareNoCase(L"a", L"B"), 0);
    EXPECT_GT(CompareNoCase(L"b", L"A"), 0);
    EXPECT_EQ(CompareNoCase(L"", L""), 0);
}

TEST(Text, FormatsAsPrintfDoes)
{
    EXPECT_EQ(Format(L"%s(%d)", CString(L"规范"), 2), L"规范(2)");
    EXPECT_EQ(Format(L"%.1f", 2.25), L"2.2");
}

TEST(NoCaseKey, EqualsExactlyWhereTheTextsAreEqualIgnoringCase)
{
    const CString texts[] = {L"",       L"Road", L"rOAD",   L"road ",  L"STRASSE",
                             L"straße", L"ΟΔΟΣ", L"οδος",   L"规范A",  L"规范a",
                             L"规范",   L"范规", L"ＡＢＣ", L"ａｂｃ", L"ꓐ"};
    int equal = 0;
    for (const CString& a : texts) {
        for (const CString& b : texts) {
            const bool same = NoCaseKey(a) == NoCaseKey(b);
            EXPECT_EQ(same, EqualNoCase(a, b)) << ToUtf8(a) << " and " << ToUtf8(b);
            equal += same;
        }
    }
    EXPECT_EQ(equal, 15 + 2 * 5); // each with itself, and five pairs both ways
}

TEST(NoCaseKey, OfNothingIsThatOfAnEmptyText)
{
    EXPECT_EQ(NoCaseKey(), NoCaseKey(L""));
}
