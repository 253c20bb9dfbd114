#include "pages/MaxSuperElevPage.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

class MaxSuperElevPage : public PageTest<CMaxSuperElevPage> {
protected:
    void Load(const CDSMaxSuperElevation& criterion)
    {
        PageTest::Load(&CDesignSpecification::MaxSuperElev, criterion);
    }
    static CDSMaxSuperElevation& Stored() { return Specification().MaxSuperElev; }
    // Speeds 80 and 60 with all values.
    static CDSMaxSuperElevation TwoSpeeds()
    {
        CDSMaxSuperElevation criterion;
        criterion.GradualChangeRatio1 = {{80, 150}, {60, 125}};
        criterion.GradualChangeRatio2 = {{80, 200}, {60, 175}};
        criterion.MaxSuperElev = {{80, 8}, {60, 6}};
        return criterion;
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
};

} // namespace

TEST_F(MaxSuperElevPage, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"旋转轴在中线\n的超高渐变率");
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"旋转轴在边线\n的超高渐变率");
    EXPECT_EQ(CellText(TheGrid(), 2, 0), L"最大超高");
    EXPECT_EQ(Row(TheGrid(), 0), "1/150 1/125 1/115 1/100 1/75 1/50");
    EXPECT_EQ(Row(TheGrid(), 1), "1/150 1/125 1/115 1/100 1/75 1/50");
    EXPECT_EQ(Row(TheGrid(), 2), "6 4 4 2 2 2");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 100);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 50);
    EXPECT_FALSE(m_page.IsDlgButtonChecked(121));
    EXPECT_FALSE(IsEnabled(120));
}

TEST_F(MaxSuperElevPage, ItsCellsTellWhatTheyTake)
{
    Show();
    EXPECT_EQ(ToolTipOf(TheGrid(), 2, 1), "6%\n数据来源: 未填\n必须在0~20之间");
    EXPECT_EQ(ToolTipOf(TheGrid(), 0, 1),
              "1/150\n数据来源: 未填\n1/n 的 n 必须大于等于 2 并且小于等于 999");
    EditCell(TheGrid(), 0, 1, L"1");
    EXPECT_EQ(ToolTipOf(TheGrid(), 0, 1),
              "未填\n数据来源: 未填\n1/n 的 n 必须大于等于 2 并且小于等于 999");
}

TEST_F(MaxSuperElevPage, HasItsCaptions)
{
    Show();
    EXPECT_TRUE(HasLabel("最大超高和超高渐变率:"));
    EXPECT_EQ(TextOf(121), "积雪冰冻地区最大超高(%):");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_FALSE(IsShown(106));
}

TEST_F(MaxSuperElevPage, LoadsEditsStoresAndLoadsAgain)
{
    Show();
    Load(TwoSpeeds());
    EXPECT_EQ(Row(TheGrid(), 1), "1/200 1/175");
    EditCell(TheGrid(), 0, 1, L"1/160");
    EditCell(TheGrid(), 1, 2, L" 180 ");
    EditCell(TheGrid(), 2, 1, L"10");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    CDSMaxSuperElevation expected = TwoSpeeds();
    expected.GradualChangeRatio1 = {{80, 160}, {60, 125}};
    expected.GradualChangeRatio2 = {{80, 200}, {60, 180}};
    expected.MaxSuperElev = {{80, 10}, {60, 6}};
    EXPECT_EQ(Stored(), expected);
    Load(CDSMaxSuperElevation());
    Load(expected);
    EXPECT_EQ(Row(TheGrid(), 0), "1/160 1/125");
    EXPECT_EQ(Row(TheGrid(), 2), "10 6");
}

TEST_F(MaxSuperElevPage, ARatioOutOfRangeEmptiesItsCell)
{
    Show();
    Load(TwoSpeeds());
    const std::pair<const wchar_t*, const wchar_t*> kCases[] = {
        {L"1/2", L"1/2"}, {L"1/1", L""}, {L"999", L"1/999"}, {L"1000", L""}, {L"１／２０", L"1/20"},
    };
    for (const auto& [text, shown] : kCases) {
        EditCell(TheGrid(), 0, 1, text);
        EXPECT_EQ(ToUtf8(CellText(TheGrid(), 0, 1)), ToUtf8(shown)) << ToUtf8(text);
    }
}

