#include "pages/SuperElevationPage.h"

#include <gtest/gtest.h>

#include <QListWidget>

#include "base/Text.h"
#include "tests/pages/CellKeys.h"
#include "tests/pages/PageTest.h"

using namespace designspec;

namespace {

// Exists before the page that asks it does.
struct MaximaPage {
    MaximaPage() { EXPECT_TRUE(m_maxima.Create(&m_maximaFrame)); }
    QWidget m_maximaFrame;
    CMaxSuperElevPage m_maxima;
};

MaximaPage* g_maxima = nullptr;

struct TablesPage : CSuperElevationPage {
    TablesPage() : CSuperElevationPage(&g_maxima->m_maxima) {}
};

struct MaximaFirst {
    MaximaFirst() { g_maxima = &m_first; }
    MaximaPage m_first;
};

constexpr int kList = 122;

class SuperElevationPage : protected MaximaFirst, public PageTest<TablesPage> {
protected:
    void Load(const CDSSuperElevation& criterion)
    {
        PageTest::Load(&CDesignSpecification::SuperElevation, criterion);
    }
    // The maxima that stand on the other page.
    void UseMaxima(const CArray<int>& maxima)
    {
        CDSMaxSuperElevation criterion;
        criterion.MaxSuperElev.RemoveAll();
        int speed = 120;
        for (int maximum : maxima)
            AddSpeed(criterion.MaxSuperElev, speed--, maximum);
        m_first.m_maxima.LoadStep(criterion);
    }
    static CDSSuperElevation& Stored() { return Specification().SuperElevation; }
    static CDSSuperElevation Eight()
    {
        CDSSuperElevation criterion;
        criterion.definitions = {
            {8, {{60, {{250, 270, 8}, {270, 330, 7}, {330, 400, 6}}}, {40, {{90, 120, 8}}}}}};
        return criterion;
    }
    CXTPReportControl* TheGrid() { return Grid(&m_page, CDSPage::kGrid); }
    QListWidget* List() { return Control<QListWidget>(&m_page, kList); }
    std::string Listed()
    {
        std::string texts;
        for (int i = 0; i < List()->count(); ++i)
            texts += (i ? " " : "") + List()->item(i)->text().toStdString();
        return texts;
    }
    std::string Selected()
    {
        return List()->currentItem() ? List()->currentItem()->text().toStdString() : "";
    }
    void Select(int row)
    {
        const QRect rect = List()->visualItemRect(List()->item(row));
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, rect.center());
    }
    void BringToFrontAgain()
    {
        m_page.hide();
        m_page.show();
        m_page.Callback().OnShow();
    }
};

} // namespace

TEST_F(SuperElevationPage, ShowsTheFirstBuiltInTable)
{
    Show();
    EXPECT_EQ(Listed(), "最大6% 最大4% 最大2%");
    EXPECT_EQ(Selected(), "最大6%");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 80");
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 5);
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"超高 6% 时圆\n曲线半径范围");
    EXPECT_EQ(Row(TheGrid(), 0), "200~300");
    EXPECT_EQ(CellText(TheGrid(), 4, 0), L"超高 2% 时圆\n曲线半径范围");
    EXPECT_EQ(Row(TheGrid(), 4), "810~1000");
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 100);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 70);
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除车速和超高");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_EQ(Labels(), "不同最大超高情况下的超高表:");
    EXPECT_EQ(List()->item(0)->data(Qt::UserRole).toInt(), 6);
    EXPECT_FALSE(IsShown(106));
}

TEST_F(SuperElevationPage, TheBuiltInTablesAreValidAndStoredInTheOrderOfTheMaxima)
{
    UseMaxima({2, 6, 4});
    Show();
    Load(CDSSuperElevation());
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    const CDSSuperElevation defaults;
    ASSERT_EQ(Stored().definitions.count, 3);
    EXPECT_EQ(Stored().definitions[0], defaults.definitions[2]);
    EXPECT_EQ(Stored().definitions[1], defaults.definitions[0]);
    EXPECT_EQ(Stored().definitions[2], defaults.definitions[1]);
}

