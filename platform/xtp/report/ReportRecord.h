// A record of the report grid: a row and the cells that it owns.
#pragma once

#include "base/Export.h"
#include "platform/xtp/report/ReportList.h"
#include "platform/xtp/report/ReportRecordItem.h"

// Cells that no column points at stay in the record and are not shown.
class AFX_EXT_CLASS CXTPReportRecord {
public:
    using Items = designspec::ReportList<CXTPReportRecordItem>;

    // Takes ownership of the cell and returns it.
    template <class Item> Item* AddItem(Item* item) { return m_items.Add(item); }
    int GetItemCount() const { return m_items.GetCount(); }
    // Null when the record has no such cell.
    CXTPReportRecordItem* GetItem(int index) const { return m_items.GetAt(index); }

    Items& GetItems() { return m_items; }
    const Items& GetItems() const { return m_items; }

private:
    Items m_items;
};

using CXTPReportRecords = designspec::ReportList<CXTPReportRecord>;