TEST_F(MaxSuperElevPage, EveryCellMustBeFilled)
{
    Show();
    for (const auto& [row, name] :
         {std::pair(0, "旋转轴在中线的超高渐变率"), std::pair(1, "旋转轴在边线的超高渐变率"),
          std::pair(2, "最大超高")}) {
        Load(TwoSpeeds());
        EditCell(TheGrid(), row, 2, L"");
        EXPECT_EQ(Fault(), std::string("设计车速 60 对应的 ") + name + " 不能为空!");
    }
    m_page.FocusRefused();
    EXPECT_TRUE(TheGrid()->hasFocus());
    EXPECT_EQ(TheGrid()->currentIndex(), TheGrid()->IndexOf(2, 2));
}

TEST_F(MaxSuperElevPage, TheFirstFaultFromTheLeftAndTheTopIsNamed)
{
    CDSMaxSuperElevation criterion;
    criterion.GradualChangeRatio1 = {{80, 150}};
    criterion.GradualChangeRatio2 = {{60, 175}};
    criterion.MaxSuperElev = {{60, 20}};
    criterion.MaxSuperElevOnSFR = 6;
    Show();
    Load(criterion);
    EXPECT_EQ(Row(TheGrid(), 0), "1/150 -");
    EXPECT_EQ(Row(TheGrid(), 1), "- 1/175");
    EXPECT_EQ(Row(TheGrid(), 2), "- 20");
    TypeInto(&m_page, 120, L"0");
    EXPECT_EQ(Fault(), "设计车速 80 对应的 旋转轴在边线的超高渐变率 不能为空!");
    EditCell(TheGrid(), 1, 1, L"150");
    EXPECT_EQ(Fault(), "设计车速 80 对应的 最大超高 不能为空!");
    EditCell(TheGrid(), 2, 1, L"6");
    EXPECT_EQ(Fault(), "设计车速 60 对应的 旋转轴在中线的超高渐变率 不能为空!");
    EditCell(TheGrid(), 0, 2, L"125");
    EXPECT_EQ(Fault(), "设计车速 60 对应的 最大超高 值不合法, 必须在0~20之间!");
    EditCell(TheGrid(), 2, 2, L"4");
    EXPECT_EQ(Fault(), "积雪冰冻地区最大超高必须为大于0的正整数!");
    Click(&m_page, 121);
    EXPECT_EQ(Fault(), "");
}

TEST_F(MaxSuperElevPage, AnAddedSpeedMustBeFilledOrRemoved)
{
    Show();
    Load(TwoSpeeds());
    ChooseFromMenu(TheGrid(), 0, 1, L"30 km/h");
    EXPECT_EQ(Fault(), "设计车速 30 对应的 旋转轴在中线的超高渐变率 不能为空!");
    ChooseFromHeaderMenu(TheGrid(), 0, L"30 km/h");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoSpeeds());
}

TEST_F(MaxSuperElevPage, WithoutSpeedsTheTablesAreStoredEmpty)
{
    Show();
    Load(TwoSpeeds());
    for (const wchar_t* speed : {L"80 km/h", L"60 km/h"})
        ChooseFromMenu(TheGrid(), 0, 0, speed);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().GradualChangeRatio1.count, 0);
    EXPECT_EQ(Stored().GradualChangeRatio2.count, 0);
    EXPECT_EQ(Stored().MaxSuperElev.count, 0);
}

TEST_F(MaxSuperElevPage, MaximaFromOneToNineteenAreAccepted)
{
    Show();
    Load(TwoSpeeds());
    for (const wchar_t* text : {L"0", L"20"}) {
        EditCell(TheGrid(), 2, 1, text);
        EXPECT_EQ(Fault(), "设计车速 80 对应的 最大超高 值不合法, 必须在0~20之间!");
    }
    for (const wchar_t* text : {L"1", L"19"}) {
        EditCell(TheGrid(), 2, 1, text);
        EXPECT_EQ(Fault(), "");
    }
}

