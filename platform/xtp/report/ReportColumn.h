// A column of the report grid: which cell of every record it shows.
#pragma once

#include "base/Export.h"
#include "platform/mfc/String.h"
#include "platform/xtp/report/ReportList.h"

class AFX_EXT_CLASS CXTPReportColumn {
public:
    // `itemIndex` is the index of the cell in a record that the column shows. `width` is in
    // pixels at 100 % scale.
    CXTPReportColumn(int itemIndex, const CString& caption, int width)
        : m_itemIndex(itemIndex), m_caption(caption), m_width(width)
    {
    }
    virtual ~CXTPReportColumn() = default;

    int GetItemIndex() const { return m_itemIndex; }
    // May hold line breaks; the header shows them.
    const CString& GetCaption() const { return m_caption; }
    void SetCaption(const CString& caption) { m_caption = caption; }
    int GetWidth() const { return m_width; }
    void SetWidth(int width) { m_width = width; }

private:
    int m_itemIndex;
    CString m_caption;
    int m_width;
};

using CXTPReportColumns = designspec::ReportList<CXTPReportColumn>;
