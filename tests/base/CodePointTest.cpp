#include "base/CodePoint.h"

#include <vector>

#include <gtest/gtest.h>

#include "base/CaptionIndex.h"
#include "base/Format.h"
#include "base/NoCase.h"
#include "base/Text.h"
#include "base/XmlCheck.h"

using namespace designspec;

namespace {

template <class Unit> std::vector<char32_t> CodePoints(std::basic_string_view<Unit> text)
{
    std::vector<char32_t> all;
    while (!text.empty())
        all.push_back(TakeCodePoint(text));
    return all;
}

constexpr std::u16string_view kPairs = u"a规\U00020BB7\U0001D11E\U0010FFFF";
constexpr std::wstring_view kWide = L"a规\U00020BB7\U0001D11E\U0010FFFF";
const std::vector<char32_t> kCodes = {U'a', U'规', 0x20BB7, 0x1D11E, 0x10FFFF};

} // namespace

TEST(CodePoint, IsAPairWhereUnitsHave16Bits)
{
    EXPECT_EQ(CodePoints(kPairs), kCodes);
    EXPECT_EQ(CodePoints(kWide), kCodes);
    std::u16string again;
    std::wstring wideAgain;
    for (const char32_t code : kCodes) {
        AppendCodePoint(code, again);
        AppendCodePoint(code, wideAgain);
    }
    EXPECT_EQ(again, kPairs);
    EXPECT_EQ(wideAgain, kWide);
}

TEST(CodePoint, ASurrogateAloneIsACharacter)
{
    const std::u16string lone = {0xD83D, u'a', 0xDE00, 0xDE00, 0xD83D};
    EXPECT_EQ(CodePoints(std::u16string_view(lone)),
              (std::vector<char32_t>{0xD83D, U'a', 0xDE00, 0xDE00, 0xD83D}));
}

TEST(CodePoint, NoTextIsPartedWithinAPair)
{
    const std::u16string_view text = u"a\U00020BB7b";
    std::vector<size_t> within;
    for (size_t at = 0; at <= text.size(); ++at)
        if (IsWithinPair(text, at)) within.push_back(at);
    EXPECT_EQ(within, std::vector<size_t>{2});
    EXPECT_FALSE(IsWithinPair(std::u32string_view(U"\xD83D\xDE00"), 1));
}

TEST(CodePoint, TheFirstOnesAreWhole)
{
    const std::u16string_view text = u"a\U00020BB7b";
    const size_t units[] = {0, 1, 3, 4, 4};
    for (size_t count = 0; count < std::size(units); ++count)
        EXPECT_EQ(FirstCharacters(text, count), text.substr(0, units[count]));
    EXPECT_EQ(FirstCharacters(std::u32string_view(U"a\U00020BB7b"), 2), U"a\U00020BB7");
}

// What follows holds whatever the width of wchar_t.

TEST(CodePoint, BeyondThePlaneOfAllGoesThroughUtf8)
{
    const std::string utf8 = "a规𠮷𝄞";
    EXPECT_EQ(ToUtf8(ToWide(utf8)), utf8);
    EXPECT_EQ(ToWide(utf8), L"a规\U00020BB7\U0001D11E");
    // A byte that is no UTF-8 beside such a character comes back as itself.
    EXPECT_EQ(ToUtf8(ToWide("𠮷\xB9𠮷")), "𠮷\xB9𠮷");
}

TEST(CodePoint, BeyondThePlaneOfAllHasCaseAndWidth)
{
    // Deseret; the two characters of a pair begin with the same unit.
    EXPECT_TRUE(EqualNoCase(L"\U00010400", L"\U00010428"));
    EXPECT_TRUE(EqualNoCase(L"规\U00010400A", L"规\U00010428a"));
    EXPECT_FALSE(EqualNoCase(L"\U00010400", L"\U00010429"));
    EXPECT_LT(CompareNoCase(L"\U00010428", L"\U00010401"), 0);
    EXPECT_GT(CompareNoCase(L"\U00020BB7", L"\uFF21"), 0) << "by characters, not by units";
    EXPECT_EQ(NoCaseKey(L"\U00010400").Folded(), L"\U00010428");
    EXPECT_EQ(DisplayWidth(L"\U00020BB7a"), 3);
}

TEST(CodePoint, BeyondThePlaneOfAllIsText)
{
    EXPECT_TRUE(IsXmlText(L"\U00020BB7"));
    EXPECT_FALSE(IsXmlText(std::wstring(1, static_cast<wchar_t>(0xD842))));
    EXPECT_EQ(Format(L"“%s”%d", std::wstring(L"\U00020BB7"), 3), L"“\U00020BB7”3");
    EXPECT_EQ(Printable(L"\U00020BB7\n"), L"\U00020BB7\\n");
    EXPECT_EQ(Trim(L" \U00020BB7\u3000"), L"\U00020BB7");
    EXPECT_EQ(CaptionIndex({L"\U00020BB7 (m)", L"规"}).Find(L"\U00020BB7"), 0);
}