TEST_F(SuperElevationPage, ShowsTheTableOfTheSelectedMaximum)
{
    Show();
    Select(1);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60 50");
    EXPECT_EQ(Row(TheGrid(), 0), "150~230 110~150");
    Select(2);
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 40 30 20");
    EXPECT_EQ(Row(TheGrid(), 0), "70~300 40~150 20~70");
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 1);
}

TEST_F(SuperElevationPage, RangesThatJoinAreValid)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60 40");
    EXPECT_EQ(Row(TheGrid(), 0), "250~270 90~120");
    EXPECT_EQ(Row(TheGrid(), 1), "270~330 -");
    EXPECT_EQ(Fault(), "");
    EditCell(TheGrid(), 1, 1, L"280~330");
    EXPECT_EQ(Fault(), "最大超高 8% 在 车速 60km/h 时, 超高 8% 的最大\n"
                       "圆曲线半径应该为 7% 的最小圆曲线半径!");
    EditCell(TheGrid(), 1, 1, L"270 320");
    EXPECT_EQ(Fault(), "最大超高 8% 在 车速 60km/h 时, 超高 7% 的最大\n"
                       "圆曲线半径应该为 6% 的最小圆曲线半径!");
    EditCell(TheGrid(), 1, 1, L"");
    EditCell(TheGrid(), 2, 1, L"400,270");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    CDSSuperElevation expected = Eight();
    expected.definitions[0].rows[0].ranges = {{250, 270, 8}, {270, 400, 6}};
    EXPECT_EQ(Stored(), expected);
    Load(CDSSuperElevation());
    Load(expected);
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 2);
    EXPECT_EQ(Row(TheGrid(), 1), "270~400 -");
}

TEST_F(SuperElevationPage, TheTableOfAnotherMaximumIsCheckedToo)
{
    CDSSuperElevation criterion;
    criterion.definitions[2].rows[0].ranges = {{70, 100, 2}, {110, 120, 1}};
    UseMaxima({6, 2});
    Show();
    Load(criterion);
    EXPECT_EQ(Fault(), "最大超高 2% 在 车速 40km/h 时, 超高 2% 的最大\n"
                       "圆曲线半径应该为 1% 的最小圆曲线半径!");
}

TEST_F(SuperElevationPage, AMaximumWithoutATableIsRefused)
{
    UseMaxima({6, 9});
    Show();
    EXPECT_EQ(Listed(), "最大9% 最大6% 最大4% 最大2%");
    EXPECT_EQ(Selected(), "最大6%");
    EXPECT_EQ(Fault(), "最大超高 9% 的超高表未设置!");
    m_page.FocusRefused();
    EXPECT_TRUE(List()->hasFocus());
    EXPECT_EQ(Selected(), "最大9%");
    EXPECT_TRUE(HasLabel(
        "最大超高 9% 还没有超高表: 右键单击表头, 在“超高”中添加 9% 到 2% 各行, 再添加车速"));
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
    EXPECT_EQ(Fault(), "最大超高 9% 的超高表未设置!");
}

TEST_F(SuperElevationPage, AnEmptiedTableIsNotSet)
{
    UseMaxima({2});
    CDSSuperElevation criterion;
    criterion.definitions = {{2, {{40, {{70, 300, 2}}}}}};
    Show();
    Load(criterion);
    EditCell(TheGrid(), 0, 1, L"");
    EXPECT_EQ(Fault(), "最大超高 2% 的超高表未设置!");
}

TEST_F(SuperElevationPage, ATableIsMadeFromNothing)
{
    UseMaxima({6, 3});
    Show();
    Load(CDSSuperElevation());
    BringToFrontAgain();
    EXPECT_EQ(Listed(), "最大6% 最大4% 最大3% 最大2%");
    Select(2);
    std::vector<std::string> lines;
    {
        ExpectModal menu([&lines](QWidget* window) {
            for (const CString& line : MenuLines(window))
                lines.push_back(ToUtf8(line));
            ChooseMenuItem(window, L"2%");
        });
        RightClickHeader(TheGrid(), 0);
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"(120 km/h)", "(100 km/h)", "(80 km/h)", "(60 km/h)",
                                               "(50 km/h)", "(40 km/h)", "(30 km/h)", "(20 km/h)",
                                               "(输入车速...)", "---", "超高 >"}));
    ChooseFromMenu(TheGrid(), 0, 0, L"3%");
    ChooseFromMenu(TheGrid(), 0, 0, L"80 km/h");
    EXPECT_EQ(CellText(TheGrid(), 0, 0), L"超高 3% 时圆\n曲线半径范围");
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 70);
    EditCell(TheGrid(), 0, 1, L"250,300");
    EditCell(TheGrid(), 1, 1, L"400~300");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().definitions.count, 2);
    EXPECT_EQ(Stored().definitions[1],
              (SuperElevDefinition{3, {{80, {{250, 300, 3}, {300, 400, 2}}}}}));
}

