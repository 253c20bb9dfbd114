// The content of a report grid at one time, for undo.
#pragma once

#include <optional>
#include <utility>

#include "platform/xtp/report/ReportColumn.h"
#include "platform/xtp/report/ReportRecord.h"

namespace designspec {

// Columns, records, cells and the cells' states. Whatever it names it keeps alive.
struct ReportSnapshot {
    struct Row {
        std::shared_ptr<CXTPReportRecord> record;
        CXTPReportRecord::Items::Elements items;
        std::vector<ReportItemState> states;

        bool operator==(const Row&) const = default;
    };

    CXTPReportColumns::Elements columns;
    std::vector<Row> rows;
    int number = 0; // of ReportUndo::Keep

    bool operator==(const ReportSnapshot&) const = default;

    static ReportSnapshot Take(const CXTPReportColumns& columns, const CXTPReportRecords& records);
    void PutBack(CXTPReportColumns& columns, CXTPReportRecords& records) const;

    // The place, row and column, of the first cell that is another one or in another state than
    // the cell there in `other`; null when there is none.
    std::optional<std::pair<int, int>> FirstChange(const ReportSnapshot& other) const;

private:
    bool IsSameCell(const ReportSnapshot& other, size_t row, size_t column) const;
};

} // namespace designspec
