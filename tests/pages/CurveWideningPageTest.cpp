#include "tests/pages/CurveWideningPageTest.h"

#include <QComboBox>
#include <QHeaderView>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/pages/CellKeys.h"

using namespace designspec;

namespace {

class CurveWideningPage : public CurveWideningPageTest {};

} // namespace

TEST_F(CurveWideningPage, ShowsTheBuiltInWideningsBeforeAnythingIsLoaded)
{
    Show();
    EXPECT_EQ(Columns(TheGrid()).substr(0, Columns(TheGrid()).find(' ')), "圆曲线半径\\加宽类别");
    EXPECT_EQ(Captions(), "200<R≤250 150<R≤200 100<R≤150 60<R≤100 50<R≤60 40<R≤50 30<R≤40 "
                          "20<R≤30 15<R≤20");
    EXPECT_EQ(Categories(), "小型汽车|普通汽车|铰接车");
    EXPECT_EQ(Row(TheGrid(), 0), "0.28 0.30 0.32 0.35 0.39 0.40 0.45 0.60 0.70");
    EXPECT_EQ(Row(TheGrid(), 2), "0.45 0.55 0.75 0.95 1.25 1.50 1.90 2.80 3.50");
    EXPECT_EQ(TextOf(119), "在右键菜单中添加或删除圆曲线半径和加宽类别");
    EXPECT_EQ(TextOf(118), "");
    EXPECT_EQ(Labels(), "半径范围输入方式:|加宽类别和加宽表(单车道加宽值,m):");
    EXPECT_FALSE(IsShown(106));
}

TEST_F(CurveWideningPage, ItsGridHasThreeLineCaptionsAndASplitCorner)
{
    Show();
    EXPECT_EQ(TheGrid()->ShownColumn(0)->GetWidth(), 100);
    EXPECT_EQ(TheGrid()->ShownColumn(1)->GetWidth(), 50);
    EXPECT_EQ(TheGrid()->GetPaintManager()->GetHeaderHeight(), 65);
    EXPECT_EQ(TheGrid()->horizontalHeader()->height(), 65);
    EXPECT_EQ(ToUtf8(ColumnCaptions(TheGrid())[1]), "200<\nR≤\n250");
    EditCell(TheGrid(), 0, 0, L"x");
    EXPECT_EQ(Categories(), "小型汽车|普通汽车|铰接车");
}

TEST_F(CurveWideningPage, OffersBothWaysToCloseARange)
{
    Show();
    const auto* const mode = Control<QComboBox>(&m_page, kMode);
    ASSERT_EQ(mode->count(), 2);
    EXPECT_EQ(mode->itemText(0).toStdString(), "最小半径 < R ≤ 最大半径");
    EXPECT_EQ(mode->itemText(1).toStdString(), "最小半径 ≤ R < 最大半径");
    EXPECT_EQ(mode->currentIndex(), 0);
}

TEST_F(CurveWideningPage, TheModeChangesTheCaptionsAndTheFlagAlone)
{
    Show();
    Load(TwoRanges());
    SelectMode(Qt::Key_Down);
    EXPECT_EQ(Captions(), "250≤R<1000 150≤R<250");
    EXPECT_EQ(Row(TheGrid(), 0), "0.40 0.60");
    ASSERT_TRUE(Save());
    CDSCurveWidening expected = TwoRanges();
    expected.IsGMinAndLEMaxMode = 0;
    EXPECT_EQ(Stored(), expected);

    m_page.Callback().Load(L"甲");
    EXPECT_EQ(TextOf(kMode), "最小半径 ≤ R < 最大半径");
    EXPECT_EQ(Captions(), "250≤R<1000 150≤R<250");
    SelectMode(Qt::Key_Up);
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoRanges());
}

TEST_F(CurveWideningPage, ACellThatIsBeingEditedIsKeptWhenTheModeChanges)
{
    Show();
    Load(TwoRanges());
    ClickCell(TheGrid(), 0, 1);
    Type(&m_page, L"0.55");
    SelectMode(Qt::Key_Down);
    EXPECT_EQ(Row(TheGrid(), 0), "0.55 0.60");
}

TEST_F(CurveWideningPage, CollectsTheCategoriesOfAllRanges)
{
    Show();
    Load(Ranges({{20, 30, {{L"b", 1}}}, {10, 20, {{L"a", 2}, {L"B", 3}, {L"b", 4}}}}));
    EXPECT_EQ(Categories(), "b|a");
    EXPECT_EQ(Row(TheGrid(), 0), "1.00 3.00"); // as a query finds it
    EXPECT_EQ(Row(TheGrid(), 1), "- 2.00");
}

