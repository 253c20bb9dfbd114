// The column header of the report grid.
#pragma once

#include <QHeaderView>

#include "base/Export.h"

class CXTPReportControl;

// The user can resize columns; may not reorder or sort them unless allowed; cannot remove them.
class AFX_EXT_CLASS CXTPReportHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit CXTPReportHeader(CXTPReportControl* control);

    void AllowColumnReorder(bool allow);
    void AllowColumnResize(bool allow);
    void AllowColumnSort(bool allow);
    // Lets the auto-size columns share the grid's whole width; off at first.
    void SetAutoColumnSizing(bool autoSizing);

    // Takes widths and visibility over from the columns.
    void ApplyColumns();

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    void OnResized(int logicalIndex, int newSize);
    void OnMoved(int from, int to);
    void OnClicked(int logicalIndex);

    CXTPReportControl* m_control;
    bool m_allowResize = true;
    bool m_allowSort = false;
    bool m_autoSizing = false;
    bool m_applying = false;
};
