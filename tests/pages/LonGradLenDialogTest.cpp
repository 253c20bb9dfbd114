#include "pages/LonGradLenDialog.h"

#include <gtest/gtest.h>

#include "base/Format.h"
#include "base/Text.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

using C = CDSLonGradMaxLen;

class LonGradLenDialog : public PageTest<CLonGradLenDialog> {
protected:
    void Load(const C& criterion)
    {
        PageTest::Load(&CDesignSpecification::LonGradMaxLen, criterion);
    }
    // A row with 60 km/h for each gradient.
    void LoadGradients(const std::vector<double>& gradients)
    {
        C criterion;
        criterion.rows.RemoveAll();
        for (double gradient : gradients)
            criterion.rows.Add({gradient, {{60, 100}}});
        Load(criterion);
    }
    static C& Stored() { return Specification().LonGradMaxLen; }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
    std::string Headers()
    {
        std::string texts;
        for (int row = 0; row < TheGrid()->GetRecords().GetCount(); ++row)
            texts += (row ? " " : "") + ToUtf8(CellText(TheGrid(), row, 0));
        return texts;
    }
    std::vector<ShownMenuItem> Menu() { return HeaderMenuItemsOf(TheGrid(), 0); }
    // The sub-menu's items, joined by blanks; "*" is behind the checked ones.
    std::string GradientMenu()
    {
        const std::vector<ShownMenuItem> items = Menu();
        if (items.empty()) return {};
        EXPECT_EQ(items.back().text, L"纵坡坡度(%)");
        EXPECT_TRUE(items.back().enabled);
        std::string texts;
        for (const ShownMenuItem& item : items.back().subMenu) {
            EXPECT_TRUE(item.enabled);
            texts += (texts.empty() ? "" : " ") + ToUtf8(item.text) + (item.checked ? "*" : "");
        }
        return texts;
    }
    void Choose(const CString& item) { ChooseFromHeaderMenu(TheGrid(), 0, item); }
    void EnterGradient(const ModalAction& action)
    {
        ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"输入坡度..."); });
        ExpectModal dialog(action);
        RightClickHeader(TheGrid(), 0);
    }
};

std::string Text(const std::vector<GradientChoice>& choices)
{
    std::string text;
    for (const GradientChoice& choice : choices)
        text += ToUtf8(Format(L"%g", choice.gradient)) + (choice.present ? "* " : " ");
    return text;
}

} // namespace

TEST(GradientChoices, PutsOthersBehindTheLastLowerOrPresentOne)
{
    EXPECT_EQ(Text(GradientChoices({})), "3 4 4.5 5 5.5 6 6.5 7 8 9 10 ");
    EXPECT_EQ(Text(GradientChoices({4.2, 5})), "3 4 4.2* 4.5 5* 5.5 6 6.5 7 8 9 10 ");
    EXPECT_EQ(Text(GradientChoices({5, 4.2})), "3 4 4.5 5* 4.2* 5.5 6 6.5 7 8 9 10 ");
    EXPECT_EQ(Text(GradientChoices({2, 12})), "2* 3 4 4.5 5 5.5 6 6.5 7 8 9 10 12* ");
    EXPECT_EQ(Text(GradientChoices({0})), "0* 3 4 4.5 5 5.5 6 6.5 7 8 9 10 ");
    EXPECT_EQ(Text(GradientChoices({5, 5})), "3 4 4.5 5* 5* 5.5 6 6.5 7 8 9 10 ");
}

TEST_F(LonGradLenDialog, ShowsTheBuiltInLimitsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Headers(), "坡度5% 坡度5.5% 坡度6% 坡度6.5% 坡度7% 坡度8%");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60 50 40");
    EXPECT_EQ(Row(TheGrid(), 0), "600 - - -");
    EXPECT_EQ(Row(TheGrid(), 2), "400 400 350 -");
    EXPECT_EQ(Row(TheGrid(), 5), "- - - 200");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_TRUE(HasLabel("最大坡长(m):"));
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速和坡度");
    EXPECT_FALSE(IsShown(106));
    EXPECT_EQ(TabOrder(), "10001 130 118");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 120);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
}

TEST_F(LonGradLenDialog, WhatIsLoadedIsStoredAgain)
{
    C criterion;
    criterion.Criterion = L"第6条";
    Show();
    Load(criterion);
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(LonGradLenDialog, KeepsTheOrderOfItsRows)
{
    Show();
    LoadGradients({6, 4.5, 3});
    EXPECT_EQ(Headers(), "坡度6% 坡度4.5% 坡度3%");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().rows[0].Grad, 6);
    EXPECT_EQ(Stored().rows[1].Grad, 4.5);
}

