#include "platform/xtp/report/ReportUndo.h"

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

CXTPReportSnapshot CXTPReportSnapshot::Take(const CXTPReportColumns& columns,
                                            const CXTPReportRecords& records)
{
    CXTPReportSnapshot snapshot{columns.All(), {}};
    for (const auto& record : records.All()) {
        Row row{record, record->GetItems().All(), {}};
        for (const auto& item : row.items)
            row.states.push_back(item->SaveState());
        snapshot.rows.push_back(std::move(row));
    }
    return snapshot;
}

void CXTPReportSnapshot::PutBack(CXTPReportColumns& toColumns, CXTPReportRecords& toRecords) const
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

bool CXTPReportSnapshot::IsSameCell(const CXTPReportSnapshot& other, size_t row,
                                    size_t column) const
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

std::optional<std::pair<int, int>>
CXTPReportSnapshot::FirstChange(const CXTPReportSnapshot& other) const
{
    for (size_t row = 0; row < rows.size(); ++row)
        for (size_t column = 0; column < columns.size(); ++column)
            if (!IsSameCell(other, row, column))
                return std::pair(static_cast<int>(row), static_cast<int>(column));
    return {};
}

CXTPReportUndoCommand::CXTPReportUndoCommand(CXTPReportControl* control, const CString& text,
                                             Snapshot before, Snapshot after)
    : QUndoCommand(ToQString(text)), m_control(control), m_before(std::move(before)),
      m_after(std::move(after))
{
}

void CXTPReportUndoCommand::undo()
{
    m_made = false;
    m_control->Restore(*m_before);
}

void CXTPReportUndoCommand::redo()
{
    if (!m_made) m_control->Restore(*m_after);
    m_made = true;
}
