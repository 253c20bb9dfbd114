#include "pages/framework/SpeedGrid.h"

#include <QClipboard>

#include <gtest/gtest.h>

#include "pages/framework/PageCallback.h"
#include "pages/framework/SpeedTableGrid.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

constexpr UINT kFormWithGrid = 104;
using C = CDSCurveMinLen;
constexpr SpeedTableRow<C> kRows[] = {
    {&C::HorizontalCurveMinLen, L"上"},
    {&C::CircularCurveMinLen, L"下一\n下二"},
};

class CTestCallback : public CDSPageCallback<&CDesignSpecification::CurveMinLen> {
    using CDSPageCallback::CDSPageCallback;
};

// A page with two tables of lengths.
class CTestPage : public CCriterionPage<C> {
public:
    CTestPage() : CCriterionPage(kFormWithGrid) {}
    CDSCallback& Callback() override { return m_callback; }
    void LoadStep(const C& criterion) override { m_grid.Load(criterion); }
    bool StoreStep(C& criterion, CString&) override
    {
        m_grid.Store(criterion);
        return true;
    }

    CSpeedTableGrid<C> m_grid;

protected:
    void InitPage() override { m_grid.Create(*this, kRows, {.speedWidth = 50, .addedWidth = 35}); }

private:
    CTestCallback m_callback{this};
};

class SpeedGrid : public PageTest<CTestPage> {
protected:
    void Load(const SpeedToIntValues& upper, const SpeedToIntValues& lower = {})
    {
        C criterion;
        criterion.HorizontalCurveMinLen = upper;
        criterion.CircularCurveMinLen = lower;
        PageTest::Load(&CDesignSpecification::CurveMinLen, criterion);
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }

    // Enters a speed through the menu.
    void EnterSpeed(const ModalAction& action)
    {
        ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"输入车速..."); });
        ExpectModal dialog(action);
        RightClickCell(TheGrid(), 0, 1);
    }

    // Rows that the user removes by a menu below the speeds.
    void Extend()
    {
        SpeedMenuExtension extension;
        extension.append = [](CMenu& menu, UINT firstId) {
            menu.AppendMenu(MF_STRING, firstId, L"删第一行");
            menu.AppendMenu(MF_STRING, firstId + 1, L"删第二行");
        };
        extension.choose = [this](int index) {
            m_chosen = index;
            TheGrid()->GetRecords().RemoveAt(index);
        };
        extension.isOffered = [this] { return m_offered; };
        m_page.m_grid.ExtendMenu(extension);
    }

    bool m_offered = true;
    int m_chosen = -1;
};

const std::vector<std::string> kStandardMenu = {
    "[x] 120 km/h", "100 km/h", "[x] 85 km/h", "80 km/h", "60 km/h",    "50 km/h",
    "[x] 40 km/h",  "30 km/h",  "20 km/h",     "---",     "输入车速..."};

} // namespace

TEST(SpeedChoices, PutsOtherSpeedsBeforeTheFirstLowerOne)
{
    std::string text;
    for (const SpeedChoice& choice : SpeedChoices({140, 100, 85, 15}))
        text += std::to_string(choice.speed) + (choice.present ? "* " : " ");
    EXPECT_EQ(text, "140* 120 100* 85* 80 60 50 40 30 20 15* ");
}

TEST_F(SpeedGrid, MergesTheSpeedsOfItsTablesHighestFirst)
{
    Show();
    Load({{60, 1}, {80, 2}}, {{60, 3}, {100, 4}});
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 100 80 60");
    EXPECT_EQ(Row(TheGrid(), 0), "- 2 1");
    EXPECT_EQ(Row(TheGrid(), 1), "4 - 3");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 50);
}

TEST_F(SpeedGrid, AHeaderOfTwoLinesMakesAHigherRow)
{
    Show();
    EXPECT_GT(TheGrid()->rowHeight(1), TheGrid()->rowHeight(0) + 8);
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"下一\n下二");
}

TEST_F(SpeedGrid, LoadingTwiceLeavesNothingOfTheFirst)
{
    Show();
    Load({{120, 1}, {80, 2}, {60, 3}});
    Load({{50, 9}});
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 50");
    EXPECT_EQ(Row(TheGrid(), 0), "9");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(SpeedGrid, TheMenuListsStandardAndPresentSpeeds)
{
    Show();
    Load({{120, 1}, {85, 2}, {40, 3}});
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1), kStandardMenu);
}

TEST_F(SpeedGrid, TheHeaderHasTheSameMenu)
{
    Show();
    Load({{120, 1}, {85, 2}, {40, 3}});
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 1), kStandardMenu);
}

