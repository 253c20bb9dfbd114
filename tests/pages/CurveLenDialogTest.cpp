#include "pages/CurveLenDialog.h"

#include <gtest/gtest.h>

#include "tests/pages/PageTest.h"

namespace {

class CurveLenDialog : public PageTest<CCurveLenDialog> {
protected:
    void Load(const SpeedToIntValues& horizontal, const SpeedToIntValues& circular)
    {
        CDSCurveMinLen criterion;
        criterion.HorizontalCurveMinLen = horizontal;
        criterion.CircularCurveMinLen = circular;
        criterion.Criterion = L"规范第6条";
        PageTest::Load(&CDesignSpecification::CurveMinLen, criterion);
    }
    static CDSCurveMinLen& Stored() { return Specification().CurveMinLen; }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
};

} // namespace

TEST_F(CurveLenDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"平曲线最小长度(m)");
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"圆曲线最小长度(m)");
    EXPECT_EQ(Row(TheGrid(), 0), "140 100 85 70 50 40");
    EXPECT_EQ(Row(TheGrid(), 1), "70 50 40 35 25 20");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 2);
    EXPECT_EQ(TabOrder(), "10001 130 118");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 120);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(CurveLenDialog, ASpeedOfOneTableLeavesTheOtherRowEmpty)
{
    Show();
    Load({{80, 140}, {60, 100}}, {{60, 50}, {40, 35}});
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 40");
    EXPECT_EQ(Row(TheGrid(), 0), "140 100 -");
    EXPECT_EQ(Row(TheGrid(), 1), "- 50 35");
    const CDSCurveMinLen loaded = Stored();
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), loaded);
}

TEST_F(CurveLenDialog, ASpeedWithoutValuesIsNotStoredThoughItsColumnStays)
{
    Show();
    Load({{80, 140}, {60, 100}}, {{80, 70}, {60, 50}});
    EditCell(TheGrid(), 0, 1, L"");
    EditCell(TheGrid(), 1, 1, L"abc");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{60, 100}}));
    EXPECT_EQ(Stored().CircularCurveMinLen, (SpeedToIntValues{{60, 50}}));
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60");
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60");
}

TEST_F(CurveLenDialog, ARemovedSpeedLeavesBothTables)
{
    Show();
    Load({{80, 140}, {60, 100}}, {{80, 70}, {60, 50}});
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{60, 100}}));
    EXPECT_EQ(Stored().CircularCurveMinLen, (SpeedToIntValues{{60, 50}}));
}

TEST_F(CurveLenDialog, AnAddedSpeedTakesLengthsInBothRows)
{
    Show();
    Load({{80, 140}, {40, 70}}, {{80, 70}});
    const std::vector<std::string> menu = {"120 km/h", "100 km/h",    "[x] 80 km/h", "60 km/h",
                                           "50 km/h",  "[x] 40 km/h", "30 km/h",     "20 km/h",
                                           "---",      "输入车速..."};
    EXPECT_EQ(MenuOf(TheGrid(), 1, 1), menu);
    ChooseFromMenu(TheGrid(), 1, 1, L"60 km/h");
    EXPECT_EQ(Row(TheGrid(), 0), "140 - 70");
    EditCell(TheGrid(), 0, 2, L"100");
    EditCell(TheGrid(), 1, 2, L"0");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{80, 140}, {60, 100}, {40, 70}}));
    EXPECT_EQ(Stored().CircularCurveMinLen, (SpeedToIntValues{{80, 70}, {60, 0}}));
}

TEST_F(CurveLenDialog, AnEmptyGridIsStored)
{
    Show();
    Load({}, {});
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen.count, 0);
    EXPECT_EQ(Stored().CircularCurveMinLen.count, 0);
    ChooseFromMenu(TheGrid(), 1, 0, L"60 km/h");
    EditCell(TheGrid(), 1, 1, L"50");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen.count, 0);
    EXPECT_EQ(Stored().CircularCurveMinLen, (SpeedToIntValues{{60, 50}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Row(TheGrid(), 0), "-");
    EXPECT_EQ(Row(TheGrid(), 1), "50");
}

TEST_F(CurveLenDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::CurveMinLen);
}

TEST_F(CurveLenDialog, ViewModeLocksTheGridAndShowsTheSource)
{
    Load({{80, 140}}, {{80, 70}});
    Show(true);
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "140");
    EXPECT_EQ(Row(TheGrid(), 1), "70");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadSource(118), "规范第6条");
}
