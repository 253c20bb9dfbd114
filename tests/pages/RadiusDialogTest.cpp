#include "pages/RadiusDialog.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

class RadiusDialog : public PageTest<CRadiusDialog> {
protected:
    static constexpr int kGrid = 1001;

    void Load(const CDSCircularCurveRad& criterion)
    {
        PageTest::Load(&CDesignSpecification::CircularCurveRad, criterion);
    }
    static CDSCircularCurveRad& Stored() { return Specification().CircularCurveRad; }
    static CDSCircularCurveRad Empty()
    {
        CDSCircularCurveRad criterion;
        criterion.MaxRad = 0;
        criterion.noSuperelevationMinRad.RemoveAll();
        criterion.SuperelevationRecommendRad.RemoveAll();
        criterion.SuperelevationMinRad.RemoveAll();
        return criterion;
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, kGrid); }
};

} // namespace

TEST_F(RadiusDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"不设超高最小半径(m)");
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"设超高推荐半径(m)");
    EXPECT_EQ(CellText(TheGrid(), 2, 0), L"设超高最小半径(m)");
    EXPECT_EQ(Row(TheGrid(), 0), "1000 600 400 300 150 70");
    EXPECT_EQ(Row(TheGrid(), 1), "400 300 200 150 85 40");
    EXPECT_EQ(Row(TheGrid(), 2), "250 150 100 70 40 20");
    EXPECT_EQ(TextOf(108), "10000");
    EXPECT_TRUE(m_page.IsDlgButtonChecked(107));
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 120);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(RadiusDialog, HasItsCaptions)
{
    Show();
    EXPECT_EQ(TextOf(107), "圆曲线最大半径(m):");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(109), "");
    EXPECT_EQ(TextOf(110), "");
    EXPECT_EQ(Labels(), "圆曲线最小半径");
    EXPECT_FALSE(IsShown(106));
}

TEST_F(RadiusDialog, ANewMaximumIsStored)
{
    Show();
    Load(CDSCircularCurveRad());
    TypeInto(&m_page, 108, L" 5000 ");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxRad, 5000);
}

TEST_F(RadiusDialog, NoMaximumLoadsUncheckedAndIsStoredAsNone)
{
    Show();
    Load(Empty());
    EXPECT_FALSE(m_page.IsDlgButtonChecked(107));
    EXPECT_EQ(TextOf(108), "");
    EXPECT_FALSE(IsEnabled(108));
    EXPECT_FALSE(IsEnabled(109));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxRad, 0);
    EXPECT_EQ(Stored(), Empty());
}

TEST_F(RadiusDialog, TheCheckBoxEnablesTheMaximumAndItsSource)
{
    Show();
    Click(&m_page, 107);
    EXPECT_FALSE(IsEnabled(108));
    EXPECT_FALSE(IsEnabled(109));
    EXPECT_TRUE(IsEnabled(110));
    Click(&m_page, 107);
    EXPECT_TRUE(IsEnabled(108));
    EXPECT_TRUE(IsEnabled(109));
}

TEST_F(RadiusDialog, AMaximumThatIsNoPositiveWholeNumberIsRefused)
{
    Show();
    for (const wchar_t* text : {L"1000.0", L"12a", L"0", L"-5", L"+5", L"abc", L"."}) {
        TypeInto(&m_page, 108, text);
        EXPECT_EQ(Fault(), "圆曲线最大半径必须是正整数!") << ToUtf8(text);
    }
    for (const wchar_t* text : {L"", L"   "}) {
        TypeInto(&m_page, 108, text);
        EXPECT_EQ(Fault(), "圆曲线最大半径不能为空!");
    }
    m_page.FocusRefused();
    EXPECT_TRUE(Control(&m_page, 108)->hasFocus());
}

TEST_F(RadiusDialog, AnyTextIsNoMaximumWhileTheBoxIsCleared)
{
    Show();
    Load(CDSCircularCurveRad());
    TypeInto(&m_page, 108, L"abc");
    Click(&m_page, 107);
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxRad, 0);
}

TEST_F(RadiusDialog, FullWidthDigitsAreAMaximum)
{
    Show();
    Load(CDSCircularCurveRad());
    TypeInto(&m_page, 108, L"８０００");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxRad, 8000);
}

