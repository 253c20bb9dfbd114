// The cells of one sheet as texts, as far as they hold something.
#pragma once

#include <map>

#include "platform/mfc/String.h"

namespace designspec {

class SheetGrid {
public:
    explicit SheetGrid(CString name) : m_name(std::move(name)) {}

    const CString& Name() const { return m_name; }
    bool IsEmpty() const { return m_cells.empty(); }

    void Set(int row, int column, CString text);
    // That cell is one with the cell at `of`, whose text it has.
    struct Place {
        int row, column;
    };
    void Merge(int row, int column, Place of) { m_merged[row][column] = of; }

    // The text of the cell itself; empty where there is none.
    const CString& At(int row, int column) const;
    using Row = std::map<int, CString>; // by column
    // The rows that hold something, by their numbers.
    const std::map<int, Row>& Rows() const { return m_cells; }
    // A row with the texts of cells that are merged with others.
    Row Line(int row) const;

    // Rows for columns. Cells keep their names.
    SheetGrid Transposed() const;
    // "圆曲线半径 C5".
    CString PlaceOf(int row, int column) const;

private:
    CString m_name;
    std::map<int, Row> m_cells;
    std::map<int, std::map<int, Place>> m_merged; // by row and column
    bool m_transposed = false;
};

} // namespace designspec
