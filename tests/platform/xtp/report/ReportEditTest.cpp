// Moving and editing in the grid, as with the keyboard and the mouse.
#include <QSignalSpy>
#include <QTest>

#include "platform/mfc/MessageBox.h"
#include "tests/platform/xtp/report/TestGrid.h"

namespace {

// Answers what it does not like with a message box, and empties itself.
class CStrictItem : public CTestNumberItem {
public:
    void OnEditChanged(CXTPReportControl* control, const CString& newText) override
    {
        CTestNumberItem::OnEditChanged(control, newText);
        if (empty && !newText.empty()) MessageBox(control, L"不行!", L"提示", MB_ICONINFORMATION);
    }
};

} // namespace

class ReportEdit : public TestGrid {};

TEST_F(ReportEdit, AClickEdits)
{
    ClickCell(&m_grid, 1, 2);
    ASSERT_TRUE(IsEditing());
    EXPECT_EQ(Editor()->selectedText(), QStringLiteral("12"));
    Type(&m_grid, L"99");
    EXPECT_EQ(Text(1, 2), L"12"); // not before the edit ends
    Key(Qt::Key_Tab);
    EXPECT_EQ(Item(1, 2)->value, 99);
}

TEST_F(ReportEdit, AClickOnAHeaderCellOrWithoutEditOnClickOnlySelects)
{
    ClickCell(&m_grid, 1, 0);
    EXPECT_FALSE(IsEditing());
    m_grid.EditOnClick(false);
    ClickCell(&m_grid, 1, 1);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Current(), std::pair(1, 1));
}

TEST_F(ReportEdit, ArrowKeysMove)
{
    m_grid.setFocus();
    m_grid.setCurrentIndex(m_grid.IndexOf(0, 1));
    Key(Qt::Key_Right);
    EXPECT_EQ(Current(), std::pair(0, 2));
    Key(Qt::Key_Down);
    EXPECT_EQ(Current(), std::pair(1, 2));
    Key(Qt::Key_Left);
    Key(Qt::Key_Up);
    EXPECT_EQ(Current(), std::pair(0, 1));
    EXPECT_FALSE(IsEditing());
}

TEST_F(ReportEdit, TypingStartsEditingOverTheOldText)
{
    m_grid.setFocus();
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 3));
    Type(&m_grid, L"45");
    EXPECT_TRUE(IsEditing());
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(2, 3), L"45");
}

TEST_F(ReportEdit, AnInputMethodStartsEditing)
{
    m_grid.setFocus();
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 3));
    Type(&m_grid, L"４");
    ASSERT_TRUE(IsEditing());
    Type(&m_grid, L"５");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(2, 3), L"45");
}

TEST_F(ReportEdit, EnterAndF2EditTheCurrentCell)
{
    m_grid.setFocus();
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_F2}) {
        m_grid.setCurrentIndex(m_grid.IndexOf(0, 1));
        Key(key);
        EXPECT_TRUE(IsEditing());
        Key(Qt::Key_Escape);
        EXPECT_FALSE(IsEditing());
    }
}

TEST_F(ReportEdit, TabGoesOnEditingToTheRightAndToTheNextRow)
{
    ClickCell(&m_grid, 0, 3);
    Type(&m_grid, L"5");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(0, 3), L"5");
    EXPECT_EQ(Current(), std::pair(1, 1)); // over the header cell
    ASSERT_TRUE(IsEditing());
    Type(&m_grid, L"6");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text(1, 1), L"6");
    EXPECT_EQ(Current(), std::pair(1, 2));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportEdit, ShiftTabGoesBack)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Text(1, 1), L"5");
    EXPECT_EQ(Current(), std::pair(0, 3));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportEdit, EnterGoesDownAndShiftEnterUp)
{
    ClickCell(&m_grid, 1, 2);
    Type(&m_grid, L"5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(1, 2), L"5");
    EXPECT_EQ(Current(), std::pair(2, 2));
    ASSERT_TRUE(IsEditing());
    Type(&m_grid, L"6");
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Text(2, 2), L"6");
    EXPECT_EQ(Current(), std::pair(1, 2));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportEdit, EnterAtTheBottomGoesToTheNextColumn)
{
    ClickCell(&m_grid, 2, 1);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Current(), std::pair(0, 2));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportEdit, TheLastCellEndsTheEditing)
{
    for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
        EditCell(&m_grid, 2, 3, L"8", key);
        EXPECT_EQ(Text(2, 3), L"8");
        EXPECT_FALSE(IsEditing());
        EXPECT_EQ(Current(), std::pair(2, 3));
        EXPECT_TRUE(m_grid.hasFocus());
    }
}

TEST_F(ReportEdit, UpAndDownEndTheEditAndMove)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    Key(Qt::Key_Down);
    EXPECT_EQ(Text(1, 1), L"5");
    EXPECT_EQ(Current(), std::pair(2, 1));
    EXPECT_FALSE(IsEditing());
}

