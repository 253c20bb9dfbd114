// Puts a block of texts into the cells of a report grid, and says what did not go in.
#pragma once

#include <vector>

#include <QModelIndex>

#include "platform/xtp/report/PastedTable.h"

class CXTPReportControl;

namespace designspec {

// The captions of a grid's rows and columns as they are shown.
AFX_EXT_API TableCaptions CaptionsOf(const CXTPReportControl& grid);
// "A、B、C 等": as many as a line has room for, to be shown on one.
AFX_EXT_API CString FirstNames(const CStringArray& names);
// Without line breaks.
AFX_EXT_API CString OneLine(const CString& caption);

class AFX_EXT_CLASS ReportPaste {
public:
    explicit ReportPaste(CXTPReportControl& grid) : m_grid(grid) {}

    // Rows go to the rows of their captions, columns to the columns of theirs; the user is asked
    // about those that could be added. Without captions, and where no row's is one that the grid
    // has or could have, a block goes in from `corner` on, which may be none in an empty grid.
    void Block(const PastedTable& table, const QModelIndex& corner);
    // The same text into each cell.
    void Fill(const CString& text, const QModelIndexList& cells);

private:
    static constexpr int kNowhere = -1;
    struct Entry {
        QModelIndex cell;
        CString text;
    };

    void Find(const PastedTable& table, const QModelIndex& corner);
    void FindRows(const PastedTable& table, int corner);
    void FindColumns(const PastedTable& table, int corner);
    bool OfferMissing();
    std::vector<Entry> EntriesOf(const PastedTable& table) const;
    void Enter(const std::vector<Entry>& entries);
    void Note(const Entry& entry, const CString& before);
    void Select(const std::vector<Entry>& entries);

    CString Report() const;
    CString LeftOut(const std::vector<int>& places, const CStringArray& unknown,
                    const wchar_t* what) const;

    CXTPReportControl& m_grid;
    // For each row and column of the block its place in the grid, kNowhere without one; and the
    // captions that the grid has not.
    std::vector<int> m_rows;
    std::vector<int> m_columns;
    CStringArray m_unknownRows;
    CStringArray m_unknownColumns;
    CStringArray m_strangeRows; // captions of rows that went in one after the other
    CStringArray m_headline;    // captions that were left out
    bool m_byCaptions = false;

    int m_entered = 0;
    int m_emptied = 0;
    CStringArray m_refused; // cells and their texts
    CStringArray m_cut;     // likewise, where the cell holds another number
};

} // namespace designspec
