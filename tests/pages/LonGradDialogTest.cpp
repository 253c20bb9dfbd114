#include "pages/LonGradDialog.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/mfc/QtText.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

class LonGradDialog : public PageTest<CLonGradDialog> {
protected:
    void Load(const CDSLonGrad& criterion)
    {
        PageTest::Load(&CDesignSpecification::LonGrad, criterion);
    }
    static CDSLonGrad& Stored() { return Specification().LonGrad; }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }

    // Each edit field and what messages call it, in the order in which they are checked.
    static constexpr std::pair<int, const char*> kEdits[] = {
        {110, "高原地区最大纵坡折减"},
        {104, "积雪冰冻地区最大纵坡"},
        {109, "最小纵坡"},
    };
};

} // namespace

TEST_F(LonGradDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40 30 20");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"最大纵坡推荐值(%)");
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"最大纵坡限制值(%)");
    EXPECT_EQ(Row(TheGrid(), 0), "4 5 5.5 6 7 8");
    EXPECT_EQ(Row(TheGrid(), 1), "6 7 7 8 9 9");
    EXPECT_EQ(TextOf(110), "1");
    EXPECT_EQ(TextOf(104), "6");
    EXPECT_EQ(TextOf(109), "0.3");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TabOrder(), "10001 130 118 110 104 109");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 130);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(LonGradDialog, ACellTellsItsExactValueItsSourceAndWhatItTakes)
{
    CDSLonGrad criterion;
    criterion.MaxGradLimitedValues = {{80, 4.26}};
    criterion.Criterion = L"第3章\t<b>";
    Load(criterion);
    Show();
    EXPECT_EQ(CellText(TheGrid(), 1, 1), L"4.3");
    EXPECT_EQ(
        ToolTipOf(TheGrid(), 1, 1),
        ToToolTip(QStringLiteral("4.26%\n数据来源: 第3章\\t<b>\n值不能小于 0")).toStdString());
}

TEST_F(LonGradDialog, InViewModeACellTellsNotWhatItTakes)
{
    Show(true);
    const std::string told = ToolTipOf(TheGrid(), 1, 1);
    EXPECT_NE(told.find("%\n数据来源: "), std::string::npos) << told;
    EXPECT_EQ(told.find("值不能"), std::string::npos);
}

TEST_F(LonGradDialog, TheFieldsStandBelowTheGridInTheOrderOfTheirChecks)
{
    Show();
    EXPECT_LT(TheGrid()->geometry().bottom(), Control(&m_page, 110)->y());
    EXPECT_LT(Control(&m_page, 110)->geometry().bottom(), Control(&m_page, 104)->y());
    EXPECT_LT(Control(&m_page, 104)->geometry().bottom(), Control(&m_page, 109)->y());
}

TEST_F(LonGradDialog, EachFieldStandsBesideItsLabel)
{
    Show();
    EXPECT_TRUE(HasLabel("最大纵坡:"));
    QStringList labels;
    int end = 0; // of the longest text
    for (const QLabel* label : m_page.findChildren<QLabel*>()) {
        if (!label->buddy()) continue;
        const auto [edit, name] = kEdits[labels.size()];
        EXPECT_EQ(label->buddy(), Control(&m_page, edit)) << name;
        labels.push_back(label->text());
        end = std::max(end, label->x() + label->sizeHint().width());
    }
    EXPECT_EQ(labels, QStringList({QStringLiteral("高原地区最大纵坡折减(%):"),
                                   QStringLiteral("积雪冰冻地区最大纵坡(%):"),
                                   QStringLiteral("最小纵坡(%):")}));
    for (const auto& [edit, name] : kEdits) {
        EXPECT_GT(Control(&m_page, edit)->x(), end) << name;
        EXPECT_LT(Control(&m_page, edit)->x(), end + 20) << name;
    }
}

