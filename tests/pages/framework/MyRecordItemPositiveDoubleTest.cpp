#include "pages/framework/MyRecordItemPositiveDouble.h"
#include "base/Text.h"

#include <gtest/gtest.h>

using namespace designspec;

TEST(MyRecordItemPositiveDouble, IsMadeEmptyOrWithAValue)
{
    EXPECT_TRUE(CMyRecordItemPositiveDouble(1, true).IsEmpty());
    const CMyRecordItemPositiveDouble cell(1, true, 2.5);
    EXPECT_EQ(cell.GetValue(), 2.5);
    EXPECT_EQ(cell.GetCaption(), L"2.5");
}

TEST(MyRecordItemPositiveDouble, TrimsZerosWhenAsked)
{
    CMyRecordItemPositiveDouble cell(1, true);
    cell.OnEditChanged(nullptr, L"2.50");
    EXPECT_EQ(cell.GetCaption(), L"2.5");
    cell.OnEditChanged(nullptr, L"3");
    EXPECT_EQ(cell.GetCaption(), L"3");
    cell.OnEditChanged(nullptr, L"0");
    EXPECT_EQ(cell.GetCaption(), L"0");
    cell.OnEditChanged(nullptr, L"120");
    EXPECT_EQ(cell.GetCaption(), L"120");
}

TEST(MyRecordItemPositiveDouble, ShowsItsDecimalsOtherwise)
{
    CMyRecordItemPositiveDouble cell(2, false);
    cell.OnEditChanged(nullptr, L"0.6");
    EXPECT_EQ(cell.GetCaption(), L"0.60");
    cell.SetValue(3);
    EXPECT_EQ(cell.GetCaption(), L"3.00");
}

TEST(MyRecordItemPositiveDouble, KeepsMoreThanItShows)
{
    CMyRecordItemPositiveDouble cell(1, true);
    cell.OnEditChanged(nullptr, L"2.55");
    EXPECT_EQ(cell.GetValue(), 2.55);
}

TEST(MyRecordItemPositiveDouble, BadInputEmptiesIt)
{
    for (const wchar_t* text : {L"-3", L"abc", L"  ", L"1.2.3"}) {
        CMyRecordItemPositiveDouble cell(1, true, 5);
        cell.OnEditChanged(nullptr, text);
        EXPECT_TRUE(cell.IsEmpty()) << ToUtf8(text);
        EXPECT_EQ(cell.GetCaption(), L"");
    }
}

TEST(MyRecordItemPositiveDouble, KnowsItsExactText)
{
    CMyRecordItemPositiveDouble cell(1, true, 5.26);
    EXPECT_EQ(cell.GetCaption(), L"5.3");
    EXPECT_EQ(cell.GetExactText(), L"5.26");
    cell.OnEditChanged(nullptr, cell.GetCaption());
    EXPECT_EQ(cell.GetExactText(), L"5.3");
    cell.SetEmpty();
    EXPECT_EQ(cell.GetExactText(), L"");
    cell.SetValue(1e22);
    EXPECT_EQ(cell.GetExactText(), cell.GetCaption());
}
