// Blocks of cells of a report grid: tab-separated text to and from the clipboard, and emptying.
#pragma once

#include <QModelIndexList>
#include <QRect>
#include <QUuid>

#include "platform/xtp/report/PastedTable.h"

class CXTPReportControl;
class CXTPReportRecordItem;

namespace designspec {

// Works on the selected cells, or on the current one. What cannot be edited stays as it is; what
// changes is one step of undo.
class ReportClipboard {
public:
    enum Kind {
        kWithCaptions,
        kPlain, // captions neither go along nor are looked for
    };

    explicit ReportClipboard(CXTPReportControl& grid) : m_grid(grid) {}

    // Whether there is text of several cells, which is for the grid and not for one cell's editor.
    static bool HoldsBlock();

    // A single cell goes alone. This program finds all decimals of the numbers as well.
    void Copy(Kind kind) const;
    void Cut();
    // A block goes where its captions belong, or in from the selection's corner on; a single text
    // goes into each selected cell. The grid's remark says what did not go in.
    void Paste(Kind kind);
    void Delete();

private:
    using TextOf = CString (*)(const CXTPReportRecordItem& item);

    QModelIndexList SelectedCells() const;
    QRect SelectedBlock() const; // x: columns, y: rows
    std::vector<CStringArray> TextsOf(const QRect& block, bool captions, TextOf textOf) const;
    PastedTable Pasted(Kind kind) const;

    CXTPReportControl& m_grid;
    const QUuid m_id = QUuid::createUuid(); // tells the grid's own copies from others
};

} // namespace designspec
