#include "platform/xtp/report/ReportUndo.h"

#include "platform/xtp/report/ReportControl.h"

using namespace designspec;

ReportSnapshot ReportUndo::Take() const
{
    ReportSnapshot snapshot = ReportSnapshot::Take(m_grid.GetColumns(), m_grid.GetRecords());
    if (m_takeNumber) snapshot.number = m_takeNumber();
    return snapshot;
}

void ReportUndo::Keep(std::function<int()> take, std::function<void(int)> putBack)
{
    m_takeNumber = std::move(take);
    m_putBackNumber = std::move(putBack);
}

void ReportUndo::Step(const std::function<void()>& change)
{
    if (m_inStep) {
        change();
        return;
    }
    ReportSnapshot before = Take();
    m_inStep = true;
    change();
    m_inStep = false;
    ReportSnapshot after = Take();
    if (before == after) return;
    m_grid.SetRemark({});
    m_changes.erase(m_changes.begin() + static_cast<std::ptrdiff_t>(m_done), m_changes.end());
    m_changes.push_back({std::move(before), std::move(after)});
    ++m_done;
}

void ReportUndo::Clear()
{
    m_changes.clear();
    m_done = 0;
    m_grid.SetRemark({});
}

bool ReportUndo::CanUndo() const
{
    return m_grid.IsAllowEdit() && m_done > 0;
}

bool ReportUndo::CanRedo() const
{
    return m_grid.IsAllowEdit() && m_done < m_changes.size();
}

void ReportUndo::Undo()
{
    if (CanUndo()) Restore(m_changes[--m_done].before);
}

void ReportUndo::Redo()
{
    if (CanRedo()) Restore(m_changes[m_done++].after);
}

void ReportUndo::Restore(const ReportSnapshot& content)
{
    const ReportSnapshot now = Take();
    content.PutBack(m_grid.GetColumns(), m_grid.GetRecords());
    if (m_putBackNumber) m_putBackNumber(content.number);
    m_grid.Populate();
    m_grid.SetRemark({});
    // The user sees what has changed, wherever the grid was scrolled to.
    if (const auto place = content.FirstChange(now)) {
        m_grid.setCurrentIndex(m_grid.IndexOf(place->first, place->second));
        m_grid.scrollTo(m_grid.currentIndex());
    }
    emit m_grid.UndoDone();
}
