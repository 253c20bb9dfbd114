#include "pages/MyRadiusRangeColumn.h"

#include <gtest/gtest.h>

TEST(MyRadiusRangeColumn, TellsItsRangeInThreeLines)
{
    CMyRadiusRangeColumn column(3, 50);
    EXPECT_EQ(column.GetItemIndex(), 3);
    EXPECT_EQ(column.GetWidth(), 50);

    column.SetRange(150, 250, true);
    EXPECT_EQ(column.GetMin(), 150);
    EXPECT_EQ(column.GetMax(), 250);
    EXPECT_EQ(column.GetCaption(), L"150<\nR≤\n250");

    column.SetRange(15, 20, false);
    EXPECT_EQ(column.GetMin(), 15);
    EXPECT_EQ(column.GetMax(), 20);
    EXPECT_EQ(column.GetCaption(), L"15≤\nR<\n20");
}
