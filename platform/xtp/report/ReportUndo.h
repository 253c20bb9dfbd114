// Undo and redo of what the user does to a report grid.
#pragma once

#include <functional>

#include "base/Export.h"
#include "platform/xtp/report/ReportSnapshot.h"

class CXTPReportControl;

namespace designspec {

// A step swaps the grid's whole content.
class AFX_EXT_CLASS ReportUndo {
public:
    explicit ReportUndo(CXTPReportControl& grid) : m_grid(grid) {}

    // What `change` does to columns, records and cells is one step, or part of the step that is
    // being made. One that changes nothing is none.
    void Step(const std::function<void()>& change);
    bool IsInStep() const { return m_inStep; }

    // A number of the grid's owner that is part of the content. `putBack` comes before the grid is
    // populated.
    void Keep(std::function<int()> take, std::function<void(int)> putBack);

    // Forgets all steps, as after loading.
    void Clear();
    // Never in a grid that may not be edited.
    bool CanUndo() const;
    bool CanRedo() const;
    // Nothing happens when it cannot be done. The grid is populated, goes to the first cell that
    // has changed, and tells of it by UndoDone.
    void Undo();
    void Redo();

private:
    struct Change {
        ReportSnapshot before;
        ReportSnapshot after;
    };
    ReportSnapshot Take() const;
    void Restore(const ReportSnapshot& content);

    CXTPReportControl& m_grid;
    std::vector<Change> m_changes;
    size_t m_done = 0; // of the changes; those behind have been undone
    bool m_inStep = false;
    std::function<int()> m_takeNumber;
    std::function<void(int)> m_putBackNumber;
};

} // namespace designspec