TEST_F(ReportEdit, EscTakesTheEditBack)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), m_initial);
    EXPECT_TRUE(Item(1, 1)->entered.empty());
    EXPECT_FALSE(m_grid.CanUndo());
}

TEST_F(ReportEdit, AClickElsewhereEndsTheEdit)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    ClickCell(&m_grid, 2, 2);
    EXPECT_EQ(Text(1, 1), L"5");
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(ReportEdit, ACellIsNotAskedWhenNothingWasTyped)
{
    ClickCell(&m_grid, 1, 1);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Item(1, 1)->entered.empty());
    EXPECT_FALSE(m_grid.CanUndo());
}

TEST_F(ReportEdit, BadTextEmptiesTheCell)
{
    EditCell(&m_grid, 1, 1, L"abc");
    EXPECT_EQ(Text(1, 1), L"");
    EXPECT_TRUE(Item(1, 1)->empty);
}

TEST_F(ReportEdit, FullWidthSignsReachTheCellAsAscii)
{
    EditCell(&m_grid, 0, 1, L"１２．５");
    EditCell(&m_grid, 0, 2, L"250～300");
    EditCell(&m_grid, 0, 3, L"１／１５０");
    EXPECT_EQ(Item(0, 1)->entered, CStringArray{L"12.5"});
    EXPECT_EQ(Item(0, 2)->entered, CStringArray{L"250~300"});
    EXPECT_EQ(Item(0, 3)->entered, CStringArray{L"1/150"});
}

TEST_F(ReportEdit, TabInAGridThatIsNotEditingWalksTheCellsAndThenLeaves)
{
    QWidget window;
    auto* const next = new QLineEdit(&window);
    next->move(0, 250);
    m_grid.setParent(&window);
    m_grid.show();
    QWidget::setTabOrder(&m_grid, next);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    m_grid.setFocus();
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 2));
    Key(Qt::Key_Tab);
    EXPECT_EQ(Current(), std::pair(2, 3));
    EXPECT_FALSE(IsEditing());
    Key(Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    m_grid.setParent(nullptr);
}

TEST_F(ReportEdit, ACellMayAnswerWithOneMessageBox)
{
    for (int row : {0, 1}) {
        m_grid.GetRecords().GetAt(row)->GetItems().RemoveAll();
        m_grid.GetRecords()
            .GetAt(row)
            ->AddItem(new CXTPReportRecordItem(L"头"))
            ->SetEditable(false);
        m_grid.GetRecords().GetAt(row)->AddItem(new CStrictItem)->Set(4);
    }
    m_grid.Populate();
    {
        const ExpectMessage box(L"不行!");
        EditCell(&m_grid, 0, 1, L"abc", Qt::Key_Return);
    }
    EXPECT_EQ(Text(0, 1), L"");
    EXPECT_EQ(Item(0, 1)->entered.size(), 1U);
    EXPECT_EQ(Current(), std::pair(1, 1));
    EXPECT_TRUE(IsEditing());
    {
        const ExpectMessage box(L"不行!");
        Type(&m_grid, L"xyz");
        ClickCell(&m_grid, 2, 2); // the edit ends by losing the focus
    }
    EXPECT_EQ(Item(1, 1)->entered, CStringArray{L"xyz"});
    EXPECT_EQ(Text(1, 1), L"");
}

TEST_F(ReportEdit, CommitEditGivesTheCellItsText)
{
    ClickCell(&m_grid, 0, 1);
    Type(&m_grid, L"31");
    m_grid.CommitEdit();
    EXPECT_EQ(Text(0, 1), L"31");
    EXPECT_FALSE(IsEditing());
    m_grid.CommitEdit(); // nothing is open
}

TEST_F(ReportEdit, TellsOfNewValues)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::ValueChanged);
    EditCell(&m_grid, 1, 2, L"9");
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), m_grid.GetRecords().GetAt(1));
    EXPECT_EQ(spy[0][1].value<CXTPReportColumn*>(), m_grid.GetColumns().GetAt(2));
}

TEST_F(ReportEdit, AReadOnlyGridCannotBeEdited)
{
    m_grid.AllowEdit(false);
    ClickCell(&m_grid, 1, 1);
    EXPECT_FALSE(IsEditing());
    for (Qt::Key key : {Qt::Key_F2, Qt::Key_5, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace}) {
        Key(key);
        EXPECT_FALSE(IsEditing()) << key;
    }
    QTest::mouseDClick(m_grid.viewport(), Qt::LeftButton, {},
                       m_grid.visualRect(m_grid.IndexOf(1, 1)).center());
    EXPECT_FALSE(IsEditing());
    EXPECT_FALSE(m_grid.model()->setData(m_grid.IndexOf(1, 1), QStringLiteral("5")));
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportEdit, TurningEditingOffDropsAnOpenEdit)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    m_grid.AllowEdit(false);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), m_initial);
}