TEST_F(LonGradDialog, ASpeedOfOneTableLeavesTheOtherEmpty)
{
    CDSLonGrad criterion;
    criterion.MaxGradRecommendedValues = {{120, 6.0}, {100, 5.5}};
    criterion.MaxGradLimitedValues = {{100, 7}, {80, 7.5}};
    criterion.Criterion = L"第6条";
    Show();
    Load(criterion);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 100 80");
    EXPECT_EQ(Row(TheGrid(), 0), "6 5.5 -");
    EXPECT_EQ(Row(TheGrid(), 1), "- 7 7.5");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(LonGradDialog, EditedValuesAreStoredAndLoadedAgain)
{
    Show();
    Load(CDSLonGrad());
    EditCell(TheGrid(), 0, 1, L"4.5");
    EditCell(TheGrid(), 1, 2, L"");
    EditCell(TheGrid(), 1, 3, L"abc");
    TypeInto(&m_page, 110, L" 1. ");
    TypeInto(&m_page, 104, L"1.5");
    TypeInto(&m_page, 109, L"0");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxGradRecommendedValues.entries[0].value, 4.5);
    EXPECT_EQ(Stored().MaxGradLimitedValues,
              (SpeedToDoubleValues{{80, 6}, {40, 8}, {30, 9}, {20, 9}}));
    EXPECT_EQ(Stored().GradeCompensationOnPlateau, 1);
    EXPECT_EQ(Stored().MaxGradeOnSnowFrozenRegion, 1.5);
    EXPECT_EQ(Stored().MinGrad, 0);
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Row(TheGrid(), 0), "4.5 5 5.5 6 7 8");
    EXPECT_EQ(Row(TheGrid(), 1), "6 - - 8 9 9");
    EXPECT_EQ(TextOf(110), "1");
    EXPECT_EQ(TextOf(109), "0");
}

TEST_F(LonGradDialog, AnEmptyFieldIsRefused)
{
    for (const auto& [edit, name] : kEdits) {
        Show();
        Load(CDSLonGrad());
        for (const wchar_t* text : {L"", L"  "}) {
            TypeInto(&m_page, edit, text);
            EXPECT_EQ(Fault(), name + std::string("不能是空!"));
        }
        m_page.FocusRefused();
        EXPECT_TRUE(Control(&m_page, edit)->hasFocus());
    }
}

TEST_F(LonGradDialog, AFieldThatIsNoNumberWithOneDecimalIsRefused)
{
    for (const auto& [edit, name] : kEdits) {
        Show();
        Load(CDSLonGrad());
        for (const wchar_t* text : {L"1.25", L"-1", L"+1", L"x", L"1%", L"."}) {
            TypeInto(&m_page, edit, text);
            EXPECT_EQ(Fault(), name + std::string("必须大于等于0,并且最多只有一位小数!"))
                << ToUtf8(text);
        }
        for (const wchar_t* text : {L"0", L"1.", L"1.5", L".5"}) {
            TypeInto(&m_page, edit, text);
            EXPECT_EQ(Fault(), "") << ToUtf8(text);
        }
    }
}

TEST_F(LonGradDialog, TheFirstFieldAtFaultIsNamed)
{
    Show();
    for (const auto& [edit, name] : kEdits)
        TypeInto(&m_page, edit, L"");
    for (const auto& [edit, name] : kEdits) {
        EXPECT_EQ(Fault(), name + std::string("不能是空!"));
        TypeInto(&m_page, edit, L"2.5");
    }
    EXPECT_EQ(Fault(), "");
}

TEST_F(LonGradDialog, AFailureLeavesWhatComesAfterIt)
{
    Show();
    CDSLonGrad criterion;
    criterion.Criterion = L"旧";
    criterion.MaxGradLimitedValues = {{70, 1}};
    TypeInto(&m_page, 110, L"2.5");
    TypeInto(&m_page, 104, L"7.25");
    TypeInto(&m_page, 109, L"3");
    CString message;
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion.GradeCompensationOnPlateau, 2.5);
    EXPECT_EQ(criterion.MaxGradeOnSnowFrozenRegion, 7.25);
    EXPECT_EQ(criterion.MinGrad, 0.3);
    EXPECT_EQ(criterion.MaxGradLimitedValues, (SpeedToDoubleValues{{70, 1}}));
    EXPECT_EQ(criterion.Criterion, L"旧");
    TypeInto(&m_page, 104, L"");
    EXPECT_FALSE(m_page.StoreStep(criterion, message));
    EXPECT_EQ(criterion.MaxGradeOnSnowFrozenRegion, 7.25); // nothing was entered
}

