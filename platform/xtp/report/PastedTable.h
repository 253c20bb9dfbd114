// What somebody means by a block of texts that is pasted into a grid: which of them are captions,
// which way the block lies, and what its numbers are without units.
#pragma once

#include <functional>
#include <vector>

#include "base/CaptionIndex.h"
#include "base/Export.h"
#include "platform/mfc/String.h"

namespace designspec {

// The captions of the grid that a block is pasted into.
struct TableCaptions {
    CString corner;
    CStringArray rows;
    CStringArray columns;
    // Columns that the grid has not but often has, and whether it could have one, or such a row.
    CStringArray usual = {};
    std::function<bool(const CString& caption)> canAddColumn = nullptr;
    std::function<bool(const CString& caption)> canAddRow = nullptr;
    CString rowKind = {}; // what such rows are called
};

// The values of a block lie as the grid does, a row for a row, whichever way the block lay.
class AFX_EXT_CLASS PastedTable {
public:
    using Texts = std::vector<CStringArray>; // rows, which may differ in length

    // Finds out where the captions are.
    PastedTable(Texts texts, const TableCaptions& captions);
    // The first row and the first column are captions, or nothing is one.
    static PastedTable WithCaptions(Texts texts);
    static PastedTable OfValues(Texts texts);
    // The same block, of which the captions do not count.
    PastedTable WithoutCaptions() const;

    int GetRowCount() const;
    int GetColumnCount() const;
    // Null where the block has nothing.
    const CString* Value(int row, int column) const;
    // Null without such captions.
    const CString* RowCaption(int row) const;
    const CString* ColumnCaption(int column) const;
    // Words on top that are captions, but none of the grid's: they go nowhere. Empty without such.
    CStringArray Headline() const;
    bool IsTransposed() const { return m_transposed; }
    // Nothing but one text, without captions.
    bool IsSingle() const { return m_top + m_left == 0 && Height() == 1 && Width() == 1; }
    bool IsEmpty() const { return GetRowCount() == 0 || GetColumnCount() == 0; }
    // Captions or other words alone: there is nothing to enter.
    bool IsWords() const;

private:
    explicit PastedTable(Texts texts);

    class Recogniser;
    void Recognise(const TableCaptions& captions);
    void RecogniseRows(const Recogniser& is, const CStringArray& top, const CStringArray& left);
    void RecogniseWithoutCorner(const Recogniser& is);
    // Of the block as it lay: a text, and the first row or column from a place on.
    const CString& At(int row, int column) const;
    CStringArray Line(bool across, int from) const;
    const CString* TopCaption(int column) const;
    const CString* LeftCaption(int row) const;
    int Width() const { return m_width; }
    int Height() const { return static_cast<int>(m_texts.size()); }

    Texts m_texts;
    int m_width = 0; // of the longest row
    // Captions of the block as it lay: how many lines they take, and whether they are to be used.
    int m_top = 0;
    int m_left = 0;
    bool m_topCounts = true;
    bool m_leftCounts = true;
    bool m_transposed = false;
};

} // namespace designspec