TEST_F(CurveWideningPage, KeepsTheOrderOfTheRanges)
{
    Show();
    const CDSCurveWidening criterion = Ranges({{20, 30, {{L"a", 1}}}, {30, 40, {{L"a", 2}}}});
    Load(criterion);
    EXPECT_EQ(Captions(), "20<R≤30 30<R≤40");
    EXPECT_EQ(Row(TheGrid(), 0), "1.00 2.00");
}

TEST_F(CurveWideningPage, StoresWhatItLoaded)
{
    Show();
    for (const CDSCurveWidening& criterion :
         {CDSCurveWidening(), TwoRanges(), Ranges({{1, 2, {{L"a", 0.123456}}}})}) {
        Load(criterion);
        EXPECT_EQ(Fault(), "");
        ASSERT_TRUE(Save());
        EXPECT_EQ(Stored(), criterion);
    }
}

TEST_F(CurveWideningPage, StoresAnEditedCell)
{
    Show();
    Load(TwoRanges());
    EditCell(TheGrid(), 1, 2, L"0.355");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored().ranges[1].widenings, (GrowArray<Widening>{{L"大", 0.6}, {L"小", 0.355}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Row(TheGrid(), 1), "0.25 0.35");
}

TEST_F(CurveWideningPage, AWrongNumberEmptiesTheCellWithoutAWord)
{
    Show();
    Load(TwoRanges());
    EditCell(TheGrid(), 0, 1, L"-1");
    EXPECT_EQ(Row(TheGrid(), 0), "- 0.60");
    EditCell(TheGrid(), 0, 2, L"abc");
    EXPECT_EQ(Row(TheGrid(), 0), "- -");
}

TEST_F(CurveWideningPage, ContinuousRangesPassAndOthersDoNot)
{
    Show();
    Load(Ranges({{250, 1000, {{L"a", 1}}}, {150, 250, {{L"a", 2}}}}));
    EXPECT_EQ(Fault(), "");
    Load(Ranges({{250, 1000, {{L"a", 1}}}, {100, 200, {{L"a", 2}}}}));
    EXPECT_EQ(Fault(), "圆曲线半径范围 100~200 和前一组不连续!");
}

TEST_F(CurveWideningPage, TheRangesAreCheckedBeforeTheRows)
{
    Show();
    Load(Ranges({{30, 40, {{L"a", 1}}}, {20, 30, {}}, {10, 15, {{L"a", 2}}}}));
    EXPECT_EQ(Fault(), "圆曲线半径范围 10~15 和前一组不连续!");
}

TEST_F(CurveWideningPage, AFailureKeepsWhatCameBeforeIt)
{
    Show();
    CDSCurveWidening loaded =
        Ranges({{30, 40, {{L"b", 1}, {L"a", 1}}}, {20, 30, {{L"b", 2}}}, {10, 15, {{L"a", 3}}}});
    loaded.Criterion = L"来源";
    loaded.IsGMinAndLEMaxMode = 0;
    Load(loaded);
    CDSCurveWidening stored;
    CString message;
    EXPECT_FALSE(m_page.StoreStep(stored, message)); // the ranges do not join
    CDSCurveWidening expected = loaded;
    expected.ranges.RemoveAll();
    EXPECT_EQ(stored, expected);

    loaded.ranges[2].max = 20;
    Load(loaded);
    EXPECT_FALSE(m_page.StoreStep(stored, message)); // a has a gap
    expected = loaded;
    expected.ranges[2].widenings.RemoveAll();
    EXPECT_EQ(stored, expected);
}

TEST_F(CurveWideningPage, WithoutAModeTheLowerEndIsExcluded)
{
    Show();
    Load(TwoRanges());
    SelectMode(Qt::Key_Down);
    Control<QComboBox>(&m_page, kMode)->setCurrentIndex(-1);
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoRanges());
}

TEST_F(CurveWideningPage, LoadingTwiceLeavesNothingOfTheFirst)
{
    Show();
    Load(CDSCurveWidening());
    Load(Ranges({{15, 20, {{L"a", 1}}}}));
    EXPECT_EQ(Captions(), "15<R≤20");
    EXPECT_EQ(Categories(), "a");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
}

