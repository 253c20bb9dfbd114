#include "platform/xtp/report/ReportControl.h"

#include <QAbstractItemModelTester>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include "tests/platform/xtp/report/TestGrid.h"

namespace {

class CRangeColumn : public CXTPReportColumn {
public:
    using CXTPReportColumn::CXTPReportColumn;
    int minimum = 0;
    int maximum = 0;
};

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

class CGreenItem : public CXTPReportRecordItem {
public:
    void Draw(QPainter& painter, const CXTPReportItemDraw& draw) const override
    {
        painter.fillRect(draw.rect, Qt::green);
    }
};

QRgb PixelAt(QWidget& widget, const QPoint& place)
{
    return widget.grab().toImage().pixelColor(place).rgb();
}

} // namespace

class ReportControl : public TestGrid {};

TEST_F(ReportControl, ItsModelKeepsTheRulesOfModels)
{
    const QAbstractItemModelTester tester(m_grid.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_grid.GetColumns().RemoveAt(2);
    m_grid.Populate();
    m_grid.AddRecord(); // a record without cells
    m_grid.Populate();
    EditCell(&m_grid, 0, 1, L"7");
    m_grid.Undo();
    m_grid.AllowEdit(false);
    m_grid.GetRecords().RemoveAll();
    m_grid.Populate();
    m_grid.GetColumns().RemoveAll();
    m_grid.Populate();
    EXPECT_EQ(m_grid.model()->rowCount(), 0);
}

TEST_F(ReportControl, ColumnsPointAtCells)
{
    EXPECT_EQ(Content(), m_initial);
    m_grid.GetColumns().GetAt(1)->SetItemIndex(3);
    m_grid.Populate();
    EXPECT_EQ(Text(0, 1), L"3");
}

TEST_F(ReportControl, RemovingAColumnLeavesTheCells)
{
    EXPECT_TRUE(m_grid.GetColumns().RemoveAt(2));
    m_grid.Populate();
    EXPECT_EQ(Content(), L"行0 1 3|行1 11 13|行2 21 23|");
    EXPECT_EQ(m_grid.GetRecords().GetAt(0)->GetItemCount(), 4);
    EXPECT_EQ(Item(0, 2)->value, 2);
}

TEST_F(ReportControl, ColumnsAreInsertedWhereTold)
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

TEST_F(ReportControl, RecordsAreInsertedAndRemoved)
{
    auto* const record = m_grid.GetRecords().InsertAt(1, new CXTPReportRecord);
    record->AddItem(new CXTPReportRecordItem(L"新"));
    m_grid.Populate();
    EXPECT_EQ(Content(), L"行0 1 2 3|新   |行1 11 12 13|行2 21 22 23|");
    EXPECT_TRUE(m_grid.GetRecords().Remove(record));
    m_grid.Populate();
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportControl, ShowsWhatPopulateSawUntilTheNextOne)
{
    m_grid.GetRecords().RemoveAll();
    m_grid.GetColumns().RemoveAll();
    EXPECT_EQ(Content(), m_initial);
    m_grid.grab();
    m_grid.Populate();
    EXPECT_EQ(Content(), L"");
}

TEST_F(ReportControl, PopulateKeepsTheCurrentCell)
{
    m_grid.EditOnClick(false);
    ClickCell(&m_grid, 2, 3);
    m_grid.GetColumns().RemoveAt(1);
    m_grid.Populate();
    EXPECT_EQ(Current(), std::pair(2, 2));
}

TEST_F(ReportControl, ItemsHaveRunTimeClasses)
{
    const CXTPReportRecordItem item;
    EXPECT_STREQ(item.GetRuntimeClass()->m_lpszClassName, "CXTPReportRecordItem");
    EXPECT_TRUE(item.IsKindOf(RUNTIME_CLASS(CObject)));
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(CXTPReportRecordItem)->CreateObject());
    EXPECT_NE(dynamic_cast<CXTPReportRecordItem*>(made.get()), nullptr);
}

TEST_F(ReportControl, TakesWidthsFromTheColumnsAndBack)
{
    EXPECT_EQ(m_grid.columnWidth(0), 120);
    EXPECT_EQ(m_grid.columnWidth(1), 40);
    m_grid.horizontalHeader()->resizeSection(1, 66); // as dragging does
    EXPECT_EQ(m_grid.GetColumns().GetAt(1)->GetWidth(), 66);
    m_grid.Populate();
    EXPECT_EQ(m_grid.columnWidth(1), 66);
}

