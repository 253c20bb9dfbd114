#include "pages/MinACurveLenDialog.h"

#include <gtest/gtest.h>

#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

namespace {

class MinACurveLenDialog : public PageTest<CMinACurveLenDialog> {
protected:
    void Load(const SpeedToIntValues& constants)
    {
        CSmallAngleCurveMinLen criterion;
        criterion.HorizontalCurveMinLen = constants;
        criterion.Criterion = L"规范第6条";
        PageTest::Load(&CDesignSpecification::SmallAngleCurveMinLen, criterion);
    }
    static CSmallAngleCurveMinLen& Stored() { return Specification().SmallAngleCurveMinLen; }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
};

} // namespace

TEST_F(MinACurveLenDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"平曲线最小\n长度(m)");
    EXPECT_EQ(Row(TheGrid(), 0), "1000/α 700/α 600/α 500/α 350/α 280/α");
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 1);
    EXPECT_EQ(TextOf(118), "");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TabOrder(), "10001 130 118");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 95);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 50);
}

TEST_F(MinACurveLenDialog, ExplainsItsRules)
{
    Show();
    for (const char* note :
         {"1. 道路中心线转角α小于等于7°时为小转角。", "2. 道路中心线转角α小于2°时按2°计算。",
          "3. 输入值时可不输入“/α”。", "4. 在右键菜单中添加或删除车速。"})
        EXPECT_TRUE(HasLabel(note)) << note;
    EXPECT_EQ(TextOf(119), "4. 在右键菜单中添加或删除车速。");
}

TEST_F(MinACurveLenDialog, TheAngleMayBeTypedOrLeftOut)
{
    Show();
    Load({{80, 1000}, {60, 700}, {50, 600}});
    EditCell(TheGrid(), 0, 1, L"1500/α");
    EditCell(TheGrid(), 0, 2, L"1400");
    EditCell(TheGrid(), 0, 3, L"12.5/a");
    EXPECT_EQ(Row(TheGrid(), 0), "1500/α 1400/α 12/α");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{80, 1500}, {60, 1400}, {50, 12}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Row(TheGrid(), 0), "1500/α 1400/α 12/α");
}

TEST_F(MinACurveLenDialog, CellsWithoutANumberAreStoredAsAnEmptyTable)
{
    Show();
    Load({{80, 1000}, {60, 700}});
    EditCell(TheGrid(), 0, 1, L"abc");
    EXPECT_EQ(Row(TheGrid(), 0), "- 700/α");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{60, 700}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60");
    EditCell(TheGrid(), 0, 1, L"");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen.count, 0);
}

TEST_F(MinACurveLenDialog, AnAddedSpeedHasAWideCellOfTheSameKind)
{
    Show();
    Load({{80, 1000}});
    const std::vector<std::string> menu = {"120 km/h", "100 km/h",   "[x] 80 km/h", "60 km/h",
                                           "50 km/h",  "40 km/h",    "30 km/h",     "20 km/h",
                                           "---",      "输入车速..."};
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1), menu);
    ChooseFromMenu(TheGrid(), 0, 1, L"100 km/h");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 50);
    EditCell(TheGrid(), 0, 1, L"1300");
    EXPECT_EQ(Row(TheGrid(), 0), "1300/α 1000/α");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{100, 1300}, {80, 1000}}));
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{100, 1300}}));
}

TEST_F(MinACurveLenDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::SmallAngleCurveMinLen);
}

TEST_F(MinACurveLenDialog, ViewModeLocksTheGridAndShowsTheSource)
{
    Load({{80, 1000}});
    Show(true);
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "1000/α");
    ExpectNoMenu(TheGrid());
    EXPECT_TRUE(HasLabel("3. 输入值时可不输入“/α”。"));
    EXPECT_EQ(ReadSource(118), "规范第6条");
}

TEST_F(MinACurveLenDialog, KeysAndClipboardKnowTheAngle)
{
    Show();
    Load({{80, 1200}, {60, 700}});
    CellKeys keys(TheGrid());
    keys.ExpectF2OffersTheText();
    keys.ExpectTyped(L"１５００／α", "1500/α");
    keys.ExpectTyped(L"1500", "1500/α");
    keys.ExpectCopied();
    keys.ExpectCopiedFromEditorToEditor();
    keys.ExpectCutAndDeleted();
    keys.ExpectEmptiedBy(L"α/1500 m");
}

TEST_F(MinACurveLenDialog, ABlockFromASpreadsheetComesWithAndWithoutTheAngle)
{
    Show();
    Load({{80, 1200}, {60, 700}, {50, 600}});
    PasteAt(TheGrid(), 0, 1, L"1500/α\t１４００\tabc\r\n");
    EXPECT_EQ(Row(TheGrid(), 0), "1500/α 1400/α -");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().HorizontalCurveMinLen, (SpeedToIntValues{{80, 1500}, {60, 1400}}));
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 0), "1200/α 700/α 600/α");
}