TEST_F(RadiusDialog, AFailureLeavesWhatComesAfterIt)
{
    Show();
    Load(CDSCircularCurveRad());
    CString message;
    CDSCircularCurveRad criterion = Empty();
    criterion.MaxRad = 7;
    TypeInto(&m_page, 108, L"");
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion.MaxRad, 7);
    TypeInto(&m_page, 108, L"12a");
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion.MaxRad, 12);
    EXPECT_EQ(criterion.noSuperelevationMinRad.count, 0);
}

TEST_F(RadiusDialog, ASpeedOfOneTableLeavesTheOthersEmpty)
{
    CDSCircularCurveRad criterion = Empty();
    criterion.SuperelevationRecommendRad = {{70, 350}};
    Show();
    Load(criterion);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 70");
    EXPECT_EQ(Row(TheGrid(), 0), "-");
    EXPECT_EQ(Row(TheGrid(), 1), "350");
    EXPECT_EQ(Row(TheGrid(), 2), "-");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(RadiusDialog, SpeedsStandHighestFirstAndAreStoredSo)
{
    CDSCircularCurveRad criterion = Empty();
    criterion.noSuperelevationMinRad = {{40, 1}, {120, 2}};
    criterion.SuperelevationMinRad = {{60, 3}, {40, 4}};
    Show();
    Load(criterion);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 60 40");
    EXPECT_EQ(Row(TheGrid(), 0), "2 - 1");
    EXPECT_EQ(Row(TheGrid(), 2), "- 3 4");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().noSuperelevationMinRad, (SpeedToIntValues{{120, 2}, {40, 1}}));
    EXPECT_EQ(Stored().SuperelevationMinRad, (SpeedToIntValues{{60, 3}, {40, 4}}));
}

TEST_F(RadiusDialog, EditedCellsAreStored)
{
    Show();
    Load(CDSCircularCurveRad());
    EditCell(TheGrid(), 0, 1, L"1100");
    EditCell(TheGrid(), 1, 2, L"");
    EditCell(TheGrid(), 2, 3, L"0");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().noSuperelevationMinRad.entries[0].value, 1100);
    EXPECT_EQ(Stored().SuperelevationRecommendRad,
              (SpeedToIntValues{{80, 400}, {50, 200}, {40, 150}, {30, 85}, {20, 40}}));
    EXPECT_EQ(Stored().SuperelevationMinRad.entries[2].value, 0);
}

TEST_F(RadiusDialog, SpeedsAreAddedAndRemovedByTheMenu)
{
    CDSCircularCurveRad criterion = Empty();
    criterion.noSuperelevationMinRad = {{85, 1200}, {60, 600}};
    criterion.SuperelevationMinRad = {{60, 150}};
    Show();
    Load(criterion);
    const std::vector<std::string> menu = {"120 km/h",    "100 km/h", "[x] 85 km/h", "80 km/h",
                                           "[x] 60 km/h", "50 km/h",  "40 km/h",     "30 km/h",
                                           "20 km/h",     "---",      "输入车速..."};
    EXPECT_EQ(MenuOf(TheGrid(), 2, 1), menu);
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0), menu);
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    ChooseFromHeaderMenu(TheGrid(), 1, L"85 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
    EXPECT_EQ(Row(TheGrid(), 0), "- 600");
    EditCell(TheGrid(), 1, 1, L"400");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().noSuperelevationMinRad, (SpeedToIntValues{{60, 600}}));
    EXPECT_EQ(Stored().SuperelevationRecommendRad, (SpeedToIntValues{{80, 400}}));
    EXPECT_EQ(Stored().SuperelevationMinRad, (SpeedToIntValues{{60, 150}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60");
    EXPECT_EQ(Row(TheGrid(), 1), "400 -");
}

TEST_F(RadiusDialog, ACellThatIsStillBeingEditedCounts)
{
    Show();
    Load(CDSCircularCurveRad());
    ClickCell(TheGrid(), 0, 1);
    PressKey(&m_page, Qt::Key_A, Qt::ControlModifier);
    Type(&m_page, L"1234");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().noSuperelevationMinRad.entries[0].value, 1234);
}

TEST_F(RadiusDialog, RowHeadersCannotBeEdited)
{
    Show();
    ClickCell(TheGrid(), 0, 0);
    Type(&m_page, L"5");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"不设超高最小半径(m)");
}