TEST_F(MaxSuperElevPage, AFailureLeavesWhatWasBeforeIt)
{
    CDSMaxSuperElevation criterion = TwoSpeeds();
    criterion.GradualChangeRatio2 = {{80, 200}};
    criterion.MaxSuperElevOnSFR = 6;
    Show();
    Load(criterion);
    CDSMaxSuperElevation scratch;
    scratch.MaxSuperElevOnSFR = 3;
    CString message;
    EXPECT_FALSE(m_page.StoreStep(scratch, message));
    EXPECT_EQ(ToUtf8(message), "设计车速 60 对应的 旋转轴在边线的超高渐变率 不能为空!");
    EXPECT_EQ(scratch.GradualChangeRatio1, (SpeedToIntValues{{80, 150}, {60, 125}}));
    EXPECT_EQ(scratch.GradualChangeRatio2, (SpeedToIntValues{{80, 200}}));
    EXPECT_EQ(scratch.MaxSuperElev, (SpeedToIntValues{{80, 8}}));
    EXPECT_EQ(scratch.MaxSuperElevOnSFR, 3);
}

TEST_F(MaxSuperElevPage, TheSnowValueIsAPlainPositiveWholeNumber)
{
    Show();
    Load(TwoSpeeds());
    Click(&m_page, 121);
    EXPECT_TRUE(IsEnabled(120));
    EXPECT_EQ(TabOrder(), "118 10001 121 120 130");
    for (const wchar_t* text : {L"06", L"+6", L"6.0", L"0", L"", L"-6", L"6a"}) {
        TypeInto(&m_page, 120, text);
        EXPECT_EQ(Fault(), "积雪冰冻地区最大超高必须为大于0的正整数!") << ToUtf8(text);
    }
    m_page.FocusRefused();
    EXPECT_TRUE(Control(&m_page, 120)->hasFocus());
    TypeInto(&m_page, 120, L" 6 ");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxSuperElevOnSFR, 6);
}

TEST_F(MaxSuperElevPage, ClearingTheSnowBoxClearsTheValue)
{
    CDSMaxSuperElevation criterion = TwoSpeeds();
    criterion.MaxSuperElevOnSFR = 6;
    Show();
    Load(criterion);
    EXPECT_TRUE(m_page.IsDlgButtonChecked(121));
    EXPECT_EQ(TextOf(120), "6");
    EXPECT_TRUE(IsEnabled(120));
    Click(&m_page, 121);
    EXPECT_EQ(TextOf(120), "");
    EXPECT_FALSE(IsEnabled(120));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxSuperElevOnSFR, 0);
    Load(criterion);
    EXPECT_EQ(TextOf(120), "6");
    Load(TwoSpeeds());
    EXPECT_EQ(TextOf(120), "");
    EXPECT_FALSE(m_page.IsDlgButtonChecked(121));
}

TEST_F(MaxSuperElevPage, TellsTheMaximaThatAreEntered)
{
    CDSMaxSuperElevation criterion;
    criterion.MaxSuperElev = {{120, 8}, {100, 6}, {80, 8}, {60, 4}};
    criterion.MaxSuperElevOnSFR = 6;
    Show();
    Load(criterion);
    EXPECT_EQ(m_page.GetMaxSuperElevations(), (CArray<int>{6, 8, 4}));
    TypeInto(&m_page, 120, L"06");
    EXPECT_EQ(m_page.GetMaxSuperElevations(), (CArray<int>{8, 6, 4}));
    EditCell(TheGrid(), 2, 2, L"");
    EditCell(TheGrid(), 2, 4, L"20");
    EXPECT_EQ(m_page.GetMaxSuperElevations(), (CArray<int>{8}));
    TypeInto(&m_page, 120, L"25");
    EXPECT_EQ(m_page.GetMaxSuperElevations(), (CArray<int>{25, 8}));
    Click(&m_page, 121);
    EXPECT_EQ(m_page.GetMaxSuperElevations(), (CArray<int>{8}));
}

