#include "pages/framework/MyRecordItemPositiveInt.h"
#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(MyRecordItemPositiveInt, ANewCellIsEmpty)
{
    const CMyRecordItemPositiveInt cell;
    EXPECT_TRUE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"");
}

TEST(MyRecordItemPositiveInt, TakesWholeNumbersFromZeroOn)
{
    CMyRecordItemPositiveInt cell;
    cell.OnEditChanged(nullptr, L" 250 ");
    EXPECT_EQ(cell.GetValue(), 250);
    EXPECT_EQ(cell.GetCaption(), L"250");
    cell.OnEditChanged(nullptr, L"0");
    EXPECT_FALSE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"0");
}

TEST(MyRecordItemPositiveInt, CutsAFractionOff)
{
    CMyRecordItemPositiveInt cell;
    cell.OnEditChanged(nullptr, L"12.7");
    EXPECT_EQ(cell.GetValue(), 12);
    EXPECT_EQ(cell.GetCaption(), L"12");
}

TEST(MyRecordItemPositiveInt, BadInputEmptiesIt)
{
    for (const wchar_t* text : {L"-3", L"abc", L"   ", L"", L"3 4", L"1,5"}) {
        CMyRecordItemPositiveInt cell;
        cell.SetValue(5);
        cell.OnEditChanged(nullptr, text);
        EXPECT_TRUE(cell.IsEmpty()) << ToUtf8(text);
        EXPECT_EQ(cell.GetCaption(), L"");
    }
}

TEST(MyRecordItemPositiveInt, KeepsTheLargestNumbersExactly)
{
    CMyRecordItemPositiveInt cell;
    cell.SetValue(2147483647);
    EXPECT_EQ(cell.GetValue(), 2147483647);
    EXPECT_EQ(cell.GetCaption(), L"2147483647");
}

TEST(MyRecordItemPositiveInt, ItsStateGoesAndComes)
{
    CMyRecordItemPositiveInt cell;
    const designspec::ReportItemState empty = cell.SaveState();
    cell.SetValue(7);
    const designspec::ReportItemState seven = cell.SaveState();
    EXPECT_FALSE(empty == seven);
    cell.RestoreState(empty);
    EXPECT_TRUE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"");
    cell.RestoreState(seven);
    EXPECT_EQ(cell.GetValue(), 7);
    EXPECT_EQ(cell.GetCaption(), L"7");
}
