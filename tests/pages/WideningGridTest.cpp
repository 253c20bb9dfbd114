#include "pages/WideningGrid.h"

#include <gtest/gtest.h>

#include "tests/pages/CurveWideningPageTest.h"

namespace {

constexpr wchar_t kEnterCategory[] = L"输入加宽类别...";
constexpr wchar_t kEnterRange[] = L"输入圆曲线半径...";

class WideningGrid : public CurveWideningPageTest {};

} // namespace

TEST_F(WideningGrid, ItsMenuListsTheStandardCategoriesThenTheOthers)
{
    Show();
    Load(Ranges({{1, 2, {{L"特种车", 1}, {L"普通汽车", 1}, {L"1类: 5M", 1}}}}));
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0),
              (std::vector<std::string>{"小型汽车", "[x] 普通汽车", "铰接车", "[x] 1类: 5m",
                                        "2类: 8m", "3类: 5.2m+8.8m", "[x] 特种车",
                                        "输入加宽类别...", "---", "输入圆曲线半径..."}));
}

TEST_F(WideningGrid, ItsMenuChecksTheStandardCategoriesThatAreThere)
{
    Show();
    Load(Ranges({{1,
                  2,
                  {{L"3类: 5.2m+8.8m", 1},
                   {L"2类: 8m", 1},
                   {L"1类: 5m", 1},
                   {L"铰接车", 1},
                   {L"普通汽车", 1},
                   {L"小型汽车", 1}}}}));
    EXPECT_EQ(MenuOf(TheGrid(), 0, 0),
              (std::vector<std::string>{"[x] 小型汽车", "[x] 普通汽车", "[x] 铰接车", "[x] 1类: 5m",
                                        "[x] 2类: 8m", "[x] 3类: 5.2m+8.8m", "输入加宽类别...",
                                        "---", "输入圆曲线半径..."}));
}

TEST_F(WideningGrid, ItsMenuNamesARangeAsItIsCaptioned)
{
    Show();
    Load(TwoRanges());
    SelectMode(Qt::Key_Down);
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 1)[10], "移除“250≤R<1000”");
    EnterByMenu(kEnterRange, L"100~150");
    EXPECT_EQ(Captions(), "250≤R<1000 150≤R<250 100≤R<150");
}

TEST_F(WideningGrid, OnARangeItsMenuCanRemoveTheRange)
{
    Show();
    Load(TwoRanges());
    const std::vector<std::string> onCell = MenuOf(TheGrid(), 1, 1);
    EXPECT_EQ(onCell,
              (std::vector<std::string>{"小型汽车", "普通汽车", "铰接车", "1类: 5m", "2类: 8m",
                                        "3类: 5.2m+8.8m", "[x] 大", "[x] 小", "输入加宽类别...",
                                        "---", "移除“250<R≤1000”", "输入圆曲线半径..."}));
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 1), onCell);
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 2)[10], "移除“150<R≤250”");
    EXPECT_EQ(MenuOf(TheGrid(), 0, 0).size(), onCell.size() - 1);

    ChooseFromMenu(TheGrid(), 0, 1, L"移除“250<R≤1000”");
    EXPECT_EQ(Captions(), "150<R≤250");
    EXPECT_EQ(Row(TheGrid(), 0), "0.60");
}

TEST_F(WideningGrid, WithoutARowNoRangeCanBeAdded)
{
    Show();
    Load(Ranges({}));
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0),
              (std::vector<std::string>{"小型汽车", "普通汽车", "铰接车", "1类: 5m", "2类: 8m",
                                        "3类: 5.2m+8.8m", "输入加宽类别...", "---",
                                        "(输入圆曲线半径...)"}));
    ChooseFromHeaderMenu(TheGrid(), 0, L"2类: 8m");
    EnterByMenu(kEnterRange, L"15~20");
    EXPECT_EQ(Captions(), "15<R≤20");
    EXPECT_EQ(Row(TheGrid(), 0), "-");
}

TEST_F(WideningGrid, WhenItsRowsHaveGoneTheRangesStay)
{
    Show();
    Load(TwoRanges());
    ChooseFromMenu(TheGrid(), 0, 1, L"大");
    ChooseFromMenu(TheGrid(), 0, 1, L"小");
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    const std::vector<std::string> menu = HeaderMenuOf(TheGrid(), 2);
    EXPECT_EQ(menu[8], "移除“150<R≤250”");
    EXPECT_EQ(menu[9], "(输入圆曲线半径...)");
    ChooseFromHeaderMenu(TheGrid(), 0, L"铰接车");
    EXPECT_EQ(Row(TheGrid(), 0), "- -");
}

