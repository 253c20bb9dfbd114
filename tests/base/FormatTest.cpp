#include "base/Format.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(Format, FormatsAsPrintfDoes)
{
    EXPECT_EQ(Format(L"%s(%d)", std::wstring(L"规范"), 2), L"规范(2)");
    EXPECT_EQ(Format(L"%.1f", 2.25), L"2.2");
}
