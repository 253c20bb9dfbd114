#include "platform/xtp/report/ReportRightClick.h"

#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>

#include "tests/platform/xtp/report/TestGrid.h"

class ReportRightClickTest : public TestGrid {};

TEST_F(ReportRightClickTest, TellsOfRightClicksOnRows)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    RightClickCell(&m_grid, 1, 2);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), m_grid.GetRecords().GetAt(1));
    EXPECT_EQ(spy[0][1].value<CXTPReportColumn*>(), m_grid.GetColumns().GetAt(2));
    const QPoint centre = m_grid.visualRect(m_grid.IndexOf(1, 2)).center();
    EXPECT_EQ(spy[0][2].toPoint(), m_grid.viewport()->mapToGlobal(centre));
    EXPECT_FALSE(IsEditing());
}

TEST_F(ReportRightClickTest, TellsOfRightClicksBesideTheRows)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    const QPoint corner = m_grid.viewport()->rect().bottomRight() - QPoint(3, 3);
    QTest::mouseClick(m_grid.viewport(), Qt::RightButton, {}, corner);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), nullptr);
    EXPECT_EQ(spy[0][1].value<CXTPReportColumn*>(), nullptr);
}

TEST_F(ReportRightClickTest, TellsOfNoRightClickWhileItIsDisabled)
{
    m_grid.setEnabled(false);
    QSignalSpy rows(&m_grid, &CXTPReportControl::RowRightClick);
    QSignalSpy headers(&m_grid, &CXTPReportControl::HeaderRightClick);
    RightClickCell(&m_grid, 1, 2);
    RightClickHeader(&m_grid, 3);
    const QPoint place = m_grid.visualRect(m_grid.IndexOf(0, 1)).center();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, place, m_grid.viewport()->mapToGlobal(place));
    QApplication::sendEvent(m_grid.viewport(), &menu);
    EXPECT_EQ(rows.count() + headers.count(), 0);
}

// A window system sends press, request for a menu and release; it is one click.
TEST_F(ReportRightClickTest, OneRightClickIsToldOnce)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    const QPoint place = m_grid.visualRect(m_grid.IndexOf(0, 1)).center();
    QTest::mousePress(m_grid.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, place, m_grid.viewport()->mapToGlobal(place));
    QApplication::sendEvent(m_grid.viewport(), &menu);
    QTest::mouseRelease(m_grid.viewport(), Qt::RightButton, {}, place);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(ReportRightClickTest, TheMenuKeyIsARightClickOnTheCurrentCell)
{
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 1));
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
    QApplication::sendEvent(&m_grid, &menu);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), m_grid.GetRecords().GetAt(2));
    EXPECT_EQ(spy[0][1].value<CXTPReportColumn*>(), m_grid.GetColumns().GetAt(1));
}

TEST_F(ReportRightClickTest, ARightClickOnAnOpenEditorEndsTheEditAndCounts)
{
    ClickCell(&m_grid, 1, 1);
    Type(&m_grid, L"77");
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    QLineEdit* const editor = Editor();
    ASSERT_NE(editor, nullptr);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5),
                           editor->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(editor, &menu);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), m_grid.GetRecords().GetAt(1));
    EXPECT_EQ(Text(1, 1), L"77");
    EXPECT_FALSE(IsEditing());
}