TEST_F(LonGradLenDialog, AGradientHasOneDecimal)
{
    Show();
    LoadGradients({4.25});
    EXPECT_EQ(Headers(), "坡度4.2%");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().rows[0].Grad, 4.2);
}

TEST_F(LonGradLenDialog, TheMenuListsSpeedsAndGradients)
{
    Show();
    LoadGradients({5, 6});
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1),
              (std::vector<std::string>{"120 km/h", "100 km/h", "80 km/h", "[x] 60 km/h", "50 km/h",
                                        "40 km/h", "30 km/h", "20 km/h", "输入车速...", "---",
                                        "纵坡坡度(%) >"}));
    EXPECT_EQ(GradientMenu(), "3% 4% 4.5% 5%* 5.5% 6%* 6.5% 7% 8% 9% 10% 输入坡度...");
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 1), MenuOf(TheGrid(), 1, 0));
}

TEST_F(LonGradLenDialog, ItsMenusNumberTheirItemsFromTheFirstSpeedOn)
{
    Show();
    LoadGradients({4.2});
    Choose(L"80 km/h");
    const std::vector<ShownMenuItem> items = Menu();
    ASSERT_EQ(items.size(), 11U);
    UINT id = 10001;
    for (size_t i = 0; i < 9; ++i) // eight speeds and the entry of another one
        EXPECT_EQ(items[i].id, id++) << i;
    EXPECT_TRUE(items[9].separator);
    ASSERT_EQ(items[10].subMenu.size(), 13U); // eleven standard gradients, 4.2 and the entry
    for (const ShownMenuItem& item : items[10].subMenu)
        EXPECT_EQ(item.id, id++) << ToUtf8(item.text);
}

TEST_F(LonGradLenDialog, OtherSpeedsAndAllGradientsCanBePresent)
{
    C criterion;
    criterion.rows.RemoveAll();
    for (double gradient : {3.0, 4.0, 4.5, 5.0, 5.5, 6.0, 6.5, 7.0, 8.0, 9.0, 10.0})
        criterion.rows.Add({gradient, {{130, 10}, {70, 20}}});
    Show();
    Load(criterion);
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1),
              (std::vector<std::string>{"[x] 130 km/h", "120 km/h", "100 km/h", "80 km/h",
                                        "[x] 70 km/h", "60 km/h", "50 km/h", "40 km/h", "30 km/h",
                                        "20 km/h", "输入车速...", "---", "纵坡坡度(%) >"}));
    EXPECT_EQ(GradientMenu(), "3%* 4%* 4.5%* 5%* 5.5%* 6%* 6.5%* 7%* 8%* 9%* 10%* 输入坡度...");
}

TEST_F(LonGradLenDialog, WhenItsRowsAreGoneItsSpeedsAreGreyedUntilThereIsOneAgain)
{
    Show();
    LoadGradients({4});
    Choose(L"4%");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60");
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0),
              (std::vector<std::string>{"(120 km/h)", "(100 km/h)", "(80 km/h)", "[x] (60 km/h)",
                                        "(50 km/h)", "(40 km/h)", "(30 km/h)", "(20 km/h)",
                                        "(输入车速...)", "---", "纵坡坡度(%) >"}));
    EXPECT_EQ(Fault(), "");
    Choose(L"7%");
    EXPECT_EQ(Row(TheGrid(), 0), "-");
    EditCell(TheGrid(), 0, 1, L"300");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().rows.count, 1);
    EXPECT_EQ(Stored().rows[0], (GradientRow{7, {{60, 300}}}));
}

TEST_F(LonGradLenDialog, AGradientThatIsNotStandardIsListedBehindThePresentOnes)
{
    Show();
    LoadGradients({5, 4.2});
    EXPECT_EQ(GradientMenu(), "3% 4% 4.5% 5%* 4.2%* 5.5% 6% 6.5% 7% 8% 9% 10% 输入坡度...");
    Choose(L"4.2%");
    EXPECT_EQ(Headers(), "坡度5%");
}

