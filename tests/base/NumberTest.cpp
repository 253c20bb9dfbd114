#include "base/Number.h"

#include <bit>
#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"

using namespace designspec;

namespace {

// A finite double of any size, from random bits.
double AnyDouble(std::mt19937_64& random)
{
    for (;;) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) return value;
    }
}

int IntOr99(std::string_view text)
{
    int value = 99;
    const bool read = ParseInt(text, value);
    EXPECT_EQ(read, value != 99) << text;
    return value;
}

double DoubleOr99(std::string_view text)
{
    double value = 99;
    const bool read = ParseDouble(text, value);
    EXPECT_EQ(read, value != 99) << text;
    return value;
}

} // namespace

TEST(Number, WtoiReadsAsMuchOfAWholeNumberAsStandsThere)
{
    EXPECT_EQ(Wtoi(L"120"), 120);
    EXPECT_EQ(Wtoi(L" \t\r\n120"), 120);
    EXPECT_EQ(Wtoi(L"-7"), -7);
    EXPECT_EQ(Wtoi(L"+7"), 7);
    EXPECT_EQ(Wtoi(L"60 km/h"), 60);
    EXPECT_EQ(Wtoi(L"60公里"), 60);
    EXPECT_EQ(Wtoi(L"12.9"), 12);
    EXPECT_EQ(Wtoi(L"007"), 7);
    EXPECT_EQ(Wtoi(L"0x10"), 0);
}

TEST(Number, WtoiGivesZeroWhereNoNumberStands)
{
    for (const wchar_t* text : {L"", L"   ", L"abc", L"-", L"+", L"+-5", L"-+5", L"--5", L"++5",
                                L"+ 5", L"公里60", L".5"})
        EXPECT_EQ(Wtoi(text), 0) << ToUtf8(text);
}

TEST(Number, WtoiHoldsWhatIsTooLargeAtTheNearerEnd)
{
    EXPECT_EQ(Wtoi(L"2147483647"), INT_MAX);
    EXPECT_EQ(Wtoi(L"2147483648"), INT_MAX);
    EXPECT_EQ(Wtoi(L"+99999999999999999999"), INT_MAX);
    EXPECT_EQ(Wtoi(L"-2147483648"), INT_MIN);
    EXPECT_EQ(Wtoi(L"  -99999999999999999999 m"), INT_MIN);
}

TEST(Number, WtofReadsAsMuchOfANumberAsStandsThere)
{
    EXPECT_EQ(Wtof(L"2.5"), 2.5);
    EXPECT_EQ(Wtof(L"  +2.5%"), 2.5);
    EXPECT_EQ(Wtof(L"-.5"), -0.5);
    EXPECT_EQ(Wtof(L"5."), 5);
    EXPECT_EQ(Wtof(L"1e3米"), 1000);
    EXPECT_EQ(Wtof(L"1e"), 1);
    EXPECT_EQ(Wtof(L"2,5"), 2);
    EXPECT_EQ(Wtof(L"1.2.3"), 1.2);
}

TEST(Number, WtofGivesZeroWhereNoFiniteNumberStands)
{
    for (const wchar_t* text : {L"", L" ", L".", L"-", L"abc", L"nan", L"inf", L"-infinity",
                                L"1e999", L"-1e999", L"1e-999", L"+-1", L"0x10"})
        EXPECT_EQ(Wtof(text), 0) << ToUtf8(text);
}

