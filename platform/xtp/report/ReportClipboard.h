// Blocks of cells of a report grid: tab-separated text to and from the clipboard, and emptying.
#pragma once

#include <QModelIndexList>

#include "platform/mfc/String.h"

class CXTPReportControl;

namespace designspec {

// Works on the selected cells, or on the current one. What cannot be edited stays as it is; what
// changes is one step of undo.
class ReportClipboard {
public:
    explicit ReportClipboard(CXTPReportControl& grid) : m_grid(grid) {}

    // Whether there is text of several cells, which is for the grid and not for one cell's editor.
    static bool HoldsBlock();

    void Copy() const;
    void Cut();
    // A block goes in from the selection's corner on, as far as there are cells; a single text
    // goes into each selected cell.
    void Paste();
    void Delete();

private:
    QModelIndexList SelectedCells() const;
    void PasteBlock(const std::vector<CStringArray>& rows, const QModelIndex& corner);

    CXTPReportControl& m_grid;
};

} // namespace designspec