TEST_F(SuperElevationPage, TheMenuListsSuperelevationsDownToTwo)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    std::string lines;
    ExpectModal menu([&lines](QWidget* window) {
        const auto items = ReadMenu(window);
        ASSERT_EQ(items.size(), 11U);
        EXPECT_EQ(items[8].text, L"输入车速...");
        EXPECT_TRUE(items[8].enabled);
        EXPECT_TRUE(items[9].separator);
        for (const ShownMenuItem& item : items[10].subMenu)
            lines += (item.checked ? "*" : "") + ToUtf8(item.text) + " ";
        PressKey(window, Qt::Key_Escape);
    });
    RightClickCell(TheGrid(), 0, 1);
    EXPECT_EQ(lines, "*8% *7% *6% 5% 4% 3% 2% ");
}

TEST_F(SuperElevationPage, TheMenuListsOtherSpeedsInTheirPlace)
{
    CDSSuperElevation criterion = Eight();
    criterion.definitions[0].rows.Add({125, {{700, 800, 8}}});
    criterion.definitions[0].rows.Add({35, {{70, 80, 8}}});
    UseMaxima({8});
    Show();
    Load(criterion);
    const std::vector<std::string> menu = {"[x] 125 km/h", "120 km/h", "100 km/h",    "80 km/h",
                                           "[x] 60 km/h",  "50 km/h",  "[x] 40 km/h", "[x] 35 km/h",
                                           "30 km/h",      "20 km/h",  "输入车速...", "---",
                                           "超高 >"};
    EXPECT_EQ(MenuOf(TheGrid(), 2, 0), menu);
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 1), menu);
}

TEST_F(SuperElevationPage, ASpeedCanBeEnteredAndRemoved)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    {
        ExpectModal menu([](QWidget* window) { ChooseMenuItem(window, L"输入车速..."); });
        ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"55");
            Click(window, IDOK);
        });
        RightClickHeader(TheGrid(), 0);
    }
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h) 60 55 40");
    EXPECT_EQ(TheGrid()->ShownColumn(2)->GetWidth(), 70);
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Eight()); // a speed without a range has no entry
    ChooseFromMenu(TheGrid(), 0, 1, L"60 km/h");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    CDSSuperElevation expected = Eight();
    expected.definitions = {{8, {{40, {{90, 120, 8}}}}}};
    EXPECT_EQ(Stored(), expected);
}

TEST_F(SuperElevationPage, TheTableIsStoredAsItWasCheckedLast)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    EditCell(TheGrid(), 0, 2, L"80~120");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Eight());
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().definitions[0].rows[1].ranges[0].minRadius, 80);
}

TEST_F(SuperElevationPage, ASuperelevationIsRemovedAndComesBackEmptyInItsPlace)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    ChooseFromMenu(TheGrid(), 0, 1, L"7%");
    EXPECT_EQ(TheGrid()->GetRecords().GetCount(), 2);
    ChooseFromMenu(TheGrid(), 0, 1, L"7%");
    EXPECT_EQ(CellText(TheGrid(), 1, 0), L"超高 7% 时圆\n曲线半径范围");
    EXPECT_EQ(Row(TheGrid(), 1), "- -");
    ChooseFromMenu(TheGrid(), 0, 1, L"3%");
    EXPECT_EQ(CellText(TheGrid(), 3, 0), L"超高 3% 时圆\n曲线半径范围");
}

