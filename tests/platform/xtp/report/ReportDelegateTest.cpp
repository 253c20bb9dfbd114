// Editing cells, and how they are drawn.
#include "platform/xtp/report/ReportDelegate.h"

#include <QTest>

#include "tests/platform/xtp/report/TestGrid.h"

class ReportDelegateTest : public TestGrid {};

TEST_F(ReportDelegateTest, AClickEdits)
{
    ClickCell(&m_grid, 1, 2);
    ASSERT_TRUE(IsEditing());
    EXPECT_EQ(Editor()->selectedText(), QStringLiteral("12"));
    Type(&m_grid, L"99");
    EXPECT_EQ(Text(1, 2), L"12"); // not before the edit ends
    Key(Qt::Key_Tab);
    EXPECT_EQ(Item(1, 2)->value, 99);
}

TEST_F(ReportDelegateTest, AClickOnAHeaderCellOnlySelects)
{
    ClickCell(&m_grid, 1, 0);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Current(), std::pair(1, 0));
}

TEST_F(ReportDelegateTest, TypingStartsEditingOverTheOldText)
{
    m_grid.setFocus();
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 3));
    Type(&m_grid, L"45");
    EXPECT_TRUE(IsEditing());
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(2, 3), L"45");
}

TEST_F(ReportDelegateTest, AnInputMethodStartsEditing)
{
    m_grid.setFocus();
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 3));
    Type(&m_grid, L"４");
    ASSERT_TRUE(IsEditing());
    Type(&m_grid, L"５");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text(2, 3), L"45");
}

TEST_F(ReportDelegateTest, EscTakesTheEditBack)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), m_initial);
    EXPECT_TRUE(Item(1, 1)->entered.empty());
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
}

TEST_F(ReportDelegateTest, AClickElsewhereEndsTheEdit)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    ClickCell(&m_grid, 2, 2);
    EXPECT_EQ(Text(1, 1), L"5");
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(ReportDelegateTest, ACellIsNotAskedWhenNothingWasTyped)
{
    ClickCell(&m_grid, 1, 1);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Item(1, 1)->entered.empty());
    EXPECT_FALSE(m_grid.GetUndo().CanUndo());
}

TEST_F(ReportDelegateTest, BadTextEmptiesTheCell)
{
    EditCell(&m_grid, 1, 1, L"abc");
    EXPECT_EQ(Text(1, 1), L"");
    EXPECT_TRUE(Item(1, 1)->empty);
}

TEST_F(ReportDelegateTest, FullWidthSignsReachTheCellAsAscii)
{
    EditCell(&m_grid, 0, 1, L"１２．５");
    EditCell(&m_grid, 0, 2, L"250～300");
    EditCell(&m_grid, 0, 3, L"１／１５０");
    EXPECT_EQ(Item(0, 1)->entered, CStringArray{L"12.5"});
    EXPECT_EQ(Item(0, 2)->entered, CStringArray{L"250~300"});
    EXPECT_EQ(Item(0, 3)->entered, CStringArray{L"1/150"});
}

TEST_F(ReportDelegateTest, CommitEditGivesTheCellItsText)
{
    ClickCell(&m_grid, 0, 1);
    Type(&m_grid, L"31");
    m_grid.CommitEdit();
    EXPECT_EQ(Text(0, 1), L"31");
    EXPECT_FALSE(IsEditing());
    m_grid.CommitEdit(); // nothing is open
}

TEST_F(ReportDelegateTest, AReadOnlyGridCannotBeEdited)
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

TEST_F(ReportDelegateTest, TurningEditingOffDropsAnOpenEdit)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    m_grid.AllowEdit(false);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportDelegateTest, PopulateDropsAnOpenEdit)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    m_grid.Populate();
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Content(), m_initial);
    EXPECT_EQ(Current(), std::pair(1, 1));
}

TEST_F(ReportDelegateTest, TypingWhatIsShownIsEntered)
{
    EditCell(&m_grid, 1, 1, L"11");
    EXPECT_EQ(Item(1, 1)->entered, CStringArray{L"11"});
}

TEST_F(ReportDelegateTest, AnotherWindowInFrontLeavesTheEditOpen)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(Text(1, 1), L"11");
    m_grid.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_grid));
    Type(&m_grid, L"6");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Item(1, 1)->entered, CStringArray{L"56"});
}

TEST_F(ReportDelegateTest, AnEditLeftOpenEndsWhenTheUserComesBackToSomethingElse)
{
    QWidget window;
    auto* const grid = new CXTPReportControl(&window);
    auto* const item = new CTestNumberItem;
    grid->GetColumns().Add(new CXTPReportColumn(0, L"值", 100));
    grid->GetRecords().Add(new CXTPReportRecord)->AddItem(item);
    grid->AllowEdit(true);
    grid->Populate();
    auto* const field = new QLineEdit(&window);
    field->move(0, 150);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ClickCell(grid, 0, 0);
    Type(grid, L"5");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    field->setFocus(); // what a press does before its window is in front
    EXPECT_TRUE(item->entered.empty());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(item->entered, CStringArray{L"5"});
}