TEST_F(LonGradLenDialog, WithoutARowOnlyAGradientCanBeAdded)
{
    Show();
    LoadGradients({});
    EXPECT_EQ(Headers(), "");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
    const std::vector<ShownMenuItem> items = Menu();
    ASSERT_EQ(items.size(), 11U);
    for (size_t i = 0; i < 9; ++i)
        EXPECT_FALSE(items[i].enabled || items[i].checked) << i;
    EXPECT_EQ(GradientMenu(), "3% 4% 4.5% 5% 5.5% 6% 6.5% 7% 8% 9% 10% 输入坡度...");
    Choose(L"4%");
    Choose(L"60 km/h");
    EditCell(TheGrid(), 0, 1, L"450");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().rows.count, 1);
    EXPECT_EQ(Stored().rows[0], (GradientRow{4, {{60, 450}}}));
}

TEST_F(LonGradLenDialog, AnAddedGradientStandsBelowTheLowerOnes)
{
    Show();
    LoadGradients({4, 6});
    Choose(L"5%");
    EXPECT_EQ(Headers(), "坡度4% 坡度5% 坡度6%");
    EXPECT_EQ(Row(TheGrid(), 1), "-");
    Choose(L"3%");
    Choose(L"10%");
    EXPECT_EQ(Headers(), "坡度3% 坡度4% 坡度5% 坡度6% 坡度10%");
    EditCell(TheGrid(), 2, 1, L"777");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().rows.count, 3);
    EXPECT_EQ(Stored().rows[1], (GradientRow{5, {{60, 777}}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Headers(), "坡度4% 坡度5% 坡度6%");
}

TEST_F(LonGradLenDialog, APresentGradientIsRemoved)
{
    Show();
    LoadGradients({4, 4.5, 6});
    Choose(L"4.5%");
    EXPECT_EQ(Headers(), "坡度4% 坡度6%");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().rows.count, 2);
}

TEST_F(LonGradLenDialog, AGradientCanBeEntered)
{
    Show();
    LoadGradients({4, 6});
    EnterGradient([](QWidget* window) {
        EXPECT_EQ(window->windowTitle(), "输入坡度");
        TypeInto(window, 108, L"4.2");
        Click(window, IDOK);
    });
    EXPECT_EQ(Headers(), "坡度4% 坡度4.2% 坡度6%");
    EditCell(TheGrid(), 1, 1, L"320");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().rows[1], (GradientRow{4.2, {{60, 320}}}));
}

// 4.26 is kept as 4.2 and shown as 4.3.
TEST_F(LonGradLenDialog, AnEnteredGradientStandsAboveOneThatIsShownAlike)
{
    Show();
    LoadGradients({4, 4.26, 6});
    EXPECT_EQ(Headers(), "坡度4% 坡度4.3% 坡度6%");
    EnterGradient([](QWidget* window) {
        TypeInto(window, 108, L"4.2");
        {
            const ExpectMessage box(L"输入的坡度已经存在!");
            Click(window, IDOK);
        }
        TypeInto(window, 108, L"4.3");
        Click(window, IDOK);
    });
    EXPECT_EQ(Headers(), "坡度4% 坡度4.3% 坡度4.3% 坡度6%");
    EXPECT_EQ(Row(TheGrid(), 1), "-");
    EditCell(TheGrid(), 1, 1, L"320");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().rows[1], (GradientRow{4.3, {{60, 320}}}));
    EXPECT_EQ(Stored().rows[2], (GradientRow{4.2, {{60, 100}}}));
}