TEST_F(WideningGrid, ACheckedCategoryIsRemovedAndAnUncheckedOneAddedLast)
{
    Show();
    Load(TwoRanges());
    ChooseFromMenu(TheGrid(), 0, 1, L"大");
    EXPECT_EQ(Categories(), "小");
    ChooseFromMenu(TheGrid(), 0, 1, L"3类: 5.2m+8.8m");
    EXPECT_EQ(Categories(), "小|3类: 5.2m+8.8m");
    EXPECT_EQ(Row(TheGrid(), 1), "- -");
    EditCell(TheGrid(), 1, 2, L"1.5");
    EXPECT_EQ(Row(TheGrid(), 1), "- 1.50");
}

TEST_F(WideningGrid, ACategoryCanBeEntered)
{
    Show();
    Load(TwoRanges());
    EnterByMenu(kEnterCategory, L" 半挂车 & 拖车 ");
    EXPECT_EQ(Categories(), "大|小|半挂车 & 拖车");
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0)[8], "[x] 半挂车 && 拖车"); // shown as one sign
    for (const wchar_t* there : {L"大", L"小"})
        ExpectRefused(kEnterCategory, there, L"输入的加宽类别已经存在!");
    EnterByMenu(kEnterCategory, L"Truck");
    ExpectRefused(kEnterCategory, L"TRUCK", L"输入的加宽类别已经存在!");
    EXPECT_EQ(Categories(), "大|小|半挂车 & 拖车|Truck");
    EnterByMenu(kEnterCategory, L"铰接车");
    EXPECT_EQ(HeaderMenuOf(TheGrid(), 0)[2], "[x] 铰接车");
}

TEST_F(WideningGrid, ARangeIsPutBeforeTheFirstLowerOne)
{
    Show();
    Load(TwoRanges());
    EnterByMenu(kEnterRange, L"100~15");
    EnterByMenu(kEnterRange, L"200~300");
    EnterByMenu(kEnterRange, L"1000~2000");
    EXPECT_EQ(Captions(), "1000<R≤2000 250<R≤1000 200<R≤300 150<R≤250 15<R≤100");
    EXPECT_EQ(Row(TheGrid(), 0), "- 0.40 - 0.60 -");
    EXPECT_EQ(Row(TheGrid(), 1), "- 0.25 - - -");
    EXPECT_EQ(TheGrid()->ShownColumn(3)->GetWidth(), 50);
    EditCell(TheGrid(), 1, 3, L"0.5");
    EXPECT_EQ(Row(TheGrid(), 1), "- 0.25 0.50 - -");
}

TEST_F(WideningGrid, OneEndThatIsThereIsEnoughToRefuseARange)
{
    Show();
    Load(TwoRanges());
    for (const wchar_t* text : {L"250~1000", L"250~300", L"500~1000", L"10~250", L"250~10"})
        ExpectRefused(kEnterRange, text, L"输入的圆曲线半径范围已经存在!");
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    EnterByMenu(kEnterRange, L"1000~1500"); // another column's end as its beginning
    EXPECT_EQ(Captions(), "1000<R≤1500 250<R≤1000 150<R≤250");
}

TEST_F(WideningGrid, ACancelledDialogChangesNothing)
{
    Show();
    Load(TwoRanges());
    for (const wchar_t* item : {kEnterCategory, kEnterRange}) {
        ExpectModal menu([item](QWidget* window) { ChooseMenuItem(window, item); });
        ExpectModal dialog([](QWidget* window) {
            TypeInto(window, 108, L"10~20");
            Click(window, IDCANCEL);
        });
        RightClickHeader(TheGrid(), 0);
    }
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    EXPECT_EQ(Categories(), "大|小");
}

TEST_F(WideningGrid, UndoBringsBackWhatTheMenuRemoved)
{
    Show();
    Load(TwoRanges());
    ChooseFromMenu(TheGrid(), 0, 1, L"移除“250<R≤1000”");
    ChooseFromMenu(TheGrid(), 0, 1, L"大");
    ClickCell(TheGrid(), 0, 1);
    PressKey(&m_page, Qt::Key_Escape);
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Categories(), "大|小");
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    EXPECT_EQ(Row(TheGrid(), 0), "0.40 0.60");
    EXPECT_EQ(Row(TheGrid(), 1), "0.25 -");
}

TEST_F(WideningGrid, UndoGoesThroughTheModeToARangeTakenOutBefore)
{
    Show();
    Load(TwoRanges());
    ChooseFromMenu(TheGrid(), 0, 1, L"移除“250<R≤1000”");
    SelectMode(Qt::Key_Down);
    ClickCell(TheGrid(), 0, 1);
    PressKey(&m_page, Qt::Key_Escape);
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier); // the mode
    EXPECT_EQ(Captions(), "150<R≤250");
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    PressKey(&m_page, Qt::Key_Y, Qt::ControlModifier);
    PressKey(&m_page, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Captions(), "150≤R<250");
}
