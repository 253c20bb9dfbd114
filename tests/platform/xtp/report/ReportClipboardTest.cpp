// Blocks of cells: selecting, deleting, and text to and from a spreadsheet.
#include "platform/xtp/report/ReportClipboard.h"

#include <QApplication>
#include <QClipboard>

#include "platform/mfc/QtText.h"
#include "tests/platform/xtp/report/TestGrid.h"

using namespace designspec;

namespace {

class ReportClipboardTest : public TestGrid {
protected:
    void SetUp() override
    {
        TestGrid::SetUp();
        QApplication::clipboard()->clear();
        m_grid.setFocus();
    }
    static void PutOnClipboard(const CString& text)
    {
        QApplication::clipboard()->setText(ToQString(text));
    }
    static CString Clipboard() { return FromQString(QApplication::clipboard()->text()); }
    void GoTo(int row, int column) { m_grid.setCurrentIndex(m_grid.IndexOf(row, column)); }
    void Control(Qt::Key key) { Key(key, Qt::ControlModifier); }
    void CopyPlain() { Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier); }
};

} // namespace

TEST_F(ReportClipboardTest, ADragSelectsABlockAndEditsNothing)
{
    SelectBlock(0, 1, 1, 2);
    EXPECT_FALSE(IsEditing());
    CopyPlain();
    EXPECT_EQ(Clipboard(), L"1\t2\n11\t12");
}

TEST_F(ReportClipboardTest, ShiftAndArrowsSelectABlock)
{
    GoTo(1, 1);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    CopyPlain();
    EXPECT_EQ(Clipboard(), L"11\t12\n21\t22");
}

TEST_F(ReportClipboardTest, CopiesABlockWithItsCaptions)
{
    SelectBlock(1, 2, 2, 3);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipboard(), L"设计车速(km/h)\t100\t80\n行1\t12\t13\n行2\t22\t23");
    SelectBlock(1, 0, 2, 1);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipboard(), L"设计车速(km/h)\t120\n行1\t11\n行2\t21");
    CopyPlain();
    EXPECT_EQ(Clipboard(), L"11\n21");
}

TEST_F(ReportClipboardTest, CopiesOneCellAlone)
{
    GoTo(1, 1);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipboard(), L"11");
}

TEST_F(ReportClipboardTest, CopiesCaptionsWithoutLineBreaks)
{
    m_grid.GetRecords().GetAt(0)->GetItem(0)->SetCaption(L"超高\n半径");
    Control(Qt::Key_A);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipboard(), L"设计车速(km/h)\t120\t100\t80\n超高半径\t1\t2\t3\n"
                           L"行1\t11\t12\t13\n行2\t21\t22\t23");
}

TEST_F(ReportClipboardTest, AWholeGridPastedAtItsFirstValueStaysAsItIs)
{
    Control(Qt::Key_A);
    Control(Qt::Key_C);
    for (const bool own : {true, false}) {
        if (!own) PutOnClipboard(Clipboard()); // as another program gives it back
        ClickCell(&m_grid, 0, 1);
        Control(Qt::Key_V);
        EXPECT_EQ(Content(), m_initial) << own;
    }
    Control(Qt::Key_A);
    CopyPlain();
    GoTo(0, 0);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportClipboardTest, CaptionsAreNeverPastedIntoValues)
{
    SelectBlock(0, 0, 2, 0);
    Control(Qt::Key_C);
    EXPECT_EQ(Clipboard(), L"行0\n行1\n行2");
    GoTo(0, 1);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportClipboardTest, ABlockOfAnotherGridGoesWhereItsCaptionsAre)
{
    CXTPReportControl other;
    other.GetColumns().Add(new CXTPReportColumn(0, L"设计车速(km/h)", 120));
    other.GetColumns().Add(new CXTPReportColumn(1, L"80", 40));
    CXTPReportRecord* const record = other.GetRecords().Add(new CXTPReportRecord);
    record->AddItem(new CXTPReportRecordItem(L"行2"))->SetEditable(false);
    record->AddItem(new CTestNumberItem)->Set(99);
    record->AddItem(new CTestNumberItem)->Set(98);
    other.GetColumns().Add(new CXTPReportColumn(2, L"120", 40));
    other.Populate();
    other.resize(400, 200);
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    DragCells(&other, 0, 1, 0, 2);
    PressKey(&other, Qt::Key_C, Qt::ControlModifier);
    m_grid.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_grid));
    GoTo(0, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11 12 13|行2 98 22 99|");
    Control(Qt::Key_Z);
    GoTo(0, 2);
    Key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Content(), L"行0 1 99 98|行1 11 12 13|行2 21 22 23|");
}

TEST_F(ReportClipboardTest, ATableFromElsewhereGoesWhereItsCaptionsAre)
{
    PutOnClipboard(L"\t80\t100\r\n行1\t7\t8\r\n");
    GoTo(0, 1);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11 8 7|行2 21 22 23|");
    EXPECT_EQ(m_grid.GetRemark(), L"2 个值, 按标题填入");
}

