// Grids whose rows have heights of their own, and whose corner header is split by a diagonal.
#pragma once

#include "platform/xtp/report/ReportPaintManager.h"

class CMyReportPaintManager : public CXTPReportPaintManager {
public:
    // What the row's header cell says, if it says something.
    int GetRowHeight(const CXTPReportRecord* record) const override;
    // A caption "A\B": A at the top right, B at the bottom left, a line between them.
    void DrawColumnHeader(QPainter& painter, const QRect& rect,
                          const CXTPReportColumn* column) const override;

    // What a row header of two lines needs.
    int GetTwoLineHeight() const;
};
