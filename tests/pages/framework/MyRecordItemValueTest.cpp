#include "pages/framework/MyRecordItemValue.h"

#include <memory>

#include "base/Format.h"

#include <gtest/gtest.h>

#include "pages/framework/MyRecordItemPositiveInt.h"

using namespace designspec;

namespace {

// Two numbers with a plus sign between them.
class CSumItem : public CMyRecordItemValue {
protected:
    CString TextOf(const Values& values) const override
    {
        return Format(L"%d+%d", static_cast<int>(values[0]), static_cast<int>(values[1]));
    }
    Values Read(CXTPReportControl*, const CString& text) const override
    {
        if (text.size() != 3 || text[1] != L'+') return {};
        return {static_cast<double>(text[0] - L'0'), static_cast<double>(text[2] - L'0')};
    }
};

} // namespace

TEST(MyRecordItemValue, ADerivedCellMayHoldSeveralValues)
{
    CSumItem cell;
    cell.OnEditChanged(nullptr, L" 1+2 ");
    EXPECT_EQ(cell.GetCaption(), L"1+2");
    EXPECT_EQ(cell.GetNumber(), 1);
    const designspec::ReportItemState state = cell.SaveState();
    cell.SetEmpty();
    EXPECT_EQ(cell.GetNumber(), 0);
    cell.RestoreState(state);
    EXPECT_EQ(cell.GetCaption(), L"1+2");
    EXPECT_EQ(cell.SaveState(), state);
}

TEST(MyRecordItemValue, WhatCannotBeReadEmptiesTheCell)
{
    CSumItem cell;
    cell.OnEditChanged(nullptr, L"1+2");
    cell.OnEditChanged(nullptr, L"12");
    EXPECT_TRUE(cell.IsEmpty());
    EXPECT_EQ(cell.GetCaption(), L"");
}

TEST(MyRecordItemValue, ReadsPastedNumbersInItsUnit)
{
    CMyRecordItemPositiveInt length;
    EXPECT_EQ(length.ReadPasted(L"≥1,500 m"), L"1500");
    EXPECT_EQ(length.ReadPasted(L"5%"), L"5%");
    const std::unique_ptr<CMyRecordItemValue> gradient(
        InPercent<MakeCell<CMyRecordItemPositiveInt>>());
    EXPECT_EQ(gradient->ReadPasted(L"5%"), L"5");
    EXPECT_EQ(gradient->ReadPasted(L"5m"), L"5m");
}
