#include "platform/xtp/report/ReportSnapshot.h"

using namespace designspec;

ReportSnapshot ReportSnapshot::Take(const CXTPReportColumns& columns,
                                    const CXTPReportRecords& records)
{
    ReportSnapshot snapshot{columns.All(), {}, 0};
    for (const auto& record : records.All()) {
        Row row{record, record->GetItems().All(), {}};
        for (const auto& item : row.items)
            row.states.push_back(item->SaveState());
        snapshot.rows.push_back(std::move(row));
    }
    return snapshot;
}

void ReportSnapshot::PutBack(CXTPReportColumns& toColumns, CXTPReportRecords& toRecords) const
{
    CXTPReportRecords::Elements records;
    for (const Row& row : rows) {
        row.record->GetItems().Assign(row.items);
        for (size_t i = 0; i < row.items.size(); ++i)
            row.items[i]->RestoreState(row.states[i]);
        records.push_back(row.record);
    }
    toColumns.Assign(columns);
    toRecords.Assign(std::move(records));
}

bool ReportSnapshot::IsSameCell(const ReportSnapshot& other, size_t row, size_t column) const
{
    if (row >= other.rows.size() || column >= other.columns.size()) return false;
    const auto item = static_cast<size_t>(columns[column]->GetItemIndex());
    const auto otherItem = static_cast<size_t>(other.columns[column]->GetItemIndex());
    const Row& one = rows[row];
    const Row& two = other.rows[row];
    if (item >= one.items.size() || otherItem >= two.items.size())
        return item >= one.items.size() && otherItem >= two.items.size();
    return one.items[item] == two.items[otherItem] && one.states[item] == two.states[otherItem];
}

std::optional<std::pair<int, int>> ReportSnapshot::FirstChange(const ReportSnapshot& other) const
{
    for (size_t row = 0; row < rows.size(); ++row)
        for (size_t column = 0; column < columns.size(); ++column)
            if (!IsSameCell(other, row, column))
                return std::pair(static_cast<int>(row), static_cast<int>(column));
    return {};
}