TEST_F(CurveWideningPage, ARangeThatWasRemovedLeavesAGap)
{
    Show();
    Load(CDSCurveWidening());
    ChooseFromMenu(TheGrid(), 0, 2, L"移除“150<R≤200”");
    EXPECT_EQ(Fault(), "圆曲线半径范围 100~150 和前一组不连续!");
}

TEST_F(CurveWideningPage, ACategoryHasNoGapBetweenItsValues)
{
    Show();
    Load(Ranges({{30, 40, {{L"b", 1}, {L"a", 1}}},
                 {20, 30, {{L"b", 1}}},
                 {10, 20, {{L"b", 1}, {L"a", 2}}}}));
    EXPECT_EQ(Row(TheGrid(), 1), "1.00 - 2.00");
    EXPECT_EQ(Fault(), "加宽类别 a 的加宽值设置不连续，不同圆曲线半径范围之间不能空缺!");
    m_page.FocusRefused();
    EXPECT_TRUE(TheGrid()->hasFocus());
    EXPECT_EQ(TheGrid()->currentIndex(), TheGrid()->IndexOf(1, 2));
    EXPECT_TRUE(HasLabel("a 空缺: 20<R≤30"));
    EditCell(TheGrid(), 1, 1, L"");
    EXPECT_EQ(Fault(), "");
}

TEST_F(CurveWideningPage, ACategoryMayHaveValuesInTheMiddleAlone)
{
    Show();
    const CDSCurveWidening criterion = Ranges({{40, 50, {{L"b", 1}}},
                                               {30, 40, {{L"b", 1}, {L"a", 1}}},
                                               {20, 30, {{L"b", 1}, {L"a", 1}}},
                                               {10, 20, {{L"b", 1}}}});
    Load(criterion);
    EXPECT_EQ(Row(TheGrid(), 1), "- 1.00 1.00 -");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(CurveWideningPage, ARangeWithoutValuesIsNotStored)
{
    Show();
    Load(TwoRanges());
    EditCell(TheGrid(), 0, 2, L"");
    EXPECT_EQ(Fault(), "");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), Ranges({{250, 1000, {{L"大", 0.4}, {L"小", 0.25}}}}));
    m_page.Callback().Load(L"甲");
    EXPECT_EQ(Captions(), "250<R≤1000");
}

TEST_F(CurveWideningPage, ACategoryWithoutValuesIsNotStored)
{
    Show();
    Load(TwoRanges());
    ChooseFromMenu(TheGrid(), 0, 1, L"铰接车");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoRanges());
}

TEST_F(CurveWideningPage, KeepsItsSource)
{
    ExpectKeepsSource(118, &CDesignSpecification::CurveWidening);
}

TEST_F(CurveWideningPage, ViewModeLocksAllButTheSource)
{
    CDSCurveWidening criterion = TwoRanges();
    criterion.Criterion = L"来源";
    Load(criterion);
    Show(true);
    EXPECT_FALSE(IsEnabled(kMode));
    EXPECT_FALSE(IsShown(119));
    EditCell(TheGrid(), 0, 1, L"5");
    EXPECT_EQ(Row(TheGrid(), 0), "0.40 0.60");
    ExpectNoMenu(TheGrid());
    EXPECT_EQ(ReadLockedSource(118), "来源");
}

TEST_F(CurveWideningPage, KeysAndClipboardKnowTwoDecimals)
{
    Show();
    Load(TwoRanges());
    CellKeys keys(TheGrid());
    keys.ExpectF2OffersTheText();
    keys.ExpectTyped(L"１．５", "1.50");
    keys.ExpectTyped(L"1.456", "1.46");
    keys.ExpectCopied();
    keys.ExpectCopiedFromEditorToEditor();
    keys.ExpectCutAndDeleted();
    keys.ExpectEmptiedBy(L"-0.5");
    keys.ExpectEmptiedBy(L"0.5%");
}

TEST_F(CurveWideningPage, ABlockFromASpreadsheetFillsTwoDecimals)
{
    Show();
    Load(TwoRanges());
    PasteAt(TheGrid(), 0, 1, L"0.5\t０．７\r\n0.3\tabc\r\n");
    EXPECT_EQ(Row(TheGrid(), 0), "0.50 0.70");
    EXPECT_EQ(Row(TheGrid(), 1), "0.30 -");
    PressKey(&m_page, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(ClipboardText(), "0.50\t0.70\n0.30\t");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(),
              Ranges({{250, 1000, {{L"大", 0.5}, {L"小", 0.3}}}, {150, 250, {{L"大", 0.7}}}}));
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(TheGrid(), 0), "0.40 0.60");
}

