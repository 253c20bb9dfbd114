#include "pages/MinLonGradLenDialog.h"

#include <gtest/gtest.h>

#include "tests/pages/PageTest.h"

namespace {

class MinLonGradLenDialog : public PageTest<CMinLonGradLenDialog> {
protected:
    void Load(const SpeedToIntValues& lengths)
    {
        CDSLonGradMinLen criterion;
        criterion.MinLens = lengths;
        criterion.Criterion = L"规范第8条";
        PageTest::Load(&CDesignSpecification::LonGradMinLen, criterion);
    }
    static CDSLonGradMinLen& Stored() { return Specification().LonGradMinLen; }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
};

} // namespace

TEST_F(MinLonGradLenDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"最小坡长(m)");
    EXPECT_EQ(Row(TheGrid(), 0), "290 170 140 110 85 60");
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 1);
    EXPECT_TRUE(HasLabel("最小坡长(m):"));
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TabOrder(), "10001 130 118");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 120);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(MinLonGradLenDialog, AnAddedSpeedIsStoredInItsPlace)
{
    Show();
    Load({{60, 170}, {100, 250}});
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 100 60");
    EXPECT_EQ(Row(TheGrid(), 0), "250 170");
    const std::vector<std::string> menu = {"120 km/h", "[x] 100 km/h", "80 km/h", "[x] 60 km/h",
                                           "50 km/h",  "40 km/h",      "30 km/h", "20 km/h",
                                           "---",      "输入车速..."};
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1), menu);
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 100 80 60");
    EXPECT_EQ(TheGrid()->ShownColumn(2)->GetWidth(), 40);
    EditCell(TheGrid(), 0, 2, L"290");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MinLens, (SpeedToIntValues{{100, 250}, {80, 290}, {60, 170}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Row(TheGrid(), 0), "250 290 170");
    ChooseFromMenu(TheGrid(), 0, 1, L"100 km/h");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MinLens, (SpeedToIntValues{{80, 290}, {60, 170}}));
}

TEST_F(MinLonGradLenDialog, ClearedCellsAreStoredAsAnEmptyTable)
{
    Show();
    Load({{80, 290}, {60, 170}});
    EditCell(TheGrid(), 0, 1, L"");
    EditCell(TheGrid(), 0, 2, L"-3");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MinLens.count, 0);
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
}

TEST_F(MinLonGradLenDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::LonGradMinLen);
}

TEST_F(MinLonGradLenDialog, ViewModeLocksTheGridAndShowsTheSource)
{
    Load({{80, 290}});
    Show(true);
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "290");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadSource(118), "规范第8条");
}