TEST_F(SuperElevationPage, TheHeaderHasTheMenuToo)
{
    Show();
    bool came = false;
    ExpectModal menu([&came](QWidget* window) {
        came = ReadMenu(window).back().text == L"超高";
        PressKey(window, Qt::Key_Escape);
    });
    RightClickHeader(TheGrid(), 1);
    EXPECT_TRUE(came);
}

TEST_F(SuperElevationPage, ARangeIsEnteredWithWaveBlankOrComma)
{
    Show();
    const std::pair<const wchar_t*, const char*> kCases[] = {
        {L"250~300", "250~300"},
        {L"300~250", "250~300"},
        {L"250 300", "250~300"},
        {L"400,330", "330~400"},
        {L" 250 ~ 300 ", "250~300"},
        {L"250, 300", "250~300"},
        {L"", "-"},
        {L"250.9~300.9", "250~300"},
        {L"２５０～３００", "250~300"},
        {L"２５０\u3000３００", "250~300"},
    };
    for (const auto& [text, shown] : kCases) {
        EditCell(TheGrid(), 0, 1, text);
        EXPECT_EQ(Row(TheGrid(), 0), shown) << ToUtf8(text);
    }
}

TEST_F(SuperElevationPage, ABadRangeIsToldAtOnceAndEmptiesTheCell)
{
    Show();
    for (const auto& [text, message] :
         {std::pair(L"0~300", L"圆曲线半径必须大于0!"), std::pair(L"a~b", L"圆曲线半径必须大于0!"),
          std::pair(L"300", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !"),
          std::pair(L"1~2~3", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !"),
          std::pair(L"200 ~", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !")}) {
        EditCell(TheGrid(), 0, 1, L"200~300");
        ASSERT_EQ(Row(TheGrid(), 0), "200~300");
        const ExpectMessage box(message);
        EditCell(TheGrid(), 0, 1, text);
        EXPECT_EQ(Row(TheGrid(), 0), "-") << ToUtf8(text);
    }
}

TEST_F(SuperElevationPage, EditsOfATableStayWhileAnotherIsShown)
{
    UseMaxima({6, 4, 2});
    Show();
    EditCell(TheGrid(), 0, 1, L"100~300");
    Select(1);
    Select(0);
    EXPECT_EQ(Row(TheGrid(), 0), "100~300");
}

TEST_F(SuperElevationPage, ACellThatIsStillBeingEditedCounts)
{
    UseMaxima({6, 4, 2});
    Show();
    Load(CDSSuperElevation());
    ClickCell(TheGrid(), 0, 1);
    PressKey(&m_page, Qt::Key_A, Qt::ControlModifier);
    Type(&m_page, L"100~300");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().definitions[0].rows[0].ranges[0].minRadius, 100);
}

TEST_F(SuperElevationPage, AFilledTableStaysInTheListButIsNotStoredOnceItsMaximumHasGone)
{
    UseMaxima({6, 4, 3, 2});
    Show();
    Load(CDSSuperElevation());
    BringToFrontAgain();
    Select(2);
    EXPECT_EQ(Selected(), "最大3%");
    UseMaxima({4, 2});
    BringToFrontAgain();
    EXPECT_EQ(Listed(), "最大6% 最大4% 最大2%");
    EXPECT_EQ(Selected(), "最大6%");
    EXPECT_EQ(Row(TheGrid(), 0), "200~300");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().definitions.count, 2);
    EXPECT_EQ(Stored().definitions[0].maxSuperElev, 4);
}

TEST_F(SuperElevationPage, AnEmptiedTableLeavesTheListOnceItsMaximumHasGone)
{
    UseMaxima({6, 2});
    CDSSuperElevation criterion;
    criterion.definitions = {{6, {{80, {{200, 300, 6}}}}}, {2, {{40, {{70, 300, 2}}}}}};
    Show();
    Load(criterion);
    BringToFrontAgain();
    Select(1);
    EditCell(TheGrid(), 0, 1, L"");
    UseMaxima({6});
    BringToFrontAgain();
    EXPECT_EQ(Listed(), "最大6%");
}

TEST_F(SuperElevationPage, AMaximumThatComesBackHasItsTableStill)
{
    UseMaxima({6, 4, 2});
    Show();
    Load(CDSSuperElevation());
    EditCell(TheGrid(), 0, 1, L"100~300");
    UseMaxima({4, 2});
    BringToFrontAgain();
    EXPECT_EQ(Selected(), "最大6%");
    Select(1);
    UseMaxima({6, 4, 2});
    BringToFrontAgain();
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    ASSERT_EQ(Stored().definitions.count, 3);
    EXPECT_EQ(Stored().definitions[0].rows[0].ranges[0].minRadius, 100);
}

TEST_F(SuperElevationPage, TheSelectionStaysWhenTheListIsRebuilt)
{
    Show();
    Select(1);
    UseMaxima({9, 6, 4, 2});
    BringToFrontAgain();
    EXPECT_EQ(Listed(), "最大9% 最大6% 最大4% 最大2%");
    EXPECT_EQ(Selected(), "最大4%");
    EXPECT_EQ(Row(TheGrid(), 0), "150~230 110~150");
}

TEST_F(SuperElevationPage, WithoutAMaximumThereIsNoTableAndNoMenu)
{
    CDSSuperElevation criterion;
    criterion.definitions.RemoveAll();
    UseMaxima({});
    Show();
    Load(criterion);
    EXPECT_EQ(Listed(), "");
    EXPECT_EQ(Columns(TheGrid()), "设计车速(km/h)");
    RightClickHeader(TheGrid(), 0);
    WaitForNothing();
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(SuperElevationPage, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::SuperElevation);
}

TEST_F(SuperElevationPage, ViewModeLocksTheGridOnly)
{
    UseMaxima({6, 4, 2});
    CDSSuperElevation criterion;
    criterion.Criterion = L"来源";
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"1~2");
    EXPECT_EQ(Row(TheGrid(), 0), "200~300");
    ExpectNoMenu(TheGrid());
    EXPECT_TRUE(IsEnabled(kList));
    Select(1);
    EXPECT_EQ(Row(TheGrid(), 0), "150~230 110~150");
    EXPECT_EQ(ReadLockedSource(118), "来源");
}

TEST_F(SuperElevationPage, SaveFailsWithoutASpecificationOfTheName)
{
    m_page.Callback().Load(L"甲");
    m_page.Callback().Rename(L"乙");
    EXPECT_FALSE(Save());
}

TEST_F(SuperElevationPage, KeysAndClipboardKnowRanges)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    CellKeys keys(TheGrid());
    keys.ExpectF2OffersTheText();
    keys.ExpectTyped(L"２５０～３００", "250~300");
    keys.ExpectTyped(L"300 250", "250~300");
    keys.ExpectCopied();
    keys.ExpectCopiedFromEditorToEditor();
    keys.ExpectCutAndDeleted();
    keys.ExpectEmptiedBy(L"300", L"圆曲线半径范围的输入格式为 最小半径~最大半径 !");
    keys.ExpectEmptiedBy(L"0~300", L"圆曲线半径必须大于0!");
}