TEST_F(ReportControl, HidesColumnsThatAreNotVisible)
{
    m_grid.GetColumns().GetAt(2)->SetVisible(false);
    m_grid.Populate();
    EXPECT_EQ(ColumnCaptions(&m_grid), (CStringArray{L"设计车速(km/h)", L"120", L"80"}));
    EXPECT_EQ(m_grid.GetColumns().GetAt(2)->GetWidth(), 40);
}

TEST_F(ReportControl, TheUserResizesColumnsByDragging)
{
    QHeaderView* const header = m_grid.horizontalHeader();
    const QPoint edge(header->sectionViewportPosition(1) + 39, header->height() / 2);
    const auto drag = [&] {
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
        QMouseEvent move(QEvent::MouseMove, edge + QPoint(25, 0),
                         header->viewport()->mapToGlobal(edge + QPoint(25, 0)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(header->viewport(), &move);
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(25, 0));
    };
    drag();
    EXPECT_EQ(m_grid.GetColumns().GetAt(1)->GetWidth(), 65);
    m_grid.GetColumns().GetAt(1)->SetWidth(40);
    m_grid.GetReportHeader()->AllowColumnResize(false);
    drag();
    EXPECT_EQ(m_grid.GetColumns().GetAt(1)->GetWidth(), 40);
}

TEST_F(ReportControl, AutoColumnSizingSharesTheWidth)
{
    m_grid.GetColumns().GetAt(0)->SetAutoSize(true);
    m_grid.GetReportHeader()->SetAutoColumnSizing(true);
    EXPECT_EQ(m_grid.columnWidth(0), m_grid.viewport()->width() - 120);
    m_grid.GetReportHeader()->SetAutoColumnSizing(false);
    EXPECT_EQ(m_grid.columnWidth(1), 40);
}

TEST_F(ReportControl, MovedColumnsMoveInTheList)
{
    m_grid.GetReportHeader()->AllowColumnReorder(true);
    m_grid.horizontalHeader()->moveSection(3, 1); // as dragging does
    QCoreApplication::processEvents();
    EXPECT_EQ(Content(), L"行0 3 1 2|行1 13 11 12|行2 23 21 22|");
    EXPECT_EQ(m_grid.GetColumns().GetAt(1)->GetCaption(), L"80");
    m_grid.Undo();
    EXPECT_EQ(Content(), m_initial);
}

TEST_F(ReportControl, AClickOnTheHeaderSortsWhereBothAllowIt)
{
    Item(0, 1)->Set(50);
    QHeaderView* const header = m_grid.horizontalHeader();
    const QPoint place(header->sectionViewportPosition(1) + 20, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Text(0, 1), L"50");
    m_grid.GetReportHeader()->AllowColumnSort(true);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Text(0, 1), L"50"); // this column is not sortable
    m_grid.GetColumns().GetAt(1)->SetSortable(true);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Content(), L"行1 11 12 13|行2 21 22 23|行0 50 2 3|");
}

TEST_F(ReportControl, ThePaintManagerGivesRowHeights)
{
    const int usual = m_grid.rowHeight(0);
    EXPECT_GT(usual, m_grid.fontMetrics().height());
    m_grid.GetRecords().GetAt(1)->GetItems().RemoveAt(3);
    m_grid.SetPaintManager(new CTallPaintManager);
    EXPECT_EQ(m_grid.rowHeight(0), 50);
    EXPECT_EQ(m_grid.rowHeight(1), usual);
    m_grid.SetPaintManager(nullptr);
    EXPECT_EQ(m_grid.rowHeight(0), usual);
}

TEST_F(ReportControl, ThePaintManagerGivesTheHeaderHeight)
{
    m_grid.GetPaintManager()->SetHeaderHeight(65);
    m_grid.Populate();
    EXPECT_EQ(m_grid.horizontalHeader()->height(), 65);
}

TEST_F(ReportControl, ThePaintManagerDrawsTheHeader)
{
    m_grid.SetPaintManager(new CTallPaintManager);
    m_grid.GetColumns().GetAt(1)->SetCaption(L"红");
    m_grid.Populate();
    QHeaderView* const header = m_grid.horizontalHeader();
    const int y = header->height() / 2;
    EXPECT_EQ(PixelAt(*header, {header->sectionPosition(1) + 20, y}), QColor(Qt::red).rgb());
    EXPECT_NE(PixelAt(*header, {header->sectionPosition(2) + 3, y}), QColor(Qt::red).rgb());
}

