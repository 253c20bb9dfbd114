// Undo for the report grid: a step swaps the grid's whole content.
#pragma once

#include <memory>
#include <optional>

#include <QUndoCommand>

#include "platform/mfc/String.h"
#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportRecord.h"

// Columns, records, cells and the cells' states. Whatever it names it keeps alive.
struct CXTPReportSnapshot {
    struct Row {
        std::shared_ptr<CXTPReportRecord> record;
        CXTPReportRecord::Items::Elements items;
        std::vector<CXTPReportItemState> states;

        bool operator==(const Row&) const = default;
    };

    CXTPReportColumns::Elements columns;
    std::vector<Row> rows;

    bool operator==(const CXTPReportSnapshot&) const = default;

    static CXTPReportSnapshot Take(const CXTPReportColumns& columns,
                                   const CXTPReportRecords& records);
    void PutBack(CXTPReportColumns& columns, CXTPReportRecords& records) const;

    // The place, row and column, of the first cell that is another one or in another state than
    // the cell there in `other`; null when there is none.
    std::optional<std::pair<int, int>> FirstChange(const CXTPReportSnapshot& other) const;

private:
    bool IsSameCell(const CXTPReportSnapshot& other, size_t row, size_t column) const;
};

class CXTPReportUndoCommand : public QUndoCommand {
public:
    using Snapshot = std::shared_ptr<const CXTPReportSnapshot>;

    // The change from `before` to `after` has been made already.
    CXTPReportUndoCommand(CXTPReportControl* control, const CString& text, Snapshot before,
                          Snapshot after);

    void undo() override;
    void redo() override;

private:
    CXTPReportControl* m_control;
    Snapshot m_before;
    Snapshot m_after;
    bool m_made = true;
};
