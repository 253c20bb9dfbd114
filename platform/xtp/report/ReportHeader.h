// The column header of the report grid. The user resizes columns by it.
#pragma once

#include <QHeaderView>

class CXTPReportControl;

namespace designspec {

class ReportHeader : public QHeaderView {
public:
    explicit ReportHeader(CXTPReportControl* control);

    // Takes the widths over from the columns.
    void ApplyColumns();

    // Asks the control nothing more: it ends before its header does.
    void Leave();

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    CXTPReportControl* m_control;
};

} // namespace designspec
