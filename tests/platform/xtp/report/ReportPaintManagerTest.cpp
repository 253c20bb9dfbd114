#include "platform/xtp/report/ReportPaintManager.h"

#include <QHeaderView>
#include <QPainter>

#include "tests/gui/Picture.h"
#include "tests/platform/xtp/report/TestGrid.h"

namespace {

class CTallPaintManager : public CXTPReportPaintManager {
public:
    int GetRowHeight(const CXTPReportRecord* record) const override
    {
        return record->GetItemCount() > 3 ? 50 : CXTPReportPaintManager::GetRowHeight(record);
    }
    void DrawColumnHeader(QPainter& painter, const QRect& rect,
                          const CXTPReportColumn* column) const override
    {
        if (column->GetCaption() == L"红")
            painter.fillRect(rect, Qt::red);
        else
            CXTPReportPaintManager::DrawColumnHeader(painter, rect, column);
    }
};

} // namespace

class ReportPaintManagerTest : public TestGrid {};

TEST_F(ReportPaintManagerTest, ThePaintManagerGivesRowHeights)
{
    const int usual = m_grid.rowHeight(0);
    EXPECT_GT(usual, m_grid.fontMetrics().height());
    m_grid.GetRecords().GetAt(1)->GetItems().RemoveAt(3);
    m_grid.SetPaintManager(new CTallPaintManager);
    EXPECT_EQ(m_grid.rowHeight(0), 50);
    EXPECT_EQ(m_grid.rowHeight(1), usual);
}

TEST_F(ReportPaintManagerTest, ThePaintManagerGivesTheHeaderHeight)
{
    m_grid.GetPaintManager()->SetHeaderHeight(65);
    m_grid.Populate();
    EXPECT_EQ(m_grid.horizontalHeader()->height(), 65);
}

TEST_F(ReportPaintManagerTest, ThePaintManagerDrawsTheHeader)
{
    m_grid.SetPaintManager(new CTallPaintManager);
    m_grid.GetColumns().GetAt(1)->SetCaption(L"红");
    m_grid.Populate();
    QHeaderView* const header = m_grid.horizontalHeader();
    const int y = header->height() / 2;
    EXPECT_EQ(PixelAt(*header, {header->sectionPosition(1) + 20, y}), QColor(Qt::red).rgb());
    EXPECT_NE(PixelAt(*header, {header->sectionPosition(2) + 3, y}), QColor(Qt::red).rgb());
}

TEST_F(ReportPaintManagerTest, DrawsEachLineOfAHeader)
{
    const QRect cell(0, 0, 80, 60);
    const CXTPReportColumn column(0, L"HH\nHHHH\nHH", 80);
    const QImage image = Picture(cell.size(), [&](QPainter& painter) {
        m_grid.GetPaintManager()->DrawColumnHeader(painter, cell, &column);
    });
    const int line = m_grid.fontMetrics().height();
    QRect place(0, cell.center().y() - line * 3 / 2, cell.width(), line);
    const int first = DarkRect(image, place).width();
    const int second = DarkRect(image, place.translated(0, line)).width();
    const int third = DarkRect(image, place.translated(0, 2 * line)).width();
    EXPECT_GT(first, 0);
    EXPECT_GT(second, first * 3 / 2);
    EXPECT_EQ(third, first);
}

TEST_F(ReportPaintManagerTest, DrawsLinesRightOfACellAndBelowIt)
{
    const QRgb line = m_grid.palette().color(QPalette::Mid).rgb();
    const QRect cell = m_grid.visualRect(m_grid.IndexOf(0, 1));
    const QImage image = m_grid.viewport()->grab().toImage();
    for (int y = cell.top(); y <= cell.bottom(); ++y)
        EXPECT_EQ(image.pixelColor(cell.right(), y).rgb(), line);
    for (int x = cell.left(); x <= cell.right(); ++x)
        EXPECT_EQ(image.pixelColor(x, cell.bottom()).rgb(), line);
    EXPECT_NE(image.pixelColor(cell.right() - 1, cell.bottom() - 1).rgb(), line);
}
