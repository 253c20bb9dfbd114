// The header cell of a grid's row, which looks like a raised button.
#pragma once

#include "platform/xtp/report/ReportRecordItem.h"

class CXTPReportRecordItemHeard : public CXTPReportRecordItem {
    DECLARE_DYNCREATE(CXTPReportRecordItemHeard)

public:
    CXTPReportRecordItemHeard() = default;
    // A line break in the caption splits it into two lines. `rowHeight` is the height of the row
    // in pixels at 100 % scale, which CMyReportPaintManager gives it; 0 for the default height.
    explicit CXTPReportRecordItemHeard(const CString& caption, int rowHeight = 0)
        : CXTPReportRecordItem(caption), m_nRowHeight(rowHeight)
    {
    }

    int GetRowHeight() const { return m_nRowHeight; }
    void SetRowHeight(int height) { m_nRowHeight = height; }

    void Draw(QPainter& painter, const QRect& rect, const QPalette& palette,
              bool selected) const override;

private:
    int m_nRowHeight = 0;
};
