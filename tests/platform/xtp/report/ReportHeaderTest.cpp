#include "platform/xtp/report/ReportHeader.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

#include "tests/platform/xtp/report/TestGrid.h"

namespace {

class ReportHeaderTest : public TestGrid {
protected:
    // The right edge of a column.
    void DragEdge(int column, int by)
    {
        QHeaderView* const header = m_grid.horizontalHeader();
        const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 1,
                          header->height() / 2);
        const QPoint to = edge + QPoint(by, 0);
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
        QMouseEvent move(QEvent::MouseMove, to, header->viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(header->viewport(), &move);
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, to);
    }
    std::vector<int> Widths() const
    {
        std::vector<int> widths;
        for (int i = 0; m_grid.ShownColumn(i); ++i)
            widths.push_back(m_grid.columnWidth(i));
        return widths;
    }
};

} // namespace

TEST_F(ReportHeaderTest, TakesWidthsFromTheColumns)
{
    m_grid.GetColumns().GetAt(1)->SetWidth(66);
    m_grid.Populate();
    EXPECT_EQ(Widths(), (std::vector{120, 66, 40, 40}));
}

TEST_F(ReportHeaderTest, AStretchedColumnKeepsItsWidth)
{
    DragEdge(1, 25);
    const std::vector stretched{120, 65, 40, 40};
    EXPECT_EQ(Widths(), stretched);
    EXPECT_EQ(m_grid.GetColumns().GetAt(1)->GetWidth(), 65);
    m_grid.Populate();
    EXPECT_EQ(Widths(), stretched);
    m_grid.resize(700, 200); // more room, and all of it stays free
    EXPECT_EQ(Widths(), stretched);
    m_grid.GetUndo().Step([this] {
        m_grid.GetColumns().InsertAt(1, new CXTPReportColumn(1, L"140", 40));
        m_grid.Populate();
    });
    EXPECT_EQ(Widths(), (std::vector{120, 40, 65, 40, 40}));
    m_grid.GetUndo().Undo();
    EXPECT_EQ(Widths(), stretched);
}

TEST_F(ReportHeaderTest, TellsOfRightClicksOnTheHeader)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::HeaderRightClick);
    RightClickHeader(&m_grid, 3);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportColumn*>(), m_grid.GetColumns().GetAt(3));
}