TEST(Number, ParseIntTakesAWholeNumberAndNothingElse)
{
    EXPECT_EQ(IntOr99("20"), 20);
    EXPECT_EQ(IntOr99(" \t20\r\n"), 20);
    EXPECT_EQ(IntOr99("+5"), 5);
    EXPECT_EQ(IntOr99("-5"), -5);
    EXPECT_EQ(IntOr99("2147483647"), INT_MAX);
    EXPECT_EQ(IntOr99("-2147483648"), INT_MIN);
    EXPECT_EQ(IntOr99("120.0"), 120);
    EXPECT_EQ(IntOr99(" -7.000 "), -7);
    EXPECT_EQ(IntOr99("2147483647.0"), INT_MAX);
    for (const char* text : {"",
                             "  ",
                             "12abc",
                             "12 3",
                             "２０",
                             "1e3",
                             "1.",
                             ".0",
                             "1.5",
                             "1.00001",
                             "1.0.0",
                             "1.0x",
                             "2147483648.0",
                             "+",
                             "-",
                             "+-5",
                             "-+5",
                             "++5",
                             "+ 5",
                             "0x10",
                             "nan",
                             "2147483648",
                             "-2147483649",
                             "1e999",
                             "\xC2\xA0"
                             "5"})
        EXPECT_EQ(IntOr99(text), 99) << text;
    EXPECT_EQ(IntOr99(std::string_view("5\0", 2)), 99);
}

TEST(Number, ParseDoubleTakesAFiniteNumberAndNothingElse)
{
    EXPECT_EQ(DoubleOr99("2.5"), 2.5);
    EXPECT_EQ(DoubleOr99("  +2.5 "), 2.5);
    EXPECT_EQ(DoubleOr99("-0.25"), -0.25);
    EXPECT_EQ(DoubleOr99(".5"), 0.5);
    EXPECT_EQ(DoubleOr99("5."), 5);
    EXPECT_EQ(DoubleOr99("1E3"), 1000);
    EXPECT_EQ(DoubleOr99("1.7976931348623157e308"), std::numeric_limits<double>::max());
    for (const char* text :
         {"", " ", "12abc", "２０", "2,5", "1e999", "-1e999", "nan", "NaN", "inf", "-inf",
          "INFINITY", "0x10", "0x1p3", "+-5", "++5", "1e", ".", "1 2"})
        EXPECT_EQ(DoubleOr99(text), 99) << text;
}

TEST(Number, ParseBoolTakesTrueFalseAndAnyWholeNumber)
{
    int value = 7;
    for (const char* yes : {"1", "true", "TRUE", " True\n", "2", "-1", "01", " 1.0"}) {
        EXPECT_TRUE(ParseBool(yes, value)) << yes;
        EXPECT_EQ(value, 1) << yes;
    }
    for (const char* no : {"0", "false", "FALSE", "\tFalse", "00", "-0", "0.0"}) {
        EXPECT_TRUE(ParseBool(no, value)) << no;
        EXPECT_EQ(value, 0) << no;
    }
    value = 7;
    for (const char* neither :
         {"", " ", "0.5", "1e0", "yes", "tru", "truee", "是", "t\xC2\xA0rue"}) {
        EXPECT_FALSE(ParseBool(neither, value)) << neither;
        EXPECT_EQ(value, 7) << neither;
    }
}

TEST(Number, DoublesAreWrittenAsBriefAsTheyCanBeReadBack)
{
    EXPECT_EQ(DoubleToText(0), "0");
    EXPECT_EQ(DoubleToText(2.5), "2.5");
    EXPECT_EQ(DoubleToText(0.1), "0.1");
    EXPECT_EQ(DoubleToText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(DoubleToText(-100), "-100");
    EXPECT_EQ(DoubleToText(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(DoubleToText(-std::numeric_limits<double>::denorm_min()), "-5e-324");
}

TEST(Number, ManyDoublesComeBackToTheLastBit)
{
    std::mt19937_64 random(20260101);
    for (int i = 0; i < 200000; ++i) {
        const double value = AnyDouble(random);
        const std::string text = DoubleToText(value);
        double strict = 0;
        ASSERT_TRUE(ParseDouble(text, strict)) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(strict), std::bit_cast<std::uint64_t>(value))
            << text;
        ASSERT_EQ(Wtof(ToWide(text)), value) << text;
    }
}
