#include "platform/xtp/report/ReportUndo.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QSignalSpy>

#include "base/Format.h"
#include "tests/platform/xtp/report/TestGrid.h"

using namespace designspec;

namespace {

class ReportUndoTest : public TestGrid {
protected:
    void SetUp() override
    {
        TestGrid::SetUp();
        m_grid.setFocus();
    }
    void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { Key(Qt::Key_Y, Qt::ControlModifier); }

    // As a page adds a speed: a new cell in every row, and a column that shows it.
    void AddSpeed(const CString& caption)
    {
        m_grid.GetUndo().Step([&] {
            const int index = m_grid.GetRecords().GetAt(0)->GetItemCount();
            for (int r = 0; r < m_grid.GetRecords().GetCount(); ++r)
                m_grid.GetRecords().GetAt(r)->AddItem(new CTestNumberItem);
            m_grid.GetColumns().InsertAt(1, new CXTPReportColumn(index, caption, 40));
            m_grid.Populate();
        });
    }
};

} // namespace

TEST_F(ReportUndoTest, TakesAnEditBackAndDoesItAgain)
{
    EditCell(&m_grid, 1, 1, L"99", Qt::Key_Up);
    Undo();
    EXPECT_EQ(Content(), m_initial);
    EXPECT_EQ(Item(1, 1)->value, 11);
    Redo();
    EXPECT_EQ(Text(1, 1), L"99");
    EXPECT_EQ(Item(1, 1)->value, 99);
    EXPECT_FALSE(m_grid.GetUndo().CanRedo());
}

TEST_F(ReportUndoTest, RestoresTheCellsWholeState)
{
    EditCell(&m_grid, 0, 1, L"abc", Qt::Key_Down);
    EXPECT_TRUE(Item(0, 1)->empty);
    Undo();
    EXPECT_FALSE(Item(0, 1)->empty);
    EXPECT_EQ(Item(0, 1)->value, 1);
    EXPECT_EQ(Text(0, 1), L"1");
    Redo();
    EXPECT_TRUE(Item(0, 1)->empty);
}

TEST_F(ReportUndoTest, APasteIsOneStepAndADeleteToo)
{
    QApplication::clipboard()->setText("5\t6\n7\t8");
    m_grid.setCurrentIndex(m_grid.IndexOf(0, 1));
    Key(Qt::Key_V, Qt::ControlModifier);
    SelectBlock(2, 1, 2, 3);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Content(), L"行0 5 6 3|行1 7 8 13|行2   |");
    Undo();
    EXPECT_EQ(Content(), L"行0 5 6 3|行1 7 8 13|行2 21 22 23|");
    Undo();
    EXPECT_EQ(Content(), m_initial);
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
    Redo();
    Redo();
    EXPECT_EQ(Content(), L"行0 5 6 3|行1 7 8 13|行2   |");
}

TEST_F(ReportUndoTest, AnAddedColumnComesAndGoesWithItsCells)
{
    AddSpeed(L"140");
    EditCell(&m_grid, 0, 1, L"400", Qt::Key_Down);
    EXPECT_EQ(Content(), L"行0 400 1 2 3|行1  11 12 13|行2  21 22 23|");
    Undo();
    EXPECT_EQ(Content(), L"行0  1 2 3|行1  11 12 13|行2  21 22 23|");
    Undo();
    EXPECT_EQ(Content(), m_initial);
    EXPECT_EQ(m_grid.GetRecords().GetAt(0)->GetItemCount(), 4);
    Redo();
    Redo();
    EXPECT_EQ(Content(), L"行0 400 1 2 3|行1  11 12 13|行2  21 22 23|");
    EXPECT_EQ(m_grid.GetColumns().GetAt(1)->GetCaption(), L"140");
}

TEST_F(ReportUndoTest, ARemovedColumnComesBackAsItWas)
{
    const CXTPReportColumn* const removed = m_grid.GetColumns().GetAt(2);
    m_grid.GetColumns().GetAt(2)->SetWidth(77);
    m_grid.GetUndo().Step([this] {
        m_grid.GetColumns().RemoveAt(2);
        m_grid.Populate();
    });
    Undo();
    EXPECT_EQ(m_grid.GetColumns().GetAt(2), removed);
    EXPECT_EQ(m_grid.columnWidth(2), 77);
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportUndoTest, ARemovedRecordComesBackAsItWas)
{
    m_grid.GetUndo().Step([this] {
        m_grid.GetRecords().RemoveAt(0);
        m_grid.Populate();
    });
    EditCell(&m_grid, 0, 1, L"5", Qt::Key_Down);
    Undo();
    Undo();
    EXPECT_EQ(Content(), m_initial);
    Redo();
    EXPECT_EQ(Content(), L"行1 11 12 13|行2 21 22 23|");
}