TEST_F(SpeedGrid, TheMenuNumbersItsItems)
{
    Show();
    Load({{120, 1}, {85, 2}});
    const std::vector<ShownMenuItem> items = HeaderMenuItemsOf(TheGrid(), 0);
    ASSERT_EQ(items.size(), 11U);
    for (UINT i = 0; i < 9; ++i)
        EXPECT_EQ(items[i].id, 10001 + i);
    EXPECT_TRUE(items[9].separator);
    EXPECT_EQ(items[10].id, 10010U); // the entry of another speed
}

TEST_F(SpeedGrid, WithoutSpeedsTheMenuChecksNone)
{
    Show();
    Load({});
    EXPECT_EQ(MenuOf(TheGrid(), 0, 0),
              (std::vector<std::string>{"120 km/h", "100 km/h", "80 km/h", "60 km/h", "50 km/h",
                                        "40 km/h", "30 km/h", "20 km/h", "---", "输入车速..."}));
    ChooseFromHeaderMenu(TheGrid(), 0, L"20 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 20");
}

TEST_F(SpeedGrid, AllStandardSpeedsCanBePresent)
{
    Show();
    Load({{120, 1}, {100, 1}, {80, 1}, {60, 1}}, {{50, 1}, {40, 1}, {30, 1}, {20, 1}});
    EXPECT_EQ(MenuOf(TheGrid(), 0, 1),
              (std::vector<std::string>{"[x] 120 km/h", "[x] 100 km/h", "[x] 80 km/h",
                                        "[x] 60 km/h", "[x] 50 km/h", "[x] 40 km/h", "[x] 30 km/h",
                                        "[x] 20 km/h", "---", "输入车速..."}));
}

