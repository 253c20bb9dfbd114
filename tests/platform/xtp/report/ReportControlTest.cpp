#include "platform/xtp/report/ReportControl.h"

#include <QAbstractItemModelTester>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>

#include "tests/platform/xtp/report/TestGrid.h"

namespace {

class CRangeColumn : public CXTPReportColumn {
public:
    using CXTPReportColumn::CXTPReportColumn;
    int minimum = 0;
    int maximum = 0;
};

class CGreenItem : public CXTPReportRecordItem {
public:
    void Draw(QPainter& painter, const QRect& rect, const QPalette&, bool) const override
    {
        painter.fillRect(rect, Qt::green);
    }
};

} // namespace

class ReportControlTest : public TestGrid {};

TEST_F(ReportControlTest, ItsModelKeepsTheRulesOfModels)
{
    const QAbstractItemModelTester tester(m_grid.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_grid.GetColumns().RemoveAt(2);
    m_grid.Populate();
    m_grid.GetRecords().Add(new CXTPReportRecord); // a record without cells
    m_grid.Populate();
    EditCell(&m_grid, 0, 1, L"7");
    m_grid.GetUndo().Undo();
    m_grid.AllowEdit(false);
    m_grid.GetRecords().RemoveAll();
    m_grid.Populate();
    m_grid.GetColumns().RemoveAll();
    m_grid.Populate();
    EXPECT_EQ(m_grid.model()->rowCount(), 0);
}

TEST_F(ReportControlTest, ColumnsPointAtCells)
{
    EXPECT_EQ(Content(), m_initial);
    m_grid.GetColumns().InsertAt(1, new CXTPReportColumn(3, L"末", 40));
    m_grid.Populate();
    EXPECT_EQ(Text(0, 1), L"3");
}

TEST_F(ReportControlTest, RemovingAColumnLeavesTheCells)
{
    EXPECT_TRUE(m_grid.GetColumns().RemoveAt(2));
    m_grid.Populate();
    EXPECT_EQ(Content(), L"行0 1 3|行1 11 13|行2 21 23|");
    EXPECT_EQ(m_grid.GetRecords().GetAt(0)->GetItemCount(), 4);
    EXPECT_EQ(Item(0, 2)->value, 2);
}

TEST_F(ReportControlTest, ColumnsAreInsertedWhereTold)
{
    auto* const column = m_grid.GetColumns().InsertAt(1, new CRangeColumn(4, L"140", 40));
    column->minimum = 150;
    for (int r = 0; r < 3; ++r)
        m_grid.GetRecords().GetAt(r)->AddItem(new CTestNumberItem);
    m_grid.Populate();
    EXPECT_EQ(ColumnCaptions(&m_grid),
              (CStringArray{L"设计车速(km/h)", L"140", L"120", L"100", L"80"}));
    EXPECT_EQ(Content(), L"行0  1 2 3|行1  11 12 13|行2  21 22 23|");
    EXPECT_EQ(dynamic_cast<CRangeColumn*>(m_grid.GetColumns().GetAt(1))->minimum, 150);
    EXPECT_EQ(m_grid.GetColumns().IndexOf(column), 1);
    EXPECT_TRUE(m_grid.GetColumns().Remove(column));
    EXPECT_FALSE(m_grid.GetColumns().RemoveAt(9));
    EXPECT_EQ(m_grid.GetColumns().GetAt(9), nullptr);
}

TEST_F(ReportControlTest, RecordsAreInsertedAndRemoved)
{
    auto* const record = m_grid.GetRecords().InsertAt(1, new CXTPReportRecord);
    record->AddItem(new CXTPReportRecordItem(L"新"));
    m_grid.Populate();
    EXPECT_EQ(Content(), L"行0 1 2 3|新   |行1 11 12 13|行2 21 22 23|");
    EXPECT_TRUE(m_grid.GetRecords().Remove(record));
    m_grid.Populate();
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportControlTest, ShowsWhatPopulateSawUntilTheNextOne)
{
    m_grid.GetRecords().RemoveAll();
    m_grid.GetColumns().RemoveAll();
    EXPECT_EQ(Content(), m_initial);
    m_grid.grab();
    m_grid.Populate();
    EXPECT_EQ(Content(), L"");
}

TEST_F(ReportControlTest, PopulateKeepsTheCurrentCell)
{
    ClickCell(&m_grid, 2, 3);
    m_grid.GetColumns().RemoveAt(1);
    m_grid.Populate();
    EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(ReportControlTest, PopulateKeepsTheScrollPlace)
{
    for (int i = 0; i < 30; ++i) {
        m_grid.GetRecords().Add(new CXTPReportRecord);
        m_grid.GetColumns().Add(new CXTPReportColumn(1, L"列", 40));
    }
    m_grid.Populate();
    for (const QModelIndex& current : {QModelIndex(), m_grid.IndexOf(0, 1)}) {
        m_grid.setCurrentIndex(current);
        m_grid.horizontalScrollBar()->setValue(230);
        m_grid.verticalScrollBar()->setValue(170);
        m_grid.Populate();
        EXPECT_EQ(m_grid.horizontalScrollBar()->value(), 230);
        EXPECT_EQ(m_grid.verticalScrollBar()->value(), 170);
    }
}

TEST_F(ReportControlTest, ItemsHaveRunTimeClasses)
{
    const CXTPReportRecordItem item;
    EXPECT_STREQ(item.GetRuntimeClass()->m_lpszClassName, "CXTPReportRecordItem");
    EXPECT_TRUE(item.IsKindOf(RUNTIME_CLASS(CObject)));
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CXTPReportRecordItem)->CreateObject());
    EXPECT_NE(dynamic_cast<CXTPReportRecordItem*>(made.get()), nullptr);
}

TEST_F(ReportControlTest, CellsDrawThemselves)
{
    m_grid.GetRecords().GetAt(1)->GetItems().RemoveAll();
    m_grid.GetRecords().GetAt(1)->AddItem(new CGreenItem);
    const QPoint centre = m_grid.visualRect(m_grid.IndexOf(1, 0)).center();
    EXPECT_EQ(PixelAt(*m_grid.viewport(), centre), QColor(Qt::green).rgb());
}

TEST_F(ReportControlTest, AToolTipShowsWhatAColumnIsTooNarrowFor)
{
    Item(0, 1)->Set(1234567890);
    EXPECT_EQ(m_grid.IndexOf(0, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("1234567890"));
    // Cut short, it is not drawn over the cell's edge.
    const QRect cell = m_grid.visualRect(m_grid.IndexOf(0, 1));
    const QRgb base = m_grid.palette().color(QPalette::Base).rgb();
    for (int y = cell.top(); y < cell.bottom(); ++y)
        EXPECT_EQ(PixelAt(*m_grid.viewport(), {cell.left() + 1, y}), base);
}

TEST_F(ReportControlTest, AToolTipIsPlainTextWithWhatActsOnItEscaped)
{
    const auto toolTip = [this](const CString& caption) {
        m_grid.GetRecords().GetAt(0)->GetItem(0)->SetCaption(caption);
        return m_grid.IndexOf(0, 0).data(Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(toolTip(L"a\x1b[1m\u202E b\tc"), QStringLiteral("a\\x1B[1m\\u202E b\\tc"));
    EXPECT_EQ(toolTip(L"两\n行\r"), QStringLiteral("两\n行\\r"));
    QTextDocument shown;
    shown.setHtml(toolTip(L"<b>粗</b>&amp;"));
    EXPECT_EQ(shown.toPlainText(), QStringLiteral("<b>粗</b>&amp;"));
}
