#include "base/HalfWidth.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(HalfWidth, TurnsNumbersIntoAscii)
{
    EXPECT_EQ(ToHalfWidth(L"０１２３４５６７８９"), L"0123456789");
    EXPECT_EQ(ToHalfWidth(L"１２．５"), L"12.5");
    EXPECT_EQ(ToHalfWidth(L"250～300"), L"250~300");
    EXPECT_EQ(ToHalfWidth(L"250〜300"), L"250~300");
    EXPECT_EQ(ToHalfWidth(L"１／１５０"), L"1/150");
    EXPECT_EQ(ToHalfWidth(L"400，330"), L"400,330");
    EXPECT_EQ(ToHalfWidth(L"250\u3000300"), L"250 300");
}

TEST(HalfWidth, LeavesTheRest)
{
    EXPECT_EQ(ToHalfWidth(L"规范 Ａ。-"), L"规范 Ａ。-");
    EXPECT_EQ(ToHalfWidth(L""), L"");
}
