#include "base/NoCase.h"

#include <gtest/gtest.h>

#include "base/Text.h"

using namespace designspec;

TEST(NoCase, ComparesIgnoringCase)
{
    EXPECT_TRUE(EqualNoCase(L"Road", L"rOAD"));
    EXPECT_TRUE(EqualNoCase(L"STRASSE", L"straße"));
    EXPECT_TRUE(EqualNoCase(L"ΟΔΟΣ", L"οδος"));
    EXPECT_TRUE(EqualNoCase(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ", L"abcdefghijklmnopqrstuvwxyz"));
    EXPECT_FALSE(EqualNoCase(L"@[", L"`{")); // beside the letters
    EXPECT_FALSE(EqualNoCase(L"规范", L"规範"));
    EXPECT_FALSE(EqualNoCase(L"a", L"ab"));
    EXPECT_LT(CompareNoCase(L"a", L"B"), 0);
    EXPECT_GT(CompareNoCase(L"b", L"A"), 0);
    EXPECT_LT(CompareNoCase(L"A", L"ab"), 0);
    EXPECT_GT(CompareNoCase(L"AB", L"a"), 0);
    EXPECT_EQ(CompareNoCase(L"", L""), 0);
}

TEST(NoCaseKey, EqualsExactlyWhereTheTextsAreEqualIgnoringCase)
{
    const std::wstring texts[] = {L"",       L"Road", L"rOAD",   L"road ",  L"STRASSE",
                                  L"straße", L"ΟΔΟΣ", L"οδος",   L"规范A",  L"规范a",
                                  L"规范",   L"范规", L"ＡＢＣ", L"ａｂｃ", L"ꓐ"};
    int equal = 0;
    for (const std::wstring& a : texts) {
        for (const std::wstring& b : texts) {
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

TEST(NoCaseKey, BeginsAndEndsAsItsTextDoes)
{
    EXPECT_EQ(NoCaseKey(L"STRASSE(1)").Folded(), NoCaseKey(L"straße").Folded() + L"(1)");
    EXPECT_EQ(NoCaseKey::Hash()(NoCaseKey(L"Road")), NoCaseKey::Hash()(NoCaseKey(L"ROAD")));
}
