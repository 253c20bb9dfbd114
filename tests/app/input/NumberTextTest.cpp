#include "app/input/NumberText.h"
#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(NumberText, EnteredTextLosesBlanksAndFullWidthSigns)
{
    EXPECT_EQ(EnteredText(L" \t１２．５ "), L"12.5");
    EXPECT_EQ(EnteredText(L"   "), L"");
}

TEST(NumberText, DecimalsAreTrimmedWhenAsked)
{
    EXPECT_EQ(DecimalText(120, 1, true), L"120");
    EXPECT_EQ(DecimalText(2.5, 1, true), L"2.5");
    EXPECT_EQ(DecimalText(0, 1, true), L"0");
    EXPECT_EQ(DecimalText(2.5, 2, true), L"2.5");
    EXPECT_EQ(DecimalText(3, 2, true), L"3");
    EXPECT_EQ(DecimalText(2.5, 2, false), L"2.50");
    EXPECT_EQ(DecimalText(3, 2, false), L"3.00");
}

TEST(NumberText, ZerosBeforeThePointStay)
{
    EXPECT_EQ(DecimalText(100, 0, true), L"100");
    EXPECT_EQ(DecimalText(100, 1, true), L"100");
}

TEST(NumberText, OneDecimalIsEnough)
{
    double value = -1;
    for (const wchar_t* text : {L"12", L"12.", L"12.5", L"0", L".5"})
        EXPECT_TRUE(ReadOneDecimal(text, value)) << ToUtf8(text);
    EXPECT_EQ(value, 0.5);
    for (const wchar_t* text : {L"12.55", L"-1", L"+1", L"abc", L"", L".", L"1.2.3", L"1e3"})
        EXPECT_FALSE(ReadOneDecimal(text, value)) << ToUtf8(text);
}

TEST(NumberText, ARefusedDecimalIsReadAllTheSame)
{
    double value = 0;
    EXPECT_FALSE(ReadOneDecimal(L"12.55", value));
    EXPECT_EQ(value, 12.55);
}

TEST(NumberText, WholeNumbersAreWrittenThePlainWay)
{
    int value = 0;
    EXPECT_TRUE(ReadWholeNumber(L"60", value));
    EXPECT_EQ(value, 60);
    EXPECT_TRUE(ReadWholeNumber(L"-3", value));
    for (const wchar_t* text : {L"060", L"+60", L"60.0", L"60a", L"", L" 60", L"99999999999"})
        EXPECT_FALSE(ReadWholeNumber(text, value)) << ToUtf8(text);
}
