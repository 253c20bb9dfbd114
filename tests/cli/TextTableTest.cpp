#include "cli/TextTable.h"

#include <gtest/gtest.h>

namespace {

TEST(TextTable, HasNoLinesWhenEmpty)
{
    EXPECT_TRUE(TextTable().IsEmpty());
    EXPECT_TRUE(TextTable().Lines(2).empty());
}

TEST(TextTable, AlignsTheFirstColumnLeftAndTheOthersRight)
{
    TextTable table;
    table.AddRow({L"车速", L"80", L"100"});
    table.AddRow({L"a", L"1000", L"5"});
    EXPECT_EQ(table.Lines(2), (CStringArray{L"  车速    80  100", L"  a     1000    5"}));
}

TEST(TextTable, AlignsEveryColumnLeftWhenAskedTo)
{
    TextTable table(false);
    table.AddRow({L"0", L"规范", L"x"});
    table.AddRow({L"10", L"a", L"y"});
    EXPECT_EQ(table.Lines(0), (CStringArray{L"0   规范  x", L"10  a     y"}));
}

TEST(TextTable, LeavesNoBlanksAtTheEndOfALine)
{
    TextTable table(false);
    table.AddRow({L"a", L""});
    table.AddRow({L"b", L"long"});
    EXPECT_EQ(table.Lines(0), (CStringArray{L"a", L"b  long"}));
}

TEST(TextTable, TakesRowsOfDifferentLength)
{
    TextTable table;
    table.AddRow({L"a"});
    table.AddRow({L"bb", L"1", L"2"});
    EXPECT_EQ(table.Lines(0), (CStringArray{L"a", L"bb  1  2"}));
}

} // namespace
