#include "platform/xtp/report/ReportUndo.h"

#include "platform/mfc/QtText.h"
#include "platform/xtp/report/ReportControl.h"

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
