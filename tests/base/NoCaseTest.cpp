#include "base/NoCase.h"

#include <iterator>
#include <random>

#include <gtest/gtest.h>
#include <utf8proc.h>

#include "base/CodePoint.h"
#include "base/Text.h"

using namespace designspec;

namespace {

// Character by character as Unicode says, without any short way.
std::wstring FullyFolded(const std::wstring& text)
{
    std::wstring folded;
    for (std::wstring_view rest = text; !rest.empty();) {
        const char32_t code = TakeCodePoint(rest);
        utf8proc_int32_t to[8] = {};
        int boundary = 0;
        const auto count = utf8proc_decompose_char(static_cast<utf8proc_int32_t>(code), to,
                                                   std::ssize(to), UTF8PROC_CASEFOLD, &boundary);
        if (count < 0) AppendCodePoint(code, folded); // no character
        for (auto i = 0; i < count; ++i)
            AppendCodePoint(static_cast<char32_t>(to[i]), folded);
    }
    return folded;
}

void ExpectFolded(const std::wstring& text)
{
    const std::wstring expected = FullyFolded(text);
    const NoCaseText asked(text);
    const NoCaseKey key(text);
    ASSERT_EQ(asked.Folded(), expected) << ToUtf8(text);
    ASSERT_EQ(key.Folded(), expected);
    ASSERT_EQ(asked.HashCode(), HashOfFolded(expected));
    ASSERT_EQ(NoCaseKey::Hash()(key), asked.HashCode());
}

} // namespace

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

TEST(NoCase, FindsAnEndingIgnoringCase)
{
    EXPECT_TRUE(EndsInNoCase(L"公路.HDS", L".hds"));
    EXPECT_TRUE(EndsInNoCase(L".hds", L".hds"));
    EXPECT_TRUE(EndsInNoCase(L"公路", L""));
    EXPECT_FALSE(EndsInNoCase(L"hds", L".hds"));
    EXPECT_FALSE(EndsInNoCase(L"公路.hds~", L".hds"));
    EXPECT_FALSE(EndsInNoCase(L"", L".hds"));
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

TEST(NoCaseText, FoldsEachCharacterAsUnicodeSays)
{
    for (char32_t code = 1; code <= 0x10FFFF; ++code) {
        std::wstring text;
        AppendCodePoint(code, text);
        ExpectFolded(text);
        ExpectFolded(L'A' + text + L'规');
        if (HasFatalFailure()) return;
    }
}

TEST(NoCaseText, FoldsNamesOfAnyLength)
{
    std::mt19937 random(20241122);
    const std::wstring_view plain = L"JTG D20-2017z 城市道路设计规范(1)㐀ꓽ";
    const std::wstring_view any = L"JTG D20城市ＡＢİßΟΣẞﬃὈ𐐀";
    for (int i = 0; i < 20000; ++i) {
        const std::wstring_view from = i % 2 == 0 ? plain : any;
        std::wstring text(random() % 150, L' ');
        for (wchar_t& c : text)
            c = from[random() % from.size()];
        ExpectFolded(text);
        if (HasFatalFailure()) return;
    }
}

TEST(NoCaseText, TellsNamesApartThatAreNearlyTheSame)
{
    const std::wstring name = L"城市道路设计规范1234567890";
    for (size_t i = 0; i < name.size(); ++i) {
        std::wstring other = name;
        ++other[i];
        EXPECT_NE(NoCaseText(other).HashCode(), NoCaseText(name).HashCode()) << i;
        EXPECT_NE(NoCaseText(name.substr(0, i)).HashCode(), NoCaseText(name).HashCode()) << i;
    }
}