TEST_F(SuperElevationPage, ABlockFromASpreadsheetFillsRanges)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    PasteAt(TheGrid(), 0, 1, L"250~280\t90 130\r\n２８０～３３０\t130,150\r\n400~330\t\r\n");
    EXPECT_EQ(Row(TheGrid(), 0), "250~280 90~130");
    EXPECT_EQ(Row(TheGrid(), 1), "280~330 130~150");
    EXPECT_EQ(Row(TheGrid(), 2), "330~400 -");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().definitions[0],
              (SuperElevDefinition{8,
                                   {{60, {{250, 280, 8}, {280, 330, 7}, {330, 400, 6}}},
                                    {40, {{90, 130, 8}, {130, 150, 7}}}}}));
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 1), "270~330 -");
}

// A box for each bad cell would be a nuisance.
TEST_F(SuperElevationPage, ABlockWithBadTextsIsToldInOneBox)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    {
        const ExpectMessage box(L"圆曲线半径范围的输入格式为 最小半径~最大半径 !\n"
                                L"    超高 8% 时圆曲线半径范围 60、超高 7% 时圆曲线半径范围 60、"
                                L"超高 6% 时圆曲线半径范围 40\n"
                                L"圆曲线半径必须大于0!\n"
                                L"    超高 8% 时圆曲线半径范围 40、超高 6% 时圆曲线半径范围 60");
        PasteAt(TheGrid(), 0, 1, L"300\t0~90\nabc\t100~120\n-5~7\t7");
    }
    WaitForNothing();
    EXPECT_EQ(Row(TheGrid(), 0), "- -");
    EXPECT_EQ(Row(TheGrid(), 1), "- 100~120");
    EXPECT_EQ(Row(TheGrid(), 2), "- -");
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 0), "250~270 90~120");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(SuperElevationPage, OneBadTextPastedIntoManyCellsIsToldOnce)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    GoToCell(TheGrid(), 0, 1);
    DragCells(TheGrid(), 0, 1, 2, 2);
    PutOnClipboard(L"300");
    {
        const ExpectMessage box(L"圆曲线半径范围的输入格式为 最小半径~最大半径 !\n"
                                L"    超高 8% 时圆曲线半径范围 60、超高 8% 时圆曲线半径范围 40、"
                                L"超高 7% 时圆曲线半径范围 60 等");
        PressKey(&m_page, Qt::Key_V, Qt::ControlModifier);
    }
    WaitForNothing();
    EXPECT_EQ(Row(TheGrid(), 0), "- -");
    EXPECT_EQ(Row(TheGrid(), 2), "- -");
}