TEST_F(ReportClipboardTest, SpeedsAboveValuesAreNoValues)
{
    PutOnClipboard(L"120\t100\t80\n700\t400\t250");
    GoTo(1, 1);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 700 400 250|行2 21 22 23|");
    GoTo(0, 1);
    Key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier); // they are, for once
    EXPECT_EQ(Content(), L"行0 120 100 80|行1 700 400 250|行2 21 22 23|");
}

TEST_F(ReportClipboardTest, PastesABlockFromTheSelectionsCorner)
{
    PutOnClipboard(L"5\t6\r\n7\t8\r\n");
    SelectBlock(1, 2, 2, 3);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11 5 6|行2 21 7 8|");
}

TEST_F(ReportClipboardTest, PasteLeavesOutWhatIsOutsideOrNotEditable)
{
    PutOnClipboard(L"名\t5\t6\n名\t7\t8\n名\t9\t10");
    GoTo(1, 0);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 5 6 13|行2 7 8 23|");
    PutOnClipboard(L"30\t31\t32");
    GoTo(0, 3);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 30|行1 5 6 13|行2 7 8 23|");
}

TEST_F(ReportClipboardTest, OneValueFillsTheSelection)
{
    PutOnClipboard(L"9");
    SelectBlock(0, 0, 1, 2);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 9 9 3|行1 9 9 13|行2 21 22 23|");
}

TEST_F(ReportClipboardTest, APasteGoesThroughTheCellsOwnRules)
{
    PutOnClipboard(L" ７０ \tabc\t12.7");
    GoTo(0, 1);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 70  12|行1 11 12 13|行2 21 22 23|");
    EXPECT_TRUE(Item(0, 2)->empty);
    EXPECT_EQ(Item(0, 1)->entered, CStringArray{L" 70 "});
}

TEST_F(ReportClipboardTest, APastedBlockIsSelected)
{
    PutOnClipboard(L"5\t6\n7\t8");
    GoTo(0, 1);
    Control(Qt::Key_V);
    CopyPlain();
    EXPECT_EQ(Clipboard(), L"5\t6\n7\t8");
}

TEST_F(ReportClipboardTest, ABlockPastedIntoAnOpenEditorIsForTheGrid)
{
    PutOnClipboard(L"5\t6\n7\t8");
    ClickCell(&m_grid, 0, 1);
    Control(Qt::Key_V);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), L"行0 5 6 3|行1 7 8 13|行2 21 22 23|");
}

TEST_F(ReportClipboardTest, LinesPastedIntoAnOpenEditorAreForTheGridToo)
{
    PutOnClipboard(L"5\n7");
    ClickCell(&m_grid, 0, 1);
    Control(Qt::Key_V);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), L"行0 5 2 3|行1 7 12 13|行2 21 22 23|");
}

TEST_F(ReportClipboardTest, OneValuePastedIntoAnOpenEditorIsText)
{
    PutOnClipboard(L"45\n");
    ClickCell(&m_grid, 0, 1);
    Control(Qt::Key_V);
    EXPECT_TRUE(IsEditing());
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(0, 1), L"45");
}

TEST_F(ReportClipboardTest, DeleteEmptiesTheSelectedCells)
{
    SelectBlock(0, 0, 1, 2);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Content(), L"行0   3|行1   13|行2 21 22 23|");
    EXPECT_TRUE(Item(0, 1)->empty);
    EXPECT_EQ(Item(0, 1)->entered, CStringArray{L""});
}

TEST_F(ReportClipboardTest, CutCopiesAndEmpties)
{
    SelectBlock(0, 1, 0, 2);
    Control(Qt::Key_X);
    EXPECT_EQ(Clipboard(), L"设计车速(km/h)\t120\t100\n行0\t1\t2");
    EXPECT_EQ(Content(), L"行0   3|行1 11 12 13|行2 21 22 23|");
}

TEST_F(ReportClipboardTest, ARoundTripThroughTheClipboardMovesABlock)
{
    SelectBlock(0, 1, 0, 3);
    Control(Qt::Key_C);
    GoTo(2, 1);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), L"行0 1 2 3|行1 11 12 13|行2 1 2 3|");
}

TEST_F(ReportClipboardTest, AReadOnlyGridOnlyCopies)
{
    m_grid.AllowEdit(false);
    SelectBlock(0, 1, 1, 2);
    CopyPlain();
    EXPECT_EQ(Clipboard(), L"1\t2\n11\t12");
    PutOnClipboard(L"9");
    Control(Qt::Key_V);
    Control(Qt::Key_X);
    Key(Qt::Key_Delete);
    Control(Qt::Key_Z);
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportClipboardTest, AnEmptyClipboardPastesNothing)
{
    GoTo(0, 1);
    Control(Qt::Key_V);
    EXPECT_EQ(Content(), m_initial);
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
}
