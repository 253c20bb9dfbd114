#include "pages/framework/HeaderedGrid.h"

#include <algorithm>

#include <QHeaderView>
#include <QScrollBar>

#include "base/NoCase.h"
#include "pages/framework/MyReportPaintManager.h"
#include "pages/framework/XTPReportRecordItemHeard.h"

using namespace designspec;

void CHeaderedGrid::CreateGrid(CDSPage& page, const AddedCell& addedCell, int placeholder,
                               int gridId, const CString& corner, int headerWidth)
{
    m_page = &page;
    m_addedCell = addedCell;
    m_control = page.CreateGrid(placeholder, gridId, corner, headerWidth);
    m_control->SetPaintManager(m_paintManager = new CMyReportPaintManager);
    QObject::connect(m_control, &CXTPReportControl::RowRightClick, m_page,
                     [this](auto*, auto* column, const QPoint& pos) { OnRightClick(column, pos); });
    QObject::connect(m_control, &CXTPReportControl::HeaderRightClick, m_page,
                     [this](auto* column, const QPoint& pos) { OnRightClick(column, pos); });
}

// Rows

CXTPReportRecord* CHeaderedGrid::InsertRow(int at, const CString& caption, unsigned itemData)
{
    auto* const header = new CXTPReportRecordItemHeard(caption);
    header->SetEditable(false);
    header->SetItemData(itemData);
    // The default row would cut the second line off.
    if (caption.find(L'\n') != CString::npos)
        header->SetRowHeight(m_paintManager->GetTwoLineHeight());
    CXTPReportRecords& records = m_control->GetRecords();
    CXTPReportRecord* const record = records.InsertAt(at, new CXTPReportRecord);
    record->AddItem(header);
    FillRow(records.IndexOf(record), LastItemIndex());
    return record;
}

CXTPReportRecord* CHeaderedGrid::AddRow(const CString& caption, unsigned itemData)
{
    return InsertRow(GetRowCount(), caption, itemData);
}

CXTPReportRecordItem* CHeaderedGrid::RowHeader(int row) const
{
    const CXTPReportRecord* const record = m_control->GetRecords().GetAt(row);
    return record ? record->GetItem(0) : nullptr;
}

int CHeaderedGrid::FindRow(const std::function<bool(const CXTPReportRecordItem&)>& isMeant) const
{
    for (int row = 0; row < GetRowCount(); ++row)
        if (isMeant(*RowHeader(row))) return row;
    return -1;
}

int CHeaderedGrid::FindRow(const CString& caption) const
{
    return FindRow([&caption](const CXTPReportRecordItem& header) {
        return EqualNoCase(header.GetCaption(), caption);
    });
}

int CHeaderedGrid::FindRow(unsigned itemData) const
{
    return FindRow([itemData](const CXTPReportRecordItem& header) {
        return header.GetItemData() == itemData;
    });
}

// The highest index of a cell that a column shows or a row has; 0 when there are headers alone.
int CHeaderedGrid::LastItemIndex() const
{
    int last = 0;
    for (const auto& column : m_control->GetColumns().All())
        last = std::max(last, column->GetItemIndex());
    for (const auto& record : m_control->GetRecords().All())
        last = std::max(last, record->GetItemCount() - 1);
    return last;
}

void CHeaderedGrid::FillRow(int row, int lastItem)
{
    CXTPReportRecord* const record = m_control->GetRecords().GetAt(row);
    while (record->GetItemCount() <= lastItem)
        record->AddItem(m_addedCell(row));
}

int CHeaderedGrid::AddCells()
{
    const int item = LastItemIndex() + 1;
    for (int row = 0; row < GetRowCount(); ++row)
        FillRow(row, item);
    return item;
}

void CHeaderedGrid::RemoveRows()
{
    m_control->GetRecords().RemoveAll();
    RemoveValueColumns();
}

void CHeaderedGrid::RemoveValueColumns()
{
    CXTPReportColumns& columns = m_control->GetColumns();
    while (columns.GetCount() > 1)
        columns.RemoveAt(columns.GetCount() - 1);
    for (const auto& record : m_control->GetRecords().All())
        while (record->GetItemCount() > 1)
            record->GetItems().RemoveAt(record->GetItemCount() - 1);
}

CMyRecordItemValue* CHeaderedGrid::Cell(int row, const CXTPReportColumn* column) const
{
    const CXTPReportRecord* const record = m_control->GetRecords().GetAt(row);
    if (!record || !column) return nullptr;
    return dynamic_cast<CMyRecordItemValue*>(record->GetItem(column->GetItemIndex()));
}

void CHeaderedGrid::ShowLoaded()
{
    m_control->Populate();
    if (!m_control->GetUndo().IsInStep()) m_control->GetUndo().Clear();
}

void CHeaderedGrid::GoTo(int row, const CXTPReportColumn* column)
{
    const int place = m_control->GetColumns().IndexOf(column);
    const QModelIndex cell = m_control->IndexOf(row, place);
    m_control->setFocus();
    m_control->setCurrentIndex(cell);
    if (cell.isValid())
        m_control->scrollTo(cell);
    else // there is no row yet; the column's head is what can be seen of it
        m_control->horizontalScrollBar()->setValue(
            m_control->horizontalHeader()->sectionPosition(place));
}

// To the first value of a column or row that was not there before.
void CHeaderedGrid::GoToAdded(const CXTPReportColumns& columns, const CXTPReportRecords& records)
{
    const int row = std::max(m_control->currentIndex().row(), 0);
    for (const auto& column : m_control->GetColumns().All())
        if (columns.IndexOf(column.get()) < 0) return GoTo(row, column.get());
    const CXTPReportColumn* const first = m_control->GetColumns().GetAt(1);
    for (const auto& record : m_control->GetRecords().All())
        if (first && records.IndexOf(record.get()) < 0)
            return GoTo(m_control->GetRecords().IndexOf(record.get()), first);
}

// Menu

void CHeaderedGrid::OnRightClick(const CXTPReportColumn* column, const QPoint& globalPos)
{
    if (m_page->IsViewMode()) return;
    CMenu menu = MakeMenu(column);
    if (menu.GetMenuItemCount() == 0) return;
    const UINT id = menu.TrackPopupMenu(globalPos, m_control);
    if (id == 0) return;
    const CXTPReportColumns columns = m_control->GetColumns();
    const CXTPReportRecords records = m_control->GetRecords();
    m_control->GetUndo().Step([&] {
        Choose(static_cast<int>(id - kFirstCommand), column);
        m_control->Populate();
    });
    GoToAdded(columns, records);
}