TEST_F(SuperElevationPage, ARefusedGapIsShownInItsTable)
{
    CDSSuperElevation criterion = Eight();
    criterion.definitions.Add({6, {{60, {{250, 270, 6}, {270, 330, 5}}}}});
    criterion.definitions[0].rows[0].ranges[1].minRadius = 280;
    UseMaxima({8, 6});
    Show();
    Load(criterion);
    m_page.Callback().OnShow();
    Select(1);
    EXPECT_EQ(Selected(), "最大6%");
    EXPECT_NE(Fault(), "");
    m_page.FocusRefused();
    EXPECT_EQ(Selected(), "最大8%");
    EXPECT_TRUE(TheGrid()->hasFocus());
    EXPECT_EQ(TheGrid()->currentIndex(), TheGrid()->IndexOf(0, 1));
}

TEST_F(SuperElevationPage, ABadRangeInTheOpenEditorIsTheFault)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    ClickCell(TheGrid(), 0, 2);
    Type(&m_page, L"300");
    EXPECT_EQ(Fault(), "圆曲线半径范围的输入格式为 最小半径~最大半径 !");
    WaitForNothing(); // told once
    m_page.FocusRefused();
    EXPECT_EQ(TheGrid()->currentIndex(), TheGrid()->IndexOf(0, 2));
    EXPECT_EQ(Fault(), "");
}

TEST_F(SuperElevationPage, ATableCopiedFromASheetMayHaveItsHeadings)
{
    UseMaxima({8});
    Show();
    Load(Eight());
    PasteAt(TheGrid(), 0, 1, L"超高\t40\t60\n7%\t120至130\t270-330\n8%\t90～120\t250—270");
    EXPECT_EQ(Row(TheGrid(), 0), "250~270 90~120");
    EXPECT_EQ(Row(TheGrid(), 1), "270~330 120~130");
}

TEST_F(SuperElevationPage, PastedSuperelevationsThatAreMissingAreOffered)
{
    UseMaxima({8, 4});
    Load(Eight());
    Show();
    Select(1);
    ASSERT_EQ(Selected(), "最大4%");
    PutOnClipboard(L"超高\t60\n4%\t150~180\n超高 3%\t180~220\n5%\t90~150");
    TheGrid()->setFocus();
    {
        const ExpectMessage box(L"表格中没有超高 4%、3%, 没有车速 60 km/h。添加后粘贴?", L"提示",
                                MB_ICONQUESTION, IDYES);
        PressKey(&m_page, Qt::Key_V, Qt::ControlModifier);
    }
    EXPECT_EQ(Row(TheGrid(), 0), "150~180");
    EXPECT_EQ(Row(TheGrid(), 1), "180~220");
    EXPECT_TRUE(HasLabel("2 个值, 按标题填入, 1 行没有对应: 5%"));
    EXPECT_EQ(Fault(), "");
}
