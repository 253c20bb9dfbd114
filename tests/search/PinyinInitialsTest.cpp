#include "search/PinyinInitials.h"

#include <string>

#include <gtest/gtest.h>

using namespace designspec;

namespace {

std::string Letters(wchar_t c)
{
    std::string letters;
    for (char letter = 'a'; letter <= 'z'; ++letter)
        if (PinyinInitials(c) >> (letter - 'a') & 1) letters += letter;
    return letters;
}

TEST(PinyinInitials, AreThoseOfTheSound)
{
    std::string all;
    for (const wchar_t c :
         std::wstring(L"最大超高圆曲线半径纵坡度加宽缓和竖合成积雪冰冻其它道路二级公路"))
        all += Letters(c);
    EXPECT_EQ(all, "zdcgyqxbjzpdjkhhshcjxbdqtdlejgl");
}

TEST(PinyinInitials, AreSeveralWhereACharacterIsReadInSeveralWays)
{
    EXPECT_EQ(Letters(L'长'), "cz");
    EXPECT_EQ(Letters(L'重'), "cz");
    EXPECT_EQ(Letters(L'调'), "dt");
}

TEST(PinyinInitials, AreNoneWithoutAChineseCharacter)
{
    for (const wchar_t c : {L'a', L'Z', L'0', L'α', L'·', L'(', L'\u4DFF', L'\uA000', L'\0'})
        EXPECT_EQ(PinyinInitials(c), 0U) << static_cast<int>(c);
    EXPECT_NE(PinyinInitials(L'\u4E00'), 0U);
}

} // namespace
