#include "sheets/CellText.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(CellText, LeavesWhatProgramsKeep)
{
    for (const wchar_t* text : {L"", L"《规范》 3.2", L"a & b", L"#1", L"x_y", L"=1+1"})
        EXPECT_EQ(CellText(text), text);
}

TEST(CellText, WritesWhatProgramsLose)
{
    EXPECT_EQ(CellText(L"a\tb\r\n"), L"a&#9;b&#13;&#10;");
    EXPECT_EQ(CellText(L" a  b "), L"&#32;a &#32;b&#32;");
    EXPECT_EQ(CellText(L"&#9;"), L"&#38;#9;");
    EXPECT_EQ(CellText(L"_x000D_"), L"&#95;x000D_");
    for (const wchar_t* text : {L"a\tb\r\n", L" a  b ", L"&#9;", L"_x000D_", L"\u3000x\u00A0"})
        EXPECT_EQ(FromCell(CellText(text)), text);
}

TEST(CellText, ReadsWhatIsNoSignAsItStands)
{
    for (const wchar_t* text : {L"&#;", L"&#x;", L"&#0;", L"&#1234567;", L"&#9", L"a;b&#"})
        EXPECT_EQ(FromCell(text), text);
}

TEST(CellName, CountsInLetters)
{
    EXPECT_EQ(CellName(4, 2), L"C5");
    EXPECT_EQ(CellName(0, 25), L"Z1");
    EXPECT_EQ(CellName(0, 26), L"AA1");
    EXPECT_EQ(CellName(1048575, 16383), L"XFD1048576");
}