TEST_F(SpeedGrid, AnEntryThatIsTakenBackChangesNothing)
{
    Show();
    Load({{120, 1}});
    EnterSpeed([](QWidget* window) {
        TypeInto(window, 108, L"70");
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(SpeedGrid, WhatIsBeingTypedIsKeptWhenTheMenuOpens)
{
    Show();
    Load({{120, 1}});
    ClickCell(TheGrid(), 0, 1);
    Type(TheGrid(), L"25");
    ChooseFromHeaderMenu(TheGrid(), 1, L"60 km/h");
    EXPECT_EQ(Row(TheGrid(), 0), "25 -");
}

TEST_F(SpeedGrid, ASpeedThatATableHoldsTwiceIsOneColumnWithTheLastValue)
{
    Show();
    Load({{60, 1}, {60, 2}});
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60");
    EXPECT_EQ(Row(TheGrid(), 0), "2");
}

TEST_F(SpeedGrid, NoChoiceChangesNothing)
{
    Show();
    Load({{120, 1}});
    MenuOf(TheGrid(), 0, 1);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(SpeedGrid, APresentSpeedIsRemovedAtOnceAndComesBackEmpty)
{
    Show();
    Load({{120, 1}, {85, 2}, {40, 3}});
    ChooseFromMenu(TheGrid(), 0, 1, L"85 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 40");
    EXPECT_EQ(Row(TheGrid(), 0), "1 3");
    ChooseFromMenu(TheGrid(), 0, 1, L"60 km/h");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 60 40");
    EXPECT_EQ(Row(TheGrid(), 0), "1 - 3");
    EXPECT_EQ(TheGrid()->ShownColumn(2)->GetWidth(), 35);
    ChooseFromMenu(TheGrid(), 0, 1, L"120 km/h");
    ChooseFromMenu(TheGrid(), 0, 1, L"120 km/h");
    EXPECT_EQ(Row(TheGrid(), 0), "- - 3");
}

TEST_F(SpeedGrid, AddedSpeedsAreStoredInTheirOrder)
{
    Show();
    Load({{120, 1}, {40, 3}});
    ChooseFromMenu(TheGrid(), 0, 1, L"20 km/h");
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    EditCell(TheGrid(), 0, 2, L"22");
    EditCell(TheGrid(), 1, 4, L"44");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Specification().CurveMinLen.HorizontalCurveMinLen,
              (SpeedToIntValues{{120, 1}, {80, 22}, {40, 3}}));
    EXPECT_EQ(Specification().CurveMinLen.CircularCurveMinLen, (SpeedToIntValues{{20, 44}}));
}

TEST_F(SpeedGrid, ARemovedSpeedIsNotStored)
{
    Show();
    Load({{120, 1}, {40, 3}}, {{40, 5}});
    ChooseFromMenu(TheGrid(), 0, 1, L"40 km/h");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Specification().CurveMinLen.HorizontalCurveMinLen, (SpeedToIntValues{{120, 1}}));
    EXPECT_EQ(Specification().CurveMinLen.CircularCurveMinLen.count, 0);
}

TEST_F(SpeedGrid, AnEnteredSpeedGetsItsColumn)
{
    Show();
    Load({{120, 1}, {40, 3}});
    EnterSpeed([](QWidget* window) {
        EXPECT_EQ(window->windowTitle(), QStringLiteral("输入车速"));
        EXPECT_EQ(dynamic_cast<CDialog*>(window)->GetDlgItemText(119), L"设计车速(km/h):");
        TypeInto(window, 108, L"70");
        Click(window, IDOK);
    });
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 70 40");
}

TEST_F(SpeedGrid, SpeedsOutOfRangeOrPresentAreRefused)
{
    Show();
    Load({{120, 1}, {40, 3}});
    EnterSpeed([](QWidget* window) {
        for (const wchar_t* text : {L"5", L"160"}) {
            ExpectMessage box(L"车速 必须大于等于 10 并且小于等于 150");
            TypeInto(window, 108, text);
            Click(window, IDOK);
        }
        ExpectMessage box(L"输入的车速已经存在!");
        TypeInto(window, 108, L"40");
        Click(window, IDOK);
        Click(window, IDCANCEL);
    });
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 40");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(SpeedGrid, ViewModeHasNoMenu)
{
    Load({{120, 1}});
    Show(true);
    ExpectNoMenu(TheGrid());
}

TEST_F(SpeedGrid, AddingAndRemovingCanBeUndone)
{
    Show();
    Load({{120, 1}, {40, 3}});
    ChooseFromMenu(TheGrid(), 0, 1, L"40 km/h");
    ChooseFromMenu(TheGrid(), 0, 1, L"80 km/h");
    EditCell(TheGrid(), 0, 2, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "1 5");
    TheGrid()->setFocus();
    PressKey(&m_page, Qt::Key_Escape);
    for (int i = 0; i < 3; ++i)
        PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120 40");
    EXPECT_EQ(Row(TheGrid(), 0), "1 3");
    PressKey(&m_page, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 120");
}

TEST_F(SpeedGrid, APageMayAddItemsToTheMenu)
{
    Show();
    Load({{120, 1}});
    Extend();
    const std::vector<std::string> lines = MenuOf(TheGrid(), 0, 1);
    ASSERT_EQ(lines.size(), 12U);
    EXPECT_EQ(lines[7], "20 km/h");
    EXPECT_EQ(lines[8], "输入车速...");
    EXPECT_EQ(lines[9], "---");
    EXPECT_EQ(lines[10], "删第一行");
    EXPECT_EQ(lines[11], "删第二行");
    ChooseFromMenu(TheGrid(), 0, 1, L"删第二行");
    EXPECT_EQ(m_chosen, 1);
    EXPECT_EQ(TheGrid()->model()->rowCount(), 1);
    TheGrid()->GetUndo().Undo();
    EXPECT_EQ(TheGrid()->model()->rowCount(), 2);
}

TEST_F(SpeedGrid, SpeedsAreGreyedInAnExtendedMenuWithoutRows)
{
    Show();
    m_page.m_grid.RemoveRows();
    m_page.m_grid.ShowLoaded();
    Extend();
    const std::vector<std::string> lines = HeaderMenuOf(TheGrid(), 0);
    ASSERT_EQ(lines.size(), 12U);
    EXPECT_EQ(lines[0], "(120 km/h)");
    EXPECT_EQ(lines[8], "(输入车速...)");
    EXPECT_EQ(lines[10], "删第一行");
}

TEST_F(SpeedGrid, AnExtendedMenuMayBeWithheld)
{
    Show();
    Load({{120, 1}});
    Extend();
    m_offered = false;
    RightClickCell(TheGrid(), 0, 1);
    WaitForNothing();
}

TEST_F(SpeedGrid, RowsAreInsertedWithACellForEachColumn)
{
    Show();
    Load({{120, 1}, {40, 3}});
    m_page.m_grid.RemoveSpeed(120);
    m_page.m_grid.AddSpeed(60);
    CXTPReportRecord* const row = m_page.m_grid.InsertRow(1, L"中", 42);
    EXPECT_EQ(m_page.m_grid.RowHeader(1)->GetItemData(), 42U);
    EXPECT_FALSE(m_page.m_grid.RowHeader(1)->IsEditable());
    EXPECT_EQ(row->GetItemCount(), 4);
    EXPECT_NE(m_page.m_grid.Cell(1, 60), nullptr);
    EXPECT_NE(m_page.m_grid.Cell(1, 40), nullptr);
    EXPECT_EQ(m_page.m_grid.Cell(1, 120), nullptr);
    EXPECT_EQ(m_page.m_grid.Cell(9, 60), nullptr);
}

TEST_F(SpeedGrid, CellsCanBePastedFromASpreadsheet)
{
    Show();
    Load({{120, 1}, {40, 3}}, {{40, 5}});
    ClickCell(TheGrid(), 0, 1);
    PressKey(&m_page, Qt::Key_Escape);
    QApplication::clipboard()->setText(QStringLiteral("11\tx\n13\t１４"));
    PressKey(&m_page, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 0), "11 -");
    EXPECT_EQ(Row(TheGrid(), 1), "13 14");
}
