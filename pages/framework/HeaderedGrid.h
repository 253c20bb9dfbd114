// A grid whose rows begin with a header cell, with a right-click menu that changes its rows and
// columns.
#pragma once

#include <functional>

#include "pages/framework/DSPage.h"
#include "pages/framework/MyRecordItemValue.h"
#include "platform/mfc/Menu.h"

class CMyReportPaintManager;

class CHeaderedGrid {
public:
    // An empty value cell for a column that the user adds to that row.
    using AddedCell = std::function<CMyRecordItemValue*(int row)>;

    CHeaderedGrid() = default;
    virtual ~CHeaderedGrid() = default;
    CHeaderedGrid(const CHeaderedGrid&) = delete;
    CHeaderedGrid& operator=(const CHeaderedGrid&) = delete;

    CXTPReportControl& Control() const { return *m_control; }
    CDSPage& Page() const { return *m_page; }

    // Rows
    int GetRowCount() const { return m_control->GetRecords().GetCount(); }
    // Adds a row before row `at` with its header cell and an empty cell for each column; one
    // beyond the end goes to the end. `itemData` is the page's own number for the row.
    CXTPReportRecord* InsertRow(int at, const CString& caption, unsigned itemData = 0);
    CXTPReportRecord* AddRow(const CString& caption, unsigned itemData = 0);
    void RemoveRow(int row) { m_control->GetRecords().RemoveAt(row); }
    CXTPReportRecordItem* RowHeader(int row) const;
    // The first row of that caption, ignoring case, or of that number; -1 when there is none.
    int FindRow(const CString& caption) const;
    int FindRow(unsigned itemData) const;

    // The value cell of a row and a column; null when there is none.
    CMyRecordItemValue* Cell(int row, const CXTPReportColumn* column) const;

    // Makes the cell of a row and a column the current one, in view and with the focus. Without
    // such a row the grid has the focus, and the column's head is in view.
    void GoTo(int row, const CXTPReportColumn* column);

    // Empties the grid save for its first column.
    void RemoveRows();
    // Shows what was loaded; it cannot be undone, unless it is part of a step.
    void ShowLoaded();

protected:
    static constexpr UINT kFirstCommand = 10001;

    // In the page's InitPage. The grid lives in the page, and as long as it.
    void CreateGrid(CDSPage& page, const AddedCell& addedCell, int placeholder, int gridId,
                    const CString& corner, int headerWidth);

    // Removes all columns but the first; the rows keep their headers alone.
    void RemoveValueColumns();
    // Appends a new empty cell to each row, for a column that is bound to the index returned.
    int AddCells();

    // The menu for a right click on `column`, which is null where there is none. Its ids begin
    // with kFirstCommand. An empty menu does not open.
    virtual CMenu MakeMenu(const CXTPReportColumn* column) const = 0;
    // The user chose the item of id kFirstCommand + `index`. What it changes is one step of undo;
    // the grid is populated afterwards.
    virtual void Choose(int index, const CXTPReportColumn* column) = 0;

private:
    int FindRow(const std::function<bool(const CXTPReportRecordItem&)>& isMeant) const;
    int LastItemIndex() const;
    void FillRow(int row, int lastItem);
    void OnRightClick(const CXTPReportColumn* column, const QPoint& globalPos);
    void GoToAdded(const CXTPReportColumns& columns, const CXTPReportRecords& records);

    CDSPage* m_page = nullptr;
    CXTPReportControl* m_control = nullptr;
    CMyReportPaintManager* m_paintManager = nullptr; // the control's own
    AddedCell m_addedCell;
};
