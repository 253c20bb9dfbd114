// A column of the report grid: it shows one cell of every record.
#pragma once

#include "base/Export.h"
#include "platform/mfc/String.h"
#include "platform/xtp/report/ReportList.h"

class AFX_EXT_CLASS CXTPReportColumn {
public:
    // `itemIndex` is the index of the cell in a record that the column shows. `width` is in
    // pixels at 100 % scale. `autoSize` columns share what is left of the width when the header
    // sizes its columns itself. `sortable` columns sort the records by a click on their header
    // when the header allows it.
    CXTPReportColumn(int itemIndex, const CString& caption, int width, bool autoSize = true,
                     bool sortable = true, bool visible = true);
    virtual ~CXTPReportColumn() = default;

    int GetItemIndex() const { return m_itemIndex; }
    void SetItemIndex(int index) { m_itemIndex = index; }
    // May hold line breaks; the header shows them.
    const CString& GetCaption() const { return m_caption; }
    void SetCaption(const CString& caption) { m_caption = caption; }
    int GetWidth() const { return m_width; }
    void SetWidth(int width) { m_width = width; }
    bool IsAutoSize() const { return m_autoSize; }
    void SetAutoSize(bool autoSize) { m_autoSize = autoSize; }
    bool IsSortable() const { return m_sortable; }
    void SetSortable(bool sortable) { m_sortable = sortable; }
    bool IsVisible() const { return m_visible; }
    void SetVisible(bool visible) { m_visible = visible; }

private:
    int m_itemIndex;
    CString m_caption;
    int m_width;
    bool m_autoSize;
    bool m_sortable;
    bool m_visible;
};

using CXTPReportColumns = CXTPReportList<CXTPReportColumn>;