TEST_F(RadiusDialog, KeepsASourceForEachButton)
{
    CDSCircularCurveRad criterion;
    criterion.MaxRadCriterion = L"规范第5条";
    criterion.MinRadCriterion = L"规范第6条";
    Show();
    Load(criterion);
    EXPECT_EQ(ReadSource(109), "规范第5条");
    EXPECT_EQ(ReadSource(110), "规范第6条");
    EnterSource(110, L" 第7条 ");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxRadCriterion, L"规范第5条");
    EXPECT_EQ(Stored().MinRadCriterion, L"第7条");
}

TEST_F(RadiusDialog, ViewModeLocksAllButTheSources)
{
    CDSCircularCurveRad criterion;
    criterion.MaxRadCriterion = L"来源";
    criterion.MinRadCriterion = L"另一个";
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsEnabled(107));
    EXPECT_FALSE(IsEnabled(108));
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "1000 600 400 300 150 70");
    RightClickCell(TheGrid(), 0, 1);
    RightClickHeader(TheGrid(), 1);
    WaitForNothing();
    EXPECT_EQ(ReadLockedSource(109), "来源");
    EXPECT_EQ(ReadLockedSource(110), "另一个");
}

TEST_F(RadiusDialog, ViewModeLeavesTheSourceOfNoMaximumDisabled)
{
    Load(Empty());
    Show(true);
    EXPECT_FALSE(IsEnabled(108));
    EXPECT_FALSE(IsEnabled(109));
    EXPECT_TRUE(IsEnabled(110));
}

TEST_F(RadiusDialog, SaveFailsWithoutASpecificationOfTheName)
{
    m_page.Callback().Load(L"甲");
    m_page.Callback().Rename(L"乙");
    EXPECT_FALSE(Save());
    EXPECT_FALSE(m_page.Callback().RenameAndSave(L"丙"));
    EXPECT_TRUE(m_page.Callback().RenameAndSave(L"甲"));
}

TEST_F(RadiusDialog, LoadOfAnUnknownNameLeavesThePage)
{
    Show();
    m_page.Callback().Load(L"没有");
    EXPECT_EQ(Row(TheGrid(), 0), "1000 600 400 300 150 70");
}

TEST_F(RadiusDialog, ATableFromADocumentGoesWhereItBelongs)
{
    Show();
    Load(CDSCircularCurveRad());
    PasteAt(
        TheGrid(), 0, 1,
        L"设计车速(km/h)\t60\t80\n设超高最小半径\t≥１２５\t250m\n不设超高最小半径\t1,500\t2500");
    EXPECT_EQ(Row(TheGrid(), 0), "2500 1500 400 300 150 70");
    EXPECT_EQ(Row(TheGrid(), 1), "400 300 200 150 85 40");
    EXPECT_EQ(Row(TheGrid(), 2), "250 125 100 70 40 20");
    EXPECT_TRUE(HasLabel("4 个值, 按标题填入"));
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 0), "1000 600 400 300 150 70");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
    EXPECT_FALSE(HasLabel("4 个值, 按标题填入"));
}

TEST_F(RadiusDialog, SpeedsThatAreMissingAreOffered)
{
    Show();
    Load(CDSCircularCurveRad());
    const CString block = L"\t100\t80\t5\n不设超高最小半径\t4000\t2500\t1";
    for (const bool wanted : {false, true}) {
        const ExpectMessage box(L"表格中没有车速 100 km/h。添加后粘贴?", L"提示", MB_ICONQUESTION,
                                wanted ? IDYES : IDNO);
        PasteAt(TheGrid(), 0, 1, block);
        m_frame.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_frame));
        EXPECT_EQ(Columns(TheGrid()), wanted ? "设计车速(km/h) 100 80 60 50 40 30 20"
                                             : "设计车速(km/h) 80 60 50 40 30 20");
        EXPECT_EQ(Row(TheGrid(), 0),
                  wanted ? "4000 2500 600 400 300 150 70" : "2500 600 400 300 150 70");
        EXPECT_TRUE(HasLabel(wanted ? "2 个值, 按标题填入, 1 列没有对应: 5"
                                    : "1 个值, 按标题填入, 2 列没有对应: 100、5"));
        PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
        EXPECT_EQ(Row(TheGrid(), 0), "1000 600 400 300 150 70");
    }
}
