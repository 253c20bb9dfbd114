#include "pages/VerticalCurveMinRadDialog.h"

#include <gtest/gtest.h>

#include "base/Format.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

class VerticalCurveMinRadDialog : public PageTest<CVerticalCurveMinRadDialog> {
protected:
    void Load(const CDSVerticalCurveMinRadAndLen& criterion)
    {
        PageTest::Load(&CDesignSpecification::VerticalCurveMinRadAndLen, criterion);
    }
    static CDSVerticalCurveMinRadAndLen& Stored()
    {
        return Specification().VerticalCurveMinRadAndLen;
    }
    static CDSVerticalCurveMinRadAndLen Empty()
    {
        CDSVerticalCurveMinRadAndLen criterion;
        criterion.ConvexGeneralMinRad.RemoveAll();
        criterion.ConvexLimitMinRad.RemoveAll();
        criterion.ConcaveGeneralMinRad.RemoveAll();
        criterion.ConcaveLimitMinRad.RemoveAll();
        criterion.MinLens.RemoveAll();
        return criterion;
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
};

} // namespace

TEST_F(VerticalCurveMinRadDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 45 40 35 30 25 20 15");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"凸竖曲线一般\n最小半径");
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"凸竖曲线极限\n最小半径");
    EXPECT_EQ(CellText(TheGrid(), 2, 0), L"凹竖曲线一般\n最小半径");
    EXPECT_EQ(CellText(TheGrid(), 3, 0), L"凹竖曲线极限\n最小半径");
    EXPECT_EQ(CellText(TheGrid(), 4, 0), L"竖曲线最小长度");
    EXPECT_EQ(Row(TheGrid(), 0), "4500 1800 1350 750 600 450 400 250 150 90");
    EXPECT_EQ(Row(TheGrid(), 1), "3000 1200 900 500 400 300 250 150 100 60");
    EXPECT_EQ(Row(TheGrid(), 2), "2700 1500 1050 850 700 550 400 250 150 90");
    EXPECT_EQ(Row(TheGrid(), 3), "1800 1000 700 550 450 350 250 170 100 60");
    EXPECT_EQ(Row(TheGrid(), 4), "70 50 40 40 35 30 25 20 20 15");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(Labels(), "竖曲线最小半径及最小长度(m):");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 100);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(VerticalCurveMinRadDialog, StoresWhatItLoaded)
{
    CDSVerticalCurveMinRadAndLen criterion;
    criterion.Criterion = L"来源";
    Show();
    Load(criterion);
    Stored() = Empty();
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(VerticalCurveMinRadDialog, ALimitAboveTheGeneralRadiusIsStored)
{
    Show();
    Load(CDSVerticalCurveMinRadAndLen());
    EditCell(TheGrid(), 1, 1, L"9000");
    EditCell(TheGrid(), 3, 1, L"8000");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().ConvexLimitMinRad.entries[0].value, 9000);
    EXPECT_EQ(Stored().ConcaveLimitMinRad.entries[0].value, 8000);
    EXPECT_EQ(Stored().ConvexGeneralMinRad.entries[0].value, 4500);
}

TEST_F(VerticalCurveMinRadDialog, ASpeedOfTheLengthsAloneHasNoRadii)
{
    CDSVerticalCurveMinRadAndLen criterion = Empty();
    criterion.ConvexGeneralMinRad = {{60, 1800}};
    criterion.ConvexLimitMinRad = {{60, 1200}};
    criterion.ConcaveGeneralMinRad = {{60, 1500}};
    criterion.ConcaveLimitMinRad = {{60, 1000}};
    criterion.MinLens = {{70, 55}};
    Show();
    Load(criterion);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 70 60");
    EXPECT_EQ(Row(TheGrid(), 0), "- 1800");
    EXPECT_EQ(Row(TheGrid(), 1), "- 1200");
    EXPECT_EQ(Row(TheGrid(), 2), "- 1500");
    EXPECT_EQ(Row(TheGrid(), 3), "- 1000");
    EXPECT_EQ(Row(TheGrid(), 4), "55 -");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(VerticalCurveMinRadDialog, AnEmptyGridIsStoredAsFiveEmptyTables)
{
    CDSVerticalCurveMinRadAndLen criterion = Empty();
    criterion.ConvexGeneralMinRad = {{60, 1800}};
    criterion.MinLens = {{60, 50}};
    Show();
    Load(criterion);
    EditCell(TheGrid(), 0, 1, L"");
    EditCell(TheGrid(), 4, 1, L"x");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Empty());
}

TEST_F(VerticalCurveMinRadDialog, AnAddedSpeedHasACellInEachRow)
{
    CDSVerticalCurveMinRadAndLen criterion = Empty();
    criterion.MinLens = {{60, 50}};
    Show();
    Load(criterion);
    const std::vector<std::string> menu = {"120 km/h", "100 km/h",   "80 km/h", "[x] 60 km/h",
                                           "50 km/h",  "40 km/h",    "30 km/h", "20 km/h",
                                           "---",      "输入车速..."};
    EXPECT_EQ(MenuOf(TheGrid(), 4, 1), menu);
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0), menu);
    ChooseFromMenu(TheGrid(), 4, 1, L"80 km/h");
    for (int row = 0; row < 5; ++row)
        EditCell(TheGrid(), row, 1, Format(L"%d", 100 + row));
    ChooseFromMenu(TheGrid(), 4, 1, L"60 km/h");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().ConvexGeneralMinRad, (SpeedToIntValues{{80, 100}}));
    EXPECT_EQ(Stored().ConvexLimitMinRad, (SpeedToIntValues{{80, 101}}));
    EXPECT_EQ(Stored().ConcaveGeneralMinRad, (SpeedToIntValues{{80, 102}}));
    EXPECT_EQ(Stored().ConcaveLimitMinRad, (SpeedToIntValues{{80, 103}}));
    EXPECT_EQ(Stored().MinLens, (SpeedToIntValues{{80, 104}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80");
    EXPECT_EQ(Row(TheGrid(), 3), "103");
}

TEST_F(VerticalCurveMinRadDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::VerticalCurveMinRadAndLen);
}

TEST_F(VerticalCurveMinRadDialog, ViewModeLocksTheGridAndShowsTheSource)
{
    CDSVerticalCurveMinRadAndLen criterion = Empty();
    criterion.ConvexGeneralMinRad = {{60, 1800}};
    criterion.Criterion = L"来源";
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "1800");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadLockedSource(118), "来源");
}
