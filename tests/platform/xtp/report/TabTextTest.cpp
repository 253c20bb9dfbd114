#include "platform/xtp/report/TabText.h"

#include <gtest/gtest.h>

using namespace designspec;

using Rows = std::vector<CStringArray>;

TEST(TabText, SplitsRowsAndCells)
{
    EXPECT_EQ(ParseTabText(L"1\t2\n3\t4"), (Rows{{L"1", L"2"}, {L"3", L"4"}}));
    EXPECT_EQ(ParseTabText(L"1\t2\r\n3\t\r\n"), (Rows{{L"1", L"2"}, {L"3", L""}}));
    EXPECT_EQ(ParseTabText(L"1\n\n2"), (Rows{{L"1"}, {L""}, {L"2"}}));
    EXPECT_EQ(ParseTabText(L"60"), (Rows{{L"60"}}));
    EXPECT_EQ(ParseTabText(L"\t"), (Rows{{L"", L""}}));
    EXPECT_EQ(ParseTabText(L""), Rows{});
}

TEST(TabText, ReadsQuotedCells)
{
    EXPECT_EQ(ParseTabText(L"\"a\nb\"\t\"c \"\"d\"\"\"\n2"), (Rows{{L"a\nb", L"c \"d\""}, {L"2"}}));
    EXPECT_EQ(ParseTabText(L"5\"\t6"), (Rows{{L"5\"", L"6"}}));
    EXPECT_EQ(ParseTabText(L"\"open\t1"), (Rows{{L"open\t1"}}));
}

TEST(TabText, ReadsCellsOfQuotesAlone)
{
    EXPECT_EQ(ParseTabText(L"\""), (Rows{{L""}}));
    EXPECT_EQ(ParseTabText(L"\"\""), (Rows{{L""}}));
    EXPECT_EQ(ParseTabText(L"\"\"\t\"\"\"\"\n1"), (Rows{{L"", L"\""}, {L"1"}}));
}

TEST(TabText, WritesWhatItReads)
{
    const Rows rows = {{L"超高\n半径", L"1"}, {L"", L"say \"x\"\t"}, {L"\"", L"\"\""}, {L"a\tb"}};
    EXPECT_EQ(ParseTabText(FormatTabText(rows)), rows);
    EXPECT_EQ(FormatTabText({{L"1", L"2"}, {L"3", L""}}), L"1\t2\n3\t");
    EXPECT_EQ(FormatTabText({}), L"");
}