TEST_F(MaxSuperElevPage, AnAddedSpeedIsEmptyAndNarrower)
{
    Show();
    Load(TwoSpeeds());
    EXPECT_EQ(
        MenuOf(TheGrid(), 0, 1),
        (std::vector<std::string>{"120 km/h", "100 km/h", "[x] 80 km/h", "[x] 60 km/h", "50 km/h",
                                  "40 km/h", "30 km/h", "20 km/h", "---", "输入车速..."}));
    ChooseFromMenu(TheGrid(), 0, 1, L"100 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 100 80 60");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
    EXPECT_EQ(TheGrid()->ShownColumn(2)->GetWidth(), 50);
    EditCell(TheGrid(), 0, 1, L"1/225");
    EditCell(TheGrid(), 1, 1, L"175");
    EditCell(TheGrid(), 2, 1, L"8.9");
    EXPECT_EQ(Row(TheGrid(), 0), "1/225 1/150 1/125");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxSuperElev, (SpeedToIntValues{{100, 8}, {80, 8}, {60, 6}}));
}

TEST_F(MaxSuperElevPage, TheSourceStaysWithThePage)
{
    CDSMaxSuperElevation criterion = TwoSpeeds();
    criterion.Criterion = L"规范";
    Show();
    Load(criterion);
    EXPECT_EQ(ReadSource(118), "");
    EnterSource(118, L"别处");
    EXPECT_EQ(ReadSource(118), "别处");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().Criterion, L"规范");
    Load(criterion);
    EXPECT_EQ(ReadSource(118), "别处");
}

TEST_F(MaxSuperElevPage, ViewModeLocksGridAndSnowValue)
{
    CDSMaxSuperElevation criterion = TwoSpeeds();
    criterion.MaxSuperElevOnSFR = 6;
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsEnabled(121));
    EXPECT_FALSE(IsEnabled(120));
    EXPECT_FALSE(IsShown(119));
    EXPECT_TRUE(IsEnabled(118));
    EditCell(TheGrid(), 2, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 2), "8 6");
    Click(&m_page, 121);
    EXPECT_TRUE(m_page.IsDlgButtonChecked(121));
    TypeInto(&m_page, 120, L"7");
    EXPECT_EQ(TextOf(120), "6");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadSource(118), "");
}

TEST_F(MaxSuperElevPage, KeysAndClipboardKnowRatios)
{
    Show();
    Load(TwoSpeeds());
    CellKeys keys(TheGrid());
    keys.ExpectF2OffersTheText();
    keys.ExpectTyped(L"１／２００", "1/200");
    keys.ExpectTyped(L" 200 ", "1/200");
    keys.ExpectCopied();
    keys.ExpectCopiedFromEditorToEditor();
    keys.ExpectCutAndDeleted();
    keys.ExpectEmptiedBy(L"1/1000");
    keys.ExpectEmptiedBy(L"2:200");
}

TEST_F(MaxSuperElevPage, ABlockFromASpreadsheetIsReadByEachCellInItsWay)
{
    Show();
    Load(TwoSpeeds());
    PasteAt(TheGrid(), 0, 1, L"1/210\t２２０\r\n１／２３０\tabc\r\n７\t1/9\r\n");
    EXPECT_EQ(Row(TheGrid(), 0), "1/210 1/220");
    EXPECT_EQ(Row(TheGrid(), 1), "1/230 -");
    EXPECT_EQ(Row(TheGrid(), 2), "7 -");
    PressKey(&m_page, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(ClipboardText(), "1/210\t1/220\n1/230\t\n7\t");
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 1), "1/200 1/175");
    PasteAt(TheGrid(), 0, 1, L"1/210\t220\n1/230\t240\n7\t5");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().GradualChangeRatio1, (SpeedToIntValues{{80, 210}, {60, 220}}));
    EXPECT_EQ(Stored().GradualChangeRatio2, (SpeedToIntValues{{80, 230}, {60, 240}}));
    EXPECT_EQ(Stored().MaxSuperElev, (SpeedToIntValues{{80, 7}, {60, 5}}));
}