// A cell shows two decimals and keeps what was loaded until another text is entered.
TEST_F(CurveWideningPage, LookingIntoACellKeepsTheDecimalsThatItDoesNotShow)
{
    Show();
    const CDSCurveWidening criterion = Ranges({{250, 1000, {{L"大", 0.456}}}});
    Load(criterion);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape}) {
        ClickCell(TheGrid(), 0, 1);
        EXPECT_EQ(EditorText(TheGrid()), "0.46");
        PressKey(TheGrid(), key);
    }
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), criterion);
}

TEST_F(CurveWideningPage, TheModeIsPartOfUndo)
{
    Show();
    Load(TwoRanges());
    SelectMode(Qt::Key_Down);
    EditCell(TheGrid(), 0, 1, L"0.5");
    PressKey(&m_page, Qt::Key_Escape);
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOf(kMode), "最小半径 ≤ R < 最大半径");
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOf(kMode), "最小半径 < R ≤ 最大半径");
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
    EXPECT_FALSE(TheGrid()->GetUndo().CanUndo());
    PressKey(&m_page, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Captions(), "250≤R<1000 150≤R<250");
    Control(&m_page, kMode)->setFocus();
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TextOf(kMode), "最小半径 < R ≤ 最大半径");
    ASSERT_TRUE(Save());
    EXPECT_EQ(Stored(), TwoRanges());
}

TEST_F(CurveWideningPage, AListOfRangesFindsItsColumns)
{
    Show();
    Load(TwoRanges());
    const std::string row = Row(TheGrid(), 0);
    ASSERT_EQ(row, "0.40 0.60");
    const CString name = TheGrid()->GetRecords().GetAt(0)->GetItem(0)->GetCaption();
    PasteAt(TheGrid(), 0, 1, L"加宽类别\t150～250\t250＜R≤1000\n" + name + L"\t0.7m\t0.45");
    EXPECT_EQ(Row(TheGrid(), 0), "0.45 0.70");
}

TEST_F(CurveWideningPage, PastedCategoriesAndRangesThatAreMissingAreOffered)
{
    Show();
    Load(TwoRanges());
    const CString block = L"加宽类别\t250~1000\t100至150 m\t200~250\n大\t0.45\t0.8\t9\n"
                          L"挂车\t1\t1.5\t9";
    const CString question = L"表格中没有加宽类别 挂车, 没有圆曲线半径范围 100~150 m。添加后粘贴?";
    {
        const ExpectMessage box(question, L"提示", MB_ICONQUESTION, IDYES);
        PasteAt(TheGrid(), 0, 1, block);
    }
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250 100<R≤150");
    EXPECT_EQ(Categories(), "大|小|挂车");
    EXPECT_EQ(Row(TheGrid(), 0), "0.45 0.60 0.80");
    EXPECT_EQ(Row(TheGrid(), 2), "1.00 - 1.50");
    EXPECT_TRUE(HasLabel("4 个值, 按标题填入, 1 列没有对应: 200~250")); // one end is there
    PressKey(&m_page, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Categories(), "大|小");
    EXPECT_EQ(Captions(), "250<R≤1000 150<R≤250");
}

TEST_F(CurveWideningPage, AGapWithoutARowLeadsToItsRangeAndSaysWhatToDo)
{
    Show();
    CDSCurveWidening criterion;
    criterion.ranges.RemoveAll();
    for (int max = 6000; max > 0; max -= 200) // more than there is room for
        criterion.ranges.Add({max == 200 ? 10 : max - 200, max == 200 ? 190 : max, {}});
    Load(criterion);
    ASSERT_EQ(TheGrid()->GetRecords().GetCount(), 0);
    EXPECT_NE(Fault(), "");
    m_page.FocusRefused();
    EXPECT_TRUE(TheGrid()->hasFocus());
    const auto* const head = TheGrid()->horizontalHeader();
    const int last = head->count() - 1;
    EXPECT_GE(head->sectionViewportPosition(last), 0);
    EXPECT_LE(head->sectionViewportPosition(last) + head->sectionSize(last), head->width());
    EXPECT_TRUE(HasLabel("还没有加宽类别: 右键单击表头, 添加类别后输入圆曲线半径, "
                         "或移除“10<R≤190”"));
    ChooseFromHeaderMenu(TheGrid(), last, L"移除“10<R≤190”");
    EXPECT_EQ(Fault(), "");
}
