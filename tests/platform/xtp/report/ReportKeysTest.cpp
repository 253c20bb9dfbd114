// Moving and editing in the grid with the keyboard.
#include "platform/xtp/report/ReportKeys.h"

#include <QTest>

#include "tests/platform/xtp/report/TestGrid.h"

class ReportKeysTest : public TestGrid {};

TEST_F(ReportKeysTest, ArrowKeysMove)
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

TEST_F(ReportKeysTest, EnterAndF2EditTheCurrentCell)
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

TEST_F(ReportKeysTest, TabGoesOnEditingToTheRightAndToTheNextRow)
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

TEST_F(ReportKeysTest, ShiftTabGoesBack)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Text(1, 1), L"5");
    EXPECT_EQ(Current(), std::pair(0, 3));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportKeysTest, EnterGoesDownAndShiftEnterUp)
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

TEST_F(ReportKeysTest, EnterAtTheBottomGoesToTheNextColumn)
{
    ClickCell(&m_grid, 2, 1);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Current(), std::pair(0, 2));
    EXPECT_TRUE(IsEditing());
}

TEST_F(ReportKeysTest, TheLastCellEndsTheEditing)
{
    for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
        EditCell(&m_grid, 2, 3, L"8", key);
        EXPECT_EQ(Text(2, 3), L"8");
        EXPECT_FALSE(IsEditing());
        EXPECT_EQ(Current(), std::pair(2, 3));
        EXPECT_TRUE(m_grid.hasFocus());
    }
}

TEST_F(ReportKeysTest, UpAndDownEndTheEditAndMove)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"5");
    Key(Qt::Key_Down);
    EXPECT_EQ(Text(1, 1), L"5");
    EXPECT_EQ(Current(), std::pair(2, 1));
    EXPECT_FALSE(IsEditing());
}

TEST_F(ReportKeysTest, TabInAGridThatIsNotEditingWalksTheCellsAndThenLeaves)
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

TEST_F(ReportKeysTest, EnterOnACaptionGoesToItsFirstValue)
{
    m_grid.setCurrentIndex(m_grid.IndexOf(1, 0));
    Key(Qt::Key_Return);
    EXPECT_EQ(Current(), std::pair(1, 1));
    EXPECT_FALSE(IsEditing());
}

TEST_F(ReportKeysTest, TabIntoTheGridLandsOnAValue)
{
    for (const bool locked : {false, true}) {
        m_grid.AllowEdit(!locked);
        for (const auto& [reason, place] : {std::pair(Qt::TabFocusReason, std::pair(0, 1)),
                                            std::pair(Qt::BacktabFocusReason, std::pair(2, 3))}) {
            m_grid.setCurrentIndex(m_grid.IndexOf(1, 0));
            m_grid.clearFocus();
            m_grid.setFocus(reason);
            EXPECT_EQ(Current(), place);
            m_grid.setCurrentIndex(m_grid.IndexOf(1, 2)); // a value stays the current one
            m_grid.clearFocus();
            m_grid.setFocus(reason);
            EXPECT_EQ(Current(), std::pair(1, 2));
        }
    }
}
