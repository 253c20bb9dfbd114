// What the mouse tells of a value cell of a grid.
#pragma once

#include <functional>

#include <QObject>

#include "platform/xtp/report/ReportControl.h"

// Other cells keep the grid's own tooltip.
class CCellToolTip : public QObject {
public:
    // The text for a cell; empty where the grid's own will do.
    using Text = std::function<CString(const QModelIndex& cell)>;

    // Lives as long as `grid`, which owns it.
    CCellToolTip(CXTPReportControl* grid, Text text);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CXTPReportControl* m_grid;
    Text m_text;
};