TEST_F(ReportControl, CellsDrawThemselves)
{
    m_grid.GetRecords().GetAt(1)->GetItems().RemoveAll();
    m_grid.GetRecords().GetAt(1)->AddItem(new CGreenItem);
    const QPoint centre = m_grid.visualRect(m_grid.IndexOf(1, 0)).center();
    EXPECT_EQ(PixelAt(*m_grid.viewport(), centre), QColor(Qt::green).rgb());
}

TEST_F(ReportControl, AToolTipShowsWhatAColumnIsTooNarrowFor)
{
    Item(0, 1)->Set(1234567890);
    EXPECT_EQ(m_grid.IndexOf(0, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("1234567890"));
    // Cut short, it is not drawn over the cell's edge.
    const QRect cell = m_grid.visualRect(m_grid.IndexOf(0, 1));
    const QRgb base = m_grid.palette().color(QPalette::Base).rgb();
    for (int y = cell.top(); y < cell.bottom(); ++y)
        EXPECT_EQ(PixelAt(*m_grid.viewport(), {cell.left() + 1, y}), base);
}

TEST_F(ReportControl, DrawsSolidVerticalLinesOrNone)
{
    const QRgb line = m_grid.palette().color(QPalette::Mid).rgb();
    const QRect cell = m_grid.visualRect(m_grid.IndexOf(0, 1));
    m_grid.SetGridStyle(true, xtpReportGridSolid);
    for (int y = cell.top(); y < cell.bottom(); ++y)
        EXPECT_EQ(PixelAt(*m_grid.viewport(), {cell.right(), y}), line);
    m_grid.SetGridStyle(true, xtpReportGridNoLines);
    EXPECT_NE(PixelAt(*m_grid.viewport(), {cell.right(), cell.top() + 2}), line);
}

TEST_F(ReportControl, TellsOfRightClicksOnRows)
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

TEST_F(ReportControl, TellsOfRightClicksBesideTheRows)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    const QPoint corner = m_grid.viewport()->rect().bottomRight() - QPoint(3, 3);
    QTest::mouseClick(m_grid.viewport(), Qt::RightButton, {}, corner);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), nullptr);
    EXPECT_EQ(spy[0][1].value<CXTPReportColumn*>(), nullptr);
}

TEST_F(ReportControl, TellsOfRightClicksOnTheHeader)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::HeaderRightClick);
    RightClickHeader(&m_grid, 3);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportColumn*>(), m_grid.GetColumns().GetAt(3));
}

TEST_F(ReportControl, TellsOfNoRightClickWhileItIsDisabled)
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
TEST_F(ReportControl, OneRightClickIsToldOnce)
{
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    const QPoint place = m_grid.visualRect(m_grid.IndexOf(0, 1)).center();
    QTest::mousePress(m_grid.viewport(), Qt::RightButton, {}, place);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, place, m_grid.viewport()->mapToGlobal(place));
    QApplication::sendEvent(m_grid.viewport(), &menu);
    QTest::mouseRelease(m_grid.viewport(), Qt::RightButton, {}, place);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(ReportControl, TheMenuKeyIsARightClickOnTheCurrentCell)
{
    m_grid.setCurrentIndex(m_grid.IndexOf(2, 1));
    QSignalSpy spy(&m_grid, &CXTPReportControl::RowRightClick);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
    QApplication::sendEvent(&m_grid, &menu);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy[0][0].value<CXTPReportRecord*>(), m_grid.GetRecords().GetAt(2));
    EXPECT_EQ(spy[0][1].value<CXTPReportColumn*>(), m_grid.GetColumns().GetAt(1));
}

TEST_F(ReportControl, ARightClickOnAnOpenEditorEndsTheEditAndCounts)
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

TEST_F(ReportControl, TellsAtOnceOutsideOfAUserChange)
{
    const ExpectMessage box(L"甲");
    m_grid.Tell(L"甲");
}

TEST_F(ReportControl, TellsEachThingOnceWhenAUserChangeEnds)
{
    {
        const ExpectMessage box(L"甲\n乙");
        const CXTPReportUserChange outer(m_grid, L"粘贴");
        for (const wchar_t* message : {L"甲", L"乙", L"甲"}) {
            const CXTPReportUserChange inner(m_grid, L"编辑");
            m_grid.Tell(message);
        }
        QTest::qWait(50); // nothing is told yet
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }
    {
        const CXTPReportUserChange next(m_grid, L"编辑");
    }
    QTest::qWait(50); // nor again
}
