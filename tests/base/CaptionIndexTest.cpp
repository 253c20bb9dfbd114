#include "base/CaptionIndex.h"

#include <chrono>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"

using namespace designspec;

namespace {

const CaptionIndex kRows({L"不设超高最小半径(m)", L"设超高最小半径(m)", L"坡度3%", L"坡度4.5%",
                          L"旋转轴在中线\n的超高渐变率", L"超高 8% 时圆\n曲线半径范围", L"Type A"});
const CaptionIndex kSpeeds({L"120", L"100", L"80"});
const CaptionIndex kRanges({L"250<\nR≤\n1000", L"150<\nR≤\n250"});

} // namespace

TEST(CaptionIndex, FindsACaptionHoweverItIsWritten)
{
    for (const wchar_t* heading :
         {L"设超高最小半径(m)", L"设超高最小半径（ｍ）", L" 设超高 最小半径(m) ", L"设超高最小半径",
          L"设超高最小半径\n(m)", L"设超高最小半径(米)"})
        EXPECT_EQ(kRows.Find(heading), 1) << ToUtf8(heading);
    EXPECT_EQ(kRows.Find(L"旋转轴在中线的超高渐变率"), 4);
    EXPECT_EQ(kRows.Find(L"type a"), 6);
}

TEST(CaptionIndex, FindsACaptionByItsNumber)
{
    EXPECT_EQ(kRows.Find(L"3%"), 2);
    EXPECT_EQ(kRows.Find(L"3.0"), 2);
    EXPECT_EQ(kRows.Find(L"坡度４．５"), 3);
    EXPECT_EQ(kRows.Find(L"超高8%"), 5);
    for (const wchar_t* heading : {L"80", L"80 km/h", L"V=80", L"８０公里/小时", L"80.0"})
        EXPECT_EQ(kSpeeds.Find(heading), 2) << ToUtf8(heading);
    for (const wchar_t* heading : {L"150~250", L"150-250", L"150＜R≤250", L"150至250m"})
        EXPECT_EQ(kRanges.Find(heading), 1) << ToUtf8(heading);
}

TEST(CaptionIndex, DoesNotFindWhatMeansSomethingElse)
{
    for (const wchar_t* heading : {L"", L" ", L"半径", L"(m)", L"坡度8%", L"2", L"设超高80"})
        EXPECT_EQ(kRows.Find(heading), -1) << ToUtf8(heading);
    for (const wchar_t* heading : {L"8", L"800", L"120 100", L"速度80", L"-"})
        EXPECT_EQ(kSpeeds.Find(heading), -1) << ToUtf8(heading);
}

TEST(CaptionIndex, OfTwoWithTheSameNumberFindsNone)
{
    const CaptionIndex index({L"长 3 米", L"宽 3 米"});
    EXPECT_EQ(index.Find(L"3"), -1);
    EXPECT_EQ(index.Find(L"宽3"), 1);
}

TEST(CaptionParts, TellNumbersFromWords)
{
    for (const wchar_t* text : {L"1,500", L"250m", L"≥100", L"5%", L"1/125", L"２５０～３００",
                                L"R=250", L"200至300", L"1200/α", L"60 km/h"})
        EXPECT_TRUE(CaptionParts(text).IsNumber()) << ToUtf8(text);
    for (const wchar_t* text : {L"", L"—", L"极限值", L"坡度3%", L"2类: 8m"})
        EXPECT_FALSE(CaptionParts(text).IsNumber()) << ToUtf8(text);
    EXPECT_EQ(CaptionParts(L"2类: 8.50m").numbers, L"2;8.5;");
    EXPECT_EQ(CaptionParts(L"—").word, L"");
    EXPECT_EQ(CaptionParts(L"一般 值").word, L"一般值");
}

TEST(CaptionParts, HaveTheOnlyNumberOfACaption)
{
    for (const wchar_t* text : {L"4.5", L"坡度 4.5%", L"坡度４．５％", L"i=4.5%", L"坡 4.50"})
        EXPECT_EQ(CaptionParts(text).OnlyNumber(L"纵坡坡度"), 4.5) << ToUtf8(text);
    for (const wchar_t* text : {L"", L"坡度", L"4~5%", L"超高 4%", L"坡长 4"})
        EXPECT_EQ(CaptionParts(text).OnlyNumber(L"纵坡坡度"), std::nullopt) << ToUtf8(text);
}

TEST(CaptionIndex, TakesAUnitWithBracketsForAUnit)
{
    const CaptionIndex limits({L"最大直线长度(倍设计速度(km/h))", L"最小直线长度(m)"});
    EXPECT_EQ(limits.Find(L"最大直线长度"), 0);
    EXPECT_EQ(limits.Find(L"最小直线长度（米）"), 1);
    EXPECT_EQ(limits.Find(L"直线长度"), -1);
}