TEST_F(LonGradDialog, AnAddedSpeedTakesWholePercentsUntilItIsLoadedAgain)
{
    Show();
    Load(CDSLonGrad());
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1),
              (std::vector<std::string>{"120 km/h", "100 km/h", "[x] 80 km/h", "[x] 60 km/h",
                                        "[x] 50 km/h", "[x] 40 km/h", "[x] 30 km/h", "[x] 20 km/h",
                                        "---", "输入车速..."}));
    ChooseFromMenu(TheGrid(), 0, 1, L"100 km/h");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
    EditCell(TheGrid(), 0, 1, L"3.7");
    EXPECT_EQ(Row(TheGrid(), 0), "3 4 5 5.5 6 7 8");
    EXPECT_EQ(Row(TheGrid(), 1), "- 6 7 7 8 9 9");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxGradRecommendedValues.entries[0], (SpeedEntry<double>{100, 3}));
    EXPECT_EQ(Stored().MaxGradLimitedValues, CDSLonGrad().MaxGradLimitedValues);
    m_page.Callback().Load(L"甲");
    EditCell(TheGrid(), 0, 1, L"3.7");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxGradRecommendedValues.entries[0], (SpeedEntry<double>{100, 3.7}));
}

TEST_F(LonGradDialog, ARemovedSpeedIsStoredNoMore)
{
    Show();
    Load(CDSLonGrad());
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60 50 40 30 20");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().MaxGradRecommendedValues.count, 5);
    EXPECT_EQ(Stored().MaxGradLimitedValues.entries[0].speed, 60);
}

TEST_F(LonGradDialog, WithoutSpeedsBothTablesAreEmpty)
{
    CDSLonGrad criterion;
    criterion.MaxGradRecommendedValues.RemoveAll();
    criterion.MaxGradLimitedValues.RemoveAll();
    Show();
    Load(criterion);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(LonGradDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::LonGrad);
}

TEST_F(LonGradDialog, ViewModeLocksAllButTheSource)
{
    CDSLonGrad criterion;
    criterion.Criterion = L"来源";
    Load(criterion);
    Show(true);
    for (const auto& [edit, name] : kEdits)
        EXPECT_FALSE(IsEnabled(edit));
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "4 5 5.5 6 7 8");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadSource(118), "来源");
}

TEST_F(LonGradDialog, TypingTheShownGradientStoresIt)
{
    CDSLonGrad criterion;
    criterion.MaxGradLimitedValues.RemoveAll();
    criterion.MaxGradRecommendedValues.RemoveAll();
    AddSpeed(criterion.MaxGradLimitedValues, 60, 5.26);
    AddSpeed(criterion.MaxGradLimitedValues, 40, 6.26);
    Load(criterion);
    Show();
    auto* const grid = TheGrid();
    EXPECT_EQ(grid->IndexOf(1, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("5.26"));
    EditCell(grid, 1, 1, L"5.3");
    PressKey(grid, Qt::Key_Tab); // through the next one
    PressKey(grid, Qt::Key_Escape);
    ASSERT_TRUE(Save());
    const auto& stored = Stored().MaxGradLimitedValues;
    EXPECT_EQ(stored[0].value, 5.3);
    EXPECT_EQ(stored[1].value, 6.26);
}

TEST_F(LonGradDialog, CopyingAndPastingKeepsAllDecimals)
{
    CDSLonGrad criterion;
    criterion.MaxGradLimitedValues.RemoveAll();
    AddSpeed(criterion.MaxGradLimitedValues, 60, 5.26);
    Load(criterion);
    Show();
    auto* const grid = TheGrid();
    grid->setFocus();
    PressKey(grid, Qt::Key_A, Qt::ControlModifier);
    PressKey(grid, Qt::Key_C, Qt::ControlModifier);
    GoToCell(grid, 0, 1);
    PressKey(grid, Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(LonGradDialog, APastedGradientMayHaveItsSign)
{
    Load(CDSLonGrad());
    Show();
    auto* const grid = TheGrid();
    PasteAt(grid, 0, 1, L"4.5％\t≤5%\t7m");
    EXPECT_EQ(Row(grid, 0).substr(0, 7), "4.5 5 -");
}
