#include "search/SearchWords.h"

#include <gtest/gtest.h>

using namespace designspec;

namespace {

bool Finds(const wchar_t* query, const wchar_t* text)
{
    const SearchWords words(query);
    return !words.IsEmpty() && words.In(SearchText(text)) == words.All();
}

TEST(SearchText, FoldsCaseWidthAndBlanks)
{
    EXPECT_EQ(SearchText(L" ＣＪＪ 193－2012（局部）"), L"cjj 193-2012(局部)");
    EXPECT_EQ(SearchText(L"超高 6% 时圆\n曲线半径范围"), L"超高6%时圆曲线半径范围");
}

TEST(SearchWords, StandAnywhereInAText)
{
    EXPECT_TRUE(Finds(L"最小半径", L"设超高最小半径(m)"));
    EXPECT_TRUE(Finds(L"超高6%", L"超高 6% 时圆\n曲线半径范围"));
    EXPECT_TRUE(Finds(L"ＣＪＪ", L"cjj 193-2012"));
    EXPECT_FALSE(Finds(L"最大半径", L"设超高最小半径(m)"));
    EXPECT_FALSE(Finds(L"半径(m)长", L"设超高最小半径(m)"));
}

TEST(SearchWords, HaveToBeThereAllInAnyOrder)
{
    EXPECT_TRUE(Finds(L"半径　超高", L"设超高最小半径(m)"));
    EXPECT_FALSE(Finds(L"半径 坡度", L"设超高最小半径(m)"));
    const SearchWords words(L"坡度 半径");
    EXPECT_EQ(words.Count(), 2U);
    EXPECT_EQ(words.In(SearchText(L"设超高最小半径(m)")), 2U);
}

TEST(SearchWords, MayBeTheLettersThatCharactersBeginWith)
{
    EXPECT_TRUE(Finds(L"cgzx", L"设超高最小半径(m)"));
    EXPECT_TRUE(Finds(L"CGZX", L"设超高最小半径(m)"));
    EXPECT_TRUE(Finds(L"最xbj", L"设超高最小半径(m)"));
    EXPECT_TRUE(Finds(L"pc", L"最大坡长(m)"));
    EXPECT_TRUE(Finds(L"km", L"设计车速(km/h)"));
    EXPECT_FALSE(Finds(L"cgzd", L"设超高最小半径(m)"));
}

TEST(SearchWords, ThatAreNumbersStandWhereANumberBegins)
{
    EXPECT_TRUE(Finds(L"25", L"250 m"));
    EXPECT_TRUE(Finds(L"25", L"1/25"));
    EXPECT_TRUE(Finds(L"300", L"250~300"));
    EXPECT_TRUE(Finds(L"２５", L"R250"));
    EXPECT_FALSE(Finds(L"25", L"125"));
    EXPECT_FALSE(Finds(L"5", L"0.5"));
    EXPECT_TRUE(Finds(L"0.5", L"0.5"));
}

TEST(SearchWords, AreSoughtInValuesAsNumbersAlone)
{
    EXPECT_EQ(SearchWords(L"m").InValue(L"250 m"), 0U);
    EXPECT_EQ(SearchWords(L"250").InValue(L"250 m"), 1U);
    EXPECT_EQ(SearchWords(L"m 250").InValue(L"250 m"), 2U);
}

TEST(SearchWords, AreNoneWhenNothingIsTyped)
{
    for (const wchar_t* query : {L"", L"  ", L"\u3000\t"})
        EXPECT_TRUE(SearchWords(query).IsEmpty());
    EXPECT_EQ(SearchWords().All(), 0U);
}

TEST(SearchWords, MayBeMoreThanAreTakenNoticeOf)
{
    std::wstring query;
    for (int i = 0; i < 40; ++i)
        query += L"径 ";
    const SearchWords words(query);
    EXPECT_EQ(words.Count(), 32U);
    EXPECT_EQ(words.All(), 0xFFFFFFFFU);
    EXPECT_EQ(words.In(SearchText(L"半径")), words.All());
}

} // namespace