TEST_F(ReportUndoTest, NestedChangesAreOneStep)
{
    m_grid.GetUndo().Step([this] {
        AddSpeed(L"140");
        AddSpeed(L"150");
    });
    Undo();
    EXPECT_EQ(Content(), m_initial);
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
}

TEST_F(ReportUndoTest, AStepThatChangedNothingIsNone)
{
    m_grid.GetUndo().Step([this] { m_grid.Populate(); });
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
    EditCell(&m_grid, 0, 1, L"01", Qt::Key_Down); // the cell still holds 1
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
}

TEST_F(ReportUndoTest, ANewStepForgetsTheUndoneOnes)
{
    EditCell(&m_grid, 0, 1, L"5", Qt::Key_Down);
    Undo();
    EditCell(&m_grid, 0, 2, L"6", Qt::Key_Down);
    Redo();
    EXPECT_EQ(Content(), L"行0 1 6 3|行1 11 12 13|行2 21 22 23|");
}

TEST_F(ReportUndoTest, ClearUndoForgetsAll)
{
    EditCell(&m_grid, 0, 1, L"5", Qt::Key_Down);
    m_grid.GetUndo().Clear();
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
    Undo();
    EXPECT_EQ(Text(0, 1), L"5");
}

TEST_F(ReportUndoTest, AReadOnlyGridUndoesNothing)
{
    EditCell(&m_grid, 0, 1, L"5", Qt::Key_Down);
    m_grid.AllowEdit(false);
    Undo();
    m_grid.GetUndo().Undo();
    EXPECT_EQ(Text(0, 1), L"5");
    m_grid.AllowEdit(true);
    Undo();
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportUndoTest, InAnEditorTheTypedTextIsUndoneFirst)
{
    EditCell(&m_grid, 0, 1, L"5", Qt::Key_Tab); // the next cell is being edited
    ASSERT_TRUE(IsEditing());
    Type(&m_grid, L"7");
    Undo();
    ASSERT_TRUE(IsEditing());
    EXPECT_EQ(Editor()->text(), QStringLiteral("2"));
    EXPECT_EQ(Text(0, 1), L"5");
    Undo(); // the editor has nothing left
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportUndoTest, TellsWhenAStepWasUndone)
{
    EditCell(&m_grid, 0, 1, L"5", Qt::Key_Down);
    QSignalSpy spy(&m_grid, &CXTPReportControl::UndoDone);
    Undo();
    Redo();
    Redo();
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(ReportUndoTest, GoesToTheFirstCellThatChanged)
{
    EditCell(&m_grid, 1, 1, L"99", Qt::Key_Up);
    ClickCell(&m_grid, 0, 1);
    Key(Qt::Key_Escape);
    Undo();
    EXPECT_EQ(m_grid.currentIndex(), m_grid.IndexOf(1, 1));
    AddSpeed(L"80");
    Undo();
    Redo();
    EXPECT_EQ(m_grid.currentIndex(), m_grid.IndexOf(0, 1)); // the new column's first cell
}

TEST_F(ReportUndoTest, ScrollsToWhatChanged)
{
    for (int i = 0; i < 40; ++i)
        AddSpeed(Format(L"%d", i));
    const int last = m_grid.GetColumns().GetCount() - 1;
    m_grid.setCurrentIndex(m_grid.IndexOf(0, last));
    ASSERT_GT(m_grid.horizontalScrollBar()->value(), 0);
    EditCell(&m_grid, 0, last, L"77", Qt::Key_Down);
    m_grid.setCurrentIndex(m_grid.IndexOf(0, 1));
    m_grid.horizontalScrollBar()->setValue(0);
    const auto isShown = [&] {
        return m_grid.viewport()->rect().contains(
            m_grid.visualRect(m_grid.IndexOf(0, last)).center());
    };
    Undo();
    EXPECT_TRUE(isShown());
    m_grid.horizontalScrollBar()->setValue(0); // the cell stays the current one
    Redo();
    EXPECT_TRUE(isShown());
}

TEST_F(ReportUndoTest, ANumberOfTheOwnersIsPartOfTheContent)
{
    int number = 1;
    m_grid.GetUndo().Keep([&number] { return number; }, [&number](int kept) { number = kept; });
    m_grid.GetUndo().Step([&number] { number = 2; });
    m_grid.EnterText(m_grid.IndexOf(0, 1), L"9");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(number, 2);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(number, 1);
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(number, 2);
    m_grid.GetUndo().Keep({}, {});
}