TEST_F(LonGradLenDialog, APresentGradientCannotBeEnteredAgain)
{
    Show();
    LoadGradients({4, 6});
    EnterGradient([](QWidget* window) {
        TypeInto(window, 108, L"6.0");
        ExpectMessage box(L"输入的坡度已经存在!");
        Click(window, IDOK);
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Headers(), "坡度4% 坡度6%");
}

TEST_F(LonGradLenDialog, AnEnteredGradientHasOneDecimalAtMost)
{
    Show();
    LoadGradients({4, 6});
    EnterGradient([](QWidget* window) {
        EXPECT_EQ(dynamic_cast<CDialog*>(window)->GetDlgItemText(119), L"纵坡坡度(%):");
        for (const wchar_t* text : {L"4.25", L"-1"}) {
            TypeInto(window, 108, text);
            ExpectMessage box(L"坡度必须是正数,并且最多只能有一位小数!");
            Click(window, IDOK);
        }
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Headers(), "坡度4% 坡度6%");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(LonGradLenDialog, AGradientOfZeroIsARowToo)
{
    Show();
    LoadGradients({4});
    EnterGradient([](QWidget* window) {
        TypeInto(window, 108, L"0");
        Click(window, IDOK);
    });
    EXPECT_EQ(Headers(), "坡度0% 坡度4%");
    EXPECT_EQ(GradientMenu(), "0%* 3% 4%* 4.5% 5% 5.5% 6% 6.5% 7% 8% 9% 10% 输入坡度...");
    Choose(L"0%");
    EXPECT_EQ(Headers(), "坡度4%");
}

TEST_F(LonGradLenDialog, AnAddedGradientAmongUnorderedOnesStandsBelowTheLastLowerOne)
{
    Show();
    LoadGradients({6, 3, 8});
    Choose(L"5%");
    EXPECT_EQ(Headers(), "坡度6% 坡度3% 坡度5% 坡度8%");
    Choose(L"7%");
    EXPECT_EQ(Headers(), "坡度6% 坡度3% 坡度5% 坡度7% 坡度8%");
}

TEST_F(LonGradLenDialog, SpeedsAreAddedToAllRowsAndRemoved)
{
    Show();
    LoadGradients({4, 6});
    Choose(L"80 km/h");
    {
        ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"输入车速..."); });
        ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"70");
            Click(window, IDOK);
        });
        RightClickCell(TheGrid(), 0, 1);
    }
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 70 60");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 40);
    EXPECT_EQ(Row(TheGrid(), 1), "- - 100");
    EditCell(TheGrid(), 1, 2, L"250.9");
    Choose(L"5%");
    EditCell(TheGrid(), 1, 1, L"500");
    Choose(L"60 km/h");
    EXPECT_EQ(Row(TheGrid(), 1), "500 -");
    EXPECT_EQ(Row(TheGrid(), 2), "- 250");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().rows.count, 2);
    EXPECT_EQ(Stored().rows[0], (GradientRow{5, {{80, 500}}}));
    EXPECT_EQ(Stored().rows[1], (GradientRow{6, {{70, 250}}}));
}

TEST_F(LonGradLenDialog, ARowWithoutLengthsIsDropped)
{
    Show();
    LoadGradients({4, 6});
    EditCell(TheGrid(), 0, 1, L"");
    EXPECT_EQ(Headers(), "坡度4% 坡度6%");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().rows.count, 1);
    EXPECT_EQ(Stored().rows[0].Grad, 6);
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Headers(), "坡度6%");
}

TEST_F(LonGradLenDialog, PastedGradientsAndSpeedsThatAreMissingAreOffered)
{
    Show();
    LoadGradients({4, 6});
    {
        const ExpectMessage box(L"表格中没有坡度 4.5%、3%, 没有车速 80 km/h。添加后粘贴?", L"提示",
                                MB_ICONQUESTION, IDYES);
        PasteAt(TheGrid(), 0, 1, L"坡度\t60\t80\n4.5\t700\t600\n3%\t900\t850\n95%\t1\t2");
    }
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80 60");
    EXPECT_EQ(Headers(), "坡度3% 坡度4% 坡度4.5% 坡度6%");
    EXPECT_EQ(Row(TheGrid(), 0), "850 900");
    EXPECT_EQ(Row(TheGrid(), 1), "- 100");
    EXPECT_EQ(Row(TheGrid(), 2), "600 700");
    EXPECT_TRUE(HasLabel("4 个值, 按标题填入, 1 行没有对应: 95%"));
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().rows.count, 4);
    EXPECT_EQ(Stored().rows[2], (GradientRow{4.5, {{80, 600}, {60, 700}}}));
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Headers(), "坡度4% 坡度6%");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(LonGradLenDialog, APastedTableMakesAnEmptyGrid)
{
    Show();
    LoadGradients({});
    TheGrid()->setFocus();
    PutOnClipboard(L"坡度\t60\n3%\t900");
    {
        const ExpectMessage box(L"表格中没有坡度 3%, 没有车速 60 km/h。添加后粘贴?", L"提示",
                                MB_ICONQUESTION, IDYES);
        PressKey(&m_page, Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(Headers(), "坡度3%");
    EXPECT_EQ(Row(TheGrid(), 0), "900");
}

TEST_F(LonGradLenDialog, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::LonGradMaxLen);
}

TEST_F(LonGradLenDialog, ViewModeLocksAllButTheSource)
{
    C criterion;
    criterion.Criterion = L"来源";
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "600 - - -");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadSource(118), "来源");
}
